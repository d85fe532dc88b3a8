#include "support/windows_driver.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "frame/resource_counts.h"

namespace windows {
namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT kPollMilliseconds = 10;
constexpr wchar_t kDialogClass[] = L"#32770";

// How long something has been waited for, as far as this program was allowed to run: on a machine that is
// busy with others, what a test waits for makes no headway either.
class Waited {
  public:
    // Called again and again; whether the time is over.
    bool Exceeds(std::chrono::milliseconds patience) {
        const Clock::time_point now = Clock::now();
        m_time += std::min<Clock::duration>(now - m_lastLook, kLongestLook);
        m_lastLook = now;
        return m_time > patience;
    }

  private:
    static constexpr std::chrono::milliseconds kLongestLook{60};
    Clock::time_point m_lastLook = Clock::now();
    Clock::duration m_time{};
};

// A message box is a dialog whose procedure is the system's own.
bool IsMessageBox(HWND window) {
    if (ClassOf(window) != kDialogClass) return false;
    const auto procedure = reinterpret_cast<LPCWSTR>(GetWindowLongPtrW(window, DWLP_DLGPROC));
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       procedure, &module);
    return module != nullptr && module == GetModuleHandleW(L"user32.dll");
}

std::vector<HWND> VisibleDialogs() {
    std::vector<HWND> dialogs;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            if (IsWindowVisible(window) && ClassOf(window) == kDialogClass && !IsMessageBox(window)) {
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

std::vector<HWND> ButtonsOf(HWND box) {
    std::vector<HWND> buttons;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        // The box itself is not visible yet when it is activated.
        const bool isShown = (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0;
        if (ClassOf(child) == L"Button" && isShown) buttons.push_back(child);
    }
    std::sort(buttons.begin(), buttons.end(), [](HWND a, HWND b) {
        RECT first{};
        RECT second{};
        GetWindowRect(a, &first);
        GetWindowRect(b, &second);
        return first.left < second.left;
    });
    return buttons;
}

HICON IconOf(HWND box) {
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const bool showsIcon =
            ClassOf(child) == L"Static" && (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
        if (showsIcon) return reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
    }
    return nullptr;
}

}  // namespace

void PumpWaiting() {
    WaitFor([] { return true; });
}

bool WaitFor(const std::function<bool()>& condition, std::chrono::milliseconds patience,
             const std::function<bool(MSG&)>& translate) {
    Waited waited;
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<int>(message.wParam));
                return condition();
            }
            if (translate && translate(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (condition()) return true;
        if (waited.Exceeds(patience)) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMilliseconds, QS_ALLINPUT);
    }
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)), L'\0');
    SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

HWND Control(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    EXPECT_NE(control, nullptr) << "no control " << id;
    return control;
}

HWND VisibleTip() {
    HWND tip = nullptr;
    while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(tip, &process);
        if (process == GetCurrentProcessId() && IsWindowVisible(tip)) return tip;
    }
    return nullptr;
}

std::wstring TextOf(HWND dialog, int id) {
    const HWND control = Control(dialog, id);
    return control ? TextOf(control) : L"";
}

void SetText(HWND dialog, int id, const std::wstring& text) {
    SetWindowTextW(Control(dialog, id), text.c_str());
}

void Click(HWND dialog, int id) {
    const HWND button = Control(dialog, id);
    EXPECT_TRUE(IsWindowEnabled(button)) << "control " << id << " is disabled";
    SendMessageW(button, BM_CLICK, 0, 0);
}

void PostClick(HWND dialog, int id) {
    const HWND button = Control(dialog, id);
    EXPECT_TRUE(IsWindowEnabled(button)) << "control " << id << " is disabled";
    PostMessageW(button, BM_CLICK, 0, 0);
}

void SelectRow(HWND dialog, int id, int row) {
    const HWND combo = Control(dialog, id);
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

void PostKey(HWND window, WPARAM key) {
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC))
                            << 16;
    PostMessageW(window, WM_KEYDOWN, key, scanCode | 1);
    PostMessageW(window, WM_KEYUP, key, scanCode | 0xC0000001);
}

void Type(HWND window, const std::wstring& text) {
    for (const wchar_t character : text)
        SendMessageW(window, WM_CHAR, character, 1);
}

void MouseMove(HWND window, POINT point, WPARAM keys) {
    SendMessageW(window, WM_MOUSEMOVE, keys, MAKELPARAM(point.x, point.y));
}

void MouseDown(HWND window, POINT point) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
}

void MouseUp(HWND window, POINT point) {
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
}

void EndLabelEdit(HWND edit, const std::wstring& text) {
    SetWindowTextW(edit, text.c_str());
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
}

void CancelLabelEdit(HWND edit) {
    SendMessageW(edit, WM_KEYDOWN, VK_ESCAPE, 0);
}

// --- message boxes

namespace {

struct BoxScript {
    std::deque<int> answers;
    std::vector<Box> shown;
    std::vector<HWND> seen;     // boxes that are up
    std::vector<HWND> waiting;  // those of them without an answer yet
    HHOOK hook = nullptr;
};
BoxScript* g_script = nullptr;

void Answer(HWND window) {
    Box box;
    box.caption = TextOf(window);
    const HWND label = GetDlgItem(window, 0xFFFF);
    if (label) box.text = TextOf(label);
    box.icon = IconOf(window);
    box.owner = GetWindow(window, GW_OWNER);
    const std::vector<HWND> buttons = ButtonsOf(window);
    for (const HWND button : buttons) {
        box.buttons.push_back(TextOf(button));
        const bool isDefault = (GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (isDefault) box.defaultButton = GetDlgCtrlID(button);
    }

    box.answer = box.defaultButton;
    if (!g_script->answers.empty()) {
        const int wanted = g_script->answers.front();
        g_script->answers.pop_front();
        const bool onlyOk = wanted == IDOK && buttons.size() == 1;
        if (GetDlgItem(window, wanted)) {
            box.answer = wanted;
        } else if (!onlyOk) {
            ADD_FAILURE() << "the message box has no button " << wanted;
        }
    }
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(box.answer, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(window, box.answer)));
    g_script->shown.push_back(box);
}

void CALLBACK AnswerReadyBox(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (!g_script || g_script->waiting.empty()) return;
    // The last to come lies on top.
    const HWND box = g_script->waiting.back();
    g_script->waiting.pop_back();
    Answer(box);
}

LRESULT CALLBACK BoxHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && g_script && IsMessageBox(window)) {
        auto& seen = g_script->seen;
        if (std::find(seen.begin(), seen.end(), window) == seen.end()) {
            // The box is activated while it is being set up; its own loop brings the timer when it is ready.
            seen.push_back(window);
            g_script->waiting.push_back(window);
            SetTimer(nullptr, 0, kPollMilliseconds, AnswerReadyBox);
        }
    }
    // A later box may get the same handle.
    if (code == HCBT_DESTROYWND && g_script) {
        std::erase(g_script->seen, window);
        std::erase(g_script->waiting, window);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

BoxAnswers::BoxAnswers(std::vector<int> answers) {
    EXPECT_EQ(g_script, nullptr) << "only one BoxAnswers may live at a time";
    g_script = new BoxScript;
    g_script->answers.assign(answers.begin(), answers.end());
    g_script->hook = SetWindowsHookExW(WH_CBT, BoxHook, nullptr, GetCurrentThreadId());
}

BoxAnswers::~BoxAnswers() {
    EXPECT_TRUE(g_script->answers.empty())
        << g_script->answers.size() << " expected message boxes did not come";
    UnhookWindowsHookEx(g_script->hook);
    delete g_script;
    g_script = nullptr;
}

const std::vector<Box>& BoxAnswers::Shown() const {
    return g_script->shown;
}

// --- dialogs

struct WhenDialogOpens::State {
    std::function<void(HWND)> action;
    std::chrono::milliseconds patience;
    UINT_PTR timer = 0;
    HWND dialog = nullptr;  // the one it has taken
    Waited waited;          // since then
    bool cancelled = false;
};

namespace {

struct Waiting {
    UINT_PTR timer;
    std::function<void()> tick;
};
std::vector<Waiting> g_waiting;
std::vector<HWND> g_taken;  // dialogs that have had their action, or were there before

void CALLBACK Tick(HWND, UINT, UINT_PTR timer, DWORD) {
    for (const Waiting& waiting : g_waiting) {
        if (waiting.timer != timer) continue;
        // The list changes when the action makes and ends its own.
        const auto tick = waiting.tick;
        tick();
        return;
    }
}

bool IsTaken(HWND dialog) {
    return std::find(g_taken.begin(), g_taken.end(), dialog) != g_taken.end();
}

}  // namespace

WhenDialogOpens::WhenDialogOpens(std::function<void(HWND)> action, std::chrono::milliseconds patience)
    : m_state(new State{std::move(action), patience, 0, nullptr, {}, false}) {
    if (g_waiting.empty()) g_taken = VisibleDialogs();
    m_state->timer = SetTimer(nullptr, 0, kPollMilliseconds, Tick);
    const auto tick = [state = m_state] {
        if (state->dialog) {
            const bool late = state->waited.Exceeds(state->patience);
            if (!late || state->cancelled || !IsWindowVisible(state->dialog)) return;
            ADD_FAILURE() << "the dialog was still open when the patience ended";
            state->cancelled = true;
            PostMessageW(state->dialog, WM_COMMAND, IDCANCEL, 0);
            return;
        }
        for (const HWND dialog : VisibleDialogs()) {
            if (IsTaken(dialog)) continue;
            g_taken.push_back(dialog);
            state->dialog = dialog;
            state->waited = Waited();
            state->action(dialog);
            return;
        }
    };
    g_waiting.push_back({m_state->timer, tick});
}

WhenDialogOpens::~WhenDialogOpens() {
    EXPECT_TRUE(Ran()) << "no dialog opened";
    KillTimer(nullptr, m_state->timer);
    std::erase_if(g_waiting, [this](const Waiting& waiting) { return waiting.timer == m_state->timer; });
    delete m_state;
}

bool WhenDialogOpens::Ran() const {
    return m_state->dialog != nullptr;
}

// --- leaks

HandleCount HandleCount::Now() {
    HandleCount now;
    now.gdi = frame::CountGdiObjects();
    now.windows = frame::CountWindows();
    return now;
}

}  // namespace windows
