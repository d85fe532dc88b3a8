#include "frame/dock_drag.h"

#include <algorithm>

namespace frame {

namespace {

constexpr COLORREF kPreviewColor = RGB(30, 110, 200);
constexpr int kPreviewBorder = 4;

// The window's background brush lives as long as the class, so as long as the library.
HBRUSH PreviewBrush() {
    static const HBRUSH brush = CreateSolidBrush(kPreviewColor);
    return brush;
}

}  // namespace

BEGIN_MESSAGE_MAP(DockManager::DragTracker, CWnd)
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

void DockManager::DragTracker::CreateIn(CFrameWnd& frame) {
    Create(nullptr, L"", WS_CHILD, CRect(0, 0, 0, 0), &frame, 0);
}

void DockManager::DragTracker::Start(CAdUiDockControlBar& bar, CPoint point) {
    m_bar = &bar;
    m_moving = false;
    m_start = point;
    m_sideBefore = CDockState::Of(bar).side;
    m_rectBefore = CDockState::Of(bar).floatingRect;
    CRect window;
    bar.GetWindowRect(&window);
    m_grip = CSize(point.x - window.left, point.y - window.top);
    SetCapture();
}

void DockManager::DragTracker::Forget(const CAdUiDockControlBar& bar) {
    if (m_bar == &bar) Finish();
}

DockSide DockManager::DragTracker::SideAt(CPoint point) const {
    const DWORD allowed = CDockState::Of(*m_bar).allowedSides;
    // As everywhere in such programs, the control key keeps a window from docking.
    if (GetKeyState(VK_CONTROL) < 0) return DockSide::kFloating;
    return DockSideAt(m_manager.AreaOnScreen(), point.x, point.y, (allowed & CBRS_ALIGN_LEFT) != 0,
                      (allowed & CBRS_ALIGN_RIGHT) != 0);
}

// Out of the dock: the window floats with the size that it had when it floated last, its caption under the
// mouse.
void DockManager::DragTracker::TearOff(CPoint point) {
    const LayoutRect kept = CDockState::Of(*m_bar).floatingRect;
    m_grip.cx = std::min(m_grip.cx, static_cast<LONG>(std::max(kept.Width() - 20, 10)));
    const int left = point.x - m_grip.cx;
    const int top = point.y - m_grip.cy;
    m_manager.Float(*m_bar, {left, top, left + kept.Width(), top + kept.Height()});
}

void DockManager::DragTracker::OnMouseMove(UINT, CPoint point) {
    if (m_bar == nullptr) return;
    ClientToScreen(&point);
    if (!m_moving) {
        if (std::abs(point.x - m_start.x) <= GetSystemMetrics(SM_CXDRAG) &&
            std::abs(point.y - m_start.y) <= GetSystemMetrics(SM_CYDRAG))
            return;
        m_moving = true;
        if (m_sideBefore != DockSide::kFloating) TearOff(point);
    }
    m_bar->SetWindowPos(nullptr, point.x - m_grip.cx, point.y - m_grip.cy, 0, 0,
                        SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowPreview(SideAt(point));
}

void DockManager::DragTracker::OnLButtonUp(UINT, CPoint point) {
    if (m_bar == nullptr) return;
    ClientToScreen(&point);
    CAdUiDockControlBar& bar = *m_bar;
    const bool moved = m_moving;
    const DockSide side = moved ? SideAt(point) : m_sideBefore;
    Finish();
    if (!moved) return;
    if (side == DockSide::kFloating) {
        CRect window;
        bar.GetWindowRect(&window);
        m_manager.Float(bar, {window.left, window.top, window.right, window.bottom});
    } else {
        // The place where it floated before the drag is the one to come back to.
        if (m_sideBefore == DockSide::kFloating) CDockState::Of(bar).floatingRect = m_rectBefore;
        m_manager.Dock(bar, side);
    }
}

void DockManager::DragTracker::OnCaptureChanged(CWnd*) {
    Cancel();
}

void DockManager::DragTracker::Finish() {
    m_bar = nullptr;
    ShowPreview(DockSide::kFloating);
    if (GetCapture() == this) ReleaseCapture();
}

bool DockManager::DragTracker::Cancel() {
    if (m_bar == nullptr) return false;
    CAdUiDockControlBar& bar = *m_bar;
    const bool moved = m_moving;
    Finish();
    if (moved) {
        CDockState::Of(bar).floatingRect = m_rectBefore;
        m_manager.Dock(bar, m_sideBefore);
    }
    return true;
}

void DockManager::DragTracker::ShowPreview(DockSide side) {
    if (side == m_previewSide) return;
    m_previewSide = side;
    if (m_preview.GetSafeHwnd() != nullptr) m_preview.DestroyWindow();
    if (side == DockSide::kFloating) return;
    LayoutRect area = m_manager.AreaOnScreen();
    const int width = std::min(CDockState::Of(*m_bar).dockedWidth, area.Width());
    if (side == DockSide::kLeft) {
        area.right = area.left + width;
    } else {
        area.left = area.right - width;
    }
    m_preview.CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE,
                       AfxRegisterWndClass(0, nullptr, PreviewBrush()), L"", WS_POPUP, area.left, area.top,
                       area.Width(), area.Height(), m_manager.m_frame, nullptr);
    // Hollow, so that what lies below stays in sight.
    CRgn outline;
    CRgn inside;
    outline.CreateRectRgn(0, 0, area.Width(), area.Height());
    inside.CreateRectRgn(kPreviewBorder, kPreviewBorder, area.Width() - kPreviewBorder,
                         area.Height() - kPreviewBorder);
    outline.CombineRgn(&outline, &inside, RGN_DIFF);
    m_preview.SetWindowRgn(static_cast<HRGN>(outline.Detach()), FALSE);
    m_preview.ShowWindow(SW_SHOWNA);
}

BEGIN_MESSAGE_MAP(DockManager::Splitter, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
END_MESSAGE_MAP()

void DockManager::Splitter::CreateIn(CFrameWnd& frame) {
    Create(AfxRegisterWndClass(0, LoadCursor(nullptr, IDC_SIZEWE), GetSysColorBrush(COLOR_BTNFACE)), L"",
           WS_CHILD, CRect(0, 0, 0, 0), &frame, 0);
}

void DockManager::Splitter::Place(const LayoutRect& rect) {
    if (rect.Width() <= 0) {
        ShowWindow(SW_HIDE);
        return;
    }
    MoveWindow(rect.left, rect.top, rect.Width(), rect.Height());
    ShowWindow(SW_SHOWNA);
}

void DockManager::Splitter::OnLButtonDown(UINT, CPoint point) {
    m_grip = m_side == DockSide::kLeft ? point.x : point.x - kSplitterWidth;
    SetCapture();
}

void DockManager::Splitter::OnMouseMove(UINT, CPoint point) {
    if (GetCapture() != this) return;
    ClientToScreen(&point);
    GetParent()->ScreenToClient(&point);
    m_manager.MoveSplitter(m_side, point.x - m_grip);
}

void DockManager::Splitter::OnLButtonUp(UINT, CPoint) {
    if (GetCapture() != this) return;
    ReleaseCapture();
    m_manager.EndMoveSplitter(m_side);
}

}  // namespace frame
