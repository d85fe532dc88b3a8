#include "platform/call_log.h"

#include <algorithm>

namespace platform {

bool CallLog::Record(const wchar_t* operation, const std::wstring& path) {
    m_calls.push_back({operation, path});
    return m_calls.size() == m_failAt;
}

void CallLog::FailCall(size_t n) {
    m_calls.clear();
    m_failAt = n;
}

void CallLog::Clear() {
    FailCall(0);
}

size_t CallLog::GetCount(const std::wstring& operation) const {
    return static_cast<size_t>(std::count_if(
        m_calls.begin(), m_calls.end(), [&](const LoggedCall& call) { return call.operation == operation; }));
}

}  // namespace platform
