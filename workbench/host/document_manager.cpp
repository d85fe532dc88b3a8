#include "document_manager.h"

#include <algorithm>
#include <utility>

#include "acestext.h"
#include "database/database_data.h"
#include "dbapserv.h"
#include "host.h"

namespace workbench::host {
namespace {

constexpr wchar_t kLockFileExtension[] = L".dwl";

std::wstring LockFileOf(const std::wstring& path) {
    return FolderOf(path) + StemOf(path) + kLockFileExtension;
}

class FlagScope {
  public:
    explicit FlagScope(bool& flag) : m_flag(flag) { m_flag = true; }
    ~FlagScope() { m_flag = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

  private:
    bool& m_flag;
};

}  // namespace

class DocumentManager::Iterator : public AcApDocumentIterator {
  public:
    explicit Iterator(const DocumentManager& manager) : m_documents(manager.m_documents) { SkipClosed(); }
    bool done() const override { return m_position >= m_documents.size(); }
    void step() override {
        if (!done()) {
            ++m_position;
            SkipClosed();
        }
    }
    AcApDocument* document() override {
        SkipClosed();
        return done() ? nullptr : m_documents[m_position].get();
    }

  private:
    void SkipClosed() {
        while (!done() && !m_documents[m_position]->IsOpen()) {
            ++m_position;
        }
    }
    std::vector<std::shared_ptr<Document>> m_documents;
    std::size_t m_position = 0;
};

DocumentManager::~DocumentManager() = default;

Document* DocumentManager::Known(const AcApDocument* document) const {
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [document](const auto& known) { return known.get() == document; });
    return found == m_documents.end() || !(*found)->IsOpen() ? nullptr : found->get();
}

std::vector<Document*> DocumentManager::All() const {
    std::vector<Document*> open;
    for (const auto& document : m_documents) {
        if (document->IsOpen()) {
            open.push_back(document.get());
        }
    }
    return open;
}

std::shared_ptr<Document> DocumentManager::Shared(const Document* document) const {
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [document](const auto& known) { return known.get() == document; });
    return found == m_documents.end() ? nullptr : *found;
}

AcApDocument* DocumentManager::document(const AcDbDatabase* database) const {
    for (Document* document : All()) {
        if (document->database() == database) {
            return document;
        }
    }
    return nullptr;
}

int DocumentManager::documentCount() const {
    return static_cast<int>(m_documents.size());
}
bool DocumentManager::isApplicationContext() const {
    return m_host.IsApplicationContext();
}
AcApDocumentIterator* DocumentManager::newAcApDocumentIterator() {
    return new Iterator(*this);
}

bool DocumentManager::CanChangeDocuments() const {
    return m_host.IsApplicationContext() && !m_tearingDown;
}

Acad::ErrorStatus DocumentManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                  bool activate) {
    if (document == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    if (known == nullptr) {
        return Acad::eNoDocument;
    }
    if (!CanChangeDocuments()) {
        return Acad::eInvalidContext;
    }
    const std::shared_ptr<Document> held = Shared(known);
    if (activate) {
        Activate(known);
    } else if (known != m_current) {
        MakeCurrent(known);
        Tell(&AcApDocManagerReactor::documentBecameCurrent, *known);
    }
    if (!known->IsOpen()) {
        return Acad::eNoDocument;  // a reactor closed it
    }
    const bool wantsLock = mode != AcAp::kNone && mode != AcAp::kNotLocked;
    return wantsLock ? lockDocument(document, mode, nullptr, nullptr, false) : Acad::eOk;
}

Acad::ErrorStatus DocumentManager::activateDocument(AcApDocument* document, bool) {
    return setCurDocument(document, AcAp::kNone, true);
}

void DocumentManager::MakeCurrent(Document* document) {
    m_current = document;
    acdbHostApplicationServices()->setWorkingDatabase(document == nullptr ? nullptr : document->database());
}

// Tells the reactors of a document until one of them closes it; false then.
bool DocumentManager::Tell(void (AcApDocManagerReactor::*event)(AcApDocument*), Document& document) {
    m_reactors.ForEach([&](AcApDocManagerReactor& reactor) {
        if (document.IsOpen()) {
            (reactor.*event)(&document);
        }
    });
    return document.IsOpen();
}

void DocumentManager::Activate(Document* document) {
    if (document == m_active && document == m_current) {
        return;
    }
    // Reactors may close documents and activate others while they are told of this one.
    const std::shared_ptr<Document> coming = Shared(document);
    const std::shared_ptr<Document> leaving = Shared(m_active);
    if (leaving != nullptr && leaving != coming) {
        Tell(&AcApDocManagerReactor::documentToBeDeactivated, *leaving);
    }
    if (coming == nullptr || !Tell(&AcApDocManagerReactor::documentToBeActivated, *coming)) {
        return;
    }
    m_active = document;
    MakeCurrent(document);
    if (Tell(&AcApDocManagerReactor::documentBecameCurrent, *coming) && m_active == document) {
        Tell(&AcApDocManagerReactor::documentActivated, *coming);
    }
    m_host.TheSurface().DocumentsChanged();
}

void DocumentManager::WithCurrent(Document& document, const std::function<void()>& work) {
    Document* before = m_current;
    MakeCurrent(&document);
    work();
    // A document that was closed meanwhile has made room for the active one.
    MakeCurrent(Known(before) != nullptr ? before : m_active);
}

Acad::ErrorStatus DocumentManager::sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                       bool activate, bool wrapUpInactive, bool echo) {
    if (document == nullptr || text == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    if (known == nullptr) {
        return Acad::eNoDocument;
    }
    known->Queue().push_back({text, echo, activate, wrapUpInactive});
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::Start(std::shared_ptr<Document> document,
                                         const std::function<Acad::ErrorStatus()>& fill) {
    Document* created = document.get();
    m_reactors.ForEach([created](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(created); });
    const Acad::ErrorStatus status = fill();
    if (status != Acad::eOk) {
        m_reactors.ForEach(
            [created](AcApDocManagerReactor& reactor) { reactor.documentCreateCanceled(created); });
        return status;
    }
    m_documents.push_back(document);
    TakeLockFile(*created);
    if (Tell(&AcApDocManagerReactor::documentCreated, *created)) {
        Activate(created);
    }
    if (!created->IsOpen()) {
        return Acad::eOk;  // a reactor closed it again
    }
    WithCurrent(*created, [this] { m_host.Apps().Broadcast(AcRx::kLoadDwgMsg); });
    if (!m_host.TheSettings().startUpFile.empty() && created->IsOpen()) {
        m_host.LoadLispFile(*created, m_host.TheSettings().startUpFile);
    }
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::ReadDrawing(Document& document, const std::wstring& path) {
    database::DrawingFiles* files = database::InstalledDrawingFiles();
    if (files == nullptr) {
        return Acad::eNotImplementedYet;
    }
    std::wstring error;
    const Acad::ErrorStatus status = files->Read(path, *document.database(), error);
    if (status != Acad::eOk) {
        m_host.FreshLine();
        m_host.Print(path + L": " + (error.empty() ? acadErrorStatusText(status) : error) + L"\n");
    }
    return status;
}

Acad::ErrorStatus DocumentManager::Open(const std::wstring& path, bool readOnly) {
    if (!CanChangeDocuments()) {
        return Acad::eInvalidContext;
    }
    if (path.empty()) {
        return Acad::eInvalidInput;
    }
    for (Document* open : All()) {
        if (open->isNamedDrawing() && IsSamePath(open->fileName(), path)) {
            Activate(open);
            return Acad::eOk;
        }
    }
    if (!m_host.TheFiles().Exists(path)) {
        m_host.FreshLine();
        m_host.Print(path + L": there is no such file\n");
        return Acad::eFileNotFound;
    }
    const bool inUse = !readOnly && m_host.TheFiles().Exists(LockFileOf(path));
    if (inUse) {
        m_host.FreshLine();
        m_host.Print(path + L": in use by somebody else, opened read-only\n");
    }
    auto document = std::make_shared<Document>(m_host, std::make_unique<AcDbDatabase>(false, false));
    document->SetFile(path, true, readOnly || inUse || m_host.TheFiles().IsReadOnly(path));
    return Start(document, [&] {
        const Acad::ErrorStatus status = ReadDrawing(*document, path);
        database::DataOf(*document->database()).path = path;
        return status;
    });
}

Acad::ErrorStatus DocumentManager::New(const std::wstring& templatePath) {
    if (!CanChangeDocuments()) {
        return Acad::eInvalidContext;
    }
    if (!templatePath.empty() && !m_host.TheFiles().Exists(templatePath)) {
        m_host.FreshLine();
        m_host.Print(templatePath + L": there is no such file\n");
        return Acad::eFileNotFound;
    }
    const bool isEmpty = templatePath.empty();
    auto document = std::make_shared<Document>(m_host, std::make_unique<AcDbDatabase>(isEmpty, false));
    document->SetFile(L"Drawing" + std::to_wstring(m_nextNumber) + L".dwg", false, false);
    const Acad::ErrorStatus status =
        Start(document, [&] { return isEmpty ? Acad::eOk : ReadDrawing(*document, templatePath); });
    m_nextNumber += status == Acad::eOk ? 1 : 0;
    return status;
}

Acad::ErrorStatus DocumentManager::appContextNewDocument(const ACHAR* templateName) {
    return New(templateName == nullptr ? L"" : templateName);
}

Acad::ErrorStatus DocumentManager::appContextOpenDocument(const ACHAR* drawingName) {
    return Open(drawingName == nullptr ? L"" : drawingName, false);
}

Acad::ErrorStatus DocumentManager::appContextCloseDocument(AcApDocument* document) {
    if (document == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    return known == nullptr ? Acad::eNoDocument : Close(*known, false);
}

Acad::ErrorStatus DocumentManager::closeDocument(AcApDocument* document) {
    if (document == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    return known == nullptr ? Acad::eNoDocument : Close(*known, true);
}

Acad::ErrorStatus DocumentManager::Save(Document& document) {
    if (document.isReadOnly()) {
        return Acad::eIsWriteProtected;
    }
    return document.isNamedDrawing() ? SaveAs(document, document.fileName()) : Acad::eInvalidInput;
}

Acad::ErrorStatus DocumentManager::SaveAs(Document& document, const std::wstring& path) {
    database::DrawingFiles* files = database::InstalledDrawingFiles();
    if (path.empty()) {
        return Acad::eInvalidInput;
    }
    if (files == nullptr) {
        return Acad::eNotImplementedYet;
    }
    if (document.isReadOnly() && IsSamePath(document.fileName(), path)) {
        m_host.FreshLine();
        m_host.Print(path + L": opened read-only\n");
        return Acad::eIsWriteProtected;
    }
    for (const Document* other : All()) {
        if (other != &document && other->isNamedDrawing() && IsSamePath(other->fileName(), path)) {
            m_host.FreshLine();
            m_host.Print(path + L": open in another window\n");
            return Acad::eFileSharingViolation;
        }
    }
    m_host.Apps().Broadcast(AcRx::kSaveMsg);
    std::wstring error;
    const Acad::ErrorStatus status = files->Write(path, *document.database(), error);
    if (status != Acad::eOk) {
        m_host.FreshLine();
        m_host.Print(path + L": " + (error.empty() ? acadErrorStatusText(status) : error) + L"\n");
        return status;
    }
    acdbSetDbmod(document.database(), 0);
    if (document.isReadOnly() || !IsSamePath(document.fileName(), path)) {
        DropLockFile(document);
        document.SetFile(path, true, false);
        database::DataOf(*document.database()).path = path;
        TakeLockFile(document);
        const std::shared_ptr<Document> held = Shared(&document);
        Tell(&AcApDocManagerReactor::documentTitleUpdated, document);
        m_host.TheSurface().DocumentsChanged();
    }
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::SaveBeforeClosing(Document& document) {
    const bool canSave = document.isNamedDrawing() && !document.isReadOnly();
    const std::wstring path =
        canSave ? document.fileName() : m_host.TheSurface().AskSavePath(document.docTitle());
    return path.empty() ? Acad::eUserBreak : SaveAs(document, path);
}

Acad::ErrorStatus DocumentManager::AskAndSave(Document& document) {
    const SaveAnswer answer = m_host.TheSurface().AskSave(document.docTitle());
    if (answer == SaveAnswer::kCancel) {
        return Acad::eUserBreak;
    }
    // Windows live on while the question stands: one of them may have closed the document.
    return answer == SaveAnswer::kSave && document.IsOpen() ? SaveBeforeClosing(document) : Acad::eOk;
}

Acad::ErrorStatus DocumentManager::Close(Document& document, bool ask) {
    if (!CanChangeDocuments()) {
        return Acad::eInvalidContext;
    }
    if (document.lockMode(true) != AcAp::kNotLocked || !document.isQuiescent()) {
        return Acad::eLockConflict;
    }
    const std::shared_ptr<Document> closing = Shared(&document);
    if (ask && database::DataOf(*document.database()).modified) {
        const Acad::ErrorStatus status = AskAndSave(document);
        if (status != Acad::eOk) {
            return status;
        }
        if (!document.IsOpen()) {
            return Acad::eOk;
        }
    }
    TearDown(closing);
    if (!m_documents.empty()) {
        Activate(m_active != nullptr ? m_active : m_documents.back().get());
    } else {
        m_reactors.ForEach([](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(nullptr); });
        m_host.TheSurface().DocumentsChanged();
    }
    return Acad::eOk;
}

bool DocumentManager::CloseAll(bool ask) {
    while (!All().empty()) {
        if (Close(*All().back(), ask) != Acad::eOk) {
            return false;
        }
    }
    return true;
}

void DocumentManager::TearDown(std::shared_ptr<Document> document) {
    const FlagScope tearingDown(m_tearingDown);
    std::erase_if(m_heldDatabases, [](const auto& held) { return database::OpenObjects(*held) == 0; });
    Document* closing = document.get();
    if (closing == m_active) {
        m_reactors.ForEach(
            [closing](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(closing); });
    }
    WithCurrent(*closing, [this] { m_host.Apps().Broadcast(AcRx::kUnloadDwgMsg); });
    m_reactors.ForEach([closing](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(closing); });

    const long leftOpen = database::OpenObjects(*closing->database());
    if (leftOpen > 0) {
        m_host.FreshLine();
        m_host.Print(std::to_wstring(leftOpen) + L" objects of " + closing->docTitle() +
                     L" were left open\n");
    }
    closing->m_open = false;
    m_active = closing == m_active ? nullptr : m_active;
    if (closing == m_current) {
        MakeCurrent(m_active);
    }
    DropLockFile(*closing);
    const std::wstring fileName = closing->fileName();
    closing->Queue().clear();
    if (leftOpen > 0) {
        // Whoever holds them closes them some time.
        m_heldDatabases.push_back(std::move(closing->m_database));
    }
    closing->m_database.reset();
    m_reactors.ForEach(
        [&fileName](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(fileName.c_str()); });
    std::erase(m_documents, document);
}

void DocumentManager::TakeLockFile(Document& document) {
    if (document.isNamedDrawing() && !document.isReadOnly()) {
        const Settings& settings = m_host.TheSettings();
        document.m_holdsLockFile = m_host.TheFiles().WriteText(
            LockFileOf(document.fileName()), settings.userName + L"\r\n" + settings.machineName + L"\r\n" +
                                                 m_host.TheFiles().TimeText() + L"\r\n");
    }
}

void DocumentManager::DropLockFile(Document& document) {
    if (std::exchange(document.m_holdsLockFile, false)) {
        m_host.TheFiles().Remove(LockFileOf(document.fileName()));
    }
}

void DocumentManager::executeInApplicationContext(void (*procedure)(void*), void* data) const {
    const Host::ContextScope scope(m_host, true);
    procedure(data);
}

}  // namespace workbench::host
