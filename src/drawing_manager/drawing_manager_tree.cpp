// The tree of the Drawing Manager: how it is filled, how folders are read one level ahead of what is open,
// and how the rest of the dialog follows its selection.
#include <algorithm>
#include <set>

#include "database/project_general.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/manager_registry.h"
#include "drawing_manager/tree_contents.h"
#include "platform/platform.h"
#include "storage/path_text.h"
#include "storage/registry_settings.h"

namespace {

constexpr int kNoId = -1;  // item data of clients and folders

}  // namespace

int CDrawingManagerDlg::GetDataId(HTREEITEM hItem) const {
    return hItem ? ItemDataToId(m_tree.GetItemData(hItem)) : 0;
}

HTREEITEM CDrawingManagerDlg::InsertTreeItem(const std::wstring& strLabel, HTREEITEM hParent, ItemKind kind,
                                             int nData) {
    // At the end: every fill sorts once when it is through. The control's own sorting would look at all
    // siblings for every item.
    const HTREEITEM hItem = m_tree.InsertItem(strLabel.c_str(), kind, kind, hParent, TVI_LAST);
    m_tree.SetItemData(hItem, static_cast<DWORD_PTR>(nData));
    return hItem;
}

void CDrawingManagerDlg::FillTree() {
    // The right part empties once, and not anew for every item that goes.
    m_tree.SelectItem(nullptr);
    m_tree.SetRedraw(FALSE);
    m_tree.DeleteAllItems();
    const CTreeContents contents = ReadTreeContents(m_eApp);
    for (const CTreeClient& client : contents.aClients) {
        const HTREEITEM hClient = InsertTreeItem(client.strName, TVI_ROOT, kItemClient, kNoId);
        for (const CTreeProject& project : client.aProjects) {
            InsertTreeItem(project.strName, hClient, kItemProject, project.nId);
        }
    }
    for (const CTreeProject& project : contents.aLooseProjects) {
        InsertTreeItem(project.strName, TVI_ROOT, kItemProject, project.nId);
    }
    m_tree.SortBranch(TVI_ROOT, true);
    m_tree.SetRedraw(TRUE);
}

// Adds what is missing below an item, without sorting. False if the path leads nowhere.
bool CDrawingManagerDlg::AddFolders(HTREEITEM hParent, const std::wstring& strPath, int nDepth) {
    const std::wstring strFolder = EnsureBackslash(strPath);
    if (strFolder.empty() || strFolder == L"\\") return false;
    std::set<std::wstring> labels;
    for (HTREEITEM hChild = m_tree.GetChildItem(hParent); hChild;
         hChild = m_tree.GetNextSiblingItem(hChild)) {
        labels.insert(m_tree.GetItemText(hChild).ToStdString());
    }
    for (const platform::FoundEntry& entry : platform::GetFiles().Find(strFolder + L"*.*")) {
        if (!entry.isDirectory || !labels.insert(entry.name).second) continue;
        const HTREEITEM hFolder = InsertTreeItem(entry.name, hParent, kItemFolder, kNoId);
        if (nDepth > 0) AddFolders(hFolder, strFolder + entry.name, nDepth - 1);
    }
    return true;
}

void CDrawingManagerDlg::ScanFolders(HTREEITEM hParent, const std::wstring& strPath, int nDepth) {
    if (AddFolders(hParent, strPath, nDepth)) m_tree.SortBranch(hParent, true);
}

std::wstring CDrawingManagerDlg::GetItemFolderPath(HTREEITEM hItem, const std::wstring& strSuffix) const {
    switch (m_tree.GetItemKind(hItem, false)) {
        case kItemProject:
            return CKV2D_ProjectGeneral(GetDataId(hItem)).GetDrawingsLocation(m_eApp) + strSuffix;
        case kItemFolder:
            return GetItemFolderPath(m_tree.GetParentItem(hItem),
                                     m_tree.GetItemText(hItem).ToStdString() + L"\\" + strSuffix);
        default:
            return {};
    }
}

std::wstring CDrawingManagerDlg::GetItemRelativePath(HTREEITEM hItem, const std::wstring& strSuffix) const {
    if (m_tree.GetItemKind(hItem, false) != kItemFolder) return strSuffix;
    return GetItemRelativePath(m_tree.GetParentItem(hItem),
                               m_tree.GetItemText(hItem).ToStdString() + L"\\" + strSuffix);
}

int CDrawingManagerDlg::GetProjectIdOfItem(HTREEITEM hItem) const {
    while (m_tree.GetItemKind(hItem, false) == kItemFolder)
        hItem = m_tree.GetParentItem(hItem);
    return m_tree.GetItemKind(hItem, false) == kItemProject ? GetDataId(hItem) : 0;
}

// The standard that a selected item stands for.
int CDrawingManagerDlg::GetProjectIdOfSelection(HTREEITEM hItem) const {
    switch (m_tree.GetItemKind(hItem, false)) {
        case kItemProject:
            return GetDataId(hItem);
        case kItemFolder:
            return GetProjectIdOfItem(m_tree.GetParentItem(hItem));
        default:
            return 0;
    }
}

HTREEITEM CDrawingManagerDlg::FindChildByLabel(HTREEITEM hParent, const std::wstring& strLabel) const {
    HTREEITEM hChild = m_tree.GetChildItem(hParent);
    while (hChild && m_tree.GetItemText(hChild) != strLabel)
        hChild = m_tree.GetNextSiblingItem(hChild);
    return hChild;
}

void CDrawingManagerDlg::RestoreSelectedFolder(HTREEITEM hStart, const std::wstring& strRelativePath) {
    const size_t nFirst = strRelativePath.find_first_not_of(L'\\');
    if (nFirst == std::wstring::npos) return;
    std::vector<std::wstring> astrParts;
    SplitQuotedString(strRelativePath.substr(nFirst), astrParts, L'\\', L'"');
    HTREEITEM hItem = hStart;
    for (const std::wstring& strPart : astrParts) {
        hItem = hItem ? FindChildByLabel(hItem, strPart) : nullptr;
        if (!hItem) return;
        m_tree.SelectItem(hItem);
    }
}

void CDrawingManagerDlg::UpdateCurrentLocation() {
    const HTREEITEM hItem = m_tree.GetSelectedItem();
    m_nProjectId = GetProjectIdOfSelection(hItem);
    m_strFolder = GetItemFolderPath(hItem, L"");
    m_editLocation.SetWindowText(m_strFolder.c_str());
}

void CDrawingManagerDlg::OnTvnSelchangedTree(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    const HTREEITEM hItem = reinterpret_cast<NMTREEVIEW*>(pNMHDR)->itemNew.hItem;
    if (m_tree.GetItemKind(hItem, false) == kItemProject && GetDataId(hItem) > 0 &&
        !m_tree.GetChildItem(hItem)) {
        ScanFolders(hItem, CKV2D_ProjectGeneral(GetDataId(hItem)).GetDrawingsLocation(m_eApp),
                    kOneLevelAhead);
    }
    UpdateCurrentLocation();
    RefreshDrawings();
    WriteDisciplineString(m_eApp, kManagerSubkey, kSelectedFolderValue, GetItemRelativePath(hItem, L""));
    UpdateButtons();
}

void CDrawingManagerDlg::OnTvnItemexpandedTree(NMHDR* pNMHDR, LRESULT* pResult) {
    *pResult = 0;
    const HTREEITEM hItem = reinterpret_cast<NMTREEVIEW*>(pNMHDR)->itemNew.hItem;
    CWaitCursor wait;
    // Below a client the base is empty, and the folders are looked for under the bare name of the standard.
    const std::wstring strBase = GetItemFolderPath(hItem, L"");
    HTREEITEM hFirstScanned = nullptr;
    for (HTREEITEM hChild = m_tree.GetChildItem(hItem); hChild; hChild = m_tree.GetNextSiblingItem(hChild)) {
        if (m_tree.GetChildItem(hChild)) continue;
        AddFolders(hChild, strBase + m_tree.GetItemText(hChild).ToStdString(), kOneLevelAhead);
        if (!hFirstScanned) hFirstScanned = hChild;
    }
    // Sorts the children of all siblings behind it as well: once for all that were read.
    if (hFirstScanned) m_tree.SortBranch(hFirstScanned, true);
}

void CDrawingManagerDlg::OnNMDblclkTree(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
    const HTREEITEM hItem = m_tree.GetSelectedItem();
    if (m_tree.GetItemKind(hItem, false) == kItemProject && GetDataId(hItem) > 0) OpenStandard();
}
