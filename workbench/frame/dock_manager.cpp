#include "frame/dock_manager.h"

#include <algorithm>

#include "frame/dock_drag.h"
#include "frame/dock_state.h"
#include "frame/user_settings.h"

namespace frame {

namespace {

DockManager* g_manager = nullptr;

constexpr DWORD kFloatingStyle = WS_POPUP | WS_THICKFRAME;

std::wstring KeyOf(const GUID& toolId) {
    wchar_t text[40] = L"";
    StringFromGUID2(toolId, text, 40);
    return std::wstring(L"Palettes\\") + text;
}

const wchar_t* NameOf(DockSide side) {
    if (side == DockSide::kLeft) return L"left";
    return side == DockSide::kRight ? L"right" : L"floating";
}

LayoutRect FromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

LayoutRect WorkAreaAround(const LayoutRect& rect) {
    const RECT system{rect.left, rect.top, rect.right, rect.bottom};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&system, MONITOR_DEFAULTTONEAREST), &monitor);
    return FromRect(monitor.rcWork);
}

bool Allows(const CDockState& state, DockSide side) {
    const DWORD wanted = side == DockSide::kLeft ? CBRS_ALIGN_LEFT : CBRS_ALIGN_RIGHT;
    return side == DockSide::kFloating || (state.allowedSides & wanted) != 0;
}

CSize MinimumOf(CAdUiDockControlBar& bar) {
    CSize size;
    bar.GetMinimumSize(size);
    return size;
}

CSize MaximumOf(CAdUiDockControlBar& bar) {
    CSize size;
    bar.GetMaximumSize(size);
    return size;
}

}  // namespace

DockManager* TheDockManager() {
    return g_manager;
}

DockManager::DockManager(CFrameWnd& frame)
    : m_frame(frame),
      m_leftSplitter(std::make_unique<Splitter>(*this, DockSide::kLeft)),
      m_rightSplitter(std::make_unique<Splitter>(*this, DockSide::kRight)),
      m_tracker(std::make_unique<DragTracker>(*this)) {
    m_leftSplitter->CreateIn(frame);
    m_rightSplitter->CreateIn(frame);
    m_tracker->CreateIn(frame);
    g_manager = this;
}

DockManager::~DockManager() {
    for (CAdUiDockControlBar* bar : m_bars)
        CDockState::Of(*bar).manager = nullptr;
    g_manager = nullptr;
}

void DockManager::Add(CAdUiDockControlBar& bar) {
    CDockState::Of(bar).manager = this;
    m_bars.push_back(&bar);
}

void DockManager::Remove(CAdUiDockControlBar& bar) {
    m_tracker->Forget(bar);
    std::erase(m_bars, &bar);
    CDockState::Of(bar).manager = nullptr;
    m_frame.RecalcLayout();
}

CAdUiDockControlBar* DockManager::Find(const std::wstring& caption) const {
    for (CAdUiDockControlBar* bar : m_bars) {
        CString text;
        bar->GetWindowText(text);
        if (CompareStringOrdinal(text, -1, caption.c_str(), -1, TRUE) == CSTR_EQUAL) return bar;
    }
    return nullptr;
}

DockSide DockManager::SideOf(const CAdUiDockControlBar& bar) const {
    return CDockState::Of(bar).side;
}

std::vector<CAdUiDockControlBar*> DockManager::VisibleAt(DockSide side) const {
    std::vector<CAdUiDockControlBar*> bars;
    for (CAdUiDockControlBar* bar : m_bars) {
        if (CDockState::Of(*bar).side == side && (bar->GetStyle() & WS_VISIBLE) != 0) bars.push_back(bar);
    }
    return bars;
}

LayoutRect DockManager::LayOut(const LayoutRect& area) {
    m_area = area;
    const auto left = VisibleAt(DockSide::kLeft);
    const auto right = VisibleAt(DockSide::kRight);
    const auto wanted = [](const std::vector<CAdUiDockControlBar*>& bars) {
        std::vector<DockedBar> result;
        for (CAdUiDockControlBar* bar : bars)
            result.push_back({CDockState::Of(*bar).dockedWidth, static_cast<int>(MinimumOf(*bar).cx),
                              static_cast<int>(MaximumOf(*bar).cx)});
        return result;
    };
    const DockLayout layout = LayOutDocks(area, wanted(left), wanted(right));
    const auto place = [](const std::vector<CAdUiDockControlBar*>& bars,
                          const std::vector<LayoutRect>& rects) {
        for (std::size_t i = 0; i < bars.size(); ++i)
            bars[i]->MoveWindow(rects[i].left, rects[i].top, rects[i].Width(), rects[i].Height());
    };
    place(left, layout.left);
    place(right, layout.right);
    m_leftSplitter->Place(layout.leftSplitter);
    m_rightSplitter->Place(layout.rightSplitter);
    return layout.center;
}

// A window that becomes a child gets the style before its parent, one that ceases to be a child after: the
// system judges the parent by the style.
void DockManager::MakeChild(CAdUiDockControlBar& bar) {
    if ((bar.GetStyle() & WS_CHILD) != 0) return;
    bar.ModifyStyle(kFloatingStyle, WS_CHILD);
    bar.ModifyStyleEx(WS_EX_TOOLWINDOW, 0);
    ::SetParent(bar, m_frame);
    bar.SetWindowPos(nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void DockManager::MakePopup(CAdUiDockControlBar& bar) {
    if ((bar.GetStyle() & WS_CHILD) == 0) return;
    ::SetParent(bar, nullptr);
    bar.ModifyStyle(WS_CHILD, kFloatingStyle);
    bar.ModifyStyleEx(0, WS_EX_TOOLWINDOW);
    SetWindowLongPtrW(bar, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(m_frame.GetSafeHwnd()));
}

bool DockManager::Dock(CAdUiDockControlBar& bar, DockSide side) {
    CDockState& state = CDockState::Of(bar);
    if (side == DockSide::kFloating) {
        Float(bar, state.floatingRect);
        return true;
    }
    if (!Allows(state, side)) return false;
    state.side = side;
    MakeChild(bar);
    m_frame.RecalcLayout();
    Store(bar);
    return true;
}

void DockManager::Float(CAdUiDockControlBar& bar, const LayoutRect& rect) {
    CDockState& state = CDockState::Of(bar);
    state.side = DockSide::kFloating;
    state.floatingRect = KeepOnScreen(rect, WorkAreaAround(rect));
    MakePopup(bar);
    const LayoutRect& placed = state.floatingRect;
    bar.SetWindowPos(nullptr, placed.left, placed.top, placed.Width(), placed.Height(),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    m_frame.RecalcLayout();
    Store(bar);
}

void DockManager::Restore(CAdUiDockControlBar& bar, UINT preferredDockBar, const LayoutRect* rect) {
    CDockState& state = CDockState::Of(bar);
    DockSide side = preferredDockBar == AFX_IDW_DOCKBAR_LEFT    ? DockSide::kLeft
                    : preferredDockBar == AFX_IDW_DOCKBAR_RIGHT ? DockSide::kRight
                                                                : DockSide::kFloating;
    if (rect != nullptr) state.floatingRect = *rect;
    if (state.toolId) {
        const std::wstring key = KeyOf(*state.toolId);
        const auto number = [&](const wchar_t* name, int otherwise) {
            return static_cast<int>(ReadSetting(key, name).value_or(static_cast<DWORD>(otherwise)));
        };
        LayoutRect& kept = state.floatingRect;
        kept = {number(L"Left", kept.left), number(L"Top", kept.top), number(L"Right", kept.right),
                number(L"Bottom", kept.bottom)};
        state.dockedWidth = number(L"Width", state.dockedWidth);
        const std::wstring keptSide = ReadTextSetting(key, L"Side").value_or(L"");
        for (const DockSide known : {DockSide::kLeft, DockSide::kRight, DockSide::kFloating}) {
            if (keptSide == NameOf(known)) side = known;
        }
    }
    if (!Allows(state, side)) side = DockSide::kFloating;
    Dock(bar, side);
}

void DockManager::Store(const CAdUiDockControlBar& bar) const {
    const CDockState& state = CDockState::Of(bar);
    if (!state.toolId) return;
    const std::wstring key = KeyOf(*state.toolId);
    WriteTextSetting(key, L"Side", NameOf(state.side));
    WriteSetting(key, L"Width", static_cast<DWORD>(state.dockedWidth));
    WriteSetting(key, L"Left", static_cast<DWORD>(state.floatingRect.left));
    WriteSetting(key, L"Top", static_cast<DWORD>(state.floatingRect.top));
    WriteSetting(key, L"Right", static_cast<DWORD>(state.floatingRect.right));
    WriteSetting(key, L"Bottom", static_cast<DWORD>(state.floatingRect.bottom));
}

void DockManager::Resize(CAdUiDockControlBar& bar, int width, int height) {
    CDockState& state = CDockState::Of(bar);
    const CSize smallest = MinimumOf(bar);
    const CSize largest = MaximumOf(bar);
    const auto within = [](int value, LONG low, LONG high) {
        return std::clamp(value, static_cast<int>(low), static_cast<int>(std::max(low, high)));
    };
    width = within(width, smallest.cx, largest.cx);
    if (state.side == DockSide::kFloating) {
        LayoutRect rect = state.floatingRect;
        rect.right = rect.left + width;
        rect.bottom = rect.top + within(height, smallest.cy, largest.cy);
        Float(bar, rect);
        return;
    }
    state.dockedWidth = width;
    m_frame.RecalcLayout();
    Store(bar);
}

void DockManager::HideAll() {
    for (CAdUiDockControlBar* bar : std::vector(m_bars))
        m_frame.ShowControlBar(bar, FALSE, FALSE);
}

void DockManager::EnableFloating(bool enable) {
    for (CAdUiDockControlBar* bar : m_bars) {
        if (CDockState::Of(*bar).side == DockSide::kFloating) bar->EnableWindow(enable);
    }
}

LayoutRect DockManager::AreaOnScreen() const {
    RECT rect{m_area.left, m_area.top, m_area.right, m_area.bottom};
    m_frame.ClientToScreen(&rect);
    return FromRect(rect);
}

void DockManager::StartDrag(CAdUiDockControlBar& bar, CPoint point) {
    m_tracker->Start(bar, point);
}

bool DockManager::CancelDrag() {
    return m_tracker->Cancel();
}

void DockManager::Toggle(CAdUiDockControlBar& bar) {
    const CDockState& state = CDockState::Of(bar);
    if (state.side != DockSide::kFloating) {
        Dock(bar, DockSide::kFloating);
    } else if (!Dock(bar, DockSide::kLeft)) {
        Dock(bar, DockSide::kRight);
    }
}

void DockManager::MoveSplitter(DockSide side, int x) {
    const int width = side == DockSide::kLeft ? x - m_area.left : m_area.right - x;
    for (CAdUiDockControlBar* bar : VisibleAt(side))
        CDockState::Of(*bar).dockedWidth = std::clamp(width, static_cast<int>(MinimumOf(*bar).cx),
                                                      std::max(m_area.Width() - kSmallestCenter, 1));
    m_frame.RecalcLayout();
}

void DockManager::EndMoveSplitter(DockSide side) {
    for (CAdUiDockControlBar* bar : VisibleAt(side))
        Store(*bar);
}

}  // namespace frame
