#include "storage/trace.h"

namespace {
TraceHook g_pfnTraceHook = nullptr;
}

void SetTraceHook(TraceHook pfnHook) {
    g_pfnTraceHook = pfnHook;
}

void Trace(const wchar_t* szMarker) {
    if (g_pfnTraceHook) g_pfnTraceHook(szMarker);
}
