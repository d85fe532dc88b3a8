#include "command_line.h"

#include "database/object_data.h"
#include "host.h"
#include "lisp/reader.h"
#include "lisp_bridge.h"

namespace workbench::host {
namespace {

constexpr wchar_t kEscape = 27;

bool IsEnter(wchar_t letter) {
    return letter == L'\n' || letter == L'\r';
}
bool IsBlank(wchar_t letter) {
    return letter == L' ' || letter == L'\t';
}

bool IsExpression(const std::wstring& typed) {
    return typed.starts_with(L"(") || typed.starts_with(L"!");
}

// A name in quotes may hold blanks; the quotes are no part of it.
std::wstring WithoutQuotes(const std::wstring& text) {
    const bool quoted = text.size() >= 2 && text.front() == L'"' && text.back() == L'"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

// The question of a variable that is typed as a command.
BuiltInCommand VariableCommand(const std::wstring& name) {
    BuiltInCommand command = *Host::Current()->Commands().FindBuiltIn(L"SETVAR");
    command.name = name;
    return command;
}

}  // namespace

// A name on the list of running commands.
class CommandLine::Running {
  public:
    Running(CommandLine& line, const std::wstring& name) : m_line(line) { m_line.m_running.push_back(name); }
    ~Running() { m_line.m_running.pop_back(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    CommandLine& m_line;
};

void CommandLine::Feed(const std::wstring& text, bool echo) {
    for (const wchar_t letter : text) {
        if (IsClosed()) {
            return;  // a command closed the document
        }
        if (letter == kEscape) {
            Cancel();
        } else if (EndsInput(letter)) {
            const std::wstring input = m_typed;
            m_typed.clear();
            Execute(input, echo);
        } else if (!(m_typed.empty() && (IsBlank(letter) || IsEnter(letter)))) {
            m_typed.push_back(letter == L'\r' ? L'\n' : letter);
        }
    }
}

bool CommandLine::IsClosed() const {
    return m_document != nullptr && !m_document->IsOpen();
}

bool CommandLine::EndsInput(wchar_t letter) const {
    const bool wholeLine = IsWaiting() && m_waiting->prompt.wholeLine && !IsExpression(m_typed);
    if (!IsEnter(letter) && (!IsBlank(letter) || wholeLine)) {
        return false;
    }
    if (m_typed.empty()) {
        return IsWaiting();  // Enter alone is an answer, and nothing where no question stands
    }
    if (m_typed.starts_with(L"(")) {
        return lisp::CompletenessOf(m_typed) == lisp::Completeness::kComplete;
    }
    const bool inQuotes = m_typed.front() == L'"' && (m_typed.size() == 1 || m_typed.back() != L'"');
    return IsEnter(letter) || !inQuotes;
}

bool CommandLine::RunPieces(const std::vector<std::wstring>& pieces) {
    if (IsWaiting()) {
        return false;
    }
    for (const std::wstring& piece : pieces) {
        if (!Execute(piece, false)) {
            return false;
        }
        if (IsClosed()) {
            return true;
        }
    }
    return true;
}

bool CommandLine::Execute(const std::wstring& input, bool echo) {
    if (echo) {
        m_host.FreshLine();
        m_host.Print(PromptText() + input + L"\n");
    }
    if (IsExpression(input)) {
        return RunLisp(input);
    }
    if (IsWaiting()) {
        return Answer(WithoutQuotes(input));
    }
    return input.empty() || RunCommand(input);
}

bool CommandLine::Answer(const std::wstring& answer) {
    m_waiting->answers.push_back(answer);
    return AskNext();
}

bool CommandLine::AskNext() {
    if (auto prompt = m_waiting->command.next(m_host, m_waiting->answers)) {
        m_waiting->prompt = std::move(*prompt);
        return true;
    }
    const Waiting complete = std::move(*m_waiting);
    m_waiting.reset();
    return RunBuiltIn(complete);
}

bool CommandLine::RunCommand(std::wstring name) {
    if (name.starts_with(L"'")) {
        name.erase(0, 1);
    }
    if (const auto added = m_host.Commands().FindAdded(name)) {
        return RunAdded(*added);
    }
    if (const BuiltInCommand* builtIn = m_host.Commands().FindBuiltIn(name)) {
        return StartBuiltIn(*builtIn, {});
    }
    const lisp::Symbol* symbol = m_document == nullptr ? nullptr : m_document->Lisp().Find(L"C:" + name);
    if (symbol != nullptr && symbol->value.IsTrue()) {
        return RunLisp(L"(C:" + name + L")");
    }
    if (m_host.Variables().Find(name) != nullptr) {
        return StartBuiltIn(VariableCommand(database::UpperCase(name)), {name});
    }
    m_host.TheEditor().All().ForEach([&](AcEditorReactor& reactor) { reactor.unknownCommand(name.c_str()); });
    m_host.FreshLine();
    m_host.Print(L"Unknown command \"" + database::UpperCase(name) + L"\".\n");
    return false;
}

bool CommandLine::RunAdded(const AddedCommand& command) {
    const bool isSession = (command.flags & ACRX_CMD_SESSION) != 0;
    if (m_document == nullptr && !isSession) {
        m_host.Print(L"There is no drawing to work on.\n");
        return false;
    }
    const auto run = [&] {
        auto& reactors = m_host.TheEditor().All();
        const ACHAR* name = command.globalName.c_str();
        reactors.ForEach([name](AcEditorReactor& reactor) { reactor.commandWillStart(name); });
        {
            const Running running(*this, command.globalName);
            m_host.Apps().RunAs(command.application, command.function);
        }
        reactors.ForEach([name](AcEditorReactor& reactor) { reactor.commandEnded(name); });
    };
    const Host::ContextScope scope(m_host, isSession);
    if (isSession) {
        run();
    } else {
        const CommandLock lock(m_host, *m_document, command.globalName);
        if (!IsClosed()) {
            run();
        }
    }
    m_host.TheSurface().DrawingChanged();
    return true;
}

bool CommandLine::StartBuiltIn(const BuiltInCommand& command, Answers answers) {
    if (m_document == nullptr && !command.isSession) {
        m_host.Print(L"There is no drawing to work on.\n");
        return false;
    }
    if (IsWaiting()) {
        return false;
    }
    m_host.TheEditor().All().ForEach(
        [&](AcEditorReactor& reactor) { reactor.commandWillStart(command.name.c_str()); });
    if (IsClosed()) {
        TellCancelled(command.name);
        return false;
    }
    m_waiting = Waiting{command, std::move(answers), {}};
    return AskNext();
}

bool CommandLine::RunBuiltIn(const Waiting& waiting) {
    const Host::ContextScope scope(m_host, waiting.command.isSession);
    bool done = false;
    if (waiting.command.isSession) {
        done = waiting.command.run(m_host, m_document, waiting.answers);
    } else {
        const Running running(*this, waiting.command.name);
        const CommandLock lock(m_host, *m_document, waiting.command.name);
        done = !IsClosed() && waiting.command.run(m_host, m_document, waiting.answers);
    }
    const ACHAR* name = waiting.command.name.c_str();
    m_host.TheEditor().All().ForEach([done, name](AcEditorReactor& reactor) {
        done ? reactor.commandEnded(name) : reactor.commandFailed(name);
    });
    m_host.TheSurface().DrawingChanged();
    return done;
}

bool CommandLine::RunLisp(const std::wstring& text) {
    if (m_document == nullptr) {
        m_host.Print(L"There is no drawing to work on.\n");
        return false;
    }
    auto& reactors = m_host.TheEditor().All();
    reactors.ForEach([&](AcEditorReactor& reactor) { reactor.lispWillStart(text.c_str()); });
    if (IsClosed()) {
        reactors.ForEach([](AcEditorReactor& reactor) { reactor.lispCancelled(); });
        return false;
    }
    lisp::Value value;
    bool done = false;
    {
        const Host::ContextScope scope(m_host, false);
        const CommandLock lock(m_host, *m_document, L"LISP");
        done = !IsClosed() && m_document->Lisp().Run(text.starts_with(L"!") ? text.substr(1) : text, value);
    }
    reactors.ForEach(
        [done](AcEditorReactor& reactor) { done ? reactor.lispEnded() : reactor.lispCancelled(); });
    if (done && IsWaiting()) {
        return Answer(lisp::ToText(value, false));
    }
    if (done && !value.IsVoid()) {
        m_host.FreshLine();
        m_host.Print(lisp::ToText(value, true) + L"\n");
    }
    m_host.TheSurface().DrawingChanged();
    return done;
}

void CommandLine::Cancel() {
    m_typed.clear();
    if (!IsWaiting()) {
        return;
    }
    const std::wstring name = m_waiting->command.name;
    m_waiting.reset();
    TellCancelled(name);
    m_host.FreshLine();
    m_host.Print(L"*Cancel*\n");
}

void CommandLine::TellCancelled(const std::wstring& command) {
    m_host.TheEditor().All().ForEach(
        [&](AcEditorReactor& reactor) { reactor.commandCancelled(command.c_str()); });
}

std::wstring CommandLine::PromptText() const {
    return IsWaiting() ? m_waiting->prompt.text : L"Command: ";
}

std::wstring CommandLine::RunningNames() const {
    std::wstring names;
    for (const std::wstring& name : m_running) {
        names += (names.empty() ? L"" : L"'") + name;
    }
    if (IsWaiting()) {
        names += (names.empty() ? L"" : L"'") + m_waiting->command.name;
    }
    return names;
}

}  // namespace workbench::host
