// CSplitterControl: a thin bar that the user drags to share out the room between two panes.
#pragma once

#include <afxwin.h>

#include "controls/splitter_geometry.h"

// The code of the notification that a bar sends when it has been moved.
inline constexpr UINT SPN_SIZED = 1025;

// What the notification points to.
struct SPC_NMHDR {
    NMHDR hdr;
    int delta;  // how far the bar went from where the drag began, in screen pixels
};

// While the bar is dragged only a line moves. At the end the bar moves to the line and tells its owner once,
// by WM_NOTIFY with its control id and a SPC_NMHDR; making room is the owner's business.
class CSplitterControl : public CStatic {
  public:
    // The longer side of the rectangle tells which way the bar runs; it is thinned to 5 pixels. Until
    // SetRange is called the bar cannot leave its place.
    void Create(DWORD dwStyle, const CRect& rect, CWnd* pParent, UINT nID);

    // The result is the old type.
    int SetStyle(int nType);

    // Where the bar's centre may go, in the client coordinates of its parent.
    void SetRange(int nMin, int nMax);

    // Moves the bar in its parent. Without a window or a parent nothing happens.
    void ChangePos(int dx, int dy);

  protected:
    // Draws the two lines of the bar at a point of the screen; drawn twice they are gone.
    virtual void DrawLine(CDC* pDC, int x, int y);

    afx_msg void OnPaint();
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT uMessage);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);

    DECLARE_MESSAGE_MAP()

  private:
    SplitterType GetType() const { return static_cast<SplitterType>(m_nType); }
    void DrawFeedback();
    void MoveToFeedback(CWnd& wndOwner);
    void NotifyOwner(CWnd& wndOwner);

    BOOL m_bIsPressed = FALSE;
    int m_nType = kSplitterVertical;
    int m_nX = 0;  // the feedback line, in screen coordinates
    int m_nY = 0;
    int m_nMin = -1;  // in client coordinates of the parent
    int m_nMax = -1;
    int m_nSavePos = 0;  // where the drag began, in screen coordinates
};
