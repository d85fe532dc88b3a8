// The input of a document: commands, their answers, LISP expressions.
//
//   a blank or Enter ends a word; nothing runs before that
//   "(..." goes on until its parentheses are closed, then the next blank or Enter evaluates it
//   "!name" evaluates a symbol
//   the character 27 drops what was typed and cancels a command that waits for answers
//   "'name" runs a transparent command
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "command_stack.h"

namespace workbench::host {

class CommandLine {
  public:
    // `document` is null for the line of a host without documents.
    CommandLine(Host& host, Document* document) : m_host(host), m_document(document) {}

    void Feed(const std::wstring& text, bool echo);

    // Runs whole pieces of input, as LISP's command function does. False if one of them failed or something
    // waits for answers already.
    bool RunPieces(const std::vector<std::wstring>& pieces);

    // What was typed and is not complete yet.
    const std::wstring& Typed() const { return m_typed; }
    // The question of a command that waits, else "Command: ".
    std::wstring PromptText() const;
    bool IsWaiting() const { return m_waiting.has_value(); }
    // Names of the running commands, joined by apostrophes; empty if none.
    std::wstring RunningNames() const;
    bool IsRunning() const { return !m_running.empty() || IsWaiting(); }

  private:
    struct Waiting {
        BuiltInCommand command;
        Answers answers;
        Prompt prompt;
    };
    class Running;

    // True once the document whose line this is has been closed.
    bool IsClosed() const;
    bool EndsInput(wchar_t letter) const;
    bool Execute(const std::wstring& input, bool echo);
    bool Answer(const std::wstring& answer);
    bool AskNext();
    bool RunCommand(std::wstring name);
    bool RunAdded(const AddedCommand& command);
    bool StartBuiltIn(const BuiltInCommand& command, Answers answers);
    bool RunBuiltIn(const Waiting& waiting);
    bool RunLisp(const std::wstring& text);
    void Cancel();
    void TellCancelled(const std::wstring& command);

    Host& m_host;
    Document* m_document;
    std::wstring m_typed;
    std::optional<Waiting> m_waiting;
    std::vector<std::wstring> m_running;
};

}  // namespace workbench::host
