// The platform's headers, in the one way that all framework headers take them: wide, current, without
// min/max.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0A00
#endif

#include <initializer_list>

// windows.h comes before the others, which need its types.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <olectl.h>
#include <shellapi.h>
#include <tchar.h>
#include <windowsx.h>

// windowsx.h takes these names for macros; the framework has functions of the same names.
#undef CopyRgn
#undef GetFirstChild
#undef GetNextSibling
#undef GetPrevSibling
#undef GetWindowFont
#undef SubclassDialog
#undef SubclassWindow

#define afx_msg
