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

std::shared_ptr<Document> DocumentManager::SharedActive() const {
    const auto found = std::find_if(m_documents.begin(), m_documents.end(),
                                    [this](const auto& document) { return document.get() == m_active; });
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

bool DocumentManager::MayWrite(const AcDbDatabase& database) const {
    const auto* owner = static_cast<const Document*>(document(&database));
    const Document* document = owner != nullptr ? owner : m_current;
    return document == nullptr || document->IsLockedForWrite();
}

Acad::ErrorStatus DocumentManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                                const ACHAR* globalCommandName, const ACHAR*, bool) {
    if (document == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    if (known == nullptr) {
        return Acad::eNoDocument;
    }
    if (mode == AcAp::kNone || mode == AcAp::kNotLocked) {
        return Acad::eInvalidInput;
    }
    const bool isShared = known->lockMode(true) != AcAp::kNotLocked;
    if (isShared && (mode == AcAp::kXWrite || known->myLockMode() == AcAp::kXWrite)) {
        return Acad::eLockConflict;
    }
    const AcAp::DocLockMode before = known->myLockMode();
    const std::wstring name = globalCommandName == nullptr ? L"" : globalCommandName;
    TellLockWillChange(*known, before, mode, name);
    known->m_locks.push_back(mode);
    TellLockChanged(*known, before, known->myLockMode(), name);
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::unlockDocument(AcApDocument* document) {
    if (document == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    if (known == nullptr) {
        return Acad::eNoDocument;
    }
    if (known->m_locks.empty()) {
        return Acad::eInvalidInput;
    }
    const AcAp::DocLockMode before = known->myLockMode();
    TellLockWillChange(*known, before, AcAp::kNotLocked, L"#");
    known->m_locks.pop_back();
    TellLockChanged(*known, before, known->myLockMode(), L"#");
    return Acad::eOk;
}

void DocumentManager::TellLockWillChange(Document& document, AcAp::DocLockMode from, AcAp::DocLockMode to,
                                         const std::wstring& commandName) {
    m_reactors.ForEach([&](AcApDocManagerReactor& reactor) {
        reactor.documentLockModeWillChange(&document, from, to, document.lockMode(true), commandName.c_str());
    });
}

void DocumentManager::TellLockChanged(Document& document, AcAp::DocLockMode from, AcAp::DocLockMode to,
                                      const std::wstring& commandName) {
    m_reactors.ForEach([&](AcApDocManagerReactor& reactor) {
        reactor.documentLockModeChanged(&document, from, to, document.lockMode(true), commandName.c_str());
    });
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
    if (activate) {
        Activate(known);
    } else if (known != m_current) {
        MakeCurrent(known);
        m_reactors.ForEach([known](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(known); });
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

void DocumentManager::Activate(Document* document) {
    if (document == m_active && document == m_current) {
        return;
    }
    if (m_active != nullptr && m_active != document) {
        Document* leaving = m_active;
        m_reactors.ForEach(
            [leaving](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(leaving); });
    }
    m_reactors.ForEach(
        [document](AcApDocManagerReactor& reactor) { reactor.documentToBeActivated(document); });
    m_active = document;
    MakeCurrent(document);
    m_reactors.ForEach(
        [document](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document); });
    m_reactors.ForEach([document](AcApDocManagerReactor& reactor) { reactor.documentActivated(document); });
    m_host.TheSurface().DocumentsChanged();
}

void DocumentManager::WithCurrent(Document& document, const std::function<void()>& work) {
    Document* before = m_current;
    MakeCurrent(&document);
    work();
    MakeCurrent(Known(before));
}

Acad::ErrorStatus DocumentManager::sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                       bool activate, bool, bool echo) {
    if (document == nullptr || text == nullptr) {
        return Acad::eNullObjectPointer;
    }
    Document* known = Known(document);
    if (known == nullptr) {
        return Acad::eNoDocument;
    }
    known->Queue().push_back({text, echo, activate});
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
    m_reactors.ForEach([created](AcApDocManagerReactor& reactor) { reactor.documentCreated(created); });
    Activate(created);
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
        Document* titled = &document;
        m_reactors.ForEach(
            [titled](AcApDocManagerReactor& reactor) { reactor.documentTitleUpdated(titled); });
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

Acad::ErrorStatus DocumentManager::Close(Document& document, bool ask) {
    if (!CanChangeDocuments()) {
        return Acad::eInvalidContext;
    }
    if (document.lockMode(true) != AcAp::kNotLocked || !document.isQuiescent()) {
        return Acad::eLockConflict;
    }
    if (ask && database::DataOf(*document.database()).modified) {
        const SaveAnswer answer = m_host.TheSurface().AskSave(document.docTitle());
        if (answer == SaveAnswer::kCancel) {
            return Acad::eUserBreak;
        }
        if (answer == SaveAnswer::kSave) {
            const Acad::ErrorStatus status = SaveBeforeClosing(document);
            if (status != Acad::eOk) {
                return status;
            }
        }
    }
    const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](const auto& known) { return known.get() == &document; });
    TearDown(*place);
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
