// What the tabbed menu control shows: tabs, items with their icons, tooltips.
#include "controls/menu_control.h"

#include <commctrl.h>

#include "controls/selection.h"
#include "controls/server.h"

namespace controls {

namespace {

RECT ToRect(const MenuRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

void FrameRectColor(HDC dc, RECT rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FrameRect(dc, &rect, brush);
    DeleteObject(brush);
}

void FillRectColor(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

// Part of the way from one colour to another, in percent.
COLORREF Mix(COLORREF from, COLORREF to, int percent) {
    const auto part = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return RGB(part(GetRValue(from), GetRValue(to)), part(GetGValue(from), GetGValue(to)),
               part(GetBValue(from), GetBValue(to)));
}

}  // namespace

void MenuControl::Paint(HDC dc) {
    RECT client;
    GetClientRect(m_window, &client);
    if (client.right <= 0 || client.bottom <= 0) return;
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, client.right, client.bottom);
    {
        const Selection picture(memory, bitmap);
        const Selection font(memory, m_font);
        SetBkMode(memory, TRANSPARENT);
        FillRectColor(memory, client, GetSysColor(COLOR_BTNFACE));
        FillRectColor(memory, ToRect(m_layout.page), GetSysColor(COLOR_WINDOW));
        const int saved = SaveDC(memory);
        IntersectClipRect(memory, m_layout.page.left, m_layout.page.top, m_layout.page.right,
                          m_layout.page.bottom);
        for (int i = 0; i < static_cast<int>(m_layout.items.size()); ++i)
            PaintItem(memory, i);
        RestoreDC(memory, saved);
        for (int i = 0; i < static_cast<int>(m_layout.tabs.size()); ++i)
            PaintTab(memory, i);
        RECT frame = ToRect(m_layout.page);
        FrameRectColor(memory, frame, GetSysColor(COLOR_BTNSHADOW));
        BitBlt(dc, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    }
    DeleteObject(bitmap);
    DeleteDC(memory);
}

void MenuControl::PaintTab(HDC dc, int tab) {
    RECT rect = ToRect(m_layout.tabs[tab]);
    const bool selected = tab == m_tab;
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    FillRectColor(dc, rect,
                  selected ? GetSysColor(COLOR_WINDOW) : Mix(face, GetSysColor(COLOR_BTNSHADOW), 15));
    FrameRectColor(dc, rect, GetSysColor(COLOR_BTNSHADOW));
    if (selected) {
        const RECT mark = {rect.left, rect.top, rect.right, rect.top + 2};
        FillRectColor(dc, mark, GetSysColor(COLOR_HIGHLIGHT));
    }
    SetTextColor(dc, GetSysColor(m_enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextW(dc, m_menu.tabs[tab].label.c_str(), -1, &rect,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

void MenuControl::PaintItem(HDC dc, int index) {
    const MenuItem& item = Items()[index];
    const MenuRect& cell = m_layout.items[index];
    if (cell.bottom <= m_layout.page.top || cell.top >= m_layout.page.bottom) return;
    RECT button = ToRect(cell);
    InflateRect(&button, -1, -1);
    const COLORREF window = GetSysColor(COLOR_WINDOW), highlight = GetSysColor(COLOR_HIGHLIGHT);
    const bool on = item.kind == ItemKind::kToggle && GetToggle(item.text);
    const bool lit = m_enabled && (index == m_hot || index == m_pressed);
    if (on || lit) {
        FillRectColor(dc, button, Mix(window, highlight, index == m_pressed ? 45 : on ? 30 : 15));
        FrameRectColor(dc, button, Mix(window, highlight, 70));
    }
    const int icon = m_iconSize / 2;
    const int iconLeft = m_layout.labelsBelow ? (cell.left + cell.right - icon) / 2 : cell.left + icon / 2;
    const int iconTop = m_layout.labelsBelow ? cell.top + icon / 2 : (cell.top + cell.bottom - icon) / 2;
    if (const HICON handle = GetIcon(item.icon))
        DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(handle), 0, iconLeft, iconTop, icon, icon,
                   DST_ICON | (m_enabled ? DSS_NORMAL : DSS_DISABLED));
    RECT label = m_layout.labelsBelow ? RECT{cell.left + 2, iconTop + icon + 2, cell.right - 2, cell.bottom}
                                      : RECT{iconLeft + icon + 6, cell.top, cell.right - 2, cell.bottom};
    SetTextColor(dc, GetSysColor(m_enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    DrawTextW(dc, item.label.c_str(), -1, &label,
              (m_layout.labelsBelow ? DT_CENTER | DT_TOP : DT_LEFT | DT_VCENTER) | DT_SINGLELINE |
                  DT_END_ELLIPSIS | DT_NOPREFIX);
    if (index == m_focus && GetFocus() == m_window) DrawFocusRect(dc, &button);
}

HICON MenuControl::GetIcon(const std::wstring& name) {
    if (name.empty()) return nullptr;
    const auto [it, added] = m_icons.try_emplace(name);
    if (added)
        it->second.reset(
            static_cast<HICON>(LoadImageW(nullptr, (m_folder + L"Icons\\" + name).c_str(), IMAGE_ICON,
                                          m_iconSize / 2, m_iconSize / 2, LR_LOADFROMFILE)));
    return it->second.get();
}

void MenuControl::CreateTip() {
    m_tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, m_window, nullptr,
                            GetServerInstance(), nullptr);
}

// One tool an item, where it shows.
void MenuControl::UpdateTips() {
    if (!m_tip) return;
    TOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = m_window;
    for (UINT i = 0; i < m_tipTools; ++i) {
        tool.uId = i;
        SendMessageW(m_tip, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    m_tipTools = 0;
    tool.uFlags = TTF_SUBCLASS;
    const RECT page = ToRect(m_layout.page);
    for (size_t i = 0; i < m_layout.items.size(); ++i) {
        const MenuItem& item = Items()[i];
        const RECT cell = ToRect(m_layout.items[i]);
        if (item.tip.empty() || !IntersectRect(&tool.rect, &cell, &page)) continue;
        tool.uId = m_tipTools++;
        tool.lpszText = const_cast<LPWSTR>(item.tip.c_str());
        SendMessageW(m_tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

}  // namespace controls
