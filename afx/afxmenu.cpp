#include "afxapp.h"
#include "afxgdi.h"
#include "afxtempmap.h"

IMPLEMENT_DYNAMIC(CMenu, CObject)

namespace {

AfxTempMap<CMenu, HMENU, &CMenu::m_hMenu>& TempMenus() {
    static auto& map = *new AfxTempMap<CMenu, HMENU, &CMenu::m_hMenu>;
    return map;
}

}  // namespace

void AfxClearTempMenus() {
    TempMenus().Clear();
}

CMenu::~CMenu() {
    DestroyMenu();
}

BOOL CMenu::Attach(HMENU hMenu) {
    if (!hMenu) return FALSE;
    DestroyMenu();
    m_hMenu = hMenu;
    return TRUE;
}

HMENU CMenu::Detach() {
    return std::exchange(m_hMenu, nullptr);
}

CMenu* CMenu::FromHandle(HMENU hMenu) {
    return TempMenus().Find(hMenu);
}

BOOL CMenu::CreateMenu() {
    return Attach(::CreateMenu());
}

BOOL CMenu::CreatePopupMenu() {
    return Attach(::CreatePopupMenu());
}

BOOL CMenu::LoadMenu(UINT nIDResource) {
    const LPCTSTR lpszName = MAKEINTRESOURCE(nIDResource);
    return Attach(::LoadMenuW(AfxFindResourceHandle(lpszName, RT_MENU), lpszName));
}

BOOL CMenu::DestroyMenu() {
    return m_hMenu && ::DestroyMenu(Detach());
}

CMenu* CMenu::GetSubMenu(int nPos) const {
    return FromHandle(::GetSubMenu(m_hMenu, nPos));
}

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nIDNewItem, LPCTSTR lpszNewItem) {
    return ::AppendMenuW(m_hMenu, nFlags, nIDNewItem, lpszNewItem);
}

UINT CMenu::EnableMenuItem(UINT nIDEnableItem, UINT nEnable) {
    return static_cast<UINT>(::EnableMenuItem(m_hMenu, nIDEnableItem, nEnable));
}

UINT CMenu::CheckMenuItem(UINT nIDCheckItem, UINT nCheck) {
    return ::CheckMenuItem(m_hMenu, nIDCheckItem, nCheck);
}

int CMenu::GetMenuItemCount() const {
    return ::GetMenuItemCount(m_hMenu);
}

UINT CMenu::GetMenuItemID(int nPos) const {
    return ::GetMenuItemID(m_hMenu, nPos);
}

UINT CMenu::GetMenuState(UINT nID, UINT nFlags) const {
    return ::GetMenuState(m_hMenu, nID, nFlags);
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const {
    const int nLength = ::GetMenuStringW(m_hMenu, nIDItem, nullptr, 0, nFlags);
    rString.Empty();
    if (nLength <= 0) return 0;
    ::GetMenuStringW(m_hMenu, nIDItem, rString.GetBuffer(nLength), nLength + 1, nFlags);
    rString.ReleaseBuffer();
    return rString.GetLength();
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect) {
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd ? pWnd->m_hWnd : nullptr, lpRect);
}
