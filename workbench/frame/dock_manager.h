// The dock manager: gives each palette set its place at a side of the frame or above it, lets the user drag
// it there, and keeps the places from session to session.
#pragma once

#include <arx_port.h>

#include <aduiDock.h>

#include <memory>
#include <string>
#include <vector>

#include "frame/dock_layout.h"

namespace frame {

class ARX_PORT DockManager {
  public:
    explicit DockManager(CFrameWnd& frame);
    ~DockManager();
    DockManager(const DockManager&) = delete;
    DockManager& operator=(const DockManager&) = delete;

    // A bar is known from the creation of its window to its end.
    void Add(CAdUiDockControlBar& bar);
    void Remove(CAdUiDockControlBar& bar);
    const std::vector<CAdUiDockControlBar*>& Bars() const { return m_bars; }
    // By the caption, without regard to case; null if there is none.
    CAdUiDockControlBar* Find(const std::wstring& caption) const;

    DockSide SideOf(const CAdUiDockControlBar& bar) const;

    // Places the visible docked bars in `area` (client coordinates of the frame) and gives back what is left.
    LayoutRect LayOut(const LayoutRect& area);

    // Moves the bar; a side that the bar does not allow is refused. Whether it is visible stays as it is.
    bool Dock(CAdUiDockControlBar& bar, DockSide side);
    // `rect` is the window in screen coordinates; it is moved into view.
    void Float(CAdUiDockControlBar& bar, const LayoutRect& rect);
    // Where the bar was kept by its tool id, or what its module prefers.
    void Restore(CAdUiDockControlBar& bar, UINT preferredDockBar, const LayoutRect* rect);
    // Keeps the bar's place, if it has a tool id.
    void Store(const CAdUiDockControlBar& bar) const;
    // Docked: the column's width. Floating: the window's size. Brought within the bar's limits.
    void Resize(CAdUiDockControlBar& bar, int width, int height);

    // Hides every bar, as the host does when the user changes the workspace.
    void HideAll();
    // Floating bars follow the frame when a modal dialog disables it.
    void EnableFloating(bool enable);

    // The user has pressed the mouse on the bar's caption at `point` (screen).
    void StartDrag(CAdUiDockControlBar& bar, CPoint point);
    // Escape: the bar that is being dragged goes back. False if none is.
    bool CancelDrag();
    // Double click on the caption: from docked to floating and back.
    void Toggle(CAdUiDockControlBar& bar);
    // The user has taken the splitter of `side` to `x` (client coordinates of the frame).
    void MoveSplitter(DockSide side, int x);
    void EndMoveSplitter(DockSide side);

  private:
    class DragTracker;
    class Splitter;
    friend class DragTracker;

    std::vector<CAdUiDockControlBar*> VisibleAt(DockSide side) const;
    void MakeChild(CAdUiDockControlBar& bar);
    void MakePopup(CAdUiDockControlBar& bar);
    LayoutRect AreaOnScreen() const;

    CFrameWnd& m_frame;
    std::vector<CAdUiDockControlBar*> m_bars;
    LayoutRect m_area;
    std::unique_ptr<Splitter> m_leftSplitter;
    std::unique_ptr<Splitter> m_rightSplitter;
    std::unique_ptr<DragTracker> m_tracker;
};

// The manager of the workbench's frame, null before there is one. One per process, as there is one frame.
ARX_PORT DockManager* TheDockManager();

}  // namespace frame
