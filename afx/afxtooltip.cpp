// CWnd's tips for its child windows.
#include "afxcmn.h"
#include "afxwnd.h"
#include "afxwndimpl.h"

BOOL CWnd::EnableToolTips(BOOL bEnable) {
    if (!bEnable) {
        DeleteToolTip();
    } else if (!m_pToolTip) {
        m_pToolTip = new CToolTipCtrl;
        if (!m_pToolTip->Create(this, TTS_ALWAYSTIP)) DeleteToolTip();
    }
    return TRUE;
}

void CWnd::DeleteToolTip() {
    delete std::exchange(m_pToolTip, nullptr);
    m_hWndTool = nullptr;
}

INT_PTR CWnd::OnToolHitTest(CPoint point, TOOLINFO* pTI) const {
    const HWND hChild = ::ChildWindowFromPointEx(m_hWnd, point, CWP_SKIPINVISIBLE);
    if (!hChild || hChild == m_hWnd) return -1;
    pTI->hwnd = m_hWnd;
    pTI->uFlags = TTF_IDISHWND;
    pTI->uId = reinterpret_cast<UINT_PTR>(hChild);
    pTI->lpszText = LPSTR_TEXTCALLBACK;
    return ::GetDlgCtrlID(hChild);
}

// One tool at a time: that of the child under the mouse. The tip is the window's own, so that it gets the
// questions for the text.
void CWnd::FilterToolTipMessage(MSG* pMsg) {
    if (pMsg->message < WM_MOUSEFIRST || pMsg->message > WM_MOUSELAST) return;
    TOOLINFO info{};
    info.cbSize = AFX_TOOLINFO_SIZE;
    CPoint point(pMsg->pt);
    ScreenToClient(&point);
    const bool bHit = OnToolHitTest(point, &info) != -1;
    const HWND hWndHit = bHit ? reinterpret_cast<HWND>(info.uId) : nullptr;
    if (hWndHit != m_hWndTool) {
        if (m_hWndTool) m_pToolTip->DelTool(this, reinterpret_cast<UINT_PTR>(m_hWndTool));
        if (bHit) m_pToolTip->SendMessage(TTM_ADDTOOL, 0, reinterpret_cast<LPARAM>(&info));
        m_hWndTool = hWndHit;
    }
    if (bHit) m_pToolTip->RelayEvent(pMsg);
}

BOOL CWnd::PreTranslateMessage(MSG* pMsg) {
    if (m_pToolTip) FilterToolTipMessage(pMsg);
    return FALSE;
}

BOOL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg) {
    for (HWND hWnd = pMsg->hwnd; hWnd; hWnd = ::GetParent(hWnd)) {
        CWnd* pWnd = FromHandlePermanent(hWnd);
        if (pWnd && pWnd->PreTranslateMessage(pMsg)) return TRUE;
        if (hWnd == hWndStop) break;
    }
    return FALSE;
}
