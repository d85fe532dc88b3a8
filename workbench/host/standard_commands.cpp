#include <cwchar>

#include "acestext.h"
#include "database/object_data.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "host.h"
#include "lisp_bridge.h"

namespace workbench::host {
namespace {

using NextPrompt = std::function<std::optional<Prompt>(Host&, const Answers&)>;

NextPrompt AsksNothing() {
    return [](Host&, const Answers&) { return std::optional<Prompt>(); };
}

NextPrompt AsksOnce(const wchar_t* text) {
    return [text](Host&, const Answers& answers) {
        return answers.empty() ? std::optional(Prompt{text, true}) : std::nullopt;
    };
}

bool Succeeded(Host& host, Acad::ErrorStatus status) {
    if (status != Acad::eOk) {
        host.FreshLine();
        host.Print(std::wstring(acadErrorStatusText(status)) + L"\n");
    }
    return status == Acad::eOk;
}

bool SaveAs(Host& host, Document& document, const std::wstring& answer) {
    const std::wstring path = answer.empty() ? host.TheSurface().AskSavePath(document.docTitle()) : answer;
    return Succeeded(host, path.empty() ? Acad::eUserBreak : host.Documents().SaveAs(document, path));
}

std::wstring TextOf(const VariableValue& value) {
    return lisp::ToText(ValueFromVariable(value), false);
}

std::optional<Prompt> NextOfSetvar(Host& host, const Answers& answers) {
    if (answers.empty()) {
        return Prompt{L"Enter variable name: ", false};
    }
    VariableValue value;
    if (answers.size() > 1 || !host.Variables().Get(answers[0], value)) {
        return std::nullopt;
    }
    return Prompt{L"Enter new value for " + database::UpperCase(answers[0]) + L" <" + TextOf(value) + L">: ",
                  std::holds_alternative<std::wstring>(value)};
}

// A point as it is typed: "1,2" or "1,2,3".
bool ParsePoint(const std::wstring& text, AcGePoint3d& point) {
    double* const coordinates[] = {&point.x, &point.y, &point.z};
    const wchar_t* at = text.c_str();
    point = {};
    for (std::size_t i = 0; i < std::size(coordinates); ++i) {
        wchar_t* end = nullptr;
        *coordinates[i] = std::wcstod(at, &end);
        if (end == at) {
            return false;
        }
        if (*end == 0) {
            return i > 0;
        }
        if (*end != L',') {
            return false;
        }
        at = end + 1;
    }
    return false;
}

bool ParseValue(const std::wstring& text, const VariableValue& like, VariableValue& value) {
    wchar_t* end = nullptr;
    if (std::holds_alternative<std::wstring>(like)) {
        value = text;
        return true;
    }
    if (std::holds_alternative<short>(like)) {
        const long number = std::wcstol(text.c_str(), &end, 10);
        value = static_cast<short>(number);
        return *end == 0 && !text.empty() && number == static_cast<short>(number);
    }
    if (std::holds_alternative<double>(like)) {
        value = std::wcstod(text.c_str(), &end);
        return *end == 0 && !text.empty();
    }
    AcGePoint3d point;
    const bool good = ParsePoint(text, point);
    value = point;
    return good;
}

bool RunSetvar(Host& host, Document*, const Answers& answers) {
    VariableValue present;
    if (!host.Variables().Get(answers[0], present)) {
        host.Print(L"Unknown variable name.\n");
        return false;
    }
    if (answers.size() < 2 || answers[1].empty()) {
        return true;  // Enter keeps the value
    }
    VariableValue value;
    const bool good =
        ParseValue(answers[1], present, value) && host.SetVariable(answers[0], value) == SetResult::kSet;
    if (!good) {
        host.Print(L"The variable does not take that value.\n");
    }
    return good;
}

bool RunLine(Host& host, Document* document, const Answers& answers) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(document->database()->currentSpaceId(), AcDb::kForWrite);
    if (!Succeeded(host, space.openStatus())) {
        return false;
    }
    AcGePoint3d from;
    for (std::size_t i = 0; i < answers.size() && !answers[i].empty(); ++i) {
        AcGePoint3d to;
        if (!ParsePoint(answers[i], to)) {
            host.Print(L"That is no point: " + answers[i] + L"\n");
            return false;
        }
        if (i > 0) {
            auto* line = new AcDbLine(from, to);
            line->setLayer(document->database()->clayer());
            space->appendAcDbEntity(line);
            line->close();
        }
        from = to;
    }
    return true;
}

std::vector<BuiltInCommand> DocumentCommands() {
    return {
        {L"NEW", true, AsksOnce(L"Enter template file name or . (for none): "),
         [](Host& host, Document*, const Answers& answers) {
             return Succeeded(host, host.Documents().New(answers[0] == L"." ? L"" : answers[0]));
         }},
        {L"OPEN", true, AsksOnce(L"Enter name of drawing to open: "),
         [](Host& host, Document*, const Answers& answers) {
             return Succeeded(host, host.Documents().Open(answers[0], false));
         }},
        {L"CLOSE", true, AsksNothing(),
         [](Host& host, Document* document, const Answers&) {
             return document != nullptr && Succeeded(host, host.Documents().Close(*document, true));
         }},
        {L"CLOSEALL", true, AsksNothing(),
         [](Host& host, Document*, const Answers&) { return host.Documents().CloseAll(true); }},
        {L"QSAVE", true, AsksNothing(),
         [](Host& host, Document* document, const Answers&) {
             if (document == nullptr) {
                 return false;
             }
             return document->isNamedDrawing() ? Succeeded(host, host.Documents().Save(*document))
                                               : SaveAs(host, *document, L"");
         }},
        {L"SAVEAS", true, AsksOnce(L"Save drawing as: "),
         [](Host& host, Document* document, const Answers& answers) {
             return document != nullptr && SaveAs(host, *document, answers[0]);
         }},
        {L"QUIT", true, AsksNothing(),
         [](Host& host, Document*, const Answers&) {
             host.TheSurface().Quit();
             return true;
         }},
    };
}

}  // namespace

std::vector<BuiltInCommand> StandardCommands() {
    std::vector<BuiltInCommand> commands = DocumentCommands();
    commands.push_back({L"SETVAR", false, NextOfSetvar, RunSetvar});
    commands.push_back(
        {L"LINE", false,
         [](Host&, const Answers& answers) -> std::optional<Prompt> {
             if (!answers.empty() && answers.back().empty()) {
                 return std::nullopt;
             }
             return Prompt{answers.empty() ? L"Specify first point: " : L"Specify next point: ", false};
         },
         RunLine});
    commands.push_back({L"ARX", true, AsksOnce(L"Enter name of application to load: "),
                        [](Host& host, Document*, const Answers& answers) {
                            return host.Apps().loadModule(answers[0].c_str(), true, true);
                        }});
    commands.push_back({L"ARXUNLOAD", true, AsksOnce(L"Enter name of application to unload: "),
                        [](Host& host, Document*, const Answers& answers) {
                            return host.Apps().unloadModule(answers[0].c_str(), true);
                        }});
    return commands;
}

}  // namespace workbench::host
