// The platform of the tests: everything in memory, everything settable, everything recorded.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/call_log.h"
#include "platform/memory_files.h"
#include "platform/memory_registry.h"
#include "platform/platform.h"
#include "platform/windows_1252.h"

namespace platform {

class MemoryEnvironment : public Environment {
  public:
    std::wstring GetVariable(const std::wstring& name) override;
    std::wstring GetProgramArgument() override { return m_programArgument; }

    void SetVariable(const std::wstring& name, const std::wstring& value);  // the empty value takes it away
    void SetProgramArgument(const std::wstring& argument) { m_programArgument = argument; }

  private:
    std::map<std::wstring, std::wstring> m_variables;  // by upper-case name
    std::wstring m_programArgument = L"C:\\Program Files\\Host\\host.exe";
};

// Stands still at the time that was set last. Local time is UTC.
class MemoryClock : public Clock {
  public:
    FileTime Now() override { return m_now; }
    bool ToLocal(FileTime moment, CalendarTime& local) override;

    void SetNow(FileTime now) { m_now = now; }

  private:
    FileTime m_now = 133'485'408'000'000'000;  // 2024-01-01 00:00
};

// The moment of a calendar time in UTC.
FileTime ToFileTime(const CalendarTime& time);

// GUIDs in sequence, the first one 00000001-0000-0000-0000-000000000000, unless the test hands out its own.
class MemoryGuids : public Guids {
  public:
    Guid Create() override;
    void SetNext(const Guid& guid) { m_prepared.push_back(guid); }

  private:
    std::uint32_t m_last = 0;
    std::deque<Guid> m_prepared;
};

struct ProcessRun {
    std::wstring program;
    std::vector<std::wstring> arguments;
};

// Starts nothing; notes each run and returns the scripted exit status.
class MemoryProcesses : public Processes {
  public:
    int RunAndWait(const std::wstring& program, const std::vector<std::wstring>& arguments) override;

    void SetExitStatus(int status) { m_status = status; }
    // What each run does, in place of the program.
    void OnRun(std::function<void()> effect) { m_effect = std::move(effect); }
    const std::vector<ProcessRun>& GetRuns() const { return m_runs; }

  private:
    int m_status = 0;
    std::function<void()> m_effect;
    std::vector<ProcessRun> m_runs;
};

struct ShownBox {
    BoxOwner owner = BoxOwner::kNone;
    std::wstring text;
    std::wstring caption;
    unsigned flags = 0;
};

// Shows nothing; notes each box and gives the next scripted answer. Without one, a box with a single button
// is answered with it, and a question counts as unanswered and gets No or Cancel.
class MemoryBoxes : public MessageBoxes {
  public:
    int Show(BoxOwner owner, const std::wstring& text, const std::wstring& caption, unsigned flags) override;

    void Answer(int answer) { m_answers.push_back(answer); }
    const std::vector<ShownBox>& GetShown() const { return m_shown; }
    size_t GetUnusedAnswerCount() const { return m_answers.size(); }
    size_t GetUnansweredCount() const { return m_unanswered; }
    void Clear();

  private:
    std::deque<int> m_answers;
    std::vector<ShownBox> m_shown;
    size_t m_unanswered = 0;
};

// All services together. Install(&memory.services) puts them into use.
struct MemoryPlatform {
    CallLog log;
    MemoryClock clock;
    MemoryFiles files{clock, log};
    MemoryRegistry registry{log};
    MemoryEnvironment environment;
    MemoryGuids guids;
    MemoryProcesses processes;
    MemoryBoxes boxes;
    Windows1252Coding text;
    Platform services{files, registry, environment, clock, guids, processes, boxes, text};

    MemoryPlatform() = default;
    MemoryPlatform(const MemoryPlatform&) = delete;
    MemoryPlatform& operator=(const MemoryPlatform&) = delete;
};

}  // namespace platform
