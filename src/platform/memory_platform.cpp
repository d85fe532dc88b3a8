#include "platform/memory_platform.h"

#include <chrono>

#include "platform/letter_case.h"

namespace platform {

namespace {

constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
constexpr std::int64_t kSecondsPerDay = 86'400;
constexpr int kLastYear = 3000;

constexpr unsigned kBoxTypeMask = 0x0F;
constexpr unsigned kBoxOk = 0;
constexpr unsigned kBoxYesNo = 4;

}  // namespace

std::wstring MemoryEnvironment::GetVariable(const std::wstring& name) {
    const auto variable = m_variables.find(ToUpper(name));
    return variable == m_variables.end() ? std::wstring() : variable->second;
}

void MemoryEnvironment::SetVariable(const std::wstring& name, const std::wstring& value) {
    m_variables[ToUpper(name)] = value;
}

bool MemoryClock::ToLocal(FileTime moment, CalendarTime& local) {
    const std::int64_t seconds = moment / kTicksPerSecond - kSecondsFrom1601To1970;
    if (moment < 0 || seconds < 0) return false;
    const auto day = std::chrono::sys_days(std::chrono::days(seconds / kSecondsPerDay));
    const std::chrono::year_month_day date(day);
    if (static_cast<int>(date.year()) > kLastYear) return false;
    const int rest = static_cast<int>(seconds % kSecondsPerDay);
    local = {static_cast<int>(date.year()),
             static_cast<int>(static_cast<unsigned>(date.month())),
             static_cast<int>(static_cast<unsigned>(date.day())),
             rest / 3600,
             rest / 60 % 60,
             rest % 60};
    return true;
}

FileTime ToFileTime(const CalendarTime& time) {
    const std::chrono::sys_days day = std::chrono::year(time.year) /
                                      std::chrono::month(static_cast<unsigned>(time.month)) /
                                      std::chrono::day(static_cast<unsigned>(time.day));
    const std::int64_t seconds = static_cast<std::int64_t>(day.time_since_epoch().count()) * kSecondsPerDay +
                                 time.hour * 3600 + time.minute * 60 + time.second;
    return (seconds + kSecondsFrom1601To1970) * kTicksPerSecond;
}

Guid MemoryGuids::Create() {
    if (m_prepared.empty()) return {.data1 = ++m_last};
    const Guid guid = m_prepared.front();
    m_prepared.pop_front();
    return guid;
}

int MemoryProcesses::RunAndWait(const std::wstring& program, const std::vector<std::wstring>& arguments) {
    m_runs.push_back({program, arguments});
    if (m_effect) m_effect();
    return m_status;
}

int MemoryBoxes::Show(BoxOwner owner, const std::wstring& text, const std::wstring& caption, unsigned flags) {
    m_shown.push_back({owner, text, caption, flags});
    if (!m_answers.empty()) {
        const int answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    const unsigned type = flags & kBoxTypeMask;
    if (type == kBoxOk) return kAnswerOk;
    ++m_unanswered;
    return type == kBoxYesNo ? kAnswerNo : kAnswerCancel;
}

void MemoryBoxes::Clear() {
    m_answers.clear();
    m_shown.clear();
    m_unanswered = 0;
}

}  // namespace platform
