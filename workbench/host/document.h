// A document: a drawing with its locks, its LISP and its command line.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "acdocman.h"
#include "command_line.h"
#include "dbmain.h"
#include "lisp/interpreter.h"
#include "system_variables.h"

namespace workbench::host {

class Host;
struct Application;

// Text that waits for the document's command line.
struct QueuedInput {
    std::wstring text;
    bool echo = true;
    bool activate = false;
    bool wrapUpInactive = false;
};

// A LISP function that an application defined.
struct DefinedFunction {
    Application* application = nullptr;
    int code = 0;
};

class Document : public AcApDocument {
  public:
    Document(Host& host, std::unique_ptr<AcDbDatabase> database);
    ~Document() override;

    const ACHAR* fileName() const override { return m_path.c_str(); }
    const ACHAR* docTitle() const override { return m_title.c_str(); }
    AcDbDatabase* database() const override { return m_database.get(); }
    bool isReadOnly() const override { return m_readOnly; }
    bool isNamedDrawing() const override { return m_named; }
    bool isQuiescent() const override;
    AcAp::DocLockMode lockMode(bool includeMyLocks = false) const override;
    AcAp::DocLockMode myLockMode() const override;

    // False once the document is being closed.
    bool IsOpen() const { return m_open; }
    // True if code may write to the drawing now.
    bool IsLockedForWrite() const;

    void SetFile(const std::wstring& path, bool named, bool readOnly);

    CommandLine& Line() { return m_line; }
    lisp::Interpreter& Lisp() { return *m_lisp; }
    VariableValues& Variables() { return m_variables; }
    std::deque<QueuedInput>& Queue() { return m_queue; }
    std::map<std::wstring, DefinedFunction>& Functions() { return m_functions; }

  private:
    friend class DocumentManager;
    friend class CommandLock;

    Host& m_host;
    std::unique_ptr<AcDbDatabase> m_database;
    std::wstring m_path, m_title;
    bool m_named = false;
    bool m_readOnly = false;
    bool m_open = true;
    bool m_holdsLockFile = false;
    std::vector<AcAp::DocLockMode> m_locks;  // of application code
    int m_commandLocks = 0;
    VariableValues m_variables;
    std::deque<QueuedInput> m_queue;
    std::map<std::wstring, DefinedFunction> m_functions;  // upper-case names
    std::unique_ptr<lisp::Surroundings> m_surroundings;
    std::unique_ptr<lisp::Interpreter> m_lisp;
    CommandLine m_line;
};

// The lock that a command or an expression has on its document while it runs.
class CommandLock {
  public:
    CommandLock(Host& host, Document& document, const std::wstring& commandName);
    ~CommandLock();
    CommandLock(const CommandLock&) = delete;
    CommandLock& operator=(const CommandLock&) = delete;

  private:
    Host& m_host;
    Document& m_document;
    std::wstring m_commandName;
};

}  // namespace workbench::host
