// A host that refuses: the calls of the host interface that a module makes are counted, and chosen ones fail
// as the vendor's host may let them fail. It shows that the module stays up whatever its host answers.
#pragma once

#include <arx_port.h>
#include <windows.h>

#include <string>
#include <vector>

namespace frame {

struct HostCallCount {
    std::string name;
    long calls = 0;
};

class ARX_PORT HostileHost {
  public:
    // What fails: "count" for nothing, a number for that one call (counted from 1 over all names), a name of
    // Names() for all calls of that name. One at a time, from before a module is loaded until it has been
    // unloaded.
    explicit HostileHost(const std::wstring& plan);
    ~HostileHost();
    HostileHost(const HostileHost&) = delete;
    HostileHost& operator=(const HostileHost&) = delete;

    // Null while the host is an ordinary one.
    static HostileHost* Current();
    // Whether a plan is one: see the constructor.
    static bool IsPlan(const std::wstring& plan);
    // All calls that can be made to fail. Those that give what always exists in a running host (its registry
    // of services, its class descriptions), that only release, or that answer by value are not among them.
    static std::vector<std::string> Names();

    // The module's calls go through here from now on. Called once it is loaded, before its entry point.
    void Watch(HMODULE module);

    // For calls that are not imported by name: whether this one, made from the code at `caller`, fails.
    static bool Fails(const char* name, const void* caller);

    // The calls so far by name, those that were made only.
    std::vector<HostCallCount> Counts() const;
    // The calls that failed, "call 17 (acedGetVar)", separated by commas; at most ten are told.
    std::wstring Failures() const;

  private:
    bool Decide(std::size_t name, const void* caller);
    static bool DecideCall(std::size_t name, const void* caller);
    void WatchImports();
    void WatchInterfaces();
    friend struct HostileThunks;

    std::size_t m_failingName;
    long m_failingCall = 0;
    const char* m_begin = nullptr;  // of the module in memory
    const char* m_end = nullptr;
    long m_calls = 0;
    std::vector<long> m_counts;
    std::vector<std::string> m_failures;
    struct Slot {
        void** place;
        void* original;
    };
    std::vector<Slot> m_interfaceSlots;  // to be put back
};

}  // namespace frame
