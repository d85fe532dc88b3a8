// CBalloonTip: a small window in the shape of a speech balloon that points at a control and tells the user
// what is wrong or what to do. At most one exists in the process.
#pragma once

#include <afxwin.h>

#include <string>

#include "controls/balloon_geometry.h"

class CBalloonTip : public CFrameWnd {
  public:
    // Shows a balloon whose tail points at `ptAnchor` (screen coordinates), without taking the focus.
    //
    //   pRect              its width is the balloon's width
    //   nCharWidth, nLineHeight   metrics of the caller's text, in pixels
    //   font               accepted and not used
    //   nSeconds           how long it stays; 0 for ever
    //   bUp                the balloon stands above the anchor, else below
    //   nIconId            a system icon: 32513 with errors, 32516 with notes
    //   nLines             lines of the message; -1 works them out from its length
    //
    // Null while a balloon is up: one is never replaced by another. The object deletes itself when the window
    // goes; the caller may keep the pointer for Hide.
    static CBalloonTip* Show(CPoint ptAnchor, const CRect* pRect, int nCharWidth, int nLineHeight,
                             const CString& strMessage, const LOGFONT& font, int nSeconds, BOOL bUp,
                             const CString& strTitle, UINT nIconId, int nLines);

    // Closes the balloon. Nothing happens for null and while no balloon is up.
    static void Hide(CBalloonTip* pTip);

  protected:
    CBalloonTip(const CString& strMessage, BOOL bUp);
    ~CBalloonTip() override = default;

    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnPaint();
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnActivateApp(BOOL bActive, DWORD dwThreadID);

    DECLARE_MESSAGE_MAP()

  private:
    // Tail and body as one region; false, after a message, if the system refuses.
    bool CombineShape(CRgn& rgnShape);
    void DrawContents(CDC& dc);
    void CloseTip();

    BOOL m_bBalloonUp;
    CRect m_rcText;
    CRect m_rcWindow;
    CString m_strMessage;
    CFont m_fontNormal;
    CFont m_fontBold;
    CRgn m_rgnTail;
    CRgn m_rgnBody;
    CWnd m_wndInvisibleParent;
    int m_nSeconds = 0;  // -1 once it is closing
    CString m_strTitle;
    UINT m_nIconId = 0;
};
