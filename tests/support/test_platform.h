// The system under a test: files, registry, environment, clock and message boxes of its own, installed as the
// platform for the length of one test case.
//
//     class ClientListTest : public SystemTest {};
//
//     TEST_F(ClientListTest, ReadClients_WithoutFile_IsEmpty) {
//         UseDatabase();                                     // <root>\Data\, and the registry value points
//         there PutFile(InData(L"ClientDatafile.ini"), Lines({"[ClientList]", "KV2D_CLIENT_1 = Acme"}));
//         ...
//         EXPECT_EQ(GetBytes(InData(L"ClientDatafile.ini")), "...");
//     }
//
// On Linux a SystemTest runs on the memory platform. On Windows its files are real ones in a fresh temporary
// folder, and HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE and HKEY_CLASSES_ROOT lead to an empty branch of its own;
// both are removed afterwards. Environment, clock, GUIDs, processes and boxes are the memory platform's on
// both: scripted and recorded.
//
// Tests that need faults or count calls derive from MemorySystemTest, which is in memory everywhere:
//
//     GetMemory().files.FailWriteAt(InData(L"Lines.ini"), 20);
//     GetMemory().log.GetCount(L"ReadBytes")
//
// A question box without a scripted answer, and a scripted answer that no box asked for, fail the test.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/memory_platform.h"
#include "platform/platform.h"

enum class SystemKind {
    kNative,  // real files and registry where the program runs on Windows
    kMemory,  // in memory everywhere
};

// The lines as a file holds them, each ended by CR LF.
std::string Lines(std::initializer_list<std::string_view> lines);

// Keeps a file open as another process would, until it is destroyed.
class HeldFile {
  public:
    explicit HeldFile(std::function<void()> release) : m_release(std::move(release)) {}
    ~HeldFile() { m_release(); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

  private:
    std::function<void()> m_release;
};

class TestSystem {
  public:
    explicit TestSystem(SystemKind kind = SystemKind::kNative);
    ~TestSystem();
    TestSystem(const TestSystem&) = delete;
    TestSystem& operator=(const TestSystem&) = delete;

    // True on Windows, unless the test asked for memory.
    bool IsReal() const;

    // --- Files. Paths are full paths; GetRoot and InRoot give them.

    // The empty folder of this test, with a backslash behind it.
    const std::wstring& GetRoot() const { return m_root; }
    std::wstring InRoot(const std::wstring& name) const { return m_root + name; }

    // Creates the folder Data and points the registry value DatafilesPath to it. The result is its path with
    // a backslash behind it.
    std::wstring UseDatabase();
    // A path below the folder of UseDatabase.
    std::wstring InData(const std::wstring& name) const { return m_root + L"Data\\" + name; }

    // Creates or replaces the file, with all folders above it.
    void PutFile(const std::wstring& path, std::string_view bytes);
    void PutFolder(const std::wstring& path);
    // The file's bytes. A file that is not there fails the test.
    std::string GetBytes(const std::wstring& path);
    bool HasFile(const std::wstring& path);
    bool HasFolder(const std::wstring& path);

    void SetReadOnly(const std::wstring& path, bool readOnly = true);
    void SetHidden(const std::wstring& path, bool hidden = true);
    platform::FileTime GetModified(const std::wstring& path);
    void SetModified(const std::wstring& path, platform::FileTime modified);
    std::unique_ptr<HeldFile> HoldFile(const std::wstring& path, platform::Hold hold);

    // --- Registry.

    // A value below the product key of HKEY_LOCAL_MACHINE, as set-up writes it: L"DatafilesPath".
    void SetMachineValue(const std::wstring& name, const std::wstring& text);
    void SetMachineValue(const std::wstring& subkey, const std::wstring& name, const std::wstring& text);
    void DeleteMachineValue(const std::wstring& name);
    // A value of any type, in any hive.
    void SetRegistryBytes(platform::Hive hive, const std::wstring& key, const std::wstring& name,
                          platform::RegistryType type, const std::string& bytes);

    // --- Environment, clock, boxes, processes.

    void SetVariable(const std::wstring& name, const std::wstring& value);
    void SetProgramArgument(const std::wstring& argument);
    void SetNow(const platform::CalendarTime& time);

    // The answer to the next box that has none yet: platform::kAnswerYes.
    void Answer(int answer);
    const std::vector<platform::ShownBox>& GetBoxes() const;
    const std::vector<platform::ProcessRun>& GetRuns() const;

    // --- Memory only.

    // The memory platform with its faults and its log of calls; aborts if files are real.
    platform::MemoryPlatform& GetMemory();

  private:
    struct RealSystem;

    void ChangeAttribute(const std::wstring& path, std::uint32_t attribute, bool on);

    std::unique_ptr<platform::MemoryPlatform> m_memory;
    std::unique_ptr<RealSystem> m_real;
    std::unique_ptr<platform::Platform> m_services;
    platform::Platform* m_previous = nullptr;
    std::wstring m_root;
};

class SystemTest : public testing::Test, protected TestSystem {
  protected:
    SystemTest() : TestSystem(SystemKind::kNative) {}
};

class MemorySystemTest : public testing::Test, protected TestSystem {
  protected:
    MemorySystemTest() : TestSystem(SystemKind::kMemory) {}
};

// Lets every file and registry call of an operation fail once. For n = 1, 2, ...: sets up a fresh system in
// memory with `arrange`, lets the n-th call fail, and runs `act`; ends after the run in which no call failed.
// `act` asserts what must hold in every run. The result is the number of runs.
size_t ForEachFailingCall(const std::function<void(TestSystem&)>& arrange,
                          const std::function<void(TestSystem&)>& act);
