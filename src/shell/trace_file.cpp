#include "shell/trace_file.h"

#include <windows.h>

#include <string>

#include "platform/platform.h"
#include "storage/trace.h"

namespace {

HANDLE g_hTraceFile = INVALID_HANDLE_VALUE;

// Written through at once: a trace is read after a crash.
void AppendMarker(const std::wstring& strMarker) {
    const std::string strLine = platform::GetText().Narrow(strMarker) + "\r\n";
    DWORD nWritten = 0;
    WriteFile(g_hTraceFile, strLine.data(), static_cast<DWORD>(strLine.size()), &nWritten, nullptr);
}

}  // namespace

void StartTraceFile() {
    const std::wstring strPath = platform::GetEnvironment().GetVariable(L"KV2D_TRACE");
    if (strPath.empty()) return;
    g_hTraceFile = CreateFileW(strPath.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (g_hTraceFile != INVALID_HANDLE_VALUE) SetTraceHook(AppendMarker);
}

void StopTraceFile() {
    SetTraceHook(nullptr);
    if (g_hTraceFile != INVALID_HANDLE_VALUE) CloseHandle(g_hTraceFile);
    g_hTraceFile = INVALID_HANDLE_VALUE;
}
