// Frames, views and control bars. Part of afxwin.h and afxext.h.
#pragma once

#include "afxwnd.h"

// Ids of the children that a frame reserves.
constexpr UINT AFX_IDW_DOCKBAR_TOP = 0xE81B;
constexpr UINT AFX_IDW_DOCKBAR_LEFT = 0xE81C;
constexpr UINT AFX_IDW_DOCKBAR_RIGHT = 0xE81D;
constexpr UINT AFX_IDW_DOCKBAR_BOTTOM = 0xE81E;
constexpr UINT AFX_IDW_PANE_FIRST = 0xE900;

// Sides of a frame.
constexpr DWORD CBRS_ALIGN_LEFT = 0x1000;
constexpr DWORD CBRS_ALIGN_TOP = 0x2000;
constexpr DWORD CBRS_ALIGN_RIGHT = 0x4000;
constexpr DWORD CBRS_ALIGN_BOTTOM = 0x8000;
constexpr DWORD CBRS_ALIGN_ANY = 0xF000;

class CFrameWnd;

// A bar at the side of a frame, or floating. What docking means is the derived class's and its frame's: the
// base only knows the frame.
class AFX_PORT CControlBar : public CWnd {
    DECLARE_DYNAMIC(CControlBar)

  public:
    ~CControlBar() override;

    BOOL IsVisible() const;
    // The frame that this bar belongs to, or null.
    CFrameWnd* GetDockingFrame() const { return m_pDockSite; }

    CFrameWnd* m_pDockSite = nullptr;
};

// A top-level window. The object deletes itself when its window goes, so it lives on the heap.
class AFX_PORT CFrameWnd : public CWnd {
    DECLARE_DYNAMIC(CFrameWnd)

  public:
    static const RECT rectDefault;  // lets the system choose place and size

    // A null class name takes the framework's frame class; `dwStyle` 0 is a plain popup without a caption.
    BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr, LPCTSTR lpszMenuName = nullptr,
                DWORD dwExStyle = 0);

    // Shows or hides the bar and lays the frame out again. `bDelay` is accepted and makes no difference.
    void ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL bDelay);
    // Places what lies in the frame. The base does nothing.
    virtual void RecalcLayout(BOOL bNotify = TRUE);

  protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;
    afx_msg void OnSize(UINT nType, int cx, int cy);

    DECLARE_MESSAGE_MAP()
};

// A frame with documents in it.
class AFX_PORT CMDIFrameWnd : public CFrameWnd {
    DECLARE_DYNAMIC(CMDIFrameWnd)
};

// A window that shows a document. The object deletes itself when its window goes.
class AFX_PORT CView : public CWnd {
    DECLARE_DYNAMIC(CView)

  protected:
    virtual void OnDraw(CDC* pDC) = 0;
    void PostNcDestroy() override;
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()
};
