// Documents and their manager.
#pragma once

#include "acadstrc.h"
#include "rxevent.h"

class AcApDocument;
class AcDbDatabase;

struct AcAp {
    // What a holder of a document may do, and what it leaves to others.
    enum DocLockMode {
        kNone = 0x00,
        kAutoWrite = 0x01,
        kNotLocked = 0x02,
        kWrite = 0x04,
        kProtectedAutoWrite = 0x14,
        kRead = 0x20,
        kXWrite = 0x40,
    };
};

class ARX_PORT AcApDocument : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcApDocument* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // The full path of the drawing; "Drawing1.dwg" for one that was never saved.
    virtual const ACHAR* fileName() const = 0;
    virtual const ACHAR* docTitle() const = 0;
    virtual AcDbDatabase* database() const = 0;
    virtual bool isReadOnly() const = 0;
    // False until the drawing has been opened from a file or saved.
    virtual bool isNamedDrawing() const = 0;
    // No command and no LISP expression runs in the document.
    virtual bool isQuiescent() const = 0;
    // The strongest lock on the document; kNotLocked without any. The explicit locks of application code are
    // left out unless `includeMyLocks`.
    virtual AcAp::DocLockMode lockMode(bool includeMyLocks = false) const = 0;
    // The strongest lock that application code itself took with lockDocument.
    virtual AcAp::DocLockMode myLockMode() const = 0;
};

// Walks the documents that were open when it was made, oldest first. Documents closed since are passed over.
class ARX_PORT AcApDocumentIterator : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcApDocumentIterator* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcApDocument* document() = 0;
};

class ARX_PORT AcApDocManagerReactor : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcApDocManagerReactor* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    virtual void documentCreateStarted(AcApDocument* creating);
    virtual void documentCreated(AcApDocument* created);
    virtual void documentToBeDestroyed(AcApDocument* toDestroy);
    // The document is gone; what counts documents still counts it.
    virtual void documentDestroyed(const ACHAR* fileName);
    virtual void documentCreateCanceled(AcApDocument* cancelled);
    virtual void documentLockModeWillChange(AcApDocument* document, AcAp::DocLockMode myCurrentMode,
                                            AcAp::DocLockMode myNewMode, AcAp::DocLockMode currentMode,
                                            const ACHAR* globalCommandName);
    virtual void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode myPreviousMode,
                                         AcAp::DocLockMode myCurrentMode, AcAp::DocLockMode currentMode,
                                         const ACHAR* globalCommandName);
    // Null when no document is left.
    virtual void documentBecameCurrent(AcApDocument* document);
    virtual void documentToBeActivated(AcApDocument* activating);
    virtual void documentToBeDeactivated(AcApDocument* deactivating);
    virtual void documentActivationModified(bool activation);
    virtual void documentActivated(AcApDocument* activated);
    virtual void documentTitleUpdated(AcApDocument* document);
};

class ARX_PORT AcApDocManager : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcApDocManager* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // The document that code works on; null if none is open.
    virtual AcApDocument* curDocument() const = 0;
    // The document that the user sees active.
    virtual AcApDocument* mdiActiveDocument() const = 0;
    virtual AcApDocument* document(const AcDbDatabase* database) const = 0;
    virtual int documentCount() const = 0;
    virtual bool isApplicationContext() const = 0;
    // The caller deletes it.
    virtual AcApDocumentIterator* newAcApDocumentIterator() = 0;

    // Locks nest: each needs its unlockDocument. kWrite shares with kWrite of the same thread of execution;
    // it is refused (eLockConflict) on a read-only lock holder's exclusive lock. eNullObjectPointer,
    // eNoDocument for a document that is not open.
    virtual Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                           const ACHAR* globalCommandName = nullptr,
                                           const ACHAR* localCommandName = nullptr, bool prompt = true) = 0;
    // Gives back the last lock. eInvalidInput if there is none.
    virtual Acad::ErrorStatus unlockDocument(AcApDocument* document) = 0;

    virtual Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kNone,
                                             bool activate = false) = 0;
    virtual Acad::ErrorStatus activateDocument(AcApDocument* document, bool passScript = false) = 0;

    // Queues text for the document's command line; it runs after the caller has returned to the host, in
    // document context. The character 27 cancels what runs there.
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                  bool activate = true, bool wrapUpInactiveDoc = false,
                                                  bool echo = true) = 0;

    // The following need application context, and give eInvalidContext elsewhere.
    virtual Acad::ErrorStatus appContextNewDocument(const ACHAR* templateName) = 0;
    virtual Acad::ErrorStatus appContextOpenDocument(const ACHAR* drawingName) = 0;
    // Closes without asking and without saving.
    virtual Acad::ErrorStatus appContextCloseDocument(AcApDocument* document) = 0;

    // Closes a document; the user is asked about unsaved changes, and may cancel (eUserBreak).
    virtual Acad::ErrorStatus closeDocument(AcApDocument* document) = 0;

    virtual void executeInApplicationContext(void (*procedure)(void*), void* data) const = 0;

    // A reactor that is there already is not added twice.
    virtual void addReactor(AcApDocManagerReactor* reactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* reactor) = 0;
};

// Null before the host has started and after it has ended.
ARX_PORT AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()

inline AcApDocument* curDoc() {
    return acDocManager->curDocument();
}

// Clears (0) or sets (other) the "modified" state of a drawing; gives the earlier value.
ARX_PORT short acdbSetDbmod(AcDbDatabase* database, int value);
