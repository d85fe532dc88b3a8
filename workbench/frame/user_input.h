// Input as the user makes it: keys and clicks that go through the system to whatever window has the focus or
// lies under the pointer.
#pragma once

#include <arx_port.h>
#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace frame {

// The keys of a name such as "Enter", "F2", "Ctrl+S" or "Shift+Tab", in the order in which they go down.
// Nothing for a name that is not known.
ARX_PORT std::optional<std::vector<WORD>> KeysOf(const std::wstring& name);
// Presses them in order and lets them go in the reverse order.
ARX_PORT void PressKeys(const std::vector<WORD>& keys);
ARX_PORT void TypeText(const std::wstring& text);

enum class MouseButton { kLeft, kRight };
// True if the pointer is at that point of the screen, else sends it there. It may be led away again by
// movements that are still on their way from the display.
ARX_PORT bool PutPointer(POINT point);
// Clicks at a point of the screen, where the pointer has been put.
ARX_PORT void ClickScreen(POINT point, MouseButton button, int times = 1);

// The parts of a drag with the left button: it goes down, the pointer moves, it goes up.
ARX_PORT void HoldButton(POINT point);
ARX_PORT void MovePointer(POINT point);
ARX_PORT void ReleaseButton(POINT point);

}  // namespace frame
