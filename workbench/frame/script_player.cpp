#include "frame/script_player.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

#include "frame/dock_manager.h"
#include "frame/user_input.h"
#include "frame/window_finder.h"

namespace frame {

namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT kTickMilliseconds = 15;
// The screen is at rest when two looks this far apart are the same: longer than the timers of the windows in
// it.
constexpr std::chrono::milliseconds kRest{250};

constexpr int kTextOfMessageBox = 0xFFFF;
constexpr std::chrono::milliseconds kShortPatience{1500};
constexpr std::chrono::milliseconds kMessagePatience{200};
constexpr std::chrono::milliseconds kClosingPatience{10000};
constexpr unsigned int kMostClosings = 100;
constexpr UINT kStuck = 3;  // the program's exit status
// The pointer is at rest when so many looks in a row find it in its place: the system asks the display for it
// only when it has heard nothing of it for a tenth of a second.
constexpr int kRestingTicks = 10;
// What one tick adds to the waiting at most. While the machine has no time for the program, or a step has the
// program work, nothing that a script waits for can happen: that time does not count.
constexpr std::chrono::milliseconds kLongestTick{60};

ScriptPlayer* g_player = nullptr;  // timers without a window carry no data

bool SameName(const std::wstring& a, const std::wstring& b) {
    return _wcsicmp(a.c_str(), b.c_str()) == 0;
}

POINT ToScreen(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return point;
}

void NotifyParent(HWND control, UINT code) {
    PostMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

bool IsMessageBox(HWND dialog) {
    return dialog != nullptr && GetDlgItem(dialog, kTextOfMessageBox) != nullptr;
}

bool IsListBox(HWND window) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    return _wcsicmp(name, L"ListBox") == 0;
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

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

const wchar_t* PlaceOf(const CAdUiDockControlBar& bar, DockManager& docks) {
    if ((bar.GetStyle() & WS_VISIBLE) == 0) return L"hidden";
    switch (docks.SideOf(bar)) {
        case DockSide::kLeft:
            return L"left";
        case DockSide::kRight:
            return L"right";
        default:
            return L"floating";
    }
}

}  // namespace

ScriptPlayer::ScriptPlayer(Script script, Stage stage)
    : m_script(std::move(script)), m_stage(std::move(stage)) {}

ScriptPlayer::~ScriptPlayer() {
    if (m_timer != 0) KillTimer(nullptr, m_timer);
    if (g_player == this) g_player = nullptr;
}

void ScriptPlayer::Start() {
    g_player = this;
    StartWaiting();
    if (!m_script.error.empty()) {
        Fail(m_script.error);
        return;
    }
    m_timer = SetTimer(nullptr, 0, kTickMilliseconds, &ScriptPlayer::OnTimer);
}

void ScriptPlayer::WaitAnew() {
    StartWaiting();
}

void CALLBACK ScriptPlayer::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_player != nullptr) g_player->Tick();
}

void ScriptPlayer::StartWaiting() {
    m_waited = {};
    m_lastTick = Clock::now();
    m_restingTicks = 0;
}

void ScriptPlayer::CountWaiting() {
    const Clock::time_point now = Clock::now();
    m_waited += std::min<Clock::duration>(now - m_lastTick, kLongestTick);
    m_lastTick = now;
}

void ScriptPlayer::Tick() {
    if (m_busy || m_finished) return;
    CountWaiting();
    if (m_givingUp) {
        GiveUp();
        return;
    }
    if (m_next >= m_script.steps.size()) {
        if (m_stage.idle()) Finish(true);
        return;
    }
    m_busy = true;
    const ScriptStep step = m_script.steps[m_next];
    const Outcome outcome = Attempt(step);
    m_busy = false;
    if (outcome.progress == Progress::kWaiting && m_stage.givesUp && CloseMessageBox()) return;
    const auto patience = m_stage.givesUp ? std::min(m_patience, kShortPatience) : m_patience;
    if (outcome.progress == Progress::kFailed ||
        (outcome.progress == Progress::kWaiting && m_waited > patience)) {
        Fail(L"line " + std::to_wstring(step.line) + L": " + step.text + L": " + outcome.reason);
        return;
    }
    if (outcome.progress == Progress::kWaiting) return;
    ++m_next;
    StartWaiting();
    m_lastLook = Picture();
    if (step.action != ScriptAction::kInput) m_stage.note(step.text);
    if (outcome.act) outcome.act();
}

void ScriptPlayer::Fail(const std::wstring& reason) {
    m_stage.note(L"*** " + reason + L"; open dialogs:" + DescribeDialogs());
    if (!m_stage.givesUp) {
        Finish(false);
        return;
    }
    m_givingUp = true;
    StartWaiting();
}

// A message that the script does not wait for, in a session that does not always go as the script expects.
// False if there is none, or if it has not been there long enough for the script to see it.
bool ScriptPlayer::CloseMessageBox() {
    const HWND box = TopDialog();
    if (!IsMessageBox(box) || m_waited < kMessagePatience || m_closings > kMostClosings) return false;
    m_stage.note(L"[" + WindowText(box) + L": " + WindowText(GetDlgItem(box, kTextOfMessageBox)) + L"]");
    CloseTopDialog();
    StartWaiting();
    return true;
}

// One try: a question is answered by one of the buttons, whichever it has. False if there is nothing to
// close.
bool ScriptPlayer::CloseTopDialog() {
    constexpr WPARAM kAnswers[] = {IDYES, IDOK, IDNO};
    const HWND dialog = TopDialog();
    if (dialog == nullptr) return false;
    const WPARAM button =
        IsMessageBox(dialog) ? kAnswers[m_closings++ % std::size(kAnswers)] : WPARAM{IDCANCEL};
    PostMessageW(dialog, WM_COMMAND, button, 0);
    return true;
}

void ScriptPlayer::GiveUp() {
    if (OpenPopupMenu() != nullptr) {
        EndMenu();
    } else if (!CloseTopDialog() && m_stage.idle()) {
        Finish(false);
        return;
    }
    if (m_waited < kClosingPatience) return;
    m_stage.note(L"*** the session cannot be closed; open dialogs:" + DescribeDialogs());
    TerminateProcess(GetCurrentProcess(), kStuck);
}

void ScriptPlayer::Finish(bool succeeded) {
    m_finished = true;
    if (m_timer != 0) KillTimer(nullptr, m_timer);
    m_timer = 0;
    m_stage.finished(succeeded);
}

ScriptPlayer::Outcome ScriptPlayer::Attempt(const ScriptStep& step) {
    switch (step.action) {
        case ScriptAction::kInput:
            return Input(step);
        case ScriptAction::kWait:
        case ScriptAction::kWaitText:
        case ScriptAction::kWaitControl:
        case ScriptAction::kWaitGone:
        case ScriptAction::kWaitIdle:
            return AttemptWait(step);
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
        case ScriptAction::kPicture:
            return AttemptPicture(step);
        case ScriptAction::kPress: {
            const auto keys = KeysOf(step.arguments[0]);
            if (!keys) return {Progress::kFailed, L"there is no such key", {}};
            return {Progress::kDone, {}, [keys] { PressKeys(*keys); }};
        }
        case ScriptAction::kType:
            return {Progress::kDone, {}, [text = step.arguments[0]] { TypeText(text); }};
        case ScriptAction::kRelease:
            return {Progress::kDone, {}, [this] { ReleaseButton(m_pointer); }};
        case ScriptAction::kCloseDialog:
        case ScriptAction::kResizeDialog:
            return AttemptDialog(step);
        case ScriptAction::kRun:
            return AttemptRun(step);
        case ScriptAction::kResources:
            return {Progress::kDone, {}, [this] { m_stage.note(DescribeResources()); }};
        case ScriptAction::kTimeout: {
            const double seconds = std::wcstod(step.arguments[0].c_str(), nullptr);
            if (!(seconds > 0 && seconds < 3600)) return {Progress::kFailed, L"not a number of seconds", {}};
            m_patience = std::chrono::milliseconds(static_cast<int>(seconds * 1000));
            return {};
        }
        case ScriptAction::kQuit:
            m_next = m_script.steps.size() - 1;
            return {};
        default:
            return AttemptAssert(step);
    }
}

ScriptPlayer::Outcome ScriptPlayer::Input(const ScriptStep& step) {
    if (!m_stage.idle()) return {Progress::kWaiting, L"the command line is not free", {}};
    return {Progress::kDone, {}, [this, line = step.arguments[0]] { m_stage.enter(line); }};
}

// The other program may need answers from this one: it is not waited for, but looked at.
ScriptPlayer::Outcome ScriptPlayer::AttemptRun(const ScriptStep& step) {
    if (!m_program.IsStarted() && !m_program.Start(step.arguments[0]))
        return {Progress::kFailed, L"it cannot be started", {}};
    const std::optional<DWORD> status = m_program.Status();
    if (!status) return {Progress::kWaiting, L"it has not ended", {}};
    if (*status == 0) return {};
    return {Progress::kFailed, L"it ended with the status " + std::to_wstring(*status), {}};
}

ScriptPlayer::Outcome ScriptPlayer::AttemptWait(const ScriptStep& step) {
    bool there = false;
    switch (step.action) {
        case ScriptAction::kWait:
            there = FindByTitle(step.arguments[0]) != nullptr;
            break;
        case ScriptAction::kWaitText:
            there = DialogHoldsText(step.arguments[0]);
            break;
        case ScriptAction::kWaitControl:
            there = FindControl(step.arguments[0]) != nullptr;
            break;
        case ScriptAction::kWaitGone:
            there = FindByTitle(step.arguments[0]) == nullptr;
            break;
        default:
            there = m_stage.idle();
            break;
    }
    if (there) return {};
    return {Progress::kWaiting, L"it did not come", {}};
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
    if (const HWND popup = OpenPopupMenu(); popup != nullptr) {
        MENUBARINFO info{};
        info.cbSize = sizeof info;
        if (!GetMenuBarInfo(popup, OBJID_CLIENT, 0, &info))
            return {Progress::kWaiting, L"the menu cannot be read", {}};
        const auto index = FindMenuItem(info.hMenu, names[0]);
        RECT rect{};
        if (!index || !GetMenuItemRect(nullptr, info.hMenu, static_cast<UINT>(*index), &rect))
            return {Progress::kWaiting, L"there is no such item", {}};
        if ((GetMenuState(info.hMenu, static_cast<UINT>(*index), MF_BYPOSITION) & MF_GRAYED) != 0)
            return {Progress::kFailed, L"the item is grey", {}};
        const POINT at{rect.left + 20, (rect.top + rect.bottom) / 2};
        return AtPoint(at, [at] { ClickScreen(at, MouseButton::kLeft); });
    }
    const HWND window = m_stage.mainWindow();
    if (!IsWindowEnabled(window)) return {Progress::kWaiting, L"the main window is disabled", {}};
    HMENU menu = GetMenu(window);
    for (std::size_t i = 0;; ++i) {
        const auto index = FindMenuItem(menu, names[i]);
        if (!index) return {Progress::kFailed, L"there is no item " + Quoted(names[i]), {}};
        if (i + 1 == names.size()) {
            if ((GetMenuState(menu, static_cast<UINT>(*index), MF_BYPOSITION) & MF_GRAYED) != 0)
                return {Progress::kFailed, L"the item is grey", {}};
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

std::wstring ScriptPlayer::PicturePath(const std::wstring& name) const {
    return m_stage.pictureFolder + L"\\" + name + L".png";
}

// Looks at the whole main window with what floats above it.
ScriptPlayer::Outcome ScriptPlayer::AttemptPicture(const ScriptStep& step) {
    if (m_stage.pictureFolder.empty()) return {};
    const auto now = Clock::now();
    if (!m_lastLook.pixels.empty() && now - m_lastLookTime < kRest)
        return {Progress::kWaiting, L"the screen does not rest", {}};
    RECT rect{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    Picture look = TakePicture(rect);
    const bool rests = !look.pixels.empty() && look == m_lastLook;
    m_lastLook = std::move(look);
    m_lastLookTime = now;
    if (!rests) return {Progress::kWaiting, L"the screen does not rest", {}};
    if (!SavePng(m_lastLook, PicturePath(step.arguments[0])))
        return {Progress::kFailed, L"the picture cannot be written to " + PicturePath(step.arguments[0]), {}};
    return {};
}

ScriptPlayer::Outcome ScriptPlayer::AttemptAssert(const ScriptStep& step) {
    const auto expect = [](const std::wstring& found, const std::wstring& wanted, bool equal) -> Outcome {
        if (equal) return {};
        return {Progress::kWaiting, L"it is " + Quoted(found) + L", not " + Quoted(wanted), {}};
    };
    const std::wstring& first = step.arguments[0];
    switch (step.action) {
        case ScriptAction::kAssertDocument: {
            const std::wstring current = m_stage.currentDocument();
            const std::wstring shown = current.empty() ? L"none" : current;
            return expect(shown, first, SameName(shown, first));
        }
        case ScriptAction::kAssertTitle: {
            const std::wstring title = WindowText(TopWindow());
            return expect(title, first, title.find(first) != std::wstring::npos);
        }
        case ScriptAction::kAssertPalette: {
            DockManager* docks = m_stage.docks();
            const CAdUiDockControlBar* bar = docks == nullptr ? nullptr : docks->Find(first);
            if (bar == nullptr) return {Progress::kWaiting, L"there is no such palette set", {}};
            const std::wstring place = PlaceOf(*bar, *docks);
            return expect(place, step.arguments[1], place == step.arguments[1]);
        }
        case ScriptAction::kAssertOutput:
            if (m_stage.output().find(first) != std::wstring::npos) return {};
            return {Progress::kWaiting, L"it was not said", {}};
        case ScriptAction::kAssertFile:
            if (GetFileAttributesW(first.c_str()) != INVALID_FILE_ATTRIBUTES) return {};
            return {Progress::kWaiting, L"there is no such file", {}};
        default:
            break;
    }
    const HWND control = FindControl(first);
    if (step.action == ScriptAction::kAssertVisible) {
        const std::wstring visible = control == nullptr ? L"no" : L"yes";
        return expect(visible, step.arguments[1], visible == step.arguments[1]);
    }
    if (control == nullptr) return {Progress::kWaiting, L"there is no such control", {}};
    return AttemptAssertControl(step, control);
}

ScriptPlayer::Outcome ScriptPlayer::AttemptAssertControl(const ScriptStep& step, HWND control) {
    const std::wstring& wanted = step.arguments[1];
    const auto compare = [&](const std::wstring& found) -> Outcome {
        if (found == wanted) return {};
        return {Progress::kWaiting, L"it is " + Quoted(found) + L", not " + Quoted(wanted), {}};
    };
    switch (step.action) {
        case ScriptAction::kAssertText:
            return compare(WindowText(control));
        case ScriptAction::kAssertEnabled:
            return compare(IsWindowEnabled(control) ? L"yes" : L"no");
        case ScriptAction::kAssertChoice:
            return compare(ChosenItem(control));
        case ScriptAction::kAssertRow:
            if (FindRow(control, wanted)) return {};
            return {Progress::kWaiting, L"there is no such row", {}};
        case ScriptAction::kAssertNoRow:
            if (!FindRow(control, wanted)) return {};
            return {Progress::kWaiting, L"there is such a row", {}};
        default:
            return {Progress::kFailed, L"this directive cannot be played", {}};
    }
}

}  // namespace frame
