// What the dock manager keeps about one bar.
#pragma once

#include <aduiDock.h>

#include <optional>
#include <string>

#include "frame/dock_layout.h"

namespace frame {
class DockManager;
}

class CDockState {
  public:
    static CDockState& Of(const CAdUiDockControlBar& bar) { return *bar.m_pDock; }

    DWORD allowedSides = 0;  // CBRS_ALIGN_...
    std::optional<GUID> toolId;
    frame::DockSide side = frame::DockSide::kFloating;
    int dockedWidth = 0;
    frame::LayoutRect floatingRect;  // of the window, in screen coordinates
    frame::DockManager* manager =
        nullptr;  // of the frame that the bar belongs to; null outside a workbench frame
};
