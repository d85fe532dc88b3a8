// Another program that a script starts and waits for.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace frame {

class ChildProgram {
  public:
    ChildProgram() = default;
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    // Starts a command line in the folder of this program. False if there is no such program.
    bool Start(const std::wstring& commandLine);
    bool IsStarted() const { return m_process != nullptr; }
    // The exit status once it has ended; it can be started anew then.
    std::optional<DWORD> Status();

  private:
    HANDLE m_process = nullptr;
};

// What this process holds of the system: "gdi 71 user 45 handles 120 memory 20480", the memory in KiB of
// private pages.
std::wstring DescribeResources();

}  // namespace frame
