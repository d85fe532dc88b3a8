// Folders in the Drawing Manager: the tree's popup menu and what its commands do.
#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/drawing_names.h"
#include "platform/platform.h"
#include "storage/message_format.h"
#include "storage/path_text.h"

namespace {

constexpr int kProjectsPopup = 0;

}  // namespace

void CDrawingManagerDlg::OnNMRClickTree(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
    HideBalloon();
    UpdateCurrentLocation();
    CPoint ptCursor;
    ::GetCursorPos(&ptCursor);
    CPoint ptTree = ptCursor;
    m_tree.ScreenToClient(&ptTree);
    // The selection may read folders of a slow share; the menu comes up where the click was all the same.
    const HTREEITEM hHit = m_tree.HitTest(ptTree);
    if (hHit) m_tree.SelectItem(hHit);
    TrackMenu(kProjectsPopup,
              GetGreyedFolderCommands(m_tree.GetItemKind(hHit, false), GetProjectIdOfSelection(hHit)), false,
              ptCursor);
}

void CDrawingManagerDlg::OnBnClickedExplore() {
    ::ShellExecute(m_hWnd, L"explore", GetLocationText().c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void CDrawingManagerDlg::OnNewFolder() {
    const HTREEITEM hParent = m_tree.GetSelectedItem();
    const std::wstring strName = MakeNewFolderName(
        m_strFolder, [](const std::wstring& strPath) { return platform::GetFiles().Exists(strPath); });
    // This makes sure of the parent only: the last component counts as a file's name. The new folder comes
    // from whoever fills it.
    EnsureFolderOfPath(m_strFolder + strName);
    ScanFolders(hParent, m_strFolder, kOneLevelAhead);
    m_tree.Expand(hParent, TVE_EXPAND);
    if (hParent && m_tree.GetChildItem(hParent)) m_tree.SelectItem(FindChildByLabel(hParent, strName));
    if (const HTREEITEM hSelected = m_tree.GetSelectedItem()) m_tree.EditLabel(hSelected);
}

void CDrawingManagerDlg::OnRenameFolder() {
    if (const HTREEITEM hSelected = m_tree.GetSelectedItem()) m_tree.EditLabel(hSelected);
}

bool CDrawingManagerDlg::RenameCurrentFolder(const std::wstring& strNewName) {
    const std::wstring strNew = MakeRenamedFolder(m_strFolder, strNewName);
    if (platform::GetFiles().Move(TrimTrailingBackslashes(m_strFolder), strNew) != platform::kDone)
        return false;
    m_strFolder = EnsureBackslash(strNew);
    m_editLocation.SetWindowText(m_strFolder.c_str());
    return true;
}

void CDrawingManagerDlg::OnDeleteFolder() {
    const std::wstring strFolder = TrimTrailingBackslashes(m_strFolder);
    const auto tell = [this, &strFolder](const wchar_t* pszFormat) {
        MessageBox(FormatMessageText(pszFormat, {strFolder}).c_str(), m_strTitle.c_str(), MB_ICONHAND);
    };
    if (!platform::GetFiles().Find(strFolder + L"\\*.*").empty()) {
        tell(L"Folder is not empty. Can only delete empty folders.\n\n%s");
    } else if (platform::GetFiles().RemoveFolder(strFolder) != platform::kDone) {
        tell(L"Error deleting folder.\n\n%s");
    } else {
        m_tree.DeleteItem(m_tree.GetSelectedItem());
    }
}

void CDrawingManagerDlg::OnRefreshTree() {
    FillTree();
    UpdateCurrentLocation();
}
