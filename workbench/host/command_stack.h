// Commands: those of applications and those of the workbench itself.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "accmd.h"

namespace workbench::host {

class Host;
class Document;
struct Application;

// A command that an application added.
struct AddedCommand {
    std::wstring group, globalName, localName;
    Adesk::Int32 flags = 0;
    AcRxFunctionPtr function = nullptr;
    Application* application = nullptr;
};

struct Prompt {
    std::wstring text;
    bool wholeLine = false;  // a blank does not end the answer
};

using Answers = std::vector<std::wstring>;

// A command of the workbench: it asks until `next` has no question left, then it runs.
struct BuiltInCommand {
    std::wstring name;       // upper-case
    bool isSession = false;  // runs in application context, also without a document
    std::function<std::optional<Prompt>(Host&, const Answers&)> next;
    // `document` is null for session commands without one. False if the command failed; it has said why.
    std::function<bool(Host&, Document* document, const Answers&)> run;
};

class CommandStack : public AcEdCommandStack {
  public:
    explicit CommandStack(Host& host) : m_host(host) {}

    Acad::ErrorStatus addCommand(const ACHAR* groupName, const ACHAR* globalName, const ACHAR* localName,
                                 Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context,
                                 int functionCode, const AcRxResourceInstance* resourceInstance,
                                 AcEdCommand** command) override;
    Acad::ErrorStatus removeCmd(const ACHAR* groupName, const ACHAR* globalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* groupName) override;

    void AddBuiltIn(BuiltInCommand command);

    // By the local name, or by the global name after an underscore; without regard to case.
    std::optional<AddedCommand> FindAdded(const std::wstring& typed) const;
    const BuiltInCommand* FindBuiltIn(const std::wstring& typed) const;

    // The commands that an application left behind, taken away now.
    std::size_t RemoveOf(const Application* application);
    std::size_t Count() const { return m_commands.size(); }

  private:
    Host& m_host;
    std::vector<AddedCommand> m_commands;
    std::vector<BuiltInCommand> m_builtIns;
};

// NEW, OPEN, CLOSE, CLOSEALL, QSAVE, SAVEAS, SETVAR, LINE, QUIT, ARX.
std::vector<BuiltInCommand> StandardCommands();

}  // namespace workbench::host
