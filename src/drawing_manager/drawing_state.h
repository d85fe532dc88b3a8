// The state of a drawing file, which is also its icon in the list.
#pragma once

#include <cstdint>

enum DrawingState : int {
    kDrawingNormal = 0,
    kDrawingBackup = 1,
    kDrawingLocked = 2,
    kDrawingReadOnly = 3,
};

// The state of a file that is no backup. `uAttributes` are its attributes as the platform gives them. Those
// of a missing file have every bit set, so a file that vanished while it was being listed shows as read-only.
DrawingState GetStateOfDrawing(bool bLocked, std::uint32_t uAttributes);

// Whether a click on such a row is answered by a note.
inline bool HasStateNote(int nState) {
    return nState == kDrawingLocked || nState == kDrawingReadOnly;
}
