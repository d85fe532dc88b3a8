#include "frame/control_items.h"

#include <commctrl.h>

#include <cwchar>

namespace frame {

namespace {

bool IsListBox(HWND window) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    return _wcsicmp(name, L"ListBox") == 0;
}

}  // namespace

void NotifyParent(HWND control, UINT code) {
    PostMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

void ChooseItem(HWND control, int row) {
    const bool listBox = IsListBox(control);
    SendMessageW(control, listBox ? LB_SETCURSEL : CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    NotifyParent(control, listBox ? static_cast<UINT>(LBN_SELCHANGE) : static_cast<UINT>(CBN_SELCHANGE));
}

std::wstring ChosenItem(HWND control) {
    const bool listBox = IsListBox(control);
    const LRESULT row = SendMessageW(control, listBox ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
    const LRESULT length =
        SendMessageW(control, listBox ? LB_GETTEXTLEN : CB_GETLBTEXTLEN, static_cast<WPARAM>(row), 0);
    if (row < 0 || length < 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(control, listBox ? LB_GETTEXT : CB_GETLBTEXT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void SelectOnly(HWND list, int row) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace frame
