#include "palette/menu_palette_child_dlg.h"

#include <afxdisp.h>

#include <algorithm>

#include "acdocman.h"
#include "aduiMessage.h"
#include "palette/isoplane.h"
#include "palette/lisp_bridge.h"
#include "palette/notify_link.h"
#include "palette/window_handle_key.h"
#include "resources/resource.h"
#include "rxmfcapi.h"
#include "sizes/size_table.h"
#include "storage/applications.h"
#include "storage/install_paths.h"

namespace {

constexpr UINT kComboIds[kComboCount] = {IDC_PALETTE_COMBO_1, IDC_PALETTE_COMBO_2, IDC_PALETTE_COMBO_3,
                                         IDC_PALETTE_COMBO_4};
constexpr UINT kTitleIds[kComboCount] = {IDC_PALETTE_TITLE_1, IDC_PALETTE_TITLE_2, IDC_PALETTE_TITLE_3,
                                         IDC_PALETTE_TITLE_4};
constexpr int kSmallButtonIcon = 32;
constexpr int kIsoButtonIcon = 48;
constexpr LONG kLargeFontHeight = 24;
constexpr wchar_t kSizeTable[] = L"size.tp";

// Handles fit 32 bits on every Windows; the registry entries of the suite hold them so.
std::int32_t HandleNumber(HWND hWnd) {
    return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(hWnd));
}

// The sizes of the table's section for a unit system. The palette asks before any project is known, so the
// system is always the empty one here.
std::vector<std::wstring> GetInitialSizes(const std::wstring& strUnitSystem) {
    CKV2D_IniFile table = LoadSizeTable(kSizeTable, kSizeStandard);
    if (strUnitSystem == L"Metric - OD")
        table.SetSection(GetSizeSetName(0));
    else if (strUnitSystem == L"Metric - NPS")
        table.SetSection(GetSizeSetName(1));
    else if (strUnitSystem == L"Imperial - NPS")
        table.SetSection(GetSizeSetName(3));
    else
        table.SetSection(GetSizeSetName(2));
    std::vector<std::wstring> astrKeys, astrSizes;
    table.GetSectionEntries(astrKeys, astrSizes);
    return astrSizes;
}

std::vector<std::wstring> GetInitialItems(PaletteRow kind, const std::vector<std::wstring>& astrSizes) {
    switch (kind) {
        case PaletteRow::kMenu:
            return {L"Layout", L"Schematic"};
        case PaletteRow::kMainSize:
        case PaletteRow::kBranchSize:
            return astrSizes;
        default:
            return {};
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(CMenuPaletteChildDlg, CAcUiDialog)
ON_MESSAGE(WM_ACAD_KEEPFOCUS, &CMenuPaletteChildDlg::OnKeepFocus)
ON_WM_TIMER()
ON_BN_CLICKED(IDC_PALETTE_DRAWING_MANAGER, &CMenuPaletteChildDlg::OnBnClickedButtonDrawingManager)
ON_BN_CLICKED(IDC_PALETTE_ISOPLANE, &CMenuPaletteChildDlg::OnBnClickedIsoplane)
ON_BN_CLICKED(IDC_PALETTE_SWAP_SIZE, &CMenuPaletteChildDlg::OnBnClickedSwapSize)
ON_BN_CLICKED(IDC_PALETTE_NEW_LINE, &CMenuPaletteChildDlg::OnBnClickedNewLine)
ON_CBN_SELCHANGE(IDC_PALETTE_COMBO_1, &CMenuPaletteChildDlg::OnSelchangeCombo1)
ON_CBN_SELCHANGE(IDC_PALETTE_COMBO_2, &CMenuPaletteChildDlg::OnSelchangeCombo2)
ON_CBN_SELCHANGE(IDC_PALETTE_COMBO_3, &CMenuPaletteChildDlg::OnSelchangeCombo3)
ON_CBN_SELCHANGE(IDC_PALETTE_COMBO_4, &CMenuPaletteChildDlg::OnSelchangeCombo4)
ON_MESSAGE(kNotifyMessage, &CMenuPaletteChildDlg::OnKV2DNotify)
ON_NOTIFY_EX(TTN_GETDISPINFOW, 0, &CMenuPaletteChildDlg::OnToolTipText)
END_MESSAGE_MAP()

BEGIN_EVENTSINK_MAP(CMenuPaletteChildDlg, CAcUiDialog)
ON_EVENT(CMenuPaletteChildDlg, IDC_PALETTE_TABBED_MENU, 1, CMenuPaletteChildDlg::OnMenuItemSelected,
         VTS_I2 VTS_BSTR)
END_EVENTSINK_MAP()

CMenuPaletteChildDlg::CMenuPaletteChildDlg(CWnd* pParent) : CAcUiDialog(IDD_PALETTE_CHILD, pParent) {}

CMenuPaletteChildDlg::~CMenuPaletteChildDlg() {
    if (!m_hAcadWnd) return;
    // A clock without a month must not end the host on its way out. The entry is left to a later sweep.
    try {
        RemoveWindowHandle(HandleNumber(m_hAcadWnd), kToolboxMenuValue);
    } catch (CException* pException) {
        pException->Delete();
    } catch (const std::exception&) {
    }
}

void CMenuPaletteChildDlg::DoDataExchange(CDataExchange* pDX) {
    CAcUiDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PALETTE_DRAWING_MANAGER, m_btnDrawingManager);
    DDX_Control(pDX, IDC_PALETTE_ISOPLANE, m_btnIsoplane);
    DDX_Control(pDX, IDC_PALETTE_SWAP_SIZE, m_btnSwapSize);
    DDX_Control(pDX, IDC_PALETTE_NEW_LINE, m_btnNewLine);
    for (int i = 0; i < kComboCount; ++i) {
        DDX_Control(pDX, kComboIds[i], m_aCombo[i]);
        DDX_Control(pDX, kTitleIds[i], m_aTitle[i]);
    }
}

BOOL CMenuPaletteChildDlg::OnInitDialog() {
    m_TabbedMenu.CreateOver(this, IDC_PALETTE_TABBED_MENU);
    CAcUiDialog::OnInitDialog();
    m_nNewLineRow = kNoNewLineRow;
    m_eApp = kAppNone;
    m_bMenuLoaded = m_bIsoButton = m_bSwapButton = false;
    m_nComboCount = 0;
    m_TabbedMenu.SetIconSize(static_cast<short>(GetInitialMenuIconSize(GetMenuIconSize())));
    m_TabbedMenu.ShowWindow(SW_HIDE);
    for (CButtonST* pButton : {&m_btnIsoplane, &m_btnSwapSize, &m_btnNewLine})
        pButton->ShowWindow(SW_HIDE);
    for (CComboBox& combo : m_aCombo)
        combo.ShowWindow(SW_HIDE);
    for (CStatic& title : m_aTitle)
        title.ShowWindow(SW_HIDE);
    m_bIgnoreSnapChange = 0;
    return TRUE;
}

// Enter and Escape must not close a dialog that is part of a palette.
BOOL CMenuPaletteChildDlg::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) return FALSE;
    return CAcUiDialog::OnCommand(wParam, lParam);
}

LRESULT CMenuPaletteChildDlg::OnKeepFocus(WPARAM, LPARAM) {
    return 1;
}

void CMenuPaletteChildDlg::Fill(int nApp) {
    m_eApp = nApp;
    if (const CPaletteDiscipline* pDiscipline = FindPaletteDiscipline(nApp)) SetupDiscipline(*pDiscipline);
    m_hAcadWnd = adsw_acadMainWnd();
    WriteWindowHandle(HandleNumber(m_hAcadWnd), kToolboxMenuValue,
                      static_cast<std::uint32_t>(HandleNumber(m_hWnd)));
    EnableCtrls(false);
    EnableToolTips(TRUE);
    UpdateForDocument(acDocManager->curDocument());
}

void CMenuPaletteChildDlg::SetupDiscipline(const CPaletteDiscipline& discipline) {
    const int nMenuSize = GetMenuIconSize();
    const std::wstring strFolder = GetNetworkApplicationPath(m_eApp, L"");
    const std::wstring strMenu = strFolder + GetMenuFileName(discipline, nMenuSize, false);
    if (m_eApp == kAppElectric) {
        m_strMenuLayout = strMenu;
        m_strMenuSchematic = strFolder + GetMenuFileName(discipline, nMenuSize, true);
        m_strMenuCurrent = m_strMenuLayout;
    }
    const std::vector<std::wstring> astrSizes =
        m_eApp == kAppElectric ? std::vector<std::wstring>() : GetInitialSizes(L"");

    m_nApplicationId = discipline.m_nApplicationId;
    m_pfnOnCommand = SendLispString;
    m_pfnOnToggle = SendToggleSelChange;
    m_TabbedMenu.ShowWindow(SW_SHOW);
    LoadMenuFile(strMenu);
    ApplyLargeFont();
    if (discipline.m_bIsoButton) {
        std::vector<WORD> aIcons;
        for (int nState = 0; nState < kIsoStateCount; ++nState)
            aIcons.push_back(GetIsoState(nState).nIcon);
        SetupIsoButton(L"Isoplane", aIcons);
    }
    std::vector<CComboBoxCtrlbarData> aRows;
    for (const CPaletteRow& row : discipline.m_aRows)
        aRows.push_back({row.szTitle, GetInitialItems(row.kind, astrSizes), {}});
    SetupCombos(discipline.m_nGroup, discipline.szGroupTitle, aRows);
    if (discipline.m_bSwapButton) {
        SetupButton(m_btnSwapSize, IDI_SWAP_SIZES, kSmallButtonIcon, L"Switch main and branch sizes");
        m_bSwapButton = true;
    }
    if (discipline.m_nNewLineRow != kNoNewLineRow) {
        SetupButton(m_btnNewLine, IDI_NEW_LINE, kSmallButtonIcon, L"Create a new line number");
        m_nNewLineRow = discipline.m_nNewLineRow;
    }
}

// The dialog itself gets the large font; its controls keep theirs.
void CMenuPaletteChildDlg::ApplyLargeFont() {
    CFont* pFont = GetFont();
    LOGFONT logFont;
    if (!pFont || !pFont->GetLogFont(&logFont)) return;
    logFont.lfHeight = kLargeFontHeight;
    if (m_fontLarge.CreateFontIndirect(&logFont)) SetFont(&m_fontLarge, TRUE);
}

void CMenuPaletteChildDlg::SetupCombos(int nGroup, const std::wstring&,
                                       const std::vector<CComboBoxCtrlbarData>& aRows) {
    m_nCurrentGroup = nGroup;
    m_aCombos = aRows;
    m_nComboCount = static_cast<int>(m_aCombos.size());
    for (int i = 0; i < m_nComboCount && i < kComboCount; ++i) {
        const CComboBoxCtrlbarData& row = m_aCombos[i];
        CComboBox& combo = m_aCombo[i];
        combo.ShowWindow(SW_SHOW);
        for (size_t nItem = 0; nItem < row.m_astrItems.size(); ++nItem) {
            const int nIndex = combo.AddString(row.m_astrItems[nItem].c_str());
            if (nItem < row.m_aItemData.size()) combo.SetItemData(nIndex, row.m_aItemData[nItem]);
        }
        combo.SetCurSel(0);
        m_aTitle[i].ShowWindow(SW_SHOW);
        m_aTitle[i].SetWindowText(row.m_strTitle.c_str());
    }
}

void CMenuPaletteChildDlg::SetupButton(CButtonST& button, int nIcon, int nIconSize, const wchar_t* szTip) {
    button.ShowWindow(SW_SHOW);
    button.SetWindowText(L"");
    button.SetIcon(nIcon, nIconSize, nIconSize, 0, 0, 0);
    button.SetFlat(TRUE, TRUE);
    button.SetTooltipText(szTip, TRUE);
}

void CMenuPaletteChildDlg::SetupIsoButton(const std::wstring&, const std::vector<WORD>& aIcons) {
    m_aIsoIcons = aIcons;
    SetupButton(m_btnIsoplane, m_aIsoIcons.front(), kIsoButtonIcon, L"Switch isoplane");
    if (m_bIsoButton) SetIsoState(0);
    m_bIsoButton = true;
    SysVarChanged(kSnapIsoPair, false);
}

void CMenuPaletteChildDlg::EnableCtrls(bool bEnable) {
    m_TabbedMenu.SetEnabled(bEnable);
    m_TabbedMenu.EnableWindow(bEnable);
    for (CButtonST* pButton : {&m_btnIsoplane, &m_btnSwapSize, &m_btnNewLine})
        pButton->EnableWindow(bEnable);
    for (CComboBox& combo : m_aCombo)
        combo.EnableWindow(bEnable);
}

CComboBox* CMenuPaletteChildDlg::GetComboByIndex(int i) {
    return i >= 0 && i < kComboCount ? &m_aCombo[i] : nullptr;
}

void CMenuPaletteChildDlg::SetComboList(int i, const std::vector<std::wstring>& astrNames,
                                        const std::vector<int>& anIds) {
    CComboBox* pCombo = GetComboByIndex(i);
    if (!pCombo) return;
    pCombo->SetRedraw(FALSE);
    pCombo->ResetContent();
    bool bComplete = true;
    for (size_t nItem = 0; nItem < astrNames.size() && bComplete; ++nItem) {
        const int nIndex = pCombo->AddString(astrNames[nItem].c_str());
        bComplete = nItem < anIds.size();
        if (bComplete) pCombo->SetItemData(nIndex, anIds[nItem]);
    }
    pCombo->SetRedraw(TRUE);
    pCombo->Invalidate();
    m_aanListData[static_cast<size_t>(i)] = anIds;
    if (!bComplete) AfxThrowInvalidArgException();
}

void CMenuPaletteChildDlg::SelectComboIndex(int i, int nIndex) {
    if (CComboBox* pCombo = GetComboByIndex(i)) pCombo->SetCurSel(nIndex);
}

// Asking the combo for each item's number would take most of the time that a change of drawing costs, so the
// numbers are looked for in the list that it was filled from.
void CMenuPaletteChildDlg::SelectComboByData(int i, int nData) {
    CComboBox* pCombo = GetComboByIndex(i);
    if (!pCombo) return;
    const std::vector<int>& anData = m_aanListData[static_cast<size_t>(i)];
    const auto it = std::find(anData.begin(), anData.end(), nData);
    const auto nItem = static_cast<int>(it - anData.begin());
    if (it != anData.end() && nItem < pCombo->GetCount()) pCombo->SetCurSel(nItem);
}

int CMenuPaletteChildDlg::SelectComboByText(int i, const std::wstring& strText) {
    CComboBox* pCombo = GetComboByIndex(i);
    const int nIndex = pCombo ? pCombo->FindStringExact(-1, strText.c_str()) : CB_ERR;
    if (nIndex >= 0) SelectComboIndex(i, nIndex);
    return nIndex;
}
