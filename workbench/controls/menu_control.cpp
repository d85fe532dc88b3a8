#include "controls/menu_control.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

#include "controls/file_bytes.h"
#include "controls/menu_ids.h"
#include "controls/selection.h"
#include "controls/server.h"

namespace controls {

namespace {

constexpr wchar_t kWindowClass[] = L"KalvorMenuControl";
constexpr size_t kLargestMenuFile = 1 << 20;  // bytes
constexpr int kSmallestButton = 16;
constexpr int kLargestButton = 256;
constexpr int kWheelRows = 3;

}  // namespace

MenuControl::MenuControl() : ComControl(kMenuClassId, kMenuDispatchId, kMenuEventsId) {}

MenuControl::~MenuControl() {
    // The window refers to this object; it goes before the members do.
    const HWND window = m_window;
    m_window = nullptr;
    if (window) DestroyWindow(window);
    if (m_font) DeleteObject(m_font);
}

HWND MenuControl::CreateControlWindow(HWND parent, const RECT& position) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetServerInstance();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(
        &windowClass);  // fails for the second control of the process, which finds the first one's class
    if (!m_font) {
        LOGFONTW font = {};
        font.lfHeight = -11;
        font.lfCharSet = DEFAULT_CHARSET;
        lstrcpynW(font.lfFaceName, L"Tahoma", LF_FACESIZE);
        m_font = CreateFontIndirectW(&font);
    }
    const HWND window = CreateWindowExW(
        0, kWindowClass, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN | WS_VSCROLL,
        position.left, position.top, position.right - position.left, position.bottom - position.top, parent,
        nullptr, GetServerInstance(), this);
    if (window) {
        ShowScrollBar(window, SB_VERT, FALSE);
        EnableWindow(window, m_enabled);
    }
    return window;
}

HRESULT MenuControl::InvokeMember(DISPID id, WORD flags, const std::vector<VARIANT*>& arguments,
                                  VARIANT* result) {
    const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    const size_t wanted =
        id == kMenuLoad || id == kMenuItemKind ? 1 : (id == kMenuToggleState ? 1 : 0) + (put ? 1 : 0);
    switch (id) {
        case kMenuIconSize:
        case DISPID_ENABLED:
        case kMenuLoad:
        case kMenuItemKind:
        case kMenuToggleState:
            break;
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
    if (arguments.size() != wanted) return DISP_E_BADPARAMCOUNT;
    std::wstring text;
    short number = 0;
    bool value = false;
    HRESULT hr = S_OK;
    switch (id) {
        case kMenuIconSize:
            if (!put) return SetResult(result, static_cast<short>(m_iconSize)), S_OK;
            if ((hr = ToShort(arguments[0], number)) == S_OK) SetIconSize(number);
            return hr;
        case DISPID_ENABLED:
            if (!put) return SetResult(result, m_enabled), S_OK;
            if ((hr = ToBool(arguments[0], value)) == S_OK) SetEnabled(value);
            return hr;
        case kMenuLoad:
            if ((hr = ToText(arguments[0], text)) == S_OK) SetResult(result, LoadMenuFile(text));
            return hr;
        case kMenuItemKind: {
            if ((hr = ToShort(arguments[0], number)) != S_OK) return hr;
            const MenuItem* item = m_menu.FindItem(number);
            SetResult(result, static_cast<short>(item ? item->kind : ItemKind::kCommand));
            return S_OK;
        }
        default:  // the toggle state
            if ((hr = ToText(arguments[0], text)) != S_OK) return hr;
            if (!put) return SetResult(result, GetToggle(text)), S_OK;
            if ((hr = ToBool(arguments[1], value)) == S_OK) SetToggle(text, value);
            return hr;
    }
}

// A file that cannot be read leaves the menu that is there.
bool MenuControl::LoadMenuFile(const std::wstring& path) {
    std::string bytes;
    MenuFile menu;
    std::wstring error;
    if (!ReadFileBytes(path, kLargestMenuFile, bytes) || !ParseMenuFile(bytes, menu, error)) return false;
    m_folder = path.substr(0, path.find_last_of(L"\\/") + 1);
    m_menu = std::move(menu);
    m_icons.clear();
    m_tab = 0;
    m_scroll = 0;
    m_focus = m_hot = m_pressed = -1;
    Arrange();
    return true;
}

bool MenuControl::GetToggle(const std::wstring& name) const {
    const auto it = m_toggles.find(name);
    return it != m_toggles.end() && it->second;
}

void MenuControl::SetToggle(const std::wstring& name, bool state) {
    m_toggles[name] = state;
    if (m_window) InvalidateRect(m_window, nullptr, FALSE);
}

void MenuControl::SetEnabled(bool enabled) {
    m_enabled = enabled;
    if (!m_window) return;
    EnableWindow(m_window, enabled);
    // The scroll bar's arrows show the state too.
    RedrawWindow(m_window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

void MenuControl::SetIconSize(int size) {
    size = std::clamp(size, kSmallestButton, kLargestButton);
    if (size == m_iconSize) return;
    m_iconSize = size;
    m_icons.clear();
    Arrange();
}

const std::vector<MenuItem>& MenuControl::Items() const {
    static const std::vector<MenuItem> none;
    return m_tab < static_cast<int>(m_menu.tabs.size()) ? m_menu.tabs[m_tab].items : none;
}

void MenuControl::Arrange() {
    if (!m_window) return;
    RECT client;
    GetClientRect(m_window, &client);
    MenuLayoutInput input;
    input.width = client.right;
    input.height = client.bottom;
    input.buttonSize = m_iconSize;
    input.itemCount = static_cast<int>(Items().size());
    input.scroll = m_scroll;
    const HDC dc = GetDC(m_window);
    {
        const Selection font(dc, m_font);
        TEXTMETRICW metrics;
        GetTextMetricsW(dc, &metrics);
        input.textHeight = metrics.tmHeight;
        for (const MenuTab& tab : m_menu.tabs) {
            SIZE size = {};
            GetTextExtentPoint32W(dc, tab.label.c_str(), static_cast<int>(tab.label.size()), &size);
            input.tabTextWidths.push_back(size.cx);
        }
    }
    ReleaseDC(m_window, dc);
    m_layout = ArrangeMenu(input);
    m_scroll = m_layout.scroll;
    SCROLLINFO scroll = {};
    scroll.cbSize = sizeof scroll;
    scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    scroll.nMax = std::max(m_layout.contentHeight - 1, 0);
    scroll.nPage = static_cast<UINT>(m_layout.page.Height());
    scroll.nPos = m_scroll;
    SetScrollInfo(m_window, SB_VERT, &scroll, TRUE);
    UpdateTips();
    InvalidateRect(m_window, nullptr, FALSE);
}

void MenuControl::SelectTab(int tab) {
    if (tab < 0 || tab >= static_cast<int>(m_menu.tabs.size()) || tab == m_tab) return;
    m_tab = tab;
    m_scroll = 0;
    m_hot = m_pressed = -1;
    m_focus = GetFocus() == m_window && !Items().empty() ? 0 : -1;
    Arrange();
}

void MenuControl::SetFocusItem(int item) {
    m_focus = item;
    ScrollTo(ScrollToShow(m_layout, item));
    InvalidateRect(m_window, nullptr, FALSE);
}

void MenuControl::ScrollTo(int scroll) {
    scroll = std::clamp(scroll, 0, m_layout.largestScroll);
    if (scroll == m_scroll) return;
    m_scroll = scroll;
    Arrange();
}

void MenuControl::OnScroll(WORD code) {
    const int row = m_layout.items.empty() ? 1 : m_layout.items[0].Height();
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(m_window, SB_VERT, &info);
    switch (code) {
        case SB_LINEUP:
            return ScrollTo(m_scroll - row);
        case SB_LINEDOWN:
            return ScrollTo(m_scroll + row);
        case SB_PAGEUP:
            return ScrollTo(m_scroll - m_layout.page.Height());
        case SB_PAGEDOWN:
            return ScrollTo(m_scroll + m_layout.page.Height());
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return ScrollTo(info.nTrackPos);
        case SB_TOP:
            return ScrollTo(0);
        case SB_BOTTOM:
            return ScrollTo(m_layout.largestScroll);
    }
}

void MenuControl::OnKey(WPARAM key) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    const int tabs = static_cast<int>(m_menu.tabs.size());
    switch (key) {
        case VK_LEFT:
            return SetFocusItem(Neighbour(m_layout, m_focus, -1, 0));
        case VK_RIGHT:
            return SetFocusItem(Neighbour(m_layout, m_focus, 1, 0));
        case VK_UP:
            return SetFocusItem(Neighbour(m_layout, m_focus, 0, -1));
        case VK_DOWN:
            return SetFocusItem(Neighbour(m_layout, m_focus, 0, 1));
        case VK_HOME:
            return SetFocusItem(Items().empty() ? -1 : 0);
        case VK_END:
            return SetFocusItem(static_cast<int>(Items().size()) - 1);
        case VK_PRIOR:
            return SelectTab(m_tab - 1);
        case VK_NEXT:
            return SelectTab(m_tab + 1);
        case VK_TAB:
            if (control && tabs > 0) SelectTab((m_tab + 1) % tabs);
            return;
        case VK_RETURN:
        case VK_SPACE:
            return Pick(m_focus);
    }
}

// Plain Tab and Escape stay the dialog's, so that the keyboard can leave the control.
LRESULT MenuControl::DialogCode(const MSG* message) {
    if (!message || message->message != WM_KEYDOWN) return DLGC_WANTARROWS;
    const bool wanted =
        message->wParam == VK_RETURN || (message->wParam == VK_TAB && GetKeyState(VK_CONTROL) < 0);
    return DLGC_WANTARROWS | (wanted ? DLGC_WANTMESSAGE : 0);
}

void MenuControl::OnMouseMove(int x, int y) {
    const int hot = ItemAt(m_layout, x, y);
    if (hot == m_hot) return;
    m_hot = hot;
    TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, m_window, 0};
    TrackMouseEvent(&track);
    InvalidateRect(m_window, nullptr, FALSE);
}

void MenuControl::OnButtonDown(int x, int y) {
    SetFocus(m_window);
    const int tab = TabAt(m_layout, x, y);
    if (tab >= 0) return SelectTab(tab);
    m_pressed = m_focus = ItemAt(m_layout, x, y);
    if (m_pressed >= 0) SetCapture(m_window);
    InvalidateRect(m_window, nullptr, FALSE);
}

void MenuControl::OnButtonUp(int x, int y) {
    const int pressed = m_pressed;
    m_pressed = -1;
    if (GetCapture() == m_window) ReleaseCapture();
    InvalidateRect(m_window, nullptr, FALSE);
    if (pressed >= 0 && pressed == ItemAt(m_layout, x, y)) Pick(pressed);
}

// A toggle changes its state before the program hears of it.
void MenuControl::Pick(int item) {
    if (!m_enabled || item < 0 || item >= static_cast<int>(Items().size())) return;
    // The program may load another menu while it hears the event.
    const MenuItem picked = Items()[item];
    if (picked.kind == ItemKind::kToggle) SetToggle(picked.text, !GetToggle(picked.text));
    VARIANT id, text;
    VariantInit(&id);
    VariantInit(&text);
    SetResult(&id, static_cast<short>(picked.id));
    SetResult(&text, picked.text);
    FireEvent(kMenuItemSelected, {id, text});
}

LRESULT CALLBACK MenuControl::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        auto* self = static_cast<MenuControl*>(create->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        self->m_window = window;
    }
    auto* self = reinterpret_cast<MenuControl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->m_window = nullptr;
        self->m_tip = nullptr;
        self->m_tipTools = 0;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    // A handler may lead to the release of the last reference from outside.
    self->AddRef();
    const LRESULT result = self->HandleMessage(message, wParam, lParam);
    self->Release();
    return result;
}

LRESULT MenuControl::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            CreateTip();
            return 0;
        case WM_SIZE:
            Arrange();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            const HDC dc = BeginPaint(m_window, &paint);
            Paint(dc);
            EndPaint(m_window, &paint);
            return 0;
        }
        case WM_PRINTCLIENT:
            Paint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_MOUSEMOVE:
            OnMouseMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return 0;
        case WM_MOUSELEAVE:
            OnMouseMove(-1, -1);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            OnButtonDown(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return 0;
        case WM_LBUTTONUP:
            OnButtonUp(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return 0;
        case WM_CAPTURECHANGED:
            m_pressed = -1;
            InvalidateRect(m_window, nullptr, FALSE);
            return 0;
        case WM_MOUSEWHEEL: {
            const int row = m_layout.items.empty() ? 1 : m_layout.items[0].Height();
            ScrollTo(m_scroll - GET_WHEEL_DELTA_WPARAM(wParam) * row * kWheelRows / WHEEL_DELTA);
            return 0;
        }
        case WM_VSCROLL:
            OnScroll(LOWORD(wParam));
            return 0;
        case WM_KEYDOWN:
            OnKey(wParam);
            return 0;
        case WM_GETDLGCODE:
            return DialogCode(reinterpret_cast<const MSG*>(lParam));
        case WM_SETFOCUS:
            if (m_focus < 0 && !Items().empty()) m_focus = 0;
            InvalidateRect(m_window, nullptr, FALSE);
            return 0;
        case WM_KILLFOCUS:
            InvalidateRect(m_window, nullptr, FALSE);
            return 0;
        case WM_ENABLE:
            // The scroll bar shows the state too.
            RedrawWindow(m_window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
            return 0;
    }
    return DefWindowProcW(m_window, message, wParam, lParam);
}

}  // namespace controls
