// Messages that the host sends to the windows of its modules.
#pragma once

// Asked before the host takes the keyboard focus away from a modeless window, because the user has moved on
// to the drawing or types a command. The window that answers 1 keeps the focus. The question goes to the
// window with the focus and from there to its parents, up to the host's own frame; 0 from all of them gives
// it up.
constexpr unsigned int WM_ACAD_KEEPFOCUS = 28929;
