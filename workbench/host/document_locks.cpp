// The locks of documents: who may write to which drawing.
#include "host.h"

namespace workbench::host {

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
    const std::shared_ptr<Document> held = Shared(known);
    TellLockWillChange(*known, before, mode, name);
    if (!known->IsOpen()) {
        return Acad::eNoDocument;  // a reactor closed it
    }
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
    const std::shared_ptr<Document> held = Shared(known);
    TellLockWillChange(*known, before, AcAp::kNotLocked, L"#");
    known->m_locks.pop_back();
    TellLockChanged(*known, before, known->myLockMode(), L"#");
    return Acad::eOk;
}

void DocumentManager::DropForgottenLocks() {
    for (Document* listed : All()) {
        const std::shared_ptr<Document> document = Shared(listed);
        if (document == nullptr || document->m_locks.empty()) continue;
        m_host.FreshLine();
        m_host.Print(std::to_wstring(document->m_locks.size()) + L" locks of " + document->docTitle() +
                     L" were left in place\n");
        while (document->IsOpen() && !document->m_locks.empty())
            unlockDocument(document.get());
    }
}

void DocumentManager::TellLockWillChange(Document& document, AcAp::DocLockMode from, AcAp::DocLockMode to,
                                         const std::wstring& commandName) {
    m_reactors.ForEach([&](AcApDocManagerReactor& reactor) {
        if (document.IsOpen()) {
            reactor.documentLockModeWillChange(&document, from, to, document.lockMode(true),
                                               commandName.c_str());
        }
    });
}

void DocumentManager::TellLockChanged(Document& document, AcAp::DocLockMode from, AcAp::DocLockMode to,
                                      const std::wstring& commandName) {
    m_reactors.ForEach([&](AcApDocManagerReactor& reactor) {
        if (document.IsOpen()) {
            reactor.documentLockModeChanged(&document, from, to, document.lockMode(true),
                                            commandName.c_str());
        }
    });
}

}  // namespace workbench::host
