// What the Drawing Manager does to drawings: open, start from the template, copy, rename, delete.
#include <array>
#include <memory>

#include "acdocman.h"
#include "database/project_general.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/drawing_names.h"
#include "drawing_manager/manager_registry.h"
#include "platform/platform.h"
#include "rxmfcapi.h"
#include "storage/path_text.h"
#include "storage/registry_settings.h"

namespace {

constexpr wchar_t kCopyErrorFormat[] = L"Error copying file\nFrom: %s\nTo: %s";
constexpr size_t kFullPathRoom = 4096;

bool PathIsTaken(const std::wstring& strPath) {
    return platform::GetFiles().Exists(strPath);
}

bool CopyDrawing(const std::wstring& strFrom, const std::wstring& strTo) {
    return platform::GetFiles().Copy(strFrom, strTo, true) == platform::kDone;
}

}  // namespace

void CDrawingManagerDlg::OnOpenDrawing() {
    HideBalloon();
    m_bOpenReadOnly = false;
    OpenSelectedDrawings();
}

void CDrawingManagerDlg::OnOpenReadOnly() {
    HideBalloon();
    m_bOpenReadOnly = true;
    OpenSelectedDrawings();
}

void CDrawingManagerDlg::OnNMDblclkList(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
    OnOpenDrawing();
}

void CDrawingManagerDlg::OpenSelectedDrawings() {
    std::vector<int> anItems;
    GetSelectedItems(anItems);
    if (m_nProjectId < 1 || anItems.empty()) return;
    if (m_btnSingleDoc.GetCheck() == BST_CHECKED) {
        anItems.resize(1);
        CloseAllDocuments();
    }
    CollectOpenList(anItems);
    if (m_astrOpenList.empty()) return;
    WriteDisciplineDword(m_eApp, kManagerSubkey, kProjectIdValue, static_cast<std::uint32_t>(m_nProjectId));
    WriteDisciplineDword(m_eApp, kManagerSubkey, kShowWindowValue, 1);
    SetProjectEnvironment(m_nProjectId);
    SaveWindowState();
    CDialog::OnOK();
}

void CDrawingManagerDlg::CloseAllDocuments() {
    if (!acDocManager) return;
    // Lets one message through, as closing a document wants; the empty one makes sure that there is one.
    const auto pumpOnce = [this] {
        CWinApp* pApp = acedGetAcadWinApp();
        PostMessage(WM_NULL);
        if (pApp) pApp->PumpMessage();
    };
    m_bClosingDocuments = true;
    {
        const std::unique_ptr<AcApDocumentIterator> pDocuments(acDocManager->newAcApDocumentIterator());
        for (; pDocuments && !pDocuments->done(); pDocuments->step()) {
            acDocManager->appContextCloseDocument(pDocuments->document());
            pumpOnce();
        }
    }
    pumpOnce();
    m_bClosingDocuments = false;
}

void CDrawingManagerDlg::CollectOpenList(const std::vector<int>& anItems) {
    m_astrOpenList.clear();
    bool bBackupSeen = false;
    for (int nItem : anItems) {
        const std::wstring strPath = GetRowPath(nItem);
        if (IsBackupName(strPath)) {
            bBackupSeen = true;
        } else if (platform::GetFiles().Exists(strPath)) {
            m_astrOpenList.push_back(strPath);
        } else {
            ShowError(L"Cannot find drawing file:\n%s", strPath);
        }
    }
    if (bBackupSeen)
        ShowError(L"Cannot open drawing backup files.\n\nPlease rename to a .dwg file and try again.");
}

void CDrawingManagerDlg::OnBnClickedNew() {
    HideBalloon();
    if (m_nProjectId < 1) return;
    const std::wstring strTemplate = GetTemplateFile(m_nProjectId);
    if (strTemplate.empty()) {
        ShowError(L"Error getting template filename.");
        return;
    }
    if (!platform::GetFiles().Exists(strTemplate)) {
        ShowError(L"Error finding drawing template:\n%s", strTemplate);
        return;
    }
    const std::wstring strTitle = MakeDrawingTitle(FindFreeDrawingNumber(m_strFolder, &PathIsTaken));
    const std::wstring strPath = m_strFolder + strTitle + kDrawingExtension;
    EnsureFolderOfPath(strPath);
    if (!CopyDrawing(strTemplate, strPath)) {
        ShowError(kCopyErrorFormat, strTemplate, strPath);
        return;
    }
    CDrawingRow row{strTitle, GetDrawingState(strTitle, kDrawingExtension), {}, {}};
    GetFileSizeAndDate(strPath, row.strSize, row.strDate);
    const int nItem = InsertRow(row, 0);
    m_listDrawings.SetFocus();
    m_listDrawings.EditLabel(nItem);
}

void CDrawingManagerDlg::OnBnClickedCopy() {
    HideBalloon();
    std::vector<int> anItems;
    GetSelectedItems(anItems);
    for (int nItem : anItems) {
        const std::wstring strSource = GetRowPath(nItem);
        const std::wstring strCopy = MakeCopyName(strSource, &PathIsTaken);
        if (!CopyDrawing(strSource, strCopy)) ShowError(kCopyErrorFormat, strSource, strCopy);
    }
    if (!anItems.empty()) FillDrawingList();
}

void CDrawingManagerDlg::OnBnClickedRename() {
    HideBalloon();
    std::vector<int> anItems;
    GetSelectedItems(anItems);
    if (anItems.size() != 1) return;
    m_listDrawings.SetFocus();
    m_listDrawings.EditLabel(anItems[0]);
}

void CDrawingManagerDlg::OnLvnBeginlabeleditList(NMHDR*, LRESULT* pResult) {
    *pResult = 0;
    const CEdit* pEdit = m_listDrawings.GetEditControl();
    if (!pEdit) return;
    CString strText;
    pEdit->GetWindowText(strText);
    m_strOldDrawingName = strText.ToStdString();
}

void CDrawingManagerDlg::OnLvnEndlabeleditList(NMHDR*, LRESULT* pResult) {
    // The control keeps the old text: the new one is seen when the list is filled from the disk again.
    *pResult = 0;
    const CEdit* pEdit = m_listDrawings.GetEditControl();
    if (!pEdit) return;
    CString strText;
    pEdit->GetWindowText(strText);
    if (strText == m_strOldDrawingName) return;
    std::wstring strOldPath = m_strFolder + m_strOldDrawingName;
    std::wstring strNewPath = m_strFolder + strText.ToStdString();
    NormalizeDrawingName(strOldPath);
    NormalizeDrawingName(strNewPath);
    if (strOldPath == strNewPath) return;
    CFile::Rename(strOldPath.c_str(), strNewPath.c_str());
    FillDrawingList();
}

void CDrawingManagerDlg::OnBnClickedDelete() {
    HideBalloon();
    std::vector<int> anItems;
    GetSelectedItems(anItems);
    if (anItems.empty()) return;
    std::vector<std::wstring> astrNames;
    for (int nItem : anItems)
        astrNames.push_back(GetRowText(nItem));
    const int nAnswer = MessageBox(MakeDeleteQuestion(astrNames).c_str(), m_strTitle.c_str(),
                                   MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2);
    if (nAnswer != IDYES) return;
    CWaitCursor wait;
    // From the last one up, so that the numbers of the rows ahead stay right.
    for (auto pItem = anItems.rbegin(); pItem != anItems.rend(); ++pItem) {
        if (RecycleFile(GetRowPath(*pItem))) m_listDrawings.DeleteItem(*pItem);
    }
}

bool CDrawingManagerDlg::RecycleFile(const std::wstring& strPath) const {
    // The shell takes a list of names, which ends with two nulls.
    std::array<wchar_t, kFullPathRoom> szPath{};
    const DWORD nLength =
        ::GetFullPathName(strPath.c_str(), static_cast<DWORD>(szPath.size() - 1), szPath.data(), nullptr);
    if (nLength == 0 || nLength >= szPath.size() - 1) return false;
    SHFILEOPSTRUCT operation{};
    operation.hwnd = m_hWnd;
    operation.wFunc = FO_DELETE;
    operation.pFrom = szPath.data();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_FILESONLY;
    return ::SHFileOperation(&operation) == 0;
}
