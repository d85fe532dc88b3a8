// The dock manager's mouse work: dragging a bar by its caption, and the splitters beside docked bars.
#pragma once

#include "frame/dock_manager.h"
#include "frame/dock_state.h"

namespace frame {

// Holds the mouse while a bar is dragged. It is a window of its own, because the bar changes its parent on
// the way and would lose the mouse with it.
class DockManager::DragTracker : public CWnd {
  public:
    explicit DragTracker(DockManager& manager) : m_manager(manager) {}
    void CreateIn(CFrameWnd& frame);
    void Start(CAdUiDockControlBar& bar, CPoint point);
    // The bar is going away.
    void Forget(const CAdUiDockControlBar& bar);

    // The bar goes back to where it was. False if none is being dragged.
    bool Cancel();

  protected:
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg void OnCaptureChanged(CWnd* window);
    DECLARE_MESSAGE_MAP()

  private:
    void TearOff(CPoint point);
    void ShowPreview(DockSide side);
    DockSide SideAt(CPoint point) const;
    void Finish();

    DockManager& m_manager;
    CAdUiDockControlBar* m_bar = nullptr;
    bool m_moving = false;  // the mouse has left the place where it was pressed
    CPoint m_start;         // screen
    CSize m_grip;           // from the floating window's corner to the mouse
    DockSide m_sideBefore = DockSide::kFloating;
    LayoutRect m_rectBefore;
    DockSide m_previewSide = DockSide::kFloating;
    CWnd m_preview;
};

// The strip between a column of docked bars and the drawing.
class DockManager::Splitter : public CWnd {
  public:
    Splitter(DockManager& manager, DockSide side) : m_manager(manager), m_side(side) {}
    void CreateIn(CFrameWnd& frame);
    // An empty rectangle hides it.
    void Place(const LayoutRect& rect);

  protected:
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

  private:
    DockManager& m_manager;
    DockSide m_side;
    int m_grip = 0;
};

}  // namespace frame
