#include "frame/script.h"

#include <algorithm>

namespace frame {

namespace {

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

// Reads one argument from `at`, which stands on its first character. False for a quote that never closes.
bool TakeArgument(const std::wstring& line, std::size_t& at, std::wstring& argument) {
    argument.clear();
    if (line[at] != L'"') {
        while (at < line.size() && !IsBlank(line[at]))
            argument += line[at++];
        return true;
    }
    for (++at; at < line.size(); ++at) {
        if (line[at] == L'"' && (at + 1 == line.size() || line[at + 1] != L'"')) {
            ++at;
            return true;
        }
        if (line[at] == L'"') ++at;
        argument += line[at];
    }
    return false;
}

std::wstring At(std::size_t line, const std::wstring& message) {
    return L"line " + std::to_wstring(line) + L": " + message;
}

// Fills the step from a directive line. The result is the error message, empty for success.
std::wstring ParseDirective(const std::wstring& line, ScriptStep& step) {
    std::size_t at = 1;
    std::wstring name;
    while (at < line.size() && !IsBlank(line[at]))
        name += line[at++];
    for (;;) {
        while (at < line.size() && IsBlank(line[at]))
            ++at;
        if (at >= line.size()) break;
        std::wstring argument;
        if (!TakeArgument(line, at, argument)) return L"a quote is not closed";
        step.arguments.push_back(argument);
    }
    const auto& directives = ScriptDirectives();
    const auto found = std::find_if(directives.begin(), directives.end(),
                                    [&](const ScriptDirective& known) { return name == known.name; });
    if (found == directives.end()) return L"there is no directive @" + name;
    if (step.arguments.size() != found->arguments)
        return L"@" + name + L" wants " + std::to_wstring(found->arguments) +
               (found->arguments == 1 ? L" argument, has " : L" arguments, has ") +
               std::to_wstring(step.arguments.size());
    step.action = found->action;
    return {};
}

}  // namespace

const std::vector<ScriptDirective>& ScriptDirectives() {
    static const std::vector<ScriptDirective> directives = {
        {L"wait", ScriptAction::kWait, 1},
        {L"waittext", ScriptAction::kWaitText, 1},
        {L"waitcontrol", ScriptAction::kWaitControl, 1},
        {L"waitgone", ScriptAction::kWaitGone, 1},
        {L"waitidle", ScriptAction::kWaitIdle, 0},
        {L"click", ScriptAction::kClick, 1},
        {L"clickat", ScriptAction::kClickAt, 3},
        {L"doubleclickat", ScriptAction::kDoubleClickAt, 3},
        {L"rightclickat", ScriptAction::kRightClickAt, 3},
        {L"holdat", ScriptAction::kHoldAt, 3},
        {L"dragto", ScriptAction::kDragTo, 3},
        {L"release", ScriptAction::kRelease, 0},
        {L"press", ScriptAction::kPress, 1},
        {L"type", ScriptAction::kType, 1},
        {L"settext", ScriptAction::kSetText, 2},
        {L"choose", ScriptAction::kChoose, 2},
        {L"tree", ScriptAction::kTree, 2},
        {L"rightclicktree", ScriptAction::kRightClickTree, 2},
        {L"row", ScriptAction::kRow, 2},
        {L"clickrow", ScriptAction::kClickRow, 2},
        {L"doubleclickrow", ScriptAction::kDoubleClickRow, 2},
        {L"rightclickrow", ScriptAction::kRightClickRow, 2},
        {L"menu", ScriptAction::kMenu, 1},
        {L"dock", ScriptAction::kDock, 2},
        {L"resize", ScriptAction::kResize, 3},
        {L"closedialog", ScriptAction::kCloseDialog, 0},
        {L"resizedialog", ScriptAction::kResizeDialog, 2},
        {L"picture", ScriptAction::kPicture, 1},
        {L"asserttext", ScriptAction::kAssertText, 2},
        {L"assertenabled", ScriptAction::kAssertEnabled, 2},
        {L"assertvisible", ScriptAction::kAssertVisible, 2},
        {L"assertrow", ScriptAction::kAssertRow, 2},
        {L"assertnorow", ScriptAction::kAssertNoRow, 2},
        {L"assertchoice", ScriptAction::kAssertChoice, 2},
        {L"assertdocument", ScriptAction::kAssertDocument, 1},
        {L"asserttitle", ScriptAction::kAssertTitle, 1},
        {L"assertpalette", ScriptAction::kAssertPalette, 2},
        {L"assertoutput", ScriptAction::kAssertOutput, 1},
        {L"assertfile", ScriptAction::kAssertFile, 1},
        {L"run", ScriptAction::kRun, 1},
        {L"resources", ScriptAction::kResources, 0},
        {L"timeout", ScriptAction::kTimeout, 1},
        {L"quit", ScriptAction::kQuit, 0},
    };
    return directives;
}

Script ParseScript(const std::wstring& text) {
    Script script;
    std::size_t number = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        ++number;
        std::size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos) end = text.size();
        std::wstring line = text.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == L'\r') line.pop_back();
        if (line.rfind(L"@#", 0) == 0) continue;

        ScriptStep step;
        step.line = number;
        step.text = line;
        if (line.rfind(L"@", 0) != 0) {
            step.arguments.push_back(line);
        } else if (const std::wstring error = ParseDirective(line, step); !error.empty()) {
            return {{}, At(number, error)};
        }
        script.steps.push_back(step);
    }
    return script;
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

}  // namespace frame
