#include <vector>

#include "afxcmn.h"

IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(WC_TREEVIEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

UINT CTreeCtrl::GetCount() const {
    return TreeView_GetCount(m_hWnd);
}

CImageList* CTreeCtrl::GetImageList(UINT nImageList) const {
    return CImageList::FromHandle(TreeView_GetImageList(m_hWnd, nImageList));
}

CImageList* CTreeCtrl::SetImageList(CImageList* pImageList, int nImageListType) {
    const HIMAGELIST hNew = pImageList ? pImageList->m_hImageList : nullptr;
    return CImageList::FromHandle(TreeView_SetImageList(m_hWnd, hNew, nImageListType));
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM hItem, UINT nCode) const {
    return TreeView_GetNextItem(m_hWnd, hItem, nCode);
}

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM hItem) const {
    return GetNextItem(hItem, TVGN_CHILD);
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM hItem) const {
    return GetNextItem(hItem, TVGN_NEXT);
}

HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM hItem) const {
    return GetNextItem(hItem, TVGN_PREVIOUS);
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM hItem) const {
    return GetNextItem(hItem, TVGN_PARENT);
}

HTREEITEM CTreeCtrl::GetSelectedItem() const {
    return GetNextItem(nullptr, TVGN_CARET);
}

HTREEITEM CTreeCtrl::GetRootItem() const {
    return GetNextItem(nullptr, TVGN_ROOT);
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM hItem) const {
    TVITEM item{};
    item.mask = TVIF_CHILDREN;
    item.hItem = hItem;
    return GetItem(&item) && item.cChildren != 0;
}

BOOL CTreeCtrl::GetItem(TVITEM* pItem) const {
    return TreeView_GetItem(m_hWnd, pItem);
}

BOOL CTreeCtrl::SetItem(TVITEM* pItem) {
    return TreeView_SetItem(m_hWnd, pItem);
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const {
    // The control cuts a text to the buffer without a word: grow until it does not fill it.
    for (size_t nLength = 256;; nLength *= 2) {
        std::vector<wchar_t> text(nLength);
        TVITEM item{};
        item.mask = TVIF_TEXT;
        item.hItem = hItem;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(nLength);
        if (!GetItem(&item)) return CString();
        const CString strText(item.pszText);
        if (strText.GetLength() + 1 < item.cchTextMax) return strText;
    }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem) {
    TVITEM item{};
    item.mask = TVIF_TEXT;
    item.hItem = hItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return SetItem(&item);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const {
    TVITEM item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = hItem;
    if (!GetItem(&item)) return FALSE;
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
    return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage) {
    TVITEM item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = hItem;
    item.iImage = nImage;
    item.iSelectedImage = nSelectedImage;
    return SetItem(&item);
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const {
    return TreeView_GetItemState(m_hWnd, hItem, nStateMask);
}

BOOL CTreeCtrl::SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask) {
    TVITEM item{};
    item.mask = TVIF_STATE;
    item.hItem = hItem;
    item.state = nState;
    item.stateMask = nStateMask;
    return SetItem(&item);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const {
    TVITEM item{};
    item.mask = TVIF_PARAM;
    item.hItem = hItem;
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData) {
    TVITEM item{};
    item.mask = TVIF_PARAM;
    item.hItem = hItem;
    item.lParam = static_cast<LPARAM>(dwData);
    return SetItem(&item);
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const {
    // The rectangle carries the item's handle to the control.
    *reinterpret_cast<HTREEITEM*>(lpRect) = hItem;
    return SendMessage(TVM_GETITEMRECT, static_cast<WPARAM>(bTextOnly), reinterpret_cast<LPARAM>(lpRect)) !=
           0;
}

CEdit* CTreeCtrl::GetEditControl() const {
    return static_cast<CEdit*>(FromHandle(TreeView_GetEditControl(m_hWnd)));
}

HTREEITEM CTreeCtrl::InsertItem(TVINSERTSTRUCT* pInsertStruct) {
    return TreeView_InsertItem(m_hWnd, pInsertStruct);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, HTREEITEM hParent, HTREEITEM hInsertAfter) {
    TVINSERTSTRUCT insert{};
    insert.hParent = hParent;
    insert.hInsertAfter = hInsertAfter;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = const_cast<LPTSTR>(lpszItem);
    return InsertItem(&insert);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent,
                                HTREEITEM hInsertAfter) {
    TVINSERTSTRUCT insert{};
    insert.hParent = hParent;
    insert.hInsertAfter = hInsertAfter;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = const_cast<LPTSTR>(lpszItem);
    insert.item.iImage = nImage;
    insert.item.iSelectedImage = nSelectedImage;
    return InsertItem(&insert);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM hItem) {
    return TreeView_DeleteItem(m_hWnd, hItem);
}

BOOL CTreeCtrl::DeleteAllItems() {
    return DeleteItem(TVI_ROOT);
}

BOOL CTreeCtrl::Expand(HTREEITEM hItem, UINT nCode) {
    return TreeView_Expand(m_hWnd, hItem, nCode);
}

BOOL CTreeCtrl::Select(HTREEITEM hItem, UINT nCode) {
    return TreeView_Select(m_hWnd, hItem, nCode);
}

BOOL CTreeCtrl::SelectItem(HTREEITEM hItem) {
    return Select(hItem, TVGN_CARET);
}

CEdit* CTreeCtrl::EditLabel(HTREEITEM hItem) {
    return static_cast<CEdit*>(FromHandle(TreeView_EditLabel(m_hWnd, hItem)));
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const {
    TVHITTESTINFO info{};
    info.pt = pt;
    const HTREEITEM hItem = TreeView_HitTest(m_hWnd, &info);
    if (pFlags) *pFlags = info.flags;
    return hItem;
}

BOOL CTreeCtrl::SortChildrenCB(TVSORTCB* pSort) {
    return TreeView_SortChildrenCB(m_hWnd, pSort, 0);
}

BOOL CTreeCtrl::EnsureVisible(HTREEITEM hItem) {
    return TreeView_EnsureVisible(m_hWnd, hItem);
}
