// Marks what the host library offers to the programs and modules that link it.
#pragma once

#if defined(_WIN32) && defined(HOSTAPI_BUILD)
#define AFX_PORT __declspec(dllexport)
#elif defined(_WIN32)
#define AFX_PORT __declspec(dllimport)
#else
#define AFX_PORT
#endif
