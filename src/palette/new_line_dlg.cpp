#include "palette/new_line_dlg.h"

#include "acdocman.h"
#include "controls/acad_error_box.h"
#include "controls/module_resources.h"
#include "database/line_list.h"
#include "database/project_general.h"
#include "document/doc_xdata.h"
#include "document/palette_link.h"
#include "palette/project_lines.h"
#include "platform/letter_case.h"
#include "resources/resource.h"
#include "storage/applications.h"

namespace {

constexpr wchar_t kInvalidText[] = L"Please enter a valid line number to create.";
constexpr wchar_t kExistsText[] =
    L"The line number already exists.\n\nPlease enter a different line number to create.";
constexpr wchar_t kUncheckedText[] =
    L"The line number has been unchecked in the Standards Manager.\n\nPlease enter a different line number "
    L"to create "
    L"or use\nthe Standards Manager to check on the line number for use.";

// The project of the current drawing, and how it keeps its lines.
struct CLineProject {
    CLineProject() {
        const CKV2D_DocXData data(kDocXDataAppName);
        nProjectId = data.m_projectId;
        nAppId = data.m_appId;
        bLocal = CKV2D_ProjectGeneral(nProjectId).m_bLocalLineIni;
    }
    std::wstring Application() const { return GetApplicationName(nAppId); }

    int nProjectId = 0;
    int nAppId = 0;
    bool bLocal = false;
};

// Why the name cannot be taken; null if it is free.
const wchar_t* FindRefusal(const CLineProject& project, const std::wstring& strName) {
    CProjectLines lines;
    lines.Read(project.nProjectId, project.bLocal, project.nAppId, {.bDeletedToo = true, .bUseCache = true});
    for (size_t i = 0; i < lines.m_astrNames.size(); ++i)
        if (platform::EqualWithoutCase(lines.m_astrNames[i], strName))
            return lines.m_abFlags[i] ? kExistsText : kUncheckedText;
    return nullptr;
}

int CreateLineOf(const CLineProject& project, int& nLineId) {
    std::wstring strGenerated;
    return project.bLocal ? CreateLocalLine(project.nProjectId, project.Application(),
                                            GetCurrentDrawingPath(), nLineId, strGenerated)
                          : CreateLine(project.nProjectId, nLineId, strGenerated);
}

int RenameLineOf(const CLineProject& project, int nLineId, const std::wstring& strName) {
    return project.bLocal ? RenameLocalLine(project.nProjectId, project.Application(),
                                            GetCurrentDrawingPath(), nLineId, strName)
                          : RenameLine(project.nProjectId, nLineId, strName);
}

void MakeCurrentLine(int nLineId) {
    CKV2D_DocXData data(kDocXDataAppName);
    if (data.m_lineId == nLineId) return;
    data.m_lineId = nLineId;
    data.m_dirty = true;
}

}  // namespace

BEGIN_MESSAGE_MAP(CNewLineDlg, CDialog)
ON_BN_CLICKED(IDOK, &CNewLineDlg::OnOK)
END_MESSAGE_MAP()

CNewLineDlg::CNewLineDlg(CWnd* pParent)
    : CDialog(IDD_NEW_LINE, pParent), m_strTitle(L"TESSARC - Create New Line Number") {}

INT_PTR CNewLineDlg::DoModal() {
    const CModuleResourceScope resources;
    return CDialog::DoModal();
}

void CNewLineDlg::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_NEW_LINE_NUMBER, m_strLine);
}

BOOL CNewLineDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    return TRUE;
}

void CNewLineDlg::ShowError(const std::wstring& strFormat, const std::wstring& strArgument) {
    ShowMessageWithAcadError(m_strTitle, strFormat, kNoAcadError, strArgument, L"");
    // The box is the main window's: closing it has enabled and activated that one, in front of this dialog.
    if (const HWND hWndOwner = ::GetWindow(m_hWnd, GW_OWNER)) ::EnableWindow(hWndOwner, FALSE);
    SetForegroundWindow();
    GetDlgItem(IDC_NEW_LINE_NUMBER)->SetFocus();
}

void CNewLineDlg::OnOK() {
    UpdateData(TRUE);
    m_strLine.Trim(L' ');
    UpdateData(FALSE);
    const std::wstring strName = m_strLine.ToStdString();
    if (strName.empty() || strName == L"-") return ShowError(kInvalidText);

    const CLineProject project;
    if (const wchar_t* szRefusal = FindRefusal(project, strName)) return ShowError(szRefusal);
    int nLineId = 0;
    if (const int nCode = CreateLineOf(project, nLineId); nCode != kLineOk)
        return ShowError(L"Error creating new line.\n\n%s", GetLineErrorText(nCode));
    // The line exists now: it keeps its generated name if it cannot be renamed.
    if (const int nCode = RenameLineOf(project, nLineId, strName); nCode != kLineOk)
        ShowError(L"Error renaming new line.\n\n%s", GetLineErrorText(nCode));
    ReloadLineCache(project.bLocal, project.nAppId);
    MakeCurrentLine(nLineId);
    if (CPaletteLink* pPalette = GetPaletteLink()) pPalette->UpdateForDocument(acDocManager->curDocument());
    CDialog::OnOK();
}
