// The layout of the Drawing Manager: measuring, moving, showing and hiding. The arithmetic is in
// dialog_layout.
#include "controls/rect_conversion.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "resources/resource.h"

namespace {

// The size that the window had last. It outlives the dialog: the next one measures its first change against
// it.
CSize g_sizeLast;
bool g_bSizeKnown = false;

// What comes and goes with the drawings, in the order in which it does. The splitters are members: their ids
// belong to the hidden places in the template as well.
constexpr int kDrawingControlsAhead[] = {IDC_DRAWINGS_LABEL, IDC_DRAWING_BOX,  IDC_OPEN_DRAWING,
                                         IDC_NEW_DRAWING,    IDC_COPY_DRAWING, IDC_RENAME_DRAWING,
                                         IDC_DELETE_DRAWING, IDC_SINGLE_DOC,   IDC_DRAWING_LIST};
constexpr int kDrawingControlsBehind[] = {IDC_THUMBNAIL, IDC_LOCATION_LABEL, IDC_LOCATION, IDC_EXPLORE};

}  // namespace

void CDrawingManagerDlg::LayoutControls() {
    if (!m_tree.m_hWnd) return;
    CLayoutInput input;
    input.rcWindow = GetRectIn(*this, *this);
    input.rcSplitterV = GetRectIn(*this, m_splitterV);
    input.rcSplitterH = GetRectIn(*this, m_splitterH);
    input.bShowDrawings = m_bShowDrawings;
    input.nMinPane = m_nMinPane;
    input.nOtherColumnsWidth = m_listDrawings.GetColumnWidth(1) + m_listDrawings.GetColumnWidth(2);

    const CLayout layout = ComputeLayout(input);
    for (const CPlacement& placement : layout.aPlacements) {
        CWnd* pControl = placement.nControlId == IDC_SPLITTER_VERTICAL     ? &m_splitterV
                         : placement.nControlId == IDC_SPLITTER_HORIZONTAL ? &m_splitterH
                                                                           : GetDlgItem(placement.nControlId);
        if (pControl) pControl->MoveWindow(ToRect(placement.rect));
    }
    if (m_bShowDrawings) m_listDrawings.SetColumnWidth(0, layout.nNameColumnWidth);
    // What a control left behind is erased, and with it whatever moved there in the same go.
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

CMeasuredControls CDrawingManagerDlg::MeasureControls() const {
    const auto rectOf = [this](int nId) {
        const CWnd* pControl = GetDlgItem(nId);
        return pControl ? GetRectIn(*this, *pControl) : CPixelRect{};
    };
    CMeasuredControls controls;
    controls.rcWindow = GetRectIn(*this, *this);
    controls.rcStandardBox = rectOf(IDC_STANDARD_BOX);
    controls.rcSingleDoc = rectOf(IDC_SINGLE_DOC);
    controls.rcHelp = rectOf(IDC_HELP_BUTTON);
    controls.rcLocation = rectOf(IDC_LOCATION);
    controls.rcTree = rectOf(IDC_TREE);
    controls.rcList = rectOf(IDC_DRAWING_LIST);
    controls.bListVisible = m_listDrawings.IsWindowVisible() != FALSE;
    return controls;
}

void CDrawingManagerDlg::HandleResize() {
    if (!m_bLayoutReady) return;
    HideBalloon();
    CRect rcWindow;
    GetWindowRect(rcWindow);
    const CSize size = rcWindow.Size();
    if (!g_bSizeKnown) g_sizeLast = size;
    g_bSizeKnown = true;
    const int nGrowth = size.cy - g_sizeLast.cy;
    g_sizeLast = size;
    m_splitterH.ChangePos(0, nGrowth);
    LayoutControls();

    const CMeasuredControls controls = MeasureControls();
    const CSplitterRange vertical = GetVerticalRange(controls);
    m_splitterV.SetRange(vertical.nMin, vertical.nMax);
    const CSplitterRange horizontal = GetHorizontalRange(controls, m_nMinPane);
    m_splitterH.SetRange(horizontal.nMin, horizontal.nMax);
}

void CDrawingManagerDlg::OnSize(UINT nType, int cx, int cy) {
    CDialog::OnSize(nType, cx, cy);
    HandleResize();
}

void CDrawingManagerDlg::OnSizing(UINT fwSide, LPRECT pRect) {
    CDialog::OnSizing(fwSide, pRect);
    const CSizeLimits limits = GetSizeLimits(MeasureControls(), m_nMinPane);
    *pRect = ToRect(LimitDraggedRect(ToPixelRect(*pRect), fwSide, limits));
}

LRESULT CDrawingManagerDlg::DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) {
    if (nMsg == WM_NOTIFY && (wParam == IDC_SPLITTER_VERTICAL || wParam == IDC_SPLITTER_HORIZONTAL)) {
        LayoutControls();
        Invalidate();
        UpdateWindow();
    }
    return CDialog::DefWindowProc(nMsg, wParam, lParam);
}

void CDrawingManagerDlg::OnBnClickedShowHide() {
    HideBalloon();
    SetDrawingsVisible(!m_listDrawings.IsWindowVisible());
}

void CDrawingManagerDlg::SetDrawingsVisible(bool bShow) {
    m_bShowDrawings = bShow;
    const int nCommand = bShow ? SW_SHOW : SW_HIDE;
    const auto showControl = [this, nCommand](int nId) {
        if (CWnd* pControl = GetDlgItem(nId)) pControl->ShowWindow(nCommand);
    };
    m_splitterV.ShowWindow(nCommand);
    for (int nId : kDrawingControlsAhead)
        showControl(nId);
    m_splitterH.ShowWindow(nCommand);
    for (int nId : kDrawingControlsBehind)
        showControl(nId);
    if (bShow) {
        CRect rcWindow;
        GetWindowRect(rcWindow);
        MoveWindow(ToRect(
            GrowToFit(ToPixelRect(rcWindow), GetRectIn(*this, *this), GetRectIn(*this, m_btnExplore))));
    }
    LayoutControls();
    m_btnShowHide.SetTooltipText(bShow ? L"Hide Drawings" : L"Show Drawings");
}
