// How the Drawing Manager comes up: its controls are set up, the last state is restored, and the tree and the
// list are filled.
#include <cstdlib>

#include "acdocman.h"
#include "controls/acad_error_box.h"
#include "controls/rect_conversion.h"
#include "document/doc_xdata.h"
#include "document/drawing_queries.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/icon_loading.h"
#include "drawing_manager/manager_registry.h"
#include "drawing_manager/palette_discipline.h"
#include "drawing_manager/window_position.h"
#include "resources/resource.h"
#include "storage/registry_settings.h"

namespace {

constexpr int kListImageSize = 24;
constexpr int kButtonIconSize = 24;

// The images of the tree by kind of item; the reserved kinds show the program's own.
constexpr std::array<UINT, kItemKindCount> kTreeIcons = {IDI_CLIENT,  IDI_STANDARD, IDI_PROGRAM, IDI_PROGRAM,
                                                         IDI_PROGRAM, IDI_PROGRAM,  IDI_PROGRAM, IDI_PROGRAM,
                                                         IDI_PROGRAM, IDI_PROGRAM,  IDI_PROGRAM, IDI_FOLDER};

void SetUpButton(CButtonST& button, int nIconId, LPCTSTR lpszTip, bool bFlat = true) {
    button.SetIcon(nIconId, kButtonIconSize, kButtonIconSize);
    button.SetFlat(bFlat);
    button.SetTooltipText(lpszTip);
}

}  // namespace

BOOL CDrawingManagerDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    CString strTitle;
    GetWindowText(strTitle);
    m_strTitle = strTitle.ToStdString();
    if (m_bInitialized) return TRUE;
    m_bInitialized = true;

    SetIcon(m_hIcon, TRUE);
    SetIcon(m_hIcon, FALSE);
    m_tree.m_pDlg = this;
    m_tree.Init(kEditFolders, kTreeIcons, nullptr);
    SetUpThumbnail();
    SetUpListIcons();
    SetUpButtons();
    SetUpList();
    SetUpSplitters();

    m_eApp = GetPaletteDiscipline();
    m_uBackupState = ReadDisciplineDword(m_eApp, kManagerSubkey, kBackupStateValue, 0);
    m_btnSingleDoc.SetCheck(
        static_cast<int>(ReadDisciplineDword(m_eApp, kManagerSubkey, kSingleDocumentValue, 0)));
    RestoreWindowState();
    m_bLayoutReady = true;
    HandleResize();

    SelectStartItem();
    SetSysVarShort(L"SDI", 0);
    UpdateCurrentLocation();
    RefreshDrawings();
    SetDrawingsVisible(m_bShowDrawings);
    return TRUE;
}

void CDrawingManagerDlg::SetUpThumbnail() {
    CWnd* pPlaceholder = GetDlgItem(IDC_THUMBNAIL);
    if (!pPlaceholder) return;
    const CRect rect = ToRect(GetRectIn(*this, *pPlaceholder));
    if (!m_thumbnail.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, this, IDC_THUMBNAIL)) {
        m_thumbnail.SubclassDlgItem(IDC_THUMBNAIL, this);
    }
}

void CDrawingManagerDlg::SetUpButtons() {
    SetUpButton(m_btnOpenStandard, IDI_OPEN, L"Open Standard");
    SetUpButton(m_btnShowHide, IDI_SHOW_HIDE, L"Show/Hide Drawings");
    SetUpButton(m_btnOpen, IDI_OPEN, L"Open Drawing");
    SetUpButton(m_btnNew, IDI_NEW, L"New");
    SetUpButton(m_btnCopy, IDI_COPY, L"Copy");
    SetUpButton(m_btnRename, IDI_RENAME, L"Rename");
    SetUpButton(m_btnDelete, IDI_DELETE, L"Delete");
    SetUpButton(m_btnExplore, IDI_EXPLORE, L"Open folder in Windows Explorer", false);
}

void CDrawingManagerDlg::SetUpListIcons() {
    m_imageListDrawings.Create(kListImageSize, kListImageSize, ILC_COLOR16 | ILC_MASK, 4, 0);
    for (UINT uIconId : {IDI_DRAWING_NORMAL, IDI_DRAWING_BACKUP, IDI_DRAWING_LOCKED, IDI_DRAWING_READ_ONLY}) {
        AddIconToList(m_imageListDrawings, uIconId, kListImageSize);
    }
    m_imageListDrawings.SetBkColor(CLR_NONE);
    m_listDrawings.SetImageList(&m_imageListDrawings, LVSIL_SMALL);
}

void CDrawingManagerDlg::SetUpList() {
    m_listDrawings.InsertColumn(0, L"Name", LVCFMT_LEFT, 226);
    m_listDrawings.InsertColumn(1, L"Size", LVCFMT_RIGHT, 57);
    m_listDrawings.InsertColumn(2, L"Modified", LVCFMT_LEFT, 115);
    m_listDrawings.SetExtendedStyle(m_listDrawings.GetExtendedStyle() | LVS_EX_GRIDLINES |
                                    LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT);
}

void CDrawingManagerDlg::SetUpSplitters() {
    const auto create = [this](CSplitterControl& splitter, UINT uId, SplitterType type) {
        const CWnd* pPlace = GetDlgItem(static_cast<int>(uId));
        if (!pPlace) return;
        splitter.Create(WS_CHILD | WS_VISIBLE, ToRect(GetRectIn(*this, *pPlace)), this, uId);
        splitter.SetStyle(type);
    };
    create(m_splitterV, IDC_SPLITTER_VERTICAL, kSplitterVertical);
    create(m_splitterH, IDC_SPLITTER_HORIZONTAL, kSplitterHorizontal);
}

void CDrawingManagerDlg::RestoreWindowState() {
    m_bShowDrawings = true;
    const std::wstring strPosition = ReadDisciplineString(m_eApp, kManagerSubkey, kWindowPositionValue);
    if (strPosition.empty()) return;
    const CWindowPosition position = ParseWindowPosition(strPosition);
    m_bShowDrawings = position.bListVisible;
    MoveWindow(ToRect(ClampWindowRect(position.rcWindow)));
    m_splitterV.MoveWindow(ToRect(position.rcSplitterV));
    m_splitterH.MoveWindow(ToRect(position.rcSplitterH));
    LayoutControls();
}

int CDrawingManagerDlg::FindStartProject() const {
    int nProjectId = 0;
    if (acDocManager && acDocManager->curDocument()) {
        CKV2D_DocXData data(kDocXDataAppName);
        data.Write();
        nProjectId = data.m_projectId;
    }
    if (nProjectId != 0) return nProjectId;
    const auto nStored =
        static_cast<std::int32_t>(ReadDisciplineDword(m_eApp, kManagerSubkey, kProjectIdValue, 0));
    return static_cast<int>(std::abs(static_cast<std::int64_t>(nStored)));
}

void CDrawingManagerDlg::SelectStartItem() {
    m_nProjectId = FindStartProject();
    FillTree();
    if (m_tree.GetCount() == 0) {
        ShowError(
            L"Warning: No standards have been created!\n\nPlease use the Standards Manager to create a "
            L"standard.");
    }
    HTREEITEM hItem = m_tree.FindItemByData(TVI_ROOT, static_cast<std::uint32_t>(m_nProjectId), true);
    // The first selection overwrites the stored folder.
    std::wstring strFolder = ReadDisciplineString(m_eApp, kManagerSubkey, kSelectedFolderValue);
    if (!hItem) {
        hItem = m_tree.GetRootItem();
        strFolder.clear();
    }
    m_tree.SelectItem(hItem);
    RestoreSelectedFolder(hItem, strFolder);
}
