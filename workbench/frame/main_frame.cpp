#include "frame/main_frame.h"

#include <adui.h>

#include <algorithm>
#include <array>

#include "frame/ui_colors.h"
#include "frame/user_settings.h"

namespace frame {

namespace {

constexpr UINT kWorkRequested = WM_APP + 1;
constexpr int kTabHeight = 26;
constexpr int kCommandLineHeight = 104;
// Beyond the ids that scripts look for in the palettes and dialogs of modules.
constexpr UINT kTabsId = 0x7001;
constexpr UINT kStatusBarId = 0x7002;
constexpr std::array<int, 3> kStatusParts = {230, 430, -1};

struct MenuEntry {
    UINT id;  // 0: a separator
    const wchar_t* text;
};

void AppendAll(CMenu& menu, std::initializer_list<MenuEntry> entries) {
    for (const MenuEntry& entry : entries)
        menu.AppendMenu(entry.id == 0 ? MF_SEPARATOR : MF_STRING, entry.id, entry.text);
}

// Appends a popup, which the bar owns from then on.
HMENU AppendPopup(CMenu& bar, const wchar_t* text, std::initializer_list<MenuEntry> entries) {
    CMenu popup;
    popup.CreatePopupMenu();
    AppendAll(popup, entries);
    const HMENU handle = popup.Detach();
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(handle), text);
    return handle;
}

void RemoveItems(HMENU menu) {
    while (DeleteMenu(menu, 0, MF_BYPOSITION)) {
    }
}

// What nobody listens to is done without: an empty function would throw, and the window procedure would wait
// in a message box for somebody to read that.
template <class Result, class... Arguments>
void Complete(std::function<Result(Arguments...)>& event, Result answer) {
    if (!event) event = [answer](Arguments...) { return answer; };
}
template <class... Arguments>
void Complete(std::function<void(Arguments...)>& event) {
    if (!event) event = [](Arguments...) {};
}

MainFrame::Events Completed(MainFrame::Events events) {
    Complete(events.command);
    Complete(events.activate);
    Complete(events.entered);
    Complete(events.cancelled);
    Complete(events.inputArrived);
    Complete(events.mayClose, true);
    Complete(events.destroyed);
    return events;
}

std::wstring Escaped(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t c : text)
        result += c == L'&' ? L"&&" : std::wstring(1, c);
    return result;
}

}  // namespace

BEGIN_MESSAGE_MAP(MainFrame, CMDIFrameWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_CLOSE()
ON_WM_SETFOCUS()
ON_WM_ENABLE()
ON_WM_ERASEBKGND()
ON_WM_INITMENUPOPUP()
ON_WM_GETMINMAXINFO()
ON_MESSAGE(kWorkRequested, &MainFrame::OnWorkRequested)
ON_MESSAGE(WM_ACAD_KEEPFOCUS, &MainFrame::OnKeepFocus)
END_MESSAGE_MAP()

MainFrame::MainFrame(Events events)
    : m_events(Completed(std::move(events))),
      m_commandLine(
          {[this](const std::wstring& line) { m_events.entered(line); }, [this] { m_events.cancelled(); }}) {}

MainFrame::~MainFrame() = default;

bool MainFrame::CreateFrame(bool ownPlace) {
    m_ownPlace = ownPlace;
    const LPCTSTR windowClass =
        AfxRegisterWndClass(CS_DBLCLKS, LoadCursor(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_BTNFACE),
                            ::LoadIcon(GetModuleHandleW(nullptr), MAKEINTRESOURCE(1)));
    const auto kept = [ownPlace](const wchar_t* name, DWORD otherwise) {
        return static_cast<int>(ownPlace ? ReadSetting(L"Frame", name).value_or(otherwise) : otherwise);
    };
    RECT workArea{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0);
    const int width = std::clamp(kept(L"Width", 1240), 400, static_cast<int>(workArea.right - workArea.left));
    const int height =
        std::clamp(kept(L"Height", 860), 300, static_cast<int>(workArea.bottom - workArea.top));
    const int left = std::clamp(kept(L"Left", 10), static_cast<int>(workArea.left),
                                static_cast<int>(workArea.right) - width);
    const int top = std::clamp(kept(L"Top", 10), static_cast<int>(workArea.top),
                               static_cast<int>(workArea.bottom) - height);
    return Create(windowClass, L"Workbench", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  CRect(left, top, left + width, top + height)) != FALSE;
}

int MainFrame::OnCreate(LPCREATESTRUCT create) {
    if (CMDIFrameWnd::OnCreate(create) == -1) return -1;
    CreateMenus();
    CreateChildren();
    return 0;
}

void MainFrame::CreateMenus() {
    CMenu bar;
    bar.CreateMenu();
    AppendPopup(bar, L"&File",
                {{kCommandNew, L"&New\tCtrl+N"},
                 {kCommandOpen, L"&Open...\tCtrl+O"},
                 {kCommandClose, L"&Close\tCtrl+F4"},
                 {0, nullptr},
                 {kCommandSave, L"&Save\tCtrl+S"},
                 {kCommandSaveAs, L"Save &As..."},
                 {0, nullptr},
                 {kCommandExit, L"E&xit"}});
    const HMENU view = AppendPopup(bar, L"&View",
                                   {{kCommandZoomExtents, L"Zoom &Extents"},
                                    {kCommandZoomIn, L"Zoom &In"},
                                    {kCommandZoomOut, L"Zoom &Out"},
                                    {kCommandRegenerate, L"&Regenerate"},
                                    {0, nullptr},
                                    {kCommandLightBackground, L"&Light Background"}});
    m_paletteMenu = CreatePopupMenu();
    ::AppendMenuW(view, MF_POPUP, reinterpret_cast<UINT_PTR>(m_paletteMenu), L"&Palettes");
    m_windowMenu = AppendPopup(bar, L"&Window", {{kCommandNextDocument, L"&Next\tCtrl+Tab"}});
    AppendPopup(bar, L"&Help", {{kCommandAbout, L"&About Workbench"}});
    ::SetMenu(m_hWnd, bar.Detach());

    std::array<ACCEL, 5> keys = {{{FVIRTKEY | FCONTROL, 'N', kCommandNew},
                                  {FVIRTKEY | FCONTROL, 'O', kCommandOpen},
                                  {FVIRTKEY | FCONTROL, 'S', kCommandSave},
                                  {FVIRTKEY | FCONTROL, VK_F4, kCommandClose},
                                  {FVIRTKEY | FCONTROL, VK_TAB, kCommandNextDocument}}};
    m_accelerators = CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

void MainFrame::CreateChildren() {
    const CRect anywhere(0, 0, 10, 10);
    m_tabs.Create(WC_TABCONTROL, L"Documents", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FOCUSNEVER,
                  anywhere, this, kTabsId);
    m_tabs.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(InterfaceFont()), FALSE);
    m_view = new DrawingView({[this](WorldPoint point) { ShowCoordinates(point); },
                              [this] {
                                  OfferFocusToCommandLine();
                                  RequestWork();
                              },
                              [this](wchar_t character) { m_commandLine.TakeKey(character); }});
    m_view->CreateIn(*this);
    m_commandLine.CreateIn(*this);
    m_statusBar.Create(STATUSCLASSNAME, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, anywhere, this,
                       kStatusBarId);
    m_statusBar.SendMessage(SB_SETPARTS, kStatusParts.size(), reinterpret_cast<LPARAM>(kStatusParts.data()));
    m_docks = std::make_unique<DockManager>(*this);
    RecalcLayout();
}

void MainFrame::RecalcLayout(BOOL) {
    // Bars that come or go while the frame does ask for a layout too.
    if (m_docks == nullptr || m_statusBar.GetSafeHwnd() == nullptr) return;
    CRect client;
    GetClientRect(&client);
    if (client.right <= 0 || client.bottom <= 0) return;
    m_statusBar.SendMessage(WM_SIZE);
    CRect status;
    m_statusBar.GetWindowRect(&status);
    const int width = client.right;
    const int statusTop = std::max(client.bottom - (status.bottom - status.top), 0L);
    const int commandTop = std::max(statusTop - kCommandLineHeight, 0);
    m_commandLine.MoveWindow(0, commandTop, width, statusTop - commandTop);
    m_tabs.MoveWindow(0, 0, width, kTabHeight);
    const LayoutRect center = m_docks->LayOut({0, kTabHeight, width, std::max(commandTop - 2, kTabHeight)});
    // The picture is drawn anew: copied, it would bring along what lay over it, such as a splitter.
    m_view->SetWindowPos(nullptr, center.left, center.top, center.Width(), center.Height(),
                         SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void MainFrame::SetDocuments(const std::vector<std::wstring>& titles, int current) {
    if (titles != m_titles) {
        m_titles = titles;
        m_tabs.SendMessage(TCM_DELETEALLITEMS);
        for (std::size_t i = 0; i < titles.size(); ++i) {
            std::wstring text = Escaped(titles[i]);
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = text.data();
            m_tabs.SendMessage(TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
        }
    }
    m_current = current;
    m_tabs.SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(current));
}

void MainFrame::SetDrawingTitle(const std::wstring& title) {
    SetWindowText(title.empty() ? L"Workbench" : (L"Workbench - " + title).c_str());
}

void MainFrame::SetStatus(const std::wstring& text) {
    m_statusBar.SendMessage(SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(text.c_str()));
}

void MainFrame::ShowCoordinates(WorldPoint point) {
    wchar_t text[80];
    swprintf(text, std::size(text), L"  %.4f, %.4f", point.x, point.y);
    m_statusBar.SendMessage(SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text));
}

void MainFrame::OfferFocusToCommandLine() {
    if (!IsWindowEnabled()) return;
    const HWND focus = ::GetFocus();
    if (focus == nullptr || focus == m_hWnd || ::IsChild(m_commandLine, focus)) return;
    for (HWND window = focus; window != nullptr && window != m_hWnd;
         window = GetAncestor(window, GA_PARENT)) {
        if (::SendMessageW(window, WM_ACAD_KEEPFOCUS, 0, 0) == 1) return;
        auto* palette = dynamic_cast<CAdUiPalette*>(CWnd::FromHandlePermanent(window));
        if (palette != nullptr && !palette->CanFrameworkTakeFocus()) return;
    }
    FocusCommandLine(GetAncestor(focus, GA_ROOT));
}

void MainFrame::FocusDrawing() {
    const HWND active = ::GetActiveWindow();
    if (IsWindowEnabled() && (active == m_hWnd || IsOwned(active))) FocusCommandLine(active);
}

bool MainFrame::IsOwned(HWND window) const {
    return window != nullptr && window != m_hWnd && ::GetWindow(window, GW_OWNER) == m_hWnd;
}

void MainFrame::FocusCommandLine(HWND activeBefore) {
    m_commandLine.TakeKey(0);
    // Not every system keeps owned windows above a window that is activated by taking the focus.
    if (IsOwned(activeBefore))
        ::SetWindowPos(activeBefore, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void MainFrame::RequestWork() {
    if (m_workRequested || GetSafeHwnd() == nullptr) return;
    m_workRequested = PostMessage(kWorkRequested) != FALSE;
}

LRESULT MainFrame::OnWorkRequested(WPARAM, LPARAM) {
    m_workRequested = false;
    m_events.inputArrived();
    return 0;
}

LRESULT MainFrame::OnKeepFocus(WPARAM, LPARAM) {
    return 0;
}

BOOL MainFrame::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE && m_docks != nullptr &&
        m_docks->CancelDrag())
        return TRUE;
    if (m_accelerators != nullptr && IsWindowEnabled() &&
        TranslateAcceleratorW(m_hWnd, m_accelerators, message) != 0)
        return TRUE;
    return CMDIFrameWnd::PreTranslateMessage(message);
}

BOOL MainFrame::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam == 0 && LOWORD(wParam) >= kCommandNew) {
        if (!DoOwnCommand(LOWORD(wParam))) m_events.command(LOWORD(wParam));
        return TRUE;
    }
    return CMDIFrameWnd::OnCommand(wParam, lParam);
}

bool MainFrame::DoOwnCommand(UINT id) {
    if (id >= kCommandFirstDocument && id <= kCommandLastDocument) {
        m_events.activate(id - kCommandFirstDocument);
        return true;
    }
    if (id >= kCommandFirstPalette && id <= kCommandLastPalette) {
        const std::size_t index = id - kCommandFirstPalette;
        if (index >= m_docks->Bars().size()) return true;
        CAdUiDockControlBar* bar = m_docks->Bars()[index];
        ShowControlBar(bar, !bar->IsVisible(), FALSE);
        return true;
    }
    switch (id) {
        case kCommandZoomExtents:
            m_view->ZoomExtents();
            return true;
        case kCommandZoomIn:
            m_view->ZoomBy(1.5);
            return true;
        case kCommandZoomOut:
            m_view->ZoomBy(1 / 1.5);
            return true;
        case kCommandLightBackground:
            m_view->SetLightBackground(!m_view->LightBackground());
            return true;
        case kCommandNextDocument:
            if (m_titles.size() > 1)
                m_events.activate(static_cast<std::size_t>(m_current + 1) % m_titles.size());
            return true;
        case kCommandExit:
            PostMessage(WM_CLOSE);
            return true;
        default:
            return false;
    }
}

BOOL MainFrame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom == m_tabs.GetSafeHwnd() && header->code == TCN_SELCHANGE) {
        const LRESULT chosen = m_tabs.SendMessage(TCM_GETCURSEL);
        if (chosen >= 0) m_events.activate(static_cast<std::size_t>(chosen));
        return TRUE;
    }
    return CMDIFrameWnd::OnNotify(wParam, lParam, result);
}

void MainFrame::OnInitMenuPopup(CMenu* menu, UINT, BOOL) {
    const HMENU handle = menu->GetSafeHmenu();
    if (handle == m_paletteMenu) FillPaletteMenu(*menu);
    if (handle == m_windowMenu) FillWindowMenu(*menu);
    const UINT whenOpen = m_titles.empty() ? MF_GRAYED : MF_ENABLED;
    for (const UINT id : {kCommandSave, kCommandSaveAs, kCommandClose, kCommandZoomExtents, kCommandZoomIn,
                          kCommandZoomOut, kCommandRegenerate})
        ::EnableMenuItem(handle, id, MF_BYCOMMAND | whenOpen);
    ::CheckMenuItem(handle, kCommandLightBackground,
                    MF_BYCOMMAND | (m_view->LightBackground() ? MF_CHECKED : MF_UNCHECKED));
}

void MainFrame::FillPaletteMenu(CMenu& menu) {
    RemoveItems(menu);
    UINT id = kCommandFirstPalette;
    for (CAdUiDockControlBar* bar : m_docks->Bars()) {
        CString name;
        bar->GetWindowText(name);
        menu.AppendMenu(MF_STRING | (bar->IsVisible() ? MF_CHECKED : MF_UNCHECKED), id++, name);
    }
    if (id == kCommandFirstPalette) menu.AppendMenu(MF_STRING | MF_GRAYED, id, L"(none)");
}

void MainFrame::FillWindowMenu(CMenu& menu) {
    RemoveItems(menu);
    AppendAll(menu, {{kCommandNextDocument, L"&Next\tCtrl+Tab"}, {0, nullptr}});
    for (std::size_t i = 0; i < m_titles.size() && i <= kCommandLastDocument - kCommandFirstDocument; ++i) {
        const bool current = static_cast<int>(i) == m_current;
        menu.AppendMenu(MF_STRING | (current ? MF_CHECKED : MF_UNCHECKED), kCommandFirstDocument + i,
                        Escaped(m_titles[i]).c_str());
    }
}

void MainFrame::OnGetMinMaxInfo(MINMAXINFO* limits) {
    limits->ptMinTrackSize.x = 400;
    limits->ptMinTrackSize.y = 300;
}

void MainFrame::OnEnable(BOOL enable) {
    CMDIFrameWnd::OnEnable(enable);
    if (m_docks != nullptr) m_docks->EnableFloating(enable != FALSE);
}

BOOL MainFrame::OnEraseBkgnd(CDC* dc) {
    return CMDIFrameWnd::OnEraseBkgnd(dc);
}

void MainFrame::OnSetFocus(CWnd*) {
    m_commandLine.TakeKey(0);
}

void MainFrame::OnClose() {
    if (m_events.mayClose()) DestroyWindow();
}

void MainFrame::StorePlace() const {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    ::GetWindowPlacement(m_hWnd, &placement);
    const RECT& rect = placement.rcNormalPosition;
    WriteSetting(L"Frame", L"Left", static_cast<DWORD>(std::max(rect.left, 0L)));
    WriteSetting(L"Frame", L"Top", static_cast<DWORD>(std::max(rect.top, 0L)));
    WriteSetting(L"Frame", L"Width", static_cast<DWORD>(rect.right - rect.left));
    WriteSetting(L"Frame", L"Height", static_cast<DWORD>(rect.bottom - rect.top));
}

void MainFrame::OnDestroy() {
    if (m_ownPlace) StorePlace();
    m_docks.reset();
    if (m_accelerators != nullptr) DestroyAcceleratorTable(m_accelerators);
    m_accelerators = nullptr;
    m_events.destroyed();
    CMDIFrameWnd::OnDestroy();
}

}  // namespace frame
