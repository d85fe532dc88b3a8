#include "dm_driver.h"

#include <gtest/gtest.h>

#include "controls/balloon_tip.h"
#include "resources/resource.h"
#include "support/windows_driver.h"

namespace {

constexpr UINT kGetMenuHandle = 0x01E1;  // of a menu's window
constexpr wchar_t kMenuClass[] = L"#32768";

// Messages go through the control's own wrapper, so that labels of any length arrive whole.
template <class Control>
class Borrowed {
  public:
    explicit Borrowed(HWND window) { m_control.m_hWnd = window; }
    ~Borrowed() { m_control.m_hWnd = nullptr; }
    Control* operator->() { return &m_control; }

  private:
    Control m_control;
};

void AddTreeLines(HWND tree, HTREEITEM item, const std::wstring& indent, std::vector<std::wstring>& lines) {
    Borrowed<CTreeCtrl> control(tree);
    for (; item; item = control->GetNextSiblingItem(item)) {
        lines.push_back(indent + control->GetItemText(item).ToStdString());
        AddTreeLines(tree, control->GetChildItem(item), indent + L"  ", lines);
    }
}

std::vector<std::wstring> ReadMenu(HMENU menu) {
    std::vector<std::wstring> lines;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[64] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 64, MF_BYPOSITION);
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        if (*text == L'\0') {
            lines.push_back(L"-");
            continue;
        }
        lines.push_back(text + (L" " + std::to_wstring(GetMenuItemID(menu, i))) +
                        ((state & MF_GRAYED) != 0 ? L" grey" : L"") +
                        ((state & MF_CHECKED) != 0 ? L" checked" : L""));
    }
    return lines;
}

// What the menu's own message loop is to do when it runs.
std::vector<std::wstring>* g_menuLines = nullptr;

void CALLBACK ReadOpenMenu(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND window = FindWindowW(kMenuClass, nullptr);
    if (!window || !IsWindowVisible(window) || !g_menuLines) return;
    KillTimer(nullptr, timer);
    *g_menuLines = ReadMenu(reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuHandle, 0, 0)));
    g_menuLines = nullptr;
    EndMenu();
}

}  // namespace

ManagerDriver::ManagerDriver(HWND dialog)
    : m_dialog(dialog),
      m_list(windows::Control(dialog, IDC_DRAWING_LIST)),
      m_tree(windows::Control(dialog, IDC_TREE)) {}

std::vector<std::wstring> ManagerDriver::TreeLines() const {
    std::vector<std::wstring> lines;
    AddTreeLines(m_tree, Borrowed<CTreeCtrl>(m_tree)->GetRootItem(), L"", lines);
    return lines;
}

HTREEITEM ManagerDriver::Item(const Path& path) const {
    Borrowed<CTreeCtrl> tree(m_tree);
    HTREEITEM item = nullptr;
    for (const std::wstring& label : path) {
        item = item ? tree->GetChildItem(item) : tree->GetRootItem();
        while (item && tree->GetItemText(item) != label)
            item = tree->GetNextSiblingItem(item);
        if (!item) {
            ADD_FAILURE() << "no tree item " << testing::PrintToString(label);
            return nullptr;
        }
    }
    return item;
}

HTREEITEM ManagerDriver::SelectedItem() const {
    return Borrowed<CTreeCtrl>(m_tree)->GetSelectedItem();
}

std::wstring ManagerDriver::SelectedLabel() const {
    const HTREEITEM item = SelectedItem();
    return item ? Borrowed<CTreeCtrl>(m_tree)->GetItemText(item).ToStdString() : std::wstring();
}

void ManagerDriver::SelectItem(const Path& path) const {
    Borrowed<CTreeCtrl>(m_tree)->SelectItem(Item(path));
}

void ManagerDriver::Expand(const Path& path) const {
    // As the user does it: the control tells its parent only about expansions by key or mouse.
    SelectItem(path);
    SendMessageW(m_tree, WM_KEYDOWN, VK_ADD, 0);
}

LPARAM ManagerDriver::DataOf(const Path& path) const {
    return static_cast<LPARAM>(Borrowed<CTreeCtrl>(m_tree)->GetItemData(Item(path)));
}

int ManagerDriver::ImageOf(const Path& path) const {
    int image = -1;
    int selected = -1;
    Borrowed<CTreeCtrl>(m_tree)->GetItemImage(Item(path), image, selected);
    EXPECT_EQ(image, selected);
    return image;
}

void ManagerDriver::Notify(HWND control, UINT code) const {
    NMHDR notification{control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), code};
    SendMessageW(m_dialog, WM_NOTIFY, notification.idFrom, reinterpret_cast<LPARAM>(&notification));
}

void ManagerDriver::DoubleClickTree() const {
    Notify(m_tree, NM_DBLCLK);
}

void ManagerDriver::DoubleClickList() const {
    Notify(m_list, NM_DBLCLK);
}

std::vector<std::wstring> ManagerDriver::Rows() const {
    Borrowed<CListCtrl> list(m_list);
    std::vector<std::wstring> rows;
    for (int i = 0; i < list->GetItemCount(); ++i)
        rows.push_back(list->GetItemText(i, 0).ToStdString());
    return rows;
}

int ManagerDriver::FindRow(const std::wstring& row) const {
    const std::vector<std::wstring> rows = Rows();
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] == row) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no row " << testing::PrintToString(row);
    return -1;
}

std::wstring ManagerDriver::Cell(const std::wstring& row, int column) const {
    return Borrowed<CListCtrl>(m_list)->GetItemText(FindRow(row), column).ToStdString();
}

int ManagerDriver::ImageOfRow(const std::wstring& row) const {
    LVITEM item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = FindRow(row);
    Borrowed<CListCtrl>(m_list)->GetItem(&item);
    EXPECT_EQ(item.iImage, static_cast<int>(item.lParam));
    return item.iImage;
}

std::vector<std::wstring> ManagerDriver::SelectedRows() const {
    Borrowed<CListCtrl> list(m_list);
    std::vector<std::wstring> rows;
    for (int i = list->GetNextItem(-1, LVNI_SELECTED); i >= 0; i = list->GetNextItem(i, LVNI_SELECTED)) {
        rows.push_back(list->GetItemText(i, 0).ToStdString());
    }
    return rows;
}

void ManagerDriver::SelectRows(const std::vector<std::wstring>& rows) const {
    Borrowed<CListCtrl> list(m_list);
    for (int i = 0; i < list->GetItemCount(); ++i)
        list->SetItemState(i, 0, LVIS_SELECTED);
    for (const std::wstring& row : rows)
        list->SetItemState(FindRow(row), LVIS_SELECTED, LVIS_SELECTED);
}

void ManagerDriver::ClickRow(const std::wstring& row) const {
    CRect rect;
    Borrowed<CListCtrl>(m_list)->GetItemRect(FindRow(row), rect, LVIR_LABEL);
    const CPoint point(rect.left + 4, rect.CenterPoint().y);
    PostMessageW(m_list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    PostMessageW(m_list, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    windows::PumpWaiting();
}

HWND ManagerDriver::EditRow(const std::wstring& row) const {
    SetFocus(m_list);
    SendMessageW(m_list, LVM_EDITLABELW, static_cast<WPARAM>(FindRow(row)), 0);
    return ListEdit();
}

HWND ManagerDriver::ListEdit() const {
    return reinterpret_cast<HWND>(SendMessageW(m_list, LVM_GETEDITCONTROL, 0, 0));
}

HWND ManagerDriver::TreeEdit() const {
    return reinterpret_cast<HWND>(SendMessageW(m_tree, TVM_GETEDITCONTROL, 0, 0));
}

bool ManagerDriver::PressInLabelEdit(HWND edit, WORD key) const {
    windows::PostKey(edit, key);
    const auto translate = [](MSG& message) { return AfxPreTranslateMessage(&message) != FALSE; };
    return windows::WaitFor([this] { return ListEdit() == nullptr && TreeEdit() == nullptr; },
                            windows::kPatience, translate);
}

std::wstring ManagerDriver::Location() const {
    return windows::TextOf(m_dialog, IDC_LOCATION);
}

bool ManagerDriver::Enabled(int id) const {
    return IsWindowEnabled(windows::Control(m_dialog, id)) != FALSE;
}

bool ManagerDriver::Shown(int id) const {
    return (GetWindowLongPtrW(windows::Control(m_dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

CRect ManagerDriver::RectOf(HWND window) const {
    CRect rect;
    GetWindowRect(window, rect);
    MapWindowPoints(nullptr, m_dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

CRect ManagerDriver::RectOf(int id) const {
    return RectOf(windows::Control(m_dialog, id));
}

CRect ManagerDriver::WindowRect() const {
    CRect rect;
    GetWindowRect(m_dialog, rect);
    return rect;
}

HWND ManagerDriver::Splitter(int id) const {
    for (HWND child = GetWindow(m_dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const bool isBar = (GetWindowLongPtrW(child, GWL_STYLE) & SS_NOTIFY) != 0;
        if (GetDlgCtrlID(child) == id && isBar) return child;
    }
    ADD_FAILURE() << "no splitter " << id;
    return nullptr;
}

void ManagerDriver::Command(int id) const {
    SendMessageW(m_dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
}

void ManagerDriver::ResizeTo(int width, int height) const {
    SetWindowPos(m_dialog, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

void ManagerDriver::Escape() const {
    Command(IDCANCEL);
}

std::vector<std::wstring> ManagerDriver::PopupAt(HWND control, CPoint point) const {
    // Movements that are still on their way may take the cursor elsewhere once more.
    const auto cursorIsThere = [&point] {
        POINT cursor{};
        GetCursorPos(&cursor);
        const bool isThere = point == cursor;
        if (!isThere) SetCursorPos(point.x, point.y);
        return isThere;
    };
    int timesThere = 0;
    EXPECT_TRUE(windows::WaitFor([&] { return (timesThere = cursorIsThere() ? timesThere + 1 : 0) >= 5; }));
    std::vector<std::wstring> lines;
    g_menuLines = &lines;
    SetTimer(nullptr, 0, 10, ReadOpenMenu);
    Notify(control, static_cast<UINT>(NM_RCLICK));
    EXPECT_EQ(g_menuLines, nullptr) << "no popup menu came up";
    return lines;
}

CPoint ManagerDriver::PointOnItem(const Path& path) const {
    CRect rect;
    Borrowed<CTreeCtrl>(m_tree)->GetItemRect(Item(path), rect, TRUE);
    CPoint point = rect.CenterPoint();
    ClientToScreen(m_tree, &point);
    return point;
}

CPoint ManagerDriver::PointOnEmptyTree() const {
    CRect rect;
    GetWindowRect(m_tree, rect);
    return {rect.right - 10, rect.bottom - 10};
}

CPoint ManagerDriver::PointOnList() const {
    CRect rect;
    GetWindowRect(m_list, rect);
    return rect.CenterPoint();
}

HWND FindBalloon() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            if (!IsWindowVisible(window) || !dynamic_cast<CBalloonTip*>(CWnd::FromHandlePermanent(window)))
                return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}
