#include "drawing_manager/drawing_state.h"

#include "platform/platform.h"

DrawingState GetStateOfDrawing(bool bLocked, std::uint32_t uAttributes) {
    if (bLocked) return kDrawingLocked;
    return (uAttributes & platform::kAttributeReadOnly) != 0 ? kDrawingReadOnly : kDrawingNormal;
}
