// CWnd: what goes straight to the system.
#include <algorithm>

#include "afxapp.h"
#include "afxocc.h"
#include "afxwnd.h"

namespace {

HWND HandleOf(const CWnd* pWnd) {
    return pWnd ? pWnd->m_hWnd : nullptr;
}

}  // namespace

void CWnd::SetWindowText(LPCTSTR lpszString) {
    ::SetWindowTextW(m_hWnd, lpszString);
}

void CWnd::GetWindowText(CString& rString) const {
    const int nLength = ::GetWindowTextLengthW(m_hWnd);
    rString.Empty();
    if (nLength <= 0) return;
    ::GetWindowTextW(m_hWnd, rString.GetBuffer(nLength), nLength + 1);
    rString.ReleaseBuffer();
}

int CWnd::GetWindowTextLength() const {
    return ::GetWindowTextLengthW(m_hWnd);
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE));
}

namespace {

BOOL ChangeStyle(HWND hWnd, int nIndex, DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
    const auto dwOld = static_cast<DWORD>(::GetWindowLongPtrW(hWnd, nIndex));
    const DWORD dwNew = (dwOld & ~dwRemove) | dwAdd;
    if (dwNew == dwOld) return FALSE;
    ::SetWindowLongPtrW(hWnd, nIndex, static_cast<LONG>(dwNew));
    if (nFlags) {
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    }
    return TRUE;
}

}  // namespace

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
    return ChangeStyle(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags) {
    return ChangeStyle(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->m_hObject : nullptr), bRedraw);
}

CFont* CWnd::GetFont() const {
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon) {
    return reinterpret_cast<HICON>(
        SendMessage(WM_SETICON, bBigIcon ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(hIcon)));
}

BOOL CWnd::EnableWindow(BOOL bEnable) {
    if (m_pCtrlSite) m_pCtrlSite->SetEnabled(bEnable != FALSE);
    return ::EnableWindow(m_hWnd, bEnable);
}

BOOL CWnd::IsWindowEnabled() const {
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::ShowWindow(int nCmdShow) {
    return ::ShowWindow(m_hWnd, nCmdShow);
}

BOOL CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd);
}

CWnd* CWnd::SetFocus() {
    return FromHandle(::SetFocus(m_hWnd));
}

CWnd* CWnd::GetFocus() {
    return FromHandle(::GetFocus());
}

CWnd* CWnd::SetActiveWindow() {
    return FromHandle(::SetActiveWindow(m_hWnd));
}

CWnd* CWnd::GetActiveWindow() {
    return FromHandle(::GetActiveWindow());
}

BOOL CWnd::SetForegroundWindow() {
    return ::SetForegroundWindow(m_hWnd);
}

CWnd* CWnd::SetCapture() {
    return FromHandle(::SetCapture(m_hWnd));
}

CWnd* CWnd::GetCapture() {
    return FromHandle(::GetCapture());
}

int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
}

CWnd* CWnd::GetParent() const {
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::SetParent(CWnd* pWndNewParent) {
    return FromHandle(::SetParent(m_hWnd, HandleOf(pWndNewParent)));
}

CWnd* CWnd::GetOwner() const {
    return m_hWndOwner ? FromHandle(m_hWndOwner) : GetParent();
}

void CWnd::SetOwner(CWnd* pOwnerWnd) {
    m_hWndOwner = HandleOf(pOwnerWnd);
}

CWnd* CWnd::GetDlgItem(int nID) const {
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

void CWnd::GetDlgItem(int nID, HWND* phWnd) const {
    *phWnd = ::GetDlgItem(m_hWnd, nID);
}

CWnd* CWnd::GetWindow(UINT nCmd) const {
    return FromHandle(::GetWindow(m_hWnd, nCmd));
}

BOOL CWnd::IsChild(const CWnd* pWnd) const {
    return ::IsChild(m_hWnd, HandleOf(pWnd));
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious) const {
    return FromHandle(::GetNextDlgTabItem(m_hWnd, HandleOf(pWndCtl), bPrevious));
}

CWnd* CWnd::WindowFromPoint(POINT point) {
    return FromHandle(::WindowFromPoint(point));
}

CWnd* CWnd::GetSafeOwner(CWnd* pParent) {
    HWND hWnd = HandleOf(pParent ? pParent : AfxGetMainWnd());
    if (!hWnd) return nullptr;
    hWnd = ::GetAncestor(hWnd, GA_ROOT);
    return FromHandle(pParent ? hWnd : ::GetLastActivePopup(hWnd));
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint) {
    if (m_pCtrlSite) m_pCtrlSite->Move(CRect(x, y, x + nWidth, y + nHeight));
    ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint) {
    const CRect rc(lpRect);
    MoveWindow(rc.left, rc.top, rc.Width(), rc.Height(), bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags) {
    return ::SetWindowPos(m_hWnd, HandleOf(pWndInsertAfter), x, y, cx, cy, nFlags);
}

void CWnd::GetWindowRect(LPRECT lpRect) const {
    ::GetWindowRect(m_hWnd, lpRect);
}

void CWnd::GetClientRect(LPRECT lpRect) const {
    ::GetClientRect(m_hWnd, lpRect);
}

void CWnd::ClientToScreen(LPPOINT lpPoint) const {
    ::ClientToScreen(m_hWnd, lpPoint);
}

void CWnd::ClientToScreen(LPRECT lpRect) const {
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::ScreenToClient(LPPOINT lpPoint) const {
    ::ScreenToClient(m_hWnd, lpPoint);
}

void CWnd::ScreenToClient(LPRECT lpRect) const {
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner) {
    const bool bChild = (GetStyle() & WS_CHILD) != 0;
    HWND hWndCenter = HandleOf(pAlternateOwner);
    if (!hWndCenter) hWndCenter = bChild ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    ::GetMonitorInfoW(::MonitorFromWindow(hWndCenter ? hWndCenter : m_hWnd, MONITOR_DEFAULTTONEAREST), &info);
    CRect rcArea(info.rcWork);
    CRect rcCenter(rcArea);
    if (bChild) {
        ::GetClientRect(hWndCenter, rcArea);
        rcCenter = rcArea;
    } else if (hWndCenter && ::IsWindowVisible(hWndCenter) && !::IsIconic(hWndCenter)) {
        ::GetWindowRect(hWndCenter, rcCenter);
    }
    CRect rc;
    GetWindowRect(rc);
    const CPoint ptCenter = rcCenter.CenterPoint();
    LONG x = ptCenter.x - rc.Width() / 2;
    LONG y = ptCenter.y - rc.Height() / 2;
    x = std::max(rcArea.left, std::min(x, rcArea.right - rc.Width()));
    y = std::max(rcArea.top, std::min(y, rcArea.bottom - rc.Height()));
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int CWnd::SetWindowRgn(HRGN hRgn, BOOL bRedraw) {
    return ::SetWindowRgn(m_hWnd, hRgn, bRedraw);
}

void CWnd::Invalidate(BOOL bErase) {
    ::InvalidateRect(m_hWnd, nullptr, bErase);
}

void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase) {
    ::InvalidateRect(m_hWnd, lpRect, bErase);
}

void CWnd::UpdateWindow() {
    ::UpdateWindow(m_hWnd);
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags) {
    return ::RedrawWindow(m_hWnd, lpRectUpdate, prgnUpdate ? HRGN(*prgnUpdate) : nullptr, flags);
}

void CWnd::SetRedraw(BOOL bRedraw) {
    SendMessage(WM_SETREDRAW, static_cast<WPARAM>(bRedraw));
}

CDC* CWnd::GetDC() {
    return CDC::FromHandle(::GetDC(m_hWnd));
}

int CWnd::ReleaseDC(CDC* pDC) {
    return ::ReleaseDC(m_hWnd, pDC->m_hDC);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::IsDialogMessage(LPMSG lpMsg) {
    return ::IsDialogMessageW(m_hWnd, lpMsg);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType) {
    return ::MessageBoxW(m_hWnd, lpszText, lpszCaption ? lpszCaption : AfxGetAppName(), nType);
}

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer) {
    return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent) {
    return ::KillTimer(m_hWnd, nIDEvent);
}

UINT CWnd::IsDlgButtonChecked(int nIDButton) const {
    return ::IsDlgButtonChecked(m_hWnd, nIDButton);
}
