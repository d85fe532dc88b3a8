// Marks what the host's library exports: exported while the library itself is built, imported by everybody
// else.
#pragma once

#if defined(_WIN32) && defined(HOSTAPI_BUILD)
#define ARX_PORT __declspec(dllexport)
#elif defined(_WIN32)
#define ARX_PORT __declspec(dllimport)
#else
#define ARX_PORT
#endif
