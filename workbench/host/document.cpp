#include "document.h"

#include <algorithm>

#include "host.h"
#include "lisp_bridge.h"

namespace workbench::host {
namespace {

bool AllowsWriting(AcAp::DocLockMode mode) {
    return mode == AcAp::kWrite || mode == AcAp::kXWrite || mode == AcAp::kAutoWrite ||
           mode == AcAp::kProtectedAutoWrite;
}

// Later is stronger.
int Strength(AcAp::DocLockMode mode) {
    constexpr AcAp::DocLockMode kOrder[] = {AcAp::kNone,      AcAp::kNotLocked,          AcAp::kRead,
                                            AcAp::kAutoWrite, AcAp::kProtectedAutoWrite, AcAp::kWrite,
                                            AcAp::kXWrite};
    return static_cast<int>(std::find(std::begin(kOrder), std::end(kOrder), mode) - std::begin(kOrder));
}

}  // namespace

Document::Document(Host& host, std::unique_ptr<AcDbDatabase> database)
    : m_host(host),
      m_database(std::move(database)),
      m_surroundings(MakeSurroundings(host, *this)),
      m_lisp(std::make_unique<lisp::Interpreter>(*m_surroundings)),
      m_line(host, this) {}

Document::~Document() = default;

bool Document::isQuiescent() const {
    return !m_line.IsRunning() && m_commandLocks == 0;
}

AcAp::DocLockMode Document::myLockMode() const {
    AcAp::DocLockMode strongest = AcAp::kNotLocked;
    for (const AcAp::DocLockMode mode : m_locks) {
        if (Strength(mode) > Strength(strongest)) {
            strongest = mode;
        }
    }
    return strongest;
}

AcAp::DocLockMode Document::lockMode(bool includeMyLocks) const {
    const AcAp::DocLockMode ofCommand = m_commandLocks > 0 ? AcAp::kAutoWrite : AcAp::kNotLocked;
    const AcAp::DocLockMode mine = includeMyLocks ? myLockMode() : AcAp::kNotLocked;
    return Strength(mine) > Strength(ofCommand) ? mine : ofCommand;
}

bool Document::IsLockedForWrite() const {
    return AllowsWriting(lockMode(true));
}

void Document::SetFile(const std::wstring& path, bool named, bool readOnly) {
    m_path = path;
    m_title = NameOf(path);
    m_named = named;
    m_readOnly = readOnly;
}

CommandLock::CommandLock(Host& host, Document& document, const std::wstring& commandName)
    : m_host(host), m_document(document), m_commandName(commandName) {
    if (m_document.m_commandLocks == 0) {
        m_host.Documents().TellLockWillChange(document, AcAp::kNotLocked, AcAp::kAutoWrite, m_commandName);
    }
    ++m_document.m_commandLocks;
    if (m_document.m_commandLocks == 1) {
        m_host.Documents().TellLockChanged(document, AcAp::kNotLocked, AcAp::kAutoWrite, m_commandName);
    }
}

CommandLock::~CommandLock() {
    const std::wstring name = L"#" + m_commandName;
    if (m_document.m_commandLocks == 1) {
        m_host.Documents().TellLockWillChange(m_document, AcAp::kAutoWrite, AcAp::kNotLocked, name);
    }
    --m_document.m_commandLocks;
    if (m_document.m_commandLocks == 0) {
        m_host.Documents().TellLockChanged(m_document, AcAp::kAutoWrite, AcAp::kNotLocked, name);
    }
}

}  // namespace workbench::host
