// What the palette's controls do, what they show of the drawing's record, and where they stand.
#include <utility>

#include "acdocman.h"
#include "document/doc_xdata.h"
#include "document/drawing_queries.h"
#include "palette/isoplane.h"
#include "palette/lisp_bridge.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/new_line_dlg.h"
#include "palette/palette_layout.h"
#include "palette/tooltip_text.h"
#include "resources/resource.h"
#include "storage/applications.h"
#include "storage/install_paths.h"
#include "storage/trace.h"

namespace {

constexpr UINT_PTR kLayoutTimer = 1;
constexpr UINT kLayoutDelay = 100;  // milliseconds
constexpr int kIsoIconSize = 48;
constexpr UINT kComboItemHeight = 24;

// What other programs of the suite may ask for by message.
constexpr WPARAM kNotifyRecordChanged = 1;
constexpr WPARAM kNotifyNeedLine = 2;
constexpr WPARAM kNotifyLinesChanged = 3;

// Stores a value in the drawing's record if it is another one.
void StoreField(CKV2D_DocXData& data, std::int32_t& field, int nValue) {
    if (field == nValue) return;
    field = nValue;
    data.m_dirty = true;
}

void MoveTo(CWnd& wnd, const CPixelRect& rect) {
    wnd.MoveWindow(rect.left, rect.top, rect.Width(), rect.Height(), TRUE);
}

}  // namespace

void CMenuPaletteChildDlg::UpdateCurrentSelections() {
    const CKV2D_DocXData data(kDocXDataAppName);
    if (m_eApp == kAppElectric) {
        SelectComboIndex(0, data.m_electricMode);
        SelectMenuMode(data.m_electricMode);
        return;
    }
    const CPaletteDiscipline* pDiscipline = FindPaletteDiscipline(m_eApp);
    if (!pDiscipline) return;
    SelectComboByData(FindPaletteRow(*pDiscipline, PaletteRow::kSpec), data.m_specId);
    SelectComboIndex(FindPaletteRow(*pDiscipline, PaletteRow::kMainSize), data.m_mainSize);
    if (m_eApp == kAppIsometric) {
        SetIsoState(data.m_isoPlane);
        // Who hears of the change may close the drawing, and the palette shows the next one then.
        if (!ApplyIsoState()) return;
    }
    SelectComboIndex(FindPaletteRow(*pDiscipline, PaletteRow::kBranchSize), data.m_branchSize);
    SelectComboByData(FindPaletteRow(*pDiscipline, PaletteRow::kLineNumber), data.m_lineId);
}

void CMenuPaletteChildDlg::OnComboSelChange(int nRow, const CComboBox& combo) {
    const CPaletteDiscipline* pDiscipline = FindPaletteDiscipline(m_eApp);
    if (!pDiscipline || nRow >= static_cast<int>(pDiscipline->m_aRows.size())) return;
    const int nIndex = combo.GetCurSel();
    const int nData = static_cast<int>(combo.GetItemData(nIndex));
    CKV2D_DocXData data(kDocXDataAppName);
    switch (pDiscipline->m_aRows[nRow].kind) {
        case PaletteRow::kMenu:
            StoreField(data, data.m_electricMode, nIndex);
            SelectMenuMode(nIndex);
            break;
        case PaletteRow::kSpec:
            StoreField(data, data.m_specId, nData);
            SendSpecClick();
            break;
        case PaletteRow::kMainSize:
            StoreField(data, data.m_mainSize, nIndex);
            break;
        case PaletteRow::kBranchSize:
            StoreField(data, data.m_branchSize, nIndex);
            break;
        case PaletteRow::kLineNumber:
            StoreField(data, data.m_lineId, nData);
            break;
    }
}

void CMenuPaletteChildDlg::OnSelchangeCombo1() {
    OnComboSelChange(0, m_aCombo[0]);
}
void CMenuPaletteChildDlg::OnSelchangeCombo2() {
    OnComboSelChange(1, m_aCombo[1]);
}
void CMenuPaletteChildDlg::OnSelchangeCombo3() {
    OnComboSelChange(2, m_aCombo[2]);
}
void CMenuPaletteChildDlg::OnSelchangeCombo4() {
    OnComboSelChange(3, m_aCombo[3]);
}

void CMenuPaletteChildDlg::OnBnClickedSwapSize() {
    {
        CKV2D_DocXData data(kDocXDataAppName);
        if (data.m_mainSize != data.m_branchSize) {
            std::swap(data.m_mainSize, data.m_branchSize);
            data.m_dirty = true;
        }
    }
    UpdateCurrentSelections();
}

void CMenuPaletteChildDlg::OnBnClickedNewLine() {
    CNewLineDlg(nullptr).DoModal();
}

void CMenuPaletteChildDlg::OnBnClickedIsoplane() {
    SetIsoState(++m_nIsoState);
    {
        CKV2D_DocXData data(kDocXDataAppName);
        StoreField(data, data.m_isoPlane, m_nIsoState);
    }
    ApplyIsoState();
}

void CMenuPaletteChildDlg::SetIsoState(int nState) {
    if (!m_bIsoButton) return;
    m_nIsoState = NormalizeIsoState(nState);
    m_btnIsoplane.SetIcon(m_aIsoIcons[m_nIsoState], kIsoIconSize, kIsoIconSize, 0, 0, 0);
}

bool CMenuPaletteChildDlg::ApplyIsoState() {
    const CIsoState& state = GetIsoState(m_nIsoState);
    const AcApDocument* pDocument = acDocManager->curDocument();
    // The host reports each change at once, and the report must not change the state again. A report may make
    // another drawing current, which comes here too.
    const auto nBefore = std::exchange(m_bIgnoreSnapChange, 1);
    SetSysVarShort(kSnapStyle, state.nSnapStyle);
    if (state.nIsoPair != kIsoPairUnchanged && acDocManager->curDocument() == pDocument)
        SetSysVarShort(kSnapIsoPair, state.nIsoPair);
    m_bIgnoreSnapChange = nBefore;
    return acDocManager->curDocument() == pDocument;
}

void CMenuPaletteChildDlg::SysVarChanged(const std::wstring& strName, bool bStore) {
    if ((strName != kSnapStyle && strName != kSnapIsoPair) || m_bIgnoreSnapChange) return;
    int nSnapStyle = 0, nIsoPair = 0;
    GetSysVarShort(kSnapStyle, nSnapStyle);
    GetSysVarShort(kSnapIsoPair, nIsoPair);
    const int nState = DeriveIsoState(nSnapStyle, nIsoPair);
    if (nState == m_nIsoState) return;
    SetIsoState(nState);
    if (!bStore) return;
    CKV2D_DocXData data(kDocXDataAppName);
    StoreField(data, data.m_isoPlane, nState);
}

LRESULT CMenuPaletteChildDlg::OnKV2DNotify(WPARAM wParam, LPARAM lParam) {
    const int nProjectId = static_cast<int>(lParam);
    if (wParam == kNotifyRecordChanged)
        UpdateCurrentSelections();
    else if (wParam == kNotifyNeedLine)
        StoreFirstLine(nProjectId);
    else if (wParam == kNotifyLinesChanged)
        ReloadLines(nProjectId);
    return 0;
}

BOOL CMenuPaletteChildDlg::OnToolTipText(UINT, NMHDR* pNotify, LRESULT* pResult) {
    auto* pRequest = reinterpret_cast<NMTTDISPINFOW*>(pNotify);
    if (!(pRequest->uFlags & TTF_IDISHWND) ||
        ::GetDlgCtrlID(reinterpret_cast<HWND>(pNotify->idFrom)) != IDC_PALETTE_DRAWING_MANAGER)
        return FALSE;
    const std::wstring strTip = GetDrawingManagerTip(CKV2D_DocXData(kDocXDataAppName).m_projectId, m_eApp);
    lstrcpynW(pRequest->szText, strTip.c_str(), static_cast<int>(std::size(pRequest->szText)));
    *pResult = 0;
    return TRUE;
}

void CMenuPaletteChildDlg::QueueLayout(const CRect& rect) {
    if (m_nTimerId == 0) m_nTimerId = SetTimer(kLayoutTimer, kLayoutDelay, nullptr);
    m_rcClient = rect;
}

void CMenuPaletteChildDlg::OnTimer(UINT_PTR nId) {
    Trace(L"+ CMenuPaletteChildDlg::OnTimer");
    KillTimer(nId);
    m_nTimerId = 0;
    ArrangeControls();
    Trace(L"- CMenuPaletteChildDlg::OnTimer");
}

void CMenuPaletteChildDlg::ArrangeControls() {
    const CPaletteLayout layout = ArrangePalette({.nWidth = m_rcClient.Width(),
                                                  .nHeight = m_rcClient.Height(),
                                                  .nMenuSize = GetMenuIconSize(),
                                                  .bMenuLoaded = m_bMenuLoaded,
                                                  .bIsoButton = m_bIsoButton,
                                                  .bSwapButton = m_bSwapButton,
                                                  .nNewLineRow = m_nNewLineRow,
                                                  .nComboCount = m_nComboCount});
    m_btnDrawingManager.SetWindowText(layout.szDrawingManagerText);
    MoveTo(m_btnDrawingManager, layout.drawingManager);
    if (layout.menu) MoveTo(m_TabbedMenu, *layout.menu);
    if (layout.isoButton) MoveTo(m_btnIsoplane, *layout.isoButton);
    for (size_t i = 0; i < layout.rows.size() && i < m_aTitle.size(); ++i) {
        MoveTo(m_aTitle[i], layout.rows[i].title);
        MoveTo(m_aCombo[i], layout.rows[i].combo);
    }
    if (layout.swapButton) MoveTo(m_btnSwapSize, *layout.swapButton);
    if (layout.newLineButton) MoveTo(m_btnNewLine, *layout.newLineButton);
    // One item sets the height of all: the lists have a fixed item height.
    for (CComboBox& combo : m_aCombo)
        if (combo.GetCount() > 0) combo.SetItemHeight(0, kComboItemHeight);
    // The controls move across each other's old places, and what they leave there is not always repainted.
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}
