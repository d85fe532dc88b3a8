#include "frame/script_player.h"

#include <algorithm>
#include <cwchar>

#include "frame/resource_counts.h"
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
// What one tick adds to the waiting at most. While the machine has no time for the program, or a step has the
// program work, nothing that a script waits for can happen: that time does not count.
constexpr std::chrono::milliseconds kLongestTick{60};

ScriptPlayer* g_player = nullptr;  // timers without a window carry no data

bool IsMessageBox(HWND dialog) {
    return dialog != nullptr && GetDlgItem(dialog, kTextOfMessageBox) != nullptr;
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
    if (m_busy) return;
    CountWaiting();
    if (m_finished) {
        EndWhatIsStuck();
        return;
    }
    if (m_givingUp) {
        GiveUp();
        return;
    }
    const auto patience = m_stage.givesUp ? std::min(m_patience, kShortPatience) : m_patience;
    if (m_next >= m_script.steps.size()) {
        if (m_stage.idle()) {
            Finish(true);
        } else if (m_waited > patience) {
            Fail(L"the end: the command line is not free");
        }
        return;
    }
    m_busy = true;
    const ScriptStep step = m_script.steps[m_next];
    const Outcome outcome = Attempt(step);
    m_busy = false;
    // A picture shows whatever is open.
    const bool looks = step.action == ScriptAction::kPicture;
    if (outcome.progress == Progress::kWaiting && m_stage.givesUp && !looks && CloseMessageBox()) return;
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
    EndWhatIsStuck();
}

// Nobody would end the program otherwise.
void ScriptPlayer::EndWhatIsStuck() {
    if (m_waited < kClosingPatience) return;
    m_stage.note(L"*** the session cannot be closed; open dialogs:" + DescribeDialogs());
    TerminateProcess(GetCurrentProcess(), kStuck);
}

void ScriptPlayer::Finish(bool succeeded) {
    m_finished = true;
    StartWaiting();
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
        case ScriptAction::kPress:
        case ScriptAction::kType:
        case ScriptAction::kRelease:
            return AttemptInputDevice(step);
        case ScriptAction::kPicture:
            return AttemptPicture(step);
        case ScriptAction::kRun:
            return AttemptRun(step);
        case ScriptAction::kResources:
            return {Progress::kDone, {}, [this] { m_stage.note(ResourceCounts::Now().Text()); }};
        case ScriptAction::kTimeout:
            return SetPatience(step.arguments[0]);
        case ScriptAction::kQuit:
            m_next = m_script.steps.size() - 1;
            return {};
        default:
            return AttemptWindow(step);
    }
}

// Keys and buttons, wherever the focus and the pointer are.
ScriptPlayer::Outcome ScriptPlayer::AttemptInputDevice(const ScriptStep& step) {
    if (step.action == ScriptAction::kType)
        return {Progress::kDone, {}, [text = step.arguments[0]] { TypeText(text); }};
    if (step.action == ScriptAction::kRelease)
        return {Progress::kDone, {}, [this] { ReleaseButton(m_pointer); }};
    const auto keys = KeysOf(step.arguments[0]);
    if (!keys) return {Progress::kFailed, L"there is no such key", {}};
    return {Progress::kDone, {}, [keys] { PressKeys(*keys); }};
}

ScriptPlayer::Outcome ScriptPlayer::SetPatience(const std::wstring& text) {
    const double seconds = std::wcstod(text.c_str(), nullptr);
    if (!(seconds > 0 && seconds < 3600)) return {Progress::kFailed, L"not a number of seconds", {}};
    m_patience = std::chrono::milliseconds(static_cast<int>(seconds * 1000));
    return {};
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

}  // namespace frame
