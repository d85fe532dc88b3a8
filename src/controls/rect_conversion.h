// Between the platform's rectangles and those of the portable arithmetic.
#pragma once

#include <afxwin.h>

#include "controls/pixel_geometry.h"

inline CPixelRect ToPixelRect(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

inline CRect ToRect(const CPixelRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// The window's rectangle in the client coordinates of `wndOwner`.
inline CPixelRect GetRectIn(const CWnd& wndOwner, const CWnd& wnd) {
    CRect rect;
    wnd.GetWindowRect(rect);
    wndOwner.ScreenToClient(rect);
    return ToPixelRect(rect);
}
