// The workbench's own colours and fonts, in one place.
#pragma once

#include <windows.h>

namespace frame {

constexpr COLORREF kCaptionColor = RGB(52, 66, 84);
constexpr COLORREF kCaptionTextColor = RGB(235, 240, 245);
constexpr COLORREF kCaptionHotColor = RGB(196, 60, 50);  // behind the close button under the mouse

// The font of captions, tabs and the command line. It lives as long as the program.
HFONT InterfaceFont();

}  // namespace frame
