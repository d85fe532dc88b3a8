#include "frame/window_finder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>

namespace frame {

namespace {

std::wstring ClassName(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

bool IsClass(HWND window, const wchar_t* name) {
    return _wcsicmp(ClassName(window).c_str(), name) == 0;
}

bool IsOurs(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

// Calls `seen` with our visible top-level windows from the uppermost down, until it answers true.
HWND FirstTopLevel(const std::function<bool(HWND)>& seen) {
    for (HWND window = GetTopWindow(nullptr); window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
        if (IsWindowVisible(window) && IsOurs(window) && seen(window)) return window;
    }
    return nullptr;
}

// The first visible descendant that `seen` accepts.
HWND FirstDescendant(HWND parent, const std::function<bool(HWND)>& seen) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child)) continue;
        if (seen(child)) return child;
        if (const HWND deeper = FirstDescendant(child, seen); deeper != nullptr) return deeper;
    }
    return nullptr;
}

std::wstring WithoutMark(const std::wstring& text) {
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain;
}

bool IsNumber(const std::wstring& text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

std::function<bool(HWND)> Matcher(const std::wstring& control) {
    if (IsNumber(control)) {
        const int id = _wtoi(control.c_str());
        return [id](HWND window) { return GetDlgCtrlID(window) == id; };
    }
    return [control](HWND window) { return WithoutMark(WindowText(window)) == control; };
}

bool IsListView(HWND window) {
    return IsClass(window, WC_LISTVIEWW);
}
bool IsListBox(HWND window) {
    return IsClass(window, L"ListBox");
}

std::wstring TreeItemText(HWND tree, HTREEITEM handle) {
    std::array<wchar_t, 512> text{};
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = handle;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return text.data();
}

HTREEITEM TreeNext(HWND tree, UINT relation, HTREEITEM from) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(from)));
}

POINT MiddleOf(const RECT& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

}  // namespace

std::wstring WindowText(HWND window) {
    const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
    std::wstring text(length + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

HWND TopDialog() {
    return FirstTopLevel([](HWND window) { return IsClass(window, L"#32770") && IsWindowEnabled(window); });
}

HWND FindByTitle(const std::wstring& part) {
    return FirstTopLevel([&](HWND window) { return WindowText(window).find(part) != std::wstring::npos; });
}

HWND TopWindow() {
    return FirstTopLevel([](HWND window) { return GetWindowTextLengthW(window) > 0; });
}

HWND OpenPopupMenu() {
    return FirstTopLevel([](HWND window) { return IsClass(window, L"#32768"); });
}

HWND FindControl(const std::wstring& control) {
    const auto matches = Matcher(control);
    if (const HWND dialog = TopDialog(); dialog != nullptr) return FirstDescendant(dialog, matches);
    HWND found = nullptr;
    FirstTopLevel([&](HWND window) { return (found = FirstDescendant(window, matches)) != nullptr; });
    return found;
}

bool DialogHoldsText(const std::wstring& part) {
    const HWND dialog = TopDialog();
    if (dialog == nullptr) return false;
    const auto holds = [&](HWND window) { return WindowText(window).find(part) != std::wstring::npos; };
    return holds(dialog) || FirstDescendant(dialog, holds) != nullptr;
}

std::wstring DescribeDialogs() {
    std::wstring description;
    FirstTopLevel([&](HWND window) {
        if (!IsClass(window, L"#32770")) return false;
        description += L" [" + WindowText(window) + L"]";
        FirstDescendant(window, [&](HWND child) {
            const std::wstring text = WindowText(child);
            if (IsClass(child, L"Static") && !text.empty()) description += L" \"" + text + L"\"";
            return false;
        });
        return false;
    });
    return description.empty() ? L" none" : description;
}

std::optional<int> FindRow(HWND list, const std::wstring& text) {
    LRESULT row = -1;
    if (IsListView(list)) {
        LVFINDINFOW find{};
        find.flags = LVFI_STRING;
        find.psz = text.c_str();
        row = SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&find));
    } else {
        row = SendMessageW(list, IsListBox(list) ? LB_FINDSTRINGEXACT : CB_FINDSTRINGEXACT,
                           static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
    }
    if (row < 0) return std::nullopt;
    return static_cast<int>(row);
}

std::optional<POINT> RowPoint(HWND list, int row) {
    RECT rect{};
    if (IsListView(list)) {
        SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        rect.left = LVIR_LABEL;
        if (!SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect)))
            return std::nullopt;
    } else if (!IsListBox(list) || SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row),
                                                reinterpret_cast<LPARAM>(&rect)) == LB_ERR) {
        return std::nullopt;
    }
    return MiddleOf(rect);
}

HTREEITEM FindTreeItem(HWND tree, const std::wstring& path) {
    HTREEITEM parent = nullptr;
    for (const std::wstring& name : SplitPath(path)) {
        if (parent != nullptr) SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
        HTREEITEM item =
            parent == nullptr ? TreeNext(tree, TVGN_ROOT, nullptr) : TreeNext(tree, TVGN_CHILD, parent);
        while (item != nullptr && TreeItemText(tree, item) != name)
            item = TreeNext(tree, TVGN_NEXT, item);
        if (item == nullptr) return nullptr;
        parent = item;
    }
    return parent;
}

std::optional<POINT> TreeItemPoint(HWND tree, HTREEITEM item) {
    SendMessageW(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    RECT rect{};
    std::memcpy(&rect, &item, sizeof item);  // the message takes the item where it gives the rectangle
    if (!SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect))) return std::nullopt;
    return MiddleOf(rect);
}

std::optional<int> FindMenuItem(HMENU menu, const std::wstring& text) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t buffer[256] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), buffer, 256, MF_BYPOSITION);
        const std::wstring item = WithoutMark(buffer);
        if (item.substr(0, item.find(L'\t')) == text) return i;
    }
    return std::nullopt;
}

std::vector<std::wstring> SplitPath(const std::wstring& path) {
    std::vector<std::wstring> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = path.find(L'\\', start);
        parts.push_back(path.substr(start, end - start));
        if (end == std::wstring::npos) return parts;
        start = end + 1;
    }
}

}  // namespace frame
