// Trace markers: short texts that tell where the module is. They go to a hook, and nowhere while there is
// none.
#pragma once

#include <string>

using TraceHook = void (*)(const std::wstring& strMarker);

// Null switches tracing off, which is how it starts.
void SetTraceHook(TraceHook pfnHook);

void Trace(const wchar_t* szMarker);
