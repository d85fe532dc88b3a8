// The steps of a script that look whether all is as it should be.
#include <cwchar>

#include "frame/control_items.h"
#include "frame/dock_manager.h"
#include "frame/script_player.h"
#include "frame/window_finder.h"

namespace frame {

namespace {

bool SameName(const std::wstring& a, const std::wstring& b) {
    return _wcsicmp(a.c_str(), b.c_str()) == 0;
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

ScriptPlayer::Outcome ScriptPlayer::Expect(const std::wstring& found, const std::wstring& wanted,
                                           bool equal) {
    if (equal) return {};
    return {Progress::kWaiting, L"it is " + Quoted(found) + L", not " + Quoted(wanted), {}};
}

ScriptPlayer::Outcome ScriptPlayer::AttemptAssert(const ScriptStep& step) {
    const std::wstring& wanted = step.arguments[0];
    switch (step.action) {
        case ScriptAction::kAssertDocument: {
            const std::wstring current = m_stage.currentDocument();
            const std::wstring shown = current.empty() ? L"none" : current;
            return Expect(shown, wanted, SameName(shown, wanted));
        }
        case ScriptAction::kAssertTitle: {
            const std::wstring title = WindowText(TopWindow());
            return Expect(title, wanted, title.find(wanted) != std::wstring::npos);
        }
        case ScriptAction::kAssertPalette:
            return AttemptAssertPalette(step);
        case ScriptAction::kAssertOutput:
            if (m_stage.output().find(wanted) != std::wstring::npos) return {};
            return {Progress::kWaiting, L"it was not said", {}};
        case ScriptAction::kAssertFile:
            if (GetFileAttributesW(wanted.c_str()) != INVALID_FILE_ATTRIBUTES) return {};
            return {Progress::kWaiting, L"there is no such file", {}};
        default:
            return AttemptAssertControl(step);
    }
}

ScriptPlayer::Outcome ScriptPlayer::AttemptAssertPalette(const ScriptStep& step) {
    DockManager* docks = m_stage.docks();
    const CAdUiDockControlBar* bar = docks == nullptr ? nullptr : docks->Find(step.arguments[0]);
    if (bar == nullptr) return {Progress::kWaiting, L"there is no such palette set", {}};
    const std::wstring place = PlaceOf(*bar, *docks);
    return Expect(place, step.arguments[1], place == step.arguments[1]);
}

ScriptPlayer::Outcome ScriptPlayer::AttemptAssertControl(const ScriptStep& step) {
    const HWND control = FindControl(step.arguments[0]);
    const std::wstring& wanted = step.arguments[1];
    const auto compare = [&](const std::wstring& found) { return Expect(found, wanted, found == wanted); };
    if (step.action == ScriptAction::kAssertVisible) return compare(control == nullptr ? L"no" : L"yes");
    if (control == nullptr) return {Progress::kWaiting, L"there is no such control", {}};
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
