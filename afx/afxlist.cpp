#include <vector>

#include "afxcmn.h"

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(WC_LISTVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

CImageList* CListCtrl::GetImageList(int nImageList) const {
    return CImageList::FromHandle(ListView_GetImageList(m_hWnd, nImageList));
}

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageListType) {
    const HIMAGELIST hNew = pImageList ? pImageList->m_hImageList : nullptr;
    // The list belongs to its CImageList, not to the control, which would destroy it with itself.
    ModifyStyle(0, LVS_SHAREIMAGELISTS);
    return CImageList::FromHandle(ListView_SetImageList(m_hWnd, hNew, nImageListType));
}

int CListCtrl::GetItemCount() const {
    return ListView_GetItemCount(m_hWnd);
}

BOOL CListCtrl::GetItem(LVITEM* pItem) const {
    return ListView_GetItem(m_hWnd, pItem);
}

BOOL CListCtrl::SetItem(const LVITEM* pItem) {
    return ListView_SetItem(m_hWnd, pItem);
}

int CListCtrl::GetNextItem(int nItem, int nFlags) const {
    return ListView_GetNextItem(m_hWnd, nItem, nFlags);
}

int CListCtrl::FindItem(LVFINDINFO* pFindInfo, int nStart) const {
    return ListView_FindItem(m_hWnd, nStart, pFindInfo);
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const {
    lpRect->left = static_cast<LONG>(nCode);
    return SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpRect)) != 0;
}

BOOL CListCtrl::EnsureVisible(int nItem, BOOL bPartialOK) {
    return ListView_EnsureVisible(m_hWnd, nItem, bPartialOK);
}

CEdit* CListCtrl::EditLabel(int nItem) {
    return static_cast<CEdit*>(FromHandle(ListView_EditLabel(m_hWnd, nItem)));
}

CEdit* CListCtrl::GetEditControl() const {
    return static_cast<CEdit*>(FromHandle(ListView_GetEditControl(m_hWnd)));
}

DWORD CListCtrl::SetExtendedStyle(DWORD dwNewStyle) {
    return ListView_SetExtendedListViewStyle(m_hWnd, dwNewStyle);
}

DWORD CListCtrl::GetExtendedStyle() const {
    return ListView_GetExtendedListViewStyle(m_hWnd);
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const {
    return static_cast<CHeaderCtrl*>(FromHandle(ListView_GetHeader(m_hWnd)));
}

int CListCtrl::InsertColumn(int nCol, const LVCOLUMN* pColumn) {
    return ListView_InsertColumn(m_hWnd, nCol, pColumn);
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem) {
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::GetColumn(int nCol, LVCOLUMN* pColumn) const {
    return ListView_GetColumn(m_hWnd, nCol, pColumn);
}

int CListCtrl::GetColumnWidth(int nCol) const {
    return ListView_GetColumnWidth(m_hWnd, nCol);
}

BOOL CListCtrl::SetColumnWidth(int nCol, int cx) {
    return ListView_SetColumnWidth(m_hWnd, nCol, cx);
}

UINT CListCtrl::GetItemState(int nItem, UINT nMask) const {
    return ListView_GetItemState(m_hWnd, nItem, nMask);
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask) {
    LVITEM item{};
    item.state = nState;
    item.stateMask = nMask;
    return SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)) != 0;
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const {
    // The control cuts a text to the buffer without a word: grow until it does not fill it.
    for (size_t nLength = 256;; nLength *= 2) {
        std::vector<wchar_t> text(nLength);
        LVITEM item{};
        item.iSubItem = nSubItem;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(nLength);
        SendMessage(LVM_GETITEMTEXT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item));
        const CString strText(item.pszText);
        if (strText.GetLength() + 1 < item.cchTextMax) return strText;
    }
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText) {
    LVITEM item{};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszText);
    return SendMessage(LVM_SETITEMTEXT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)) != 0;
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const {
    LVITEM item{};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData) {
    LVITEM item{};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
    item.lParam = static_cast<LPARAM>(dwData);
    return SetItem(&item);
}

UINT CListCtrl::GetSelectedCount() const {
    return ListView_GetSelectedCount(m_hWnd);
}

int CListCtrl::InsertItem(const LVITEM* pItem) {
    return ListView_InsertItem(m_hWnd, pItem);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem) {
    LVITEM item{};
    item.mask = LVIF_TEXT;
    item.iItem = nItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return InsertItem(&item);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage) {
    LVITEM item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = nItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    return InsertItem(&item);
}

BOOL CListCtrl::DeleteItem(int nItem) {
    return ListView_DeleteItem(m_hWnd, nItem);
}

BOOL CListCtrl::DeleteAllItems() {
    return ListView_DeleteAllItems(m_hWnd);
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const {
    LVHITTESTINFO info{};
    info.pt = pt;
    const int nItem = HitTest(&info);
    if (pFlags) *pFlags = info.flags;
    return nItem;
}

int CListCtrl::HitTest(LVHITTESTINFO* pHitTestInfo) const {
    return ListView_HitTest(m_hWnd, pHitTestInfo);
}
