// The steps of a script that act on windows: controls, lists, trees, menus, dialogs and palettes.
#include <cwchar>
#include <utility>

#include "frame/control_items.h"
#include "frame/dock_manager.h"
#include "frame/script_player.h"
#include "frame/user_input.h"
#include "frame/window_finder.h"

namespace frame {

namespace {

// The pointer is at rest when so many looks in a row find it in its place: the system asks the display for it
// only when it has heard nothing of it for a tenth of a second.
constexpr int kRestingTicks = 10;
POINT ToScreen(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return point;
}

bool IsGrey(HMENU menu, int index) {
    return (GetMenuState(menu, static_cast<UINT>(index), MF_BYPOSITION) & MF_GRAYED) != 0;
}

}  // namespace

ScriptPlayer::Outcome ScriptPlayer::AttemptWindow(const ScriptStep& step) {
    switch (step.action) {
        case ScriptAction::kClick:
        case ScriptAction::kClickAt:
        case ScriptAction::kDoubleClickAt:
        case ScriptAction::kRightClickAt:
        case ScriptAction::kHoldAt:
        case ScriptAction::kDragTo:
        case ScriptAction::kSetText:
        case ScriptAction::kChoose:
            return AttemptControl(step);
        case ScriptAction::kRow:
        case ScriptAction::kClickRow:
        case ScriptAction::kDoubleClickRow:
        case ScriptAction::kRightClickRow:
            return AttemptList(step);
        case ScriptAction::kTree:
        case ScriptAction::kRightClickTree:
            return AttemptTree(step);
        case ScriptAction::kMenu:
            return AttemptMenu(step);
        case ScriptAction::kDock:
        case ScriptAction::kResize:
            return AttemptPalette(step);
        case ScriptAction::kCloseDialog:
        case ScriptAction::kResizeDialog:
            return AttemptDialog(step);
        default:
            return AttemptAssert(step);
    }
}

ScriptPlayer::Outcome ScriptPlayer::AttemptControl(const ScriptStep& step) {
    const HWND control = FindControl(step.arguments[0]);
    if (control == nullptr) return {Progress::kWaiting, L"there is no such control", {}};
    if (!IsWindowEnabled(control)) return {Progress::kWaiting, L"the control is disabled", {}};
    if (step.action == ScriptAction::kClick)
        return {Progress::kDone, {}, [control] { PostMessageW(control, BM_CLICK, 0, 0); }};
    if (step.action == ScriptAction::kSetText)
        return {Progress::kDone, {}, [control, text = step.arguments[1]] {
                    SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
                    NotifyParent(control, EN_CHANGE);
                }};
    if (step.action == ScriptAction::kChoose) {
        const auto row = FindRow(control, step.arguments[1]);
        if (!row) return {Progress::kWaiting, L"there is no such item", {}};
        return {Progress::kDone, {}, [control, row] { ChooseItem(control, *row); }};
    }
    const POINT point =
        ToScreen(control, {_wtoi(step.arguments[1].c_str()), _wtoi(step.arguments[2].c_str())});
    if (step.action == ScriptAction::kHoldAt) return AtPoint(point, [point] { HoldButton(point); });
    if (step.action == ScriptAction::kDragTo) return AtPoint(point, [point] { MovePointer(point); });
    const MouseButton button =
        step.action == ScriptAction::kRightClickAt ? MouseButton::kRight : MouseButton::kLeft;
    const int times = step.action == ScriptAction::kDoubleClickAt ? 2 : 1;
    return AtPoint(point, [point, button, times] { ClickScreen(point, button, times); });
}

// What is done with the mouse waits until the pointer rests at its place: dialogs ask where it is.
ScriptPlayer::Outcome ScriptPlayer::AtPoint(POINT point, std::function<void()> act) {
    m_pointer = point;
    m_restingTicks = PutPointer(point) ? m_restingTicks + 1 : 0;
    if (m_restingTicks < kRestingTicks) return {Progress::kWaiting, L"the pointer does not rest there", {}};
    return {Progress::kDone, {}, std::move(act)};
}

ScriptPlayer::Outcome ScriptPlayer::AttemptDialog(const ScriptStep& step) {
    const HWND dialog = TopDialog();
    if (dialog == nullptr) return {Progress::kWaiting, L"no dialog is open", {}};
    if (step.action == ScriptAction::kCloseDialog)
        return {Progress::kDone, {}, [dialog] { PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); }};
    const SIZE size{_wtoi(step.arguments[0].c_str()), _wtoi(step.arguments[1].c_str())};
    return {Progress::kDone, {}, [dialog, size] {
                SetWindowPos(dialog, nullptr, 0, 0, size.cx, size.cy,
                             SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            }};
}

ScriptPlayer::Outcome ScriptPlayer::AttemptList(const ScriptStep& step) {
    const HWND list = FindControl(step.arguments[0]);
    if (list == nullptr) return {Progress::kWaiting, L"there is no such control", {}};
    const auto row = FindRow(list, step.arguments[1]);
    if (!row) return {Progress::kWaiting, L"there is no such row", {}};
    if (step.action == ScriptAction::kRow)
        return {Progress::kDone, {}, [list, row] { SelectOnly(list, *row); }};
    const auto point = RowPoint(list, *row);
    if (!point) return {Progress::kWaiting, L"the row is not to be seen", {}};
    const MouseButton button =
        step.action == ScriptAction::kRightClickRow ? MouseButton::kRight : MouseButton::kLeft;
    const int times = step.action == ScriptAction::kDoubleClickRow ? 2 : 1;
    const POINT at = ToScreen(list, *point);
    return AtPoint(at, [at, button, times] { ClickScreen(at, button, times); });
}

ScriptPlayer::Outcome ScriptPlayer::AttemptTree(const ScriptStep& step) {
    const HWND tree = FindControl(step.arguments[0]);
    if (tree == nullptr) return {Progress::kWaiting, L"there is no such control", {}};
    const HTREEITEM item = FindTreeItem(tree, step.arguments[1]);
    if (item == nullptr) return {Progress::kWaiting, L"there is no such item", {}};
    if (step.action == ScriptAction::kTree)
        return {Progress::kDone, {}, [tree, item] {
                    SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
                }};
    const auto point = TreeItemPoint(tree, item);
    if (!point) return {Progress::kWaiting, L"the item is not to be seen", {}};
    const POINT at = ToScreen(tree, *point);
    return AtPoint(at, [at] { ClickScreen(at, MouseButton::kRight); });
}

ScriptPlayer::Outcome ScriptPlayer::AttemptMenu(const ScriptStep& step) {
    const std::vector<std::wstring> names = SplitPath(step.arguments[0]);
    const HWND popup = OpenPopupMenu();
    return popup != nullptr ? AttemptPopupMenu(popup, names[0]) : AttemptMenuBar(names);
}

ScriptPlayer::Outcome ScriptPlayer::AttemptPopupMenu(HWND popup, const std::wstring& name) {
    MENUBARINFO info{};
    info.cbSize = sizeof info;
    if (!GetMenuBarInfo(popup, OBJID_CLIENT, 0, &info))
        return {Progress::kWaiting, L"the menu cannot be read", {}};
    const auto index = FindMenuItem(info.hMenu, name);
    RECT rect{};
    if (!index || !GetMenuItemRect(nullptr, info.hMenu, static_cast<UINT>(*index), &rect))
        return {Progress::kWaiting, L"there is no such item", {}};
    if (IsGrey(info.hMenu, *index)) return {Progress::kFailed, L"the item is grey", {}};
    const POINT at{rect.left + 20, (rect.top + rect.bottom) / 2};
    return AtPoint(at, [at] { ClickScreen(at, MouseButton::kLeft); });
}

ScriptPlayer::Outcome ScriptPlayer::AttemptMenuBar(const std::vector<std::wstring>& names) {
    const HWND window = m_stage.mainWindow();
    if (!IsWindowEnabled(window)) return {Progress::kWaiting, L"the main window is disabled", {}};
    HMENU menu = GetMenu(window);
    for (std::size_t i = 0;; ++i) {
        const auto index = FindMenuItem(menu, names[i]);
        if (!index) return {Progress::kFailed, L"there is no item " + Quoted(names[i]), {}};
        if (i + 1 == names.size()) {
            if (IsGrey(menu, *index)) return {Progress::kFailed, L"the item is grey", {}};
            const UINT id = GetMenuItemID(menu, *index);
            return {Progress::kDone, {}, [window, id] { PostMessageW(window, WM_COMMAND, id, 0); }};
        }
        menu = GetSubMenu(menu, *index);
        if (menu == nullptr) return {Progress::kFailed, Quoted(names[i]) + L" has no items", {}};
        SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(*index, FALSE));
    }
}

ScriptPlayer::Outcome ScriptPlayer::AttemptPalette(const ScriptStep& step) {
    DockManager* docks = m_stage.docks();
    CAdUiDockControlBar* bar = docks == nullptr ? nullptr : docks->Find(step.arguments[0]);
    if (bar == nullptr) return {Progress::kWaiting, L"there is no such palette set", {}};
    if (step.action == ScriptAction::kResize)
        return {Progress::kDone, {}, [=] {
                    docks->Resize(*bar, _wtoi(step.arguments[1].c_str()), _wtoi(step.arguments[2].c_str()));
                }};
    for (const auto& [name, side] :
         {std::pair(L"left", DockSide::kLeft), std::pair(L"right", DockSide::kRight),
          std::pair(L"floating", DockSide::kFloating)}) {
        if (step.arguments[1] == name)
            return {Progress::kDone, {}, [=, side = side] { docks->Dock(*bar, side); }};
    }
    return {Progress::kFailed, L"a place is left, right or floating", {}};
}

}  // namespace frame
