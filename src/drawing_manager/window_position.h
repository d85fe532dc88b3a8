// The text in which the Drawing Manager's window and splitters are remembered between two runs.
#pragma once

#include <string>

#include "controls/pixel_geometry.h"

struct CWindowPosition {
    CPixelRect rcWindow;     // screen coordinates
    CPixelRect rcSplitterV;  // client coordinates of the dialog, like the next
    CPixelRect rcSplitterH;
    bool bListVisible = true;
    bool operator==(const CWindowPosition&) const = default;
};

// Thirteen numbers separated by commas: three rectangles as left, top, right, bottom, then 1 or 0 for the
// list.
std::wstring FormatWindowPosition(const CWindowPosition& position);

// Reads as far as the text parses. Numbers that are missing count as 0, a missing thirteenth leaves the list
// visible, so that a damaged text never folds the window down to nothing. Numbers beyond 32 bits stop at the
// largest or smallest one.
// L"10,20,400x" gives a window rectangle of 10, 20, 400, 0.
CWindowPosition ParseWindowPosition(const std::wstring& strText);

// Holds a remembered window rectangle to the screen's corner and to the greatest size: a negative left or top
// becomes 0 (the other edges stay), then width and height are cut to 1600 and 1200.
CPixelRect ClampWindowRect(const CPixelRect& rect);
