// What a platform under test was asked to do, in order, and the one call that is to fail.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

struct LoggedCall {
    std::wstring operation;  // the interface's function, such as L"ReadBytes"
    std::wstring path;       // as the caller gave it; for the registry "HKCU\key|value"
};

class CallLog {
  public:
    // Counts and notes a call; true if it is the one that is to fail.
    bool Record(const wchar_t* operation, const std::wstring& path);

    // Makes the n-th call from now on fail, the next one being 1; 0 lets all succeed. The count starts anew.
    void FailCall(size_t n);
    // True once the call that was to fail has been made.
    bool HasFailed() const { return m_failAt != 0 && m_calls.size() >= m_failAt; }

    void Clear();
    const std::vector<LoggedCall>& GetCalls() const { return m_calls; }
    size_t GetCount() const { return m_calls.size(); }
    size_t GetCount(const std::wstring& operation) const;

  private:
    std::vector<LoggedCall> m_calls;
    size_t m_failAt = 0;
};

}  // namespace platform
