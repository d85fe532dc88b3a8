// The host: documents, commands, variables and applications together. One at a time; the published functions
// (acedGetVar, acDocManager...) work on it while it lives.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "aced.h"
#include "applications.h"
#include "command_stack.h"
#include "document_manager.h"
#include "files.h"
#include "reactors.h"
#include "surface.h"
#include "system_variables.h"

namespace workbench::host {

struct Settings {
    std::wstring productRootKey = L"Software\\Workbench\\R1.0\\WB-1:409";
    std::wstring profile = L"<<Unnamed Profile>>";
    std::vector<std::wstring> supportFolders;  // where LISP files are looked for
    std::wstring documentsFolder;              // of drawings that were never saved; ends in a backslash
    std::wstring startUpFile;             // LISP file for every document, by name or path; empty for none
    std::wstring userName = L"Designer";  // in lock files
    std::wstring machineName = L"Workbench";
};

class Editor : public AcEditor {
  public:
    void addReactor(AcEditorReactor* reactor) override { m_reactors.Add(reactor); }
    void removeReactor(AcEditorReactor* reactor) override { m_reactors.Remove(reactor); }
    Reactors<AcEditorReactor>& All() { return m_reactors; }

  private:
    Reactors<AcEditorReactor> m_reactors;
};

class Host {
  public:
    // All but the settings outlive the host. There are no documents yet: Documents().New or Open makes the
    // first.
    Host(Surface& surface, Files& files, LibraryLoader& loader, Settings settings);
    // Applications are unloaded, documents closed without asking.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Null while there is none.
    static Host* Current();

    DocumentManager& Documents() { return *m_documents; }
    CommandStack& Commands() { return *m_commands; }
    SystemVariables& Variables() { return *m_variables; }
    Applications& Apps() { return *m_applications; }
    Editor& TheEditor() { return *m_editor; }
    Files& TheFiles() { return m_files; }
    Surface& TheSurface() { return m_surface; }
    const Settings& TheSettings() const { return m_settings; }
    std::map<std::wstring, std::wstring>& Environment() { return m_environment; }

    // Input from the user, for the active document. It runs at once unless something runs already; then it
    // waits.
    void Type(const std::wstring& text);
    // Runs what waits for the active document. The program calls this from its message loop and when the
    // drawing view gets a mouse move. Does nothing while a command runs. True if anything ran.
    bool RunQueuedInput();
    // The line of the active document, or of the host without one.
    CommandLine& Line();

    void Print(const std::wstring& text);
    // Prints a line end unless the last text ended with one.
    void FreshLine();

    // Sets a variable and tells the reactors: nobody hears of unknown names, wrong types and read-only
    // variables.
    SetResult SetVariable(const std::wstring& name, const VariableValue& value);

    // A file by its path or in a support folder; empty if there is none.
    std::wstring FindSupportFile(const std::wstring& name) const;
    // Loads a LISP file into a document. False if it is not there or an error ended it.
    bool LoadLispFile(Document& document, const std::wstring& name);

    // Runs code in application or document context.
    class ContextScope {
      public:
        ContextScope(Host& host, bool isApplication);
        ~ContextScope();
        ContextScope(const ContextScope&) = delete;
        ContextScope& operator=(const ContextScope&) = delete;

      private:
        Host& m_host;
        bool m_before;
    };
    bool IsApplicationContext() const { return m_applicationContext; }

  private:
    void DefineComputedVariables();
    void DefineCurrentLayer();
    void DefineViewportVariables();

    Surface& m_surface;
    Files& m_files;
    Settings m_settings;
    std::map<std::wstring, std::wstring> m_environment;
    std::unique_ptr<SystemVariables> m_variables;
    std::unique_ptr<Editor> m_editor;
    std::unique_ptr<CommandStack> m_commands;
    std::unique_ptr<Applications> m_applications;
    std::unique_ptr<DocumentManager> m_documents;
    std::unique_ptr<CommandLine> m_lineWithoutDocument;
    std::deque<QueuedInput> m_queueWithoutDocument;
    bool m_applicationContext = true;
    bool m_runningInput = false;
    bool m_atLineStart = true;
};

}  // namespace workbench::host
