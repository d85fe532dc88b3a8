#include "drawing_manager/drawing_manager_dlg.h"

#include "aced.h"
#include "acedads.h"
#include "controls/acad_error_box.h"
#include "controls/balloon_tip.h"
#include "controls/rect_conversion.h"
#include "drawing_manager/button_rules.h"
#include "drawing_manager/drawing_names.h"
#include "drawing_manager/html_help.h"
#include "drawing_manager/icon_loading.h"
#include "drawing_manager/manager_registry.h"
#include "drawing_manager/project_template.h"
#include "drawing_manager/window_position.h"
#include "platform/platform.h"
#include "resources/resource.h"
#include "storage/applications.h"
#include "storage/install_paths.h"
#include "storage/message_format.h"
#include "storage/registry_settings.h"

BEGIN_MESSAGE_MAP(CDrawingManagerDlg, CDialog)
ON_BN_CLICKED(IDC_OPEN_DRAWING, &CDrawingManagerDlg::OnOpenDrawing)
ON_COMMAND(ID_DRAWINGS_OPEN, &CDrawingManagerDlg::OnOpenDrawing)
ON_COMMAND(ID_DRAWINGS_OPENREADONLY, &CDrawingManagerDlg::OnOpenReadOnly)
ON_BN_CLICKED(IDC_NEW_DRAWING, &CDrawingManagerDlg::OnBnClickedNew)
ON_COMMAND(ID_DRAWINGS_NEW, &CDrawingManagerDlg::OnBnClickedNew)
ON_BN_CLICKED(IDC_COPY_DRAWING, &CDrawingManagerDlg::OnBnClickedCopy)
ON_COMMAND(ID_DRAWINGS_COPY, &CDrawingManagerDlg::OnBnClickedCopy)
ON_BN_CLICKED(IDC_RENAME_DRAWING, &CDrawingManagerDlg::OnBnClickedRename)
ON_COMMAND(ID_DRAWINGS_RENAME, &CDrawingManagerDlg::OnBnClickedRename)
ON_BN_CLICKED(IDC_DELETE_DRAWING, &CDrawingManagerDlg::OnBnClickedDelete)
ON_COMMAND(ID_DRAWINGS_DELETE, &CDrawingManagerDlg::OnBnClickedDelete)
ON_COMMAND(ID_DRAWINGS_SHOWBACKUPS, &CDrawingManagerDlg::OnShowBackups)
ON_COMMAND(ID_DRAWINGS_REFRESHLIST, &CDrawingManagerDlg::RefreshDrawings)
ON_BN_CLICKED(IDC_OPEN_STANDARD, &CDrawingManagerDlg::OpenStandard)
ON_COMMAND(ID_PROJECTS_OPEN, &CDrawingManagerDlg::OpenStandard)
ON_BN_CLICKED(IDC_SHOW_HIDE, &CDrawingManagerDlg::OnBnClickedShowHide)
ON_BN_CLICKED(IDC_EXPLORE, &CDrawingManagerDlg::OnBnClickedExplore)
ON_BN_CLICKED(IDC_SINGLE_DOC, &CDrawingManagerDlg::OnBnClickedSingleDoc)
ON_BN_CLICKED(IDC_HELP_BUTTON, &CDrawingManagerDlg::OnBnClickedHelp)
ON_COMMAND(ID_PROJECTS_NEWFOLDER, &CDrawingManagerDlg::OnNewFolder)
ON_COMMAND(ID_PROJECTS_RENAME, &CDrawingManagerDlg::OnRenameFolder)
ON_COMMAND(ID_PROJECTS_DELETE, &CDrawingManagerDlg::OnDeleteFolder)
ON_COMMAND(ID_PROJECTS_REFRESHLIST, &CDrawingManagerDlg::OnRefreshTree)
ON_NOTIFY(LVN_BEGINLABELEDIT, IDC_DRAWING_LIST, &CDrawingManagerDlg::OnLvnBeginlabeleditList)
ON_NOTIFY(LVN_ENDLABELEDIT, IDC_DRAWING_LIST, &CDrawingManagerDlg::OnLvnEndlabeleditList)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_DRAWING_LIST, &CDrawingManagerDlg::OnLvnItemchangedList)
ON_NOTIFY(NM_CLICK, IDC_DRAWING_LIST, &CDrawingManagerDlg::OnNMClickList)
ON_NOTIFY(NM_DBLCLK, IDC_DRAWING_LIST, &CDrawingManagerDlg::OnNMDblclkList)
ON_NOTIFY(NM_RCLICK, IDC_DRAWING_LIST, &CDrawingManagerDlg::OnNMRClickList)
ON_NOTIFY(HDN_ITEMCLICK, 0, &CDrawingManagerDlg::OnHdnItemclickList)
ON_NOTIFY(NM_DBLCLK, IDC_TREE, &CDrawingManagerDlg::OnNMDblclkTree)
ON_NOTIFY(NM_RCLICK, IDC_TREE, &CDrawingManagerDlg::OnNMRClickTree)
ON_NOTIFY(TVN_SELCHANGED, IDC_TREE, &CDrawingManagerDlg::OnTvnSelchangedTree)
ON_NOTIFY(TVN_ITEMEXPANDED, IDC_TREE, &CDrawingManagerDlg::OnTvnItemexpandedTree)
ON_WM_SIZE()
ON_WM_SIZING()
ON_WM_MOVING()
AFX_ON_WM(WM_CLOSE, Plain, SaveWindowState)
END_MESSAGE_MAP()

CDrawingManagerDlg::CDrawingManagerDlg(CWnd* pParent)
    : CDialog(IDD_DRAWING_MANAGER, pParent), m_hIcon(LoadSharedIcon(IDI_PROGRAM)) {}

void CDrawingManagerDlg::DoDataExchange(CDataExchange* pDX) {
    CDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_SINGLE_DOC, m_btnSingleDoc);
    DDX_Control(pDX, IDC_EXPLORE, m_btnExplore);
    DDX_Control(pDX, IDC_COPY_DRAWING, m_btnCopy);
    DDX_Control(pDX, IDC_DELETE_DRAWING, m_btnDelete);
    DDX_Control(pDX, IDC_SHOW_HIDE, m_btnShowHide);
    DDX_Control(pDX, IDC_NEW_DRAWING, m_btnNew);
    DDX_Control(pDX, IDC_OPEN_DRAWING, m_btnOpen);
    DDX_Control(pDX, IDC_OPEN_STANDARD, m_btnOpenStandard);
    DDX_Control(pDX, IDC_RENAME_DRAWING, m_btnRename);
    DDX_Control(pDX, IDC_TREE, m_tree);
    DDX_Control(pDX, IDC_LOCATION, m_editLocation);
    DDX_Control(pDX, IDC_DRAWING_LIST, m_listDrawings);
}

void CDrawingManagerDlg::OnOK() {
    // There is no OK button: this is the Return key.
    HideBalloon();
    if (!m_listDrawings.IsWindowVisible()) {
        OpenStandard();
        return;
    }
    m_bOpenReadOnly = false;
    OpenSelectedDrawings();
}

void CDrawingManagerDlg::OnCancel() {
    HideBalloon();
    // What counts is whether a standard was ever opened, not what is selected now.
    if (ReadDisciplineDword(m_eApp, kManagerSubkey, kProjectIdValue, 0) == 0) {
        const int nAnswer = MessageBox(
            L"Warning: You must open a drawing that is under project control.\n"
            L"If you do not, Vandrel will not function properly.\n\n"
            L"Are you sure you want to close the Drawing Manager without opening a drawing?",
            m_strTitle.c_str(), MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2);
        if (nAnswer == IDNO) return;
    }
    CDialog::OnCancel();
}

void CDrawingManagerDlg::OpenStandard() {
    HideBalloon();
    const int nProjectId = GetProjectIdOfSelection(m_tree.GetSelectedItem());
    WriteDisciplineDword(m_eApp, kManagerSubkey, kProjectIdValue, static_cast<std::uint32_t>(nProjectId));
    WriteDisciplineDword(m_eApp, kManagerSubkey, kShowWindowValue, 0);
    m_strStandardTemplate = GetTemplateFile(nProjectId);
    SetProjectEnvironment(nProjectId);
    SaveWindowState();
    CDialog::OnCancel();
}

std::wstring CDrawingManagerDlg::GetTemplateFile(int nProjectId) const {
    return GetProjectTemplateFile(m_eApp, nProjectId);
}

std::wstring CDrawingManagerDlg::GetTemplateFolder(int nProjectId) const {
    return GetProjectTemplateFolder(m_eApp, nProjectId);
}

void CDrawingManagerDlg::SetProjectEnvironment(int nProjectId) const {
    acedSetEnv(L"QnewTemplate", GetTemplateFile(nProjectId).c_str());
    acedSetEnv(L"TemplatePath", GetTemplateFolder(nProjectId).c_str());
}

void CDrawingManagerDlg::SaveWindowState() {
    CWindowPosition position;
    CRect rcWindow;
    GetWindowRect(rcWindow);
    position.rcWindow = ToPixelRect(rcWindow);
    position.rcSplitterV = GetRectIn(*this, m_splitterV);
    position.rcSplitterH = GetRectIn(*this, m_splitterH);
    position.bListVisible = m_listDrawings.IsWindowVisible() != FALSE;
    WriteDisciplineString(m_eApp, kManagerSubkey, kWindowPositionValue, FormatWindowPosition(position));
    WriteDisciplineDword(m_eApp, kManagerSubkey, kBackupStateValue, m_uBackupState);
    Default();
}

void CDrawingManagerDlg::OnBnClickedSingleDoc() {
    WriteDisciplineDword(m_eApp, kManagerSubkey, kSingleDocumentValue,
                         static_cast<std::uint32_t>(m_btnSingleDoc.GetCheck()));
}

void CDrawingManagerDlg::OnBnClickedHelp() {
    const std::wstring strFile = GetHelpFilePath(m_eApp);
    if (!platform::GetFiles().Exists(strFile)) {
        const std::wstring strText = FormatMessageText(
            L"Couldn't find help file: \n%s\n\nPlease check software installation.", {strFile});
        MessageBox(strText.c_str(), nullptr, MB_ICONHAND);
        return;
    }
    const std::wstring strWord = IsDiscipline(m_eApp) ? GetApplicationName(m_eApp) : std::wstring();
    ShowHelpTopic(strFile + L"::/Starting_" + strWord + L".htm");
}

void CDrawingManagerDlg::OnMoving(UINT fwSide, LPRECT pRect) {
    CDialog::OnMoving(fwSide, pRect);
    HideBalloon();
}

void CDrawingManagerDlg::UpdateButtons() {
    const HTREEITEM hItem = m_tree.GetSelectedItem();
    const CButtonStates states = GetButtonStates(m_tree.GetItemKind(hItem, false), GetDataId(hItem),
                                                 GetRowSelection(), GetLocationText());
    m_btnOpenStandard.EnableWindow(states.bOpenStandard);
    m_btnCopy.EnableWindow(states.bCopyRenameDelete);
    m_btnRename.EnableWindow(states.bCopyRenameDelete);
    m_btnDelete.EnableWindow(states.bCopyRenameDelete);
    m_btnOpen.EnableWindow(states.bOpen);
    m_btnNew.EnableWindow(states.bNewAndExplore);
    m_btnExplore.EnableWindow(states.bNewAndExplore);
}

void CDrawingManagerDlg::UpdateThumbnail() {
    const int nItem = m_listDrawings.GetNextItem(-1, LVNI_SELECTED);
    m_thumbnail.ShowDrawing(nItem < 0 ? L"" : GetRowPath(nItem).c_str());
}

std::wstring CDrawingManagerDlg::GetLocationText() const {
    CString strText;
    m_editLocation.GetWindowText(strText);
    return strText.ToStdString();
}

void CDrawingManagerDlg::HideBalloon() {
    CBalloonTip::Hide(m_pBalloon);
}

void CDrawingManagerDlg::ShowBalloon(const CBalloonNote& note, const CRect& rect, CPoint ptAnchor) {
    TEXTMETRIC metrics{};
    CClientDC(this).GetTextMetrics(&metrics);
    LOGFONT font{};
    font.lfHeight = 16;
    font.lfWeight = FW_BOLD;
    ::lstrcpyn(font.lfFaceName, L"Arial", LF_FACESIZE);
    m_pBalloon = CBalloonTip::Show(ptAnchor, &rect, metrics.tmAveCharWidth, metrics.tmHeight, note.strText,
                                   font, 0, note.bUp, note.strTitle, note.uIconId, note.nLines);
}

void CDrawingManagerDlg::ShowError(const std::wstring& strFormat, const std::wstring& strArgument1,
                                   const std::wstring& strArgument2) const {
    ShowMessageWithAcadError(m_strTitle, strFormat, kNoAcadError, strArgument1, strArgument2);
}

void CDrawingManagerDlg::TrackMenu(int nPopup, const std::vector<int>& anGreyed, bool bShowsBackups,
                                   CPoint ptScreen) {
    const LPCTSTR pszMenu = MAKEINTRESOURCE(IDR_DRAWING_MANAGER_MENU);
    CMenu menu;
    menu.Attach(::LoadMenu(AfxFindResourceHandle(pszMenu, RT_MENU), pszMenu));
    CMenu* pPopup = menu.GetSubMenu(nPopup);
    if (!pPopup) return;
    for (int nCommand : anGreyed)
        pPopup->EnableMenuItem(static_cast<UINT>(nCommand), MF_BYCOMMAND | MF_GRAYED);
    if (bShowsBackups) pPopup->CheckMenuItem(ID_DRAWINGS_SHOWBACKUPS, MF_BYCOMMAND | m_uBackupState);
    pPopup->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, ptScreen.x, ptScreen.y, this);
}
