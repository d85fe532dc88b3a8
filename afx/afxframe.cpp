#include "afxframe.h"

#include "afxapp.h"
#include "afxmsg_.h"

IMPLEMENT_DYNAMIC(CControlBar, CWnd)
IMPLEMENT_DYNAMIC(CFrameWnd, CWnd)
IMPLEMENT_DYNAMIC(CMDIFrameWnd, CFrameWnd)
IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_SIZE()
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()

CControlBar::~CControlBar() = default;

BOOL CControlBar::IsVisible() const {
    return (GetStyle() & WS_VISIBLE) != 0;
}

const RECT CFrameWnd::rectDefault = {CW_USEDEFAULT, CW_USEDEFAULT, 0, 0};

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                       CWnd* pParentWnd, LPCTSTR lpszMenuName, DWORD dwExStyle) {
    HMENU hMenu = nullptr;
    if (lpszMenuName) {
        hMenu = ::LoadMenuW(AfxFindResourceHandle(lpszMenuName, RT_MENU), lpszMenuName);
        if (!hMenu) {
            PostNcDestroy();
            return FALSE;
        }
    }
    const bool bDefault = rect.left == CW_USEDEFAULT;
    const BOOL bMade = CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                                bDefault ? CW_USEDEFAULT : rect.right - rect.left,
                                bDefault ? CW_USEDEFAULT : rect.bottom - rect.top,
                                pParentWnd ? pParentWnd->m_hWnd : nullptr, hMenu);
    if (!bMade && hMenu) ::DestroyMenu(hMenu);
    return bMade;
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs) {
    if (!cs.lpszClass) {
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW),
                                           reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1),
                                           ::LoadIconW(nullptr, IDI_APPLICATION));
    }
    return CWnd::PreCreateWindow(cs);
}

void CFrameWnd::PostNcDestroy() {
    delete this;
}

void CFrameWnd::ShowControlBar(CControlBar* pBar, BOOL bShow, BOOL) {
    if (!pBar || !pBar->m_hWnd) return;
    pBar->SetWindowPos(
        nullptr, 0, 0, 0, 0,
        SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | (bShow ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    RecalcLayout();
}

void CFrameWnd::RecalcLayout(BOOL) {}

void CFrameWnd::OnSize(UINT nType, int cx, int cy) {
    CWnd::OnSize(nType, cx, cy);
    if (nType != SIZE_MINIMIZED) RecalcLayout();
}

void CView::PostNcDestroy() {
    delete this;
}

void CView::OnPaint() {
    CPaintDC dc(this);
    OnDraw(&dc);
}
