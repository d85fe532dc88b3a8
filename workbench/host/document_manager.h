// The documents and who is told of them.
//
// Order of events
//   opening   createStarted, created, (toBeDeactivated of the one before), toBeActivated, becameCurrent,
//   activated
//             then the applications get kLoadDwgMsg and the start-up file is loaded
//   failing   createStarted, createCanceled
//   closing   toBeDeactivated (if it was active), applications get kUnloadDwgMsg, toBeDestroyed, destroyed
//             then the next one is activated, or becameCurrent comes with null
// While a document is being torn down, none is opened, closed or activated (eInvalidContext).
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "database/services.h"
#include "document.h"
#include "reactors.h"

namespace workbench::host {

class DocumentManager : public AcApDocManager, public database::WriteGuard {
  public:
    explicit DocumentManager(Host& host) : m_host(host) {}
    ~DocumentManager() override;

    AcApDocument* curDocument() const override { return m_current; }
    AcApDocument* mdiActiveDocument() const override { return m_active; }
    AcApDocument* document(const AcDbDatabase* database) const override;
    int documentCount() const override;
    bool isApplicationContext() const override;
    AcApDocumentIterator* newAcApDocumentIterator() override;
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                   const ACHAR* globalCommandName, const ACHAR* localCommandName,
                                   bool prompt) override;
    Acad::ErrorStatus unlockDocument(AcApDocument* document) override;
    Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode, bool activate) override;
    Acad::ErrorStatus activateDocument(AcApDocument* document, bool passScript) override;
    Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text, bool activate,
                                          bool wrapUpInactiveDoc, bool echo) override;
    Acad::ErrorStatus appContextNewDocument(const ACHAR* templateName) override;
    Acad::ErrorStatus appContextOpenDocument(const ACHAR* drawingName) override;
    Acad::ErrorStatus appContextCloseDocument(AcApDocument* document) override;
    Acad::ErrorStatus closeDocument(AcApDocument* document) override;
    void executeInApplicationContext(void (*procedure)(void*), void* data) const override;
    void addReactor(AcApDocManagerReactor* reactor) override { m_reactors.Add(reactor); }
    void removeReactor(AcApDocManagerReactor* reactor) override { m_reactors.Remove(reactor); }

    bool MayWrite(const AcDbDatabase& database) const override;

    // Opens a drawing; one that is open already is activated. Its file is opened read-only if it is
    // write-protected or has a lock file of somebody else. The error text was printed.
    Acad::ErrorStatus Open(const std::wstring& path, bool readOnly);
    // A new drawing from a template file, or an empty one without.
    Acad::ErrorStatus New(const std::wstring& templatePath);
    // eIsWriteProtected for a read-only document, eInvalidInput for one that has no file yet.
    Acad::ErrorStatus Save(Document& document);
    // eIsWriteProtected for the file of a read-only document itself, eFileSharingViolation for one that
    // another document has open.
    Acad::ErrorStatus SaveAs(Document& document, const std::wstring& path);
    // Asks about unsaved changes if `ask`.
    Acad::ErrorStatus Close(Document& document, bool ask);
    // Each in turn until one is not to be closed; false then.
    bool CloseAll(bool ask);
    // Gives back the locks that applications took and forgot, and tells of them on the command line: for the
    // end of the session, when no application's code runs any more that could give them back itself.
    void DropForgottenLocks();

    Document* Current() const { return m_current; }
    Document* Active() const { return m_active; }
    // Keeps a document in memory, closed or not; null for one that is not known.
    std::shared_ptr<Document> Shared(const Document* document) const;
    // Those that are open, oldest first.
    std::vector<Document*> All() const;
    std::size_t ReactorCount() const { return m_reactors.Count(); }

    // Runs `work` with the document as the current one; no event is sent.
    void WithCurrent(Document& document, const std::function<void()>& work);

    void TellLockWillChange(Document& document, AcAp::DocLockMode from, AcAp::DocLockMode to,
                            const std::wstring& commandName);
    void TellLockChanged(Document& document, AcAp::DocLockMode from, AcAp::DocLockMode to,
                         const std::wstring& commandName);

  private:
    class Iterator;

    Document* Known(const AcApDocument* document) const;
    bool CanChangeDocuments() const;
    Acad::ErrorStatus Start(std::shared_ptr<Document> document,
                            const std::function<Acad::ErrorStatus()>& fill);
    Acad::ErrorStatus ReadDrawing(Document& document, const std::wstring& path);
    bool Tell(void (AcApDocManagerReactor::*event)(AcApDocument*), Document& document);
    void Activate(Document* document);
    void MakeCurrent(Document* document);
    Acad::ErrorStatus AskAndSave(Document& document);
    Acad::ErrorStatus SaveBeforeClosing(Document& document);
    void TearDown(std::shared_ptr<Document> document);
    void TakeLockFile(Document& document);
    void DropLockFile(Document& document);

    Host& m_host;
    std::vector<std::shared_ptr<Document>> m_documents;
    Document* m_current = nullptr;
    Document* m_active = nullptr;
    // Of closed documents, while objects of theirs are open.
    std::vector<std::unique_ptr<AcDbDatabase>> m_heldDatabases;
    Reactors<AcApDocManagerReactor> m_reactors;
    int m_nextNumber = 1;
    bool m_tearingDown = false;
};

}  // namespace workbench::host
