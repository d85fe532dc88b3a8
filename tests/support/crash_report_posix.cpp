#include <execinfo.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "support/crash_report.h"

namespace {

constexpr int kMostFrames = 64;

void OnSignal(int number) {
    const char* name = strsignal(number);
    dprintf(STDERR_FILENO, "\nThe program crashed: %s\n", name ? name : "unknown signal");
    void* frames[kMostFrames];
    backtrace_symbols_fd(frames, backtrace(frames, kMostFrames), STDERR_FILENO);
    std::signal(number, SIG_DFL);
    raise(number);
}

}  // namespace

void InstallCrashReport() {
    // The sanitizer reports the other signals itself, with file and line.
#ifndef __SANITIZE_ADDRESS__
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        std::signal(number, OnSignal);
#endif
    std::signal(SIGABRT, OnSignal);
}
