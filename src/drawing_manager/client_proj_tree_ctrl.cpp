#include "drawing_manager/client_proj_tree_ctrl.h"

#include <vector>

#include "drawing_manager/icon_loading.h"

namespace {

constexpr int kImageSize = 16;

}  // namespace

BEGIN_MESSAGE_MAP(CKV2D_ClientProjTreeCtrl, CTreeCtrl)
END_MESSAGE_MAP()

void CKV2D_ClientProjTreeCtrl::Init(std::uint32_t uEditableKinds,
                                    const std::array<UINT, kItemKindCount>& auIconIds, HINSTANCE hModule) {
    m_uEditableKinds = uEditableKinds;
    m_imageList.DeleteImageList();
    m_imageList.Create(kImageSize, kImageSize, ILC_COLOR16 | ILC_MASK, kItemKindCount, 0);
    for (UINT uIconId : auIconIds)
        AddIconToList(m_imageList, uIconId, kImageSize, hModule);
    m_imageList.SetBkColor(CLR_NONE);
    SetImageList(&m_imageList, TVSIL_NORMAL);
}

unsigned CKV2D_ClientProjTreeCtrl::GetItemKind(HTREEITEM hItem, bool bFoldKind2) const {
    if (!hItem || hItem == TVI_ROOT) return kItemNone;
    int nImage = 0;
    int nSelectedImage = 0;
    if (!GetItemImage(hItem, nImage, nSelectedImage)) return kItemNone;
    if (bFoldKind2 && nImage == kItemLocked) return kItemProject;
    return static_cast<unsigned>(nImage);
}

// The item that a walk along siblings starts with.
HTREEITEM CKV2D_ClientProjTreeCtrl::GetFirstOf(HTREEITEM hItem) const {
    return hItem == TVI_ROOT ? GetRootItem() : hItem;
}

HTREEITEM CKV2D_ClientProjTreeCtrl::FindItemByData(HTREEITEM hStart, std::uint32_t uData,
                                                   bool bRecurse) const {
    for (HTREEITEM hItem = GetFirstOf(hStart); hItem; hItem = GetNextSiblingItem(hItem)) {
        if (static_cast<std::uint32_t>(GetItemData(hItem)) == uData) return hItem;
        const HTREEITEM hChild = bRecurse ? GetChildItem(hItem) : nullptr;
        const HTREEITEM hFound = hChild ? FindItemByData(hChild, uData, true) : nullptr;
        if (hFound) return hFound;
    }
    return nullptr;
}

void CKV2D_ClientProjTreeCtrl::SaveItemData(HTREEITEM hItem) {
    for (hItem = GetFirstOf(hItem); hItem; hItem = GetNextSiblingItem(hItem)) {
        m_mapItemData[hItem] = static_cast<std::uint32_t>(GetItemData(hItem));
        SetItemData(hItem, reinterpret_cast<DWORD_PTR>(hItem));
        if (const HTREEITEM hChild = GetChildItem(hItem)) SaveItemData(hChild);
    }
}

void CKV2D_ClientProjTreeCtrl::RestoreItemData(HTREEITEM hItem) {
    for (hItem = GetFirstOf(hItem); hItem; hItem = GetNextSiblingItem(hItem)) {
        const auto found = m_mapItemData.find(hItem);
        SetItemData(hItem, found == m_mapItemData.end() ? 0 : found->second);
        if (const HTREEITEM hChild = GetChildItem(hItem)) RestoreItemData(hChild);
    }
}

int CALLBACK CKV2D_ClientProjTreeCtrl::CompareItems(LPARAM lParamA, LPARAM lParamB, LPARAM lParamTree) {
    const auto* pTree = reinterpret_cast<const CKV2D_ClientProjTreeCtrl*>(lParamTree);
    const auto hItemA = reinterpret_cast<HTREEITEM>(lParamA);
    const auto hItemB = reinterpret_cast<HTREEITEM>(lParamB);
    return CompareTreeItems(pTree->GetItemKind(hItemA, false), pTree->GetItemText(hItemA).ToStdString(),
                            pTree->GetItemKind(hItemB, false), pTree->GetItemText(hItemB).ToStdString());
}

void CKV2D_ClientProjTreeCtrl::SortChildrenOf(HTREEITEM hItem) {
    TVSORTCB sort{};
    sort.hParent = hItem;
    sort.lpfnCompare = &CompareItems;
    sort.lParam = reinterpret_cast<LPARAM>(this);
    SortChildrenCB(&sort);
}

void CKV2D_ClientProjTreeCtrl::SortBranch(HTREEITEM hItem, bool bSaveData) {
    // The control hands the data of two items to the comparison and not the items themselves, so their
    // handles stand in for the data as long as the sort takes.
    if (bSaveData) {
        m_mapItemData.clear();
        SaveItemData(TVI_ROOT);
    }
    if (hItem == TVI_ROOT) SortChildrenOf(TVI_ROOT);
    for (HTREEITEM hCurrent = GetFirstOf(hItem); hCurrent; hCurrent = GetNextSiblingItem(hCurrent)) {
        if (!GetChildItem(hCurrent)) continue;
        SortChildrenOf(hCurrent);
        SortBranch(GetChildItem(hCurrent), false);
    }
    if (bSaveData) RestoreItemData(TVI_ROOT);
}

void CKV2D_ClientProjTreeCtrl::OnTvnBeginlabeledit(NMHDR* pNMHDR, LRESULT* pResult) {
    const HTREEITEM hItem = reinterpret_cast<NMTVDISPINFO*>(pNMHDR)->item.hItem;
    std::vector<unsigned> auAncestors;
    for (HTREEITEM hParent = GetParentItem(hItem); hParent; hParent = GetParentItem(hParent)) {
        auAncestors.push_back(GetItemKind(hParent, false));
    }
    if (!CanEditLabel(m_uEditableKinds, GetItemKind(hItem, false), auAncestors)) {
        *pResult = 1;
        return;
    }
    *pResult = 0;
    if (const CEdit* pEdit = GetEditControl()) pEdit->GetWindowText(m_strOldLabel);
}

BOOL CKV2D_ClientProjTreeCtrl::PreTranslateMessage(MSG* pMsg) {
    // The dialog would close on Return and Escape, and the host takes Delete and the clipboard keys for
    // itself.
    if (pMsg->message == WM_KEYDOWN && GetEditControl()) {
        const WPARAM key = pMsg->wParam;
        if (key == VK_RETURN || key == VK_ESCAPE || key == VK_DELETE || ::GetKeyState(VK_CONTROL) < 0) {
            ::TranslateMessage(pMsg);
            ::DispatchMessage(pMsg);
            return TRUE;
        }
    }
    return CTreeCtrl::PreTranslateMessage(pMsg);
}
