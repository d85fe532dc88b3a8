#include "frame/child_program.h"

#include <psapi.h>

namespace frame {

ChildProgram::~ChildProgram() {
    if (m_process != nullptr) CloseHandle(m_process);
}

bool ChildProgram::Start(const std::wstring& commandLine) {
    wchar_t folder[MAX_PATH] = L"";
    const DWORD length = GetModuleFileNameW(nullptr, folder, MAX_PATH);
    const std::wstring path(folder, length);
    const std::wstring start = path.substr(0, path.find_last_of(L'\\') + 1);
    std::wstring line = commandLine;  // the system writes into it
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                        start.c_str(), &startup, &process))
        return false;
    CloseHandle(process.hThread);
    m_process = process.hProcess;
    return true;
}

std::optional<DWORD> ChildProgram::Status() {
    DWORD status = 0;
    if (m_process == nullptr || WaitForSingleObject(m_process, 0) != WAIT_OBJECT_0 ||
        !GetExitCodeProcess(m_process, &status))
        return std::nullopt;
    CloseHandle(m_process);
    m_process = nullptr;
    return status;
}

std::wstring DescribeResources() {
    const HANDLE process = GetCurrentProcess();
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    PROCESS_MEMORY_COUNTERS_EX memory{};
    GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory);
    return L"gdi " + std::to_wstring(GetGuiResources(process, GR_GDIOBJECTS)) + L" user " +
           std::to_wstring(GetGuiResources(process, GR_USEROBJECTS)) + L" handles " +
           std::to_wstring(handles) + L" memory " + std::to_wstring(memory.PrivateUsage / 1024);
}

}  // namespace frame
