#include <windows.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "support/crash_report.h"

namespace {

constexpr USHORT kMostFrames = 64;

// Each frame as module and offset, which addr2line understands.
void PrintFrame(const void* address) {
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"?";
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(address), &module);
    if (module) GetModuleFileNameW(module, path, MAX_PATH);
    std::fprintf(stderr, "  %ls + 0x%llx\n", path,
                 static_cast<unsigned long long>(static_cast<const char*>(address) -
                                                 reinterpret_cast<const char*>(module)));
}

void PrintStack() {
    void* frames[kMostFrames];
    const USHORT count = CaptureStackBackTrace(0, kMostFrames, frames, nullptr);
    for (USHORT i = 0; i < count; ++i)
        PrintFrame(frames[i]);
    std::fflush(stderr);
}

LONG WINAPI OnUnhandledException(EXCEPTION_POINTERS* info) {
    std::fprintf(stderr, "\nThe program crashed: exception 0x%08lx at\n",
                 info->ExceptionRecord->ExceptionCode);
    PrintFrame(info->ExceptionRecord->ExceptionAddress);
    PrintStack();
    return EXCEPTION_CONTINUE_SEARCH;
}

void OnAbort(int) {
    std::fprintf(stderr, "\nThe program called abort:\n");
    PrintStack();
}

}  // namespace

void InstallCrashReport() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(OnUnhandledException);
    std::signal(SIGABRT, OnAbort);
}
