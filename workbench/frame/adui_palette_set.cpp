#include <aduiPalette.h>
#include <aduiPaletteSet.h>

#include <algorithm>
#include <vector>

#include "frame/dock_manager.h"
#include "frame/dock_state.h"
#include "frame/ui_colors.h"

class CPaletteSetState {
  public:
    std::vector<CAdUiPalette*> palettes;
    int active = -1;
    DWORD style = 0;
    bool closePressed = false;  // the mouse went down on the close button
    bool closeHot = false;      // and is over it
};

namespace {

constexpr int kCaptionHeight = 22;

CRect CaptionOf(const CWnd& set) {
    CRect client;
    set.GetClientRect(&client);
    return CRect(0, 0, client.right, kCaptionHeight);
}

CRect CloseButtonOf(const CWnd& set) {
    const CRect caption = CaptionOf(set);
    return CRect(caption.right - kCaptionHeight, 0, caption.right, kCaptionHeight);
}

CRect ContentOf(const CWnd& set) {
    CRect client;
    set.GetClientRect(&client);
    return CRect(0, kCaptionHeight, client.right, std::max(client.bottom, static_cast<LONG>(kCaptionHeight)));
}

void DrawCross(CDC& dc, const CRect& button) {
    const CPoint middle((button.left + button.right) / 2, (button.top + button.bottom) / 2);
    const HPEN pen = CreatePen(PS_SOLID, 2, frame::kCaptionTextColor);
    const HGDIOBJ old = ::SelectObject(dc, pen);
    dc.MoveTo(middle.x - 4, middle.y - 4);
    dc.LineTo(middle.x + 4, middle.y + 4);
    dc.MoveTo(middle.x + 3, middle.y - 4);
    dc.LineTo(middle.x - 5, middle.y + 4);
    ::SelectObject(dc, old);
    DeleteObject(pen);
}

}  // namespace

IMPLEMENT_DYNAMIC(CAdUiPaletteSet, CAdUiDockControlBar)

BEGIN_MESSAGE_MAP(CAdUiPaletteSet, CAdUiDockControlBar)
ON_WM_WINDOWPOSCHANGED()
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_GETMINMAXINFO()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CAdUiPaletteSet::CAdUiPaletteSet(short) : m_pState(new CPaletteSetState) {}

CAdUiPaletteSet::~CAdUiPaletteSet() {
    // While the members that the window's last messages use are still there.
    if (GetSafeHwnd() != nullptr) DestroyWindow();
    delete m_pState;
}

BOOL CAdUiPaletteSet::Create(LPCTSTR lpszTitle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                             DWORD dwPaletteSetStyle) {
    if (GetSafeHwnd() != nullptr || pParentWnd == nullptr) return FALSE;
    m_pState->style = dwPaletteSetStyle;
    CDockState& dock = CDockState::Of(*this);
    dock.dockedWidth = rect.right - rect.left;
    dock.floatingRect = {rect.left, rect.top, rect.right, rect.bottom};
    // A frame around the inside belongs to dialogs; the set draws its own edge.
    const DWORD style = (dwStyle & ~static_cast<DWORD>(WS_DLGFRAME | WS_BORDER)) | WS_CHILD |
                        WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    if (!CWnd::Create(
            AfxRegisterWndClass(CS_DBLCLKS, LoadCursor(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_BTNFACE)),
            lpszTitle, style, rect, pParentWnd, 0))
        return FALSE;
    m_pDockSite = static_cast<CFrameWnd*>(pParentWnd);
    if (frame::DockManager* manager = frame::TheDockManager(); manager != nullptr) manager->Add(*this);
    return TRUE;
}

int CAdUiPaletteSet::AddPalette(CAdUiPalette* pPalette) {
    if (pPalette == nullptr || pPalette->GetSafeHwnd() == nullptr) return -1;
    m_pState->palettes.push_back(pPalette);
    const int index = GetPaletteCount() - 1;
    pPalette->Load(nullptr);
    if (index == 0) {
        SetActivePalette(0);
    } else {
        pPalette->ShowWindow(SW_HIDE);
    }
    return index;
}

CAdUiPalette* CAdUiPaletteSet::GetPalette(int nPaletteIndex) {
    if (nPaletteIndex < 0 || nPaletteIndex >= GetPaletteCount()) return nullptr;
    return m_pState->palettes[static_cast<std::size_t>(nPaletteIndex)];
}

int CAdUiPaletteSet::GetPaletteCount() {
    return static_cast<int>(m_pState->palettes.size());
}

BOOL CAdUiPaletteSet::RemovePalette(int nPaletteIndex) {
    CAdUiPalette* palette = GetPalette(nPaletteIndex);
    if (palette == nullptr) return FALSE;
    m_pState->palettes.erase(m_pState->palettes.begin() + nPaletteIndex);
    if (palette->GetSafeHwnd() != nullptr) palette->ShowWindow(SW_HIDE);
    if (m_pState->active == nPaletteIndex) {
        m_pState->active = -1;
        SetActivePalette(0);
    } else if (m_pState->active > nPaletteIndex) {
        --m_pState->active;
    }
    return TRUE;
}

BOOL CAdUiPaletteSet::SetActivePalette(int nPaletteIndex) {
    CAdUiPalette* palette = GetPalette(nPaletteIndex);
    if (palette == nullptr) return FALSE;
    if (CAdUiPalette* before = GetActivePalette(); before != nullptr && before != palette)
        before->ShowWindow(SW_HIDE);
    m_pState->active = nPaletteIndex;
    palette->MoveWindow(ContentOf(*this));
    palette->ShowWindow(SW_SHOWNA);
    palette->OnSetActive();
    return TRUE;
}

CAdUiPalette* CAdUiPaletteSet::GetActivePalette() {
    return GetPalette(m_pState->active);
}

CString CAdUiPaletteSet::GetName() {
    CString name;
    GetWindowText(name);
    return name;
}

BOOL CAdUiPaletteSet::SetName(LPCTSTR lpszName) {
    if (GetSafeHwnd() == nullptr) return FALSE;
    SetWindowText(lpszName);
    InvalidateRect(CaptionOf(*this));
    return TRUE;
}

DWORD CAdUiPaletteSet::GetPaletteSetStyle() {
    return m_pState->style;
}

bool CAdUiPaletteSet::CanFrameworkTakeFocus() {
    return true;
}

void CAdUiPaletteSet::GetMinimumSize(CSize& size) {
    CAdUiDockControlBar::GetMinimumSize(size);
}

void CAdUiPaletteSet::GetMaximumSize(CSize& size) {
    CAdUiDockControlBar::GetMaximumSize(size);
}

void CAdUiPaletteSet::Forget(const CAdUiPalette* pPalette) {
    const auto known = std::find(m_pState->palettes.begin(), m_pState->palettes.end(), pPalette);
    if (known == m_pState->palettes.end()) return;
    const int index = static_cast<int>(known - m_pState->palettes.begin());
    m_pState->palettes.erase(known);
    if (m_pState->active == index) m_pState->active = -1;
    if (m_pState->active > index) --m_pState->active;
}

void CAdUiPaletteSet::OnDestroy() {
    for (CAdUiPalette* palette : m_pState->palettes) {
        palette->Save(nullptr);
        palette->m_pPaletteSet = nullptr;
    }
    CDockState& dock = CDockState::Of(*this);
    if (dock.manager != nullptr) {
        dock.manager->Store(*this);
        dock.manager->Remove(*this);
    }
    m_pState->palettes.clear();
    m_pState->active = -1;
    CAdUiDockControlBar::OnDestroy();
}

void CAdUiPaletteSet::OnWindowPosChanged(WINDOWPOS* lpwndpos) {
    CAdUiDockControlBar::OnWindowPosChanged(lpwndpos);
    CDockState& dock = CDockState::Of(*this);
    if (dock.manager == nullptr) return;
    const bool placed = (lpwndpos->flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE);
    if (IsFloating() && placed && (GetStyle() & WS_CHILD) == 0) {
        CRect window;
        GetWindowRect(&window);
        dock.floatingRect = {window.left, window.top, window.right, window.bottom};
    }
}

void CAdUiPaletteSet::OnSize(UINT nType, int cx, int cy) {
    CAdUiDockControlBar::OnSize(nType, cx, cy);
    if (CAdUiPalette* palette = GetActivePalette(); palette != nullptr && palette->GetSafeHwnd() != nullptr)
        palette->MoveWindow(ContentOf(*this));
    InvalidateRect(CaptionOf(*this));
}

void CAdUiPaletteSet::OnGetMinMaxInfo(MINMAXINFO* lpMMI) {
    CAdUiDockControlBar::OnGetMinMaxInfo(lpMMI);
    CSize smallest;
    CSize largest;
    GetMinimumSize(smallest);
    GetMaximumSize(largest);
    lpMMI->ptMinTrackSize = {smallest.cx, smallest.cy};
    lpMMI->ptMaxTrackSize = {largest.cx, largest.cy};
}

BOOL CAdUiPaletteSet::OnEraseBkgnd(CDC* pDC) {
    if (GetActivePalette() == nullptr) return CAdUiDockControlBar::OnEraseBkgnd(pDC);
    return TRUE;
}

void CAdUiPaletteSet::OnPaint() {
    CPaintDC dc(this);
    CRect caption = CaptionOf(*this);
    dc.FillSolidRect(caption, frame::kCaptionColor);
    const CRect button = CloseButtonOf(*this);
    if (m_pState->closeHot) dc.FillSolidRect(button, frame::kCaptionHotColor);
    DrawCross(dc, button);
    caption.left += 8;
    caption.right = button.left;
    const HGDIOBJ old = ::SelectObject(dc, frame::InterfaceFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(frame::kCaptionTextColor);
    dc.DrawText(GetName(), caption, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    ::SelectObject(dc, old);
}

void CAdUiPaletteSet::OnLButtonDown(UINT nFlags, CPoint point) {
    if (CloseButtonOf(*this).PtInRect(point)) {
        m_pState->closePressed = m_pState->closeHot = true;
        SetCapture();
        InvalidateRect(CaptionOf(*this));
    } else if (frame::DockManager* manager = CDockState::Of(*this).manager;
               manager != nullptr && CaptionOf(*this).PtInRect(point)) {
        ClientToScreen(&point);
        manager->StartDrag(*this, point);
    } else {
        CAdUiDockControlBar::OnLButtonDown(nFlags, point);
    }
}

void CAdUiPaletteSet::OnMouseMove(UINT nFlags, CPoint point) {
    CAdUiDockControlBar::OnMouseMove(nFlags, point);
    const bool hot = m_pState->closePressed && CloseButtonOf(*this).PtInRect(point);
    if (hot == m_pState->closeHot) return;
    m_pState->closeHot = hot;
    InvalidateRect(CaptionOf(*this));
}

void CAdUiPaletteSet::OnLButtonUp(UINT nFlags, CPoint point) {
    CAdUiDockControlBar::OnLButtonUp(nFlags, point);
    if (!m_pState->closePressed) return;
    m_pState->closePressed = m_pState->closeHot = false;
    ReleaseCapture();
    InvalidateRect(CaptionOf(*this));
    if (!CloseButtonOf(*this).PtInRect(point) || !OnClosing()) return;
    if (m_pDockSite != nullptr) m_pDockSite->ShowControlBar(this, FALSE, FALSE);
}

void CAdUiPaletteSet::OnLButtonDblClk(UINT nFlags, CPoint point) {
    CAdUiDockControlBar::OnLButtonDblClk(nFlags, point);
    frame::DockManager* manager = CDockState::Of(*this).manager;
    if (manager == nullptr || !CaptionOf(*this).PtInRect(point) || CloseButtonOf(*this).PtInRect(point))
        return;
    manager->Toggle(*this);
}
