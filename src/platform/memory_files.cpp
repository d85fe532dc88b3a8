#include "platform/memory_files.h"

#include <algorithm>

#include "platform/letter_case.h"
#include "platform/memory_path.h"

namespace platform {

namespace {

constexpr std::uint32_t kAttributeArchive = 0x20;
constexpr std::uint32_t kAttributeNormal = 0x80;
constexpr std::uint32_t kSettableAttributes = 0x01 | 0x02 | 0x04 | kAttributeArchive;
constexpr std::uint32_t kAttributeSystem = 0x04;

// What one opener does and lets others do.
struct OpenMode {
    bool reads;
    bool writes;
    bool removes;
    bool sharesReading;
    bool sharesWriting;
    bool sharesRemoving;
};

constexpr OpenMode kOpenToRemove = {false, false, true, true, true, true};
constexpr OpenMode kOpenToWrite = {false, true, false, false, false, false};
constexpr OpenMode kOpenToCopy = {true, false, false, true, true, true};

OpenMode ModeOf(Hold hold) {
    switch (hold) {
        case Hold::kReading:
            return {true, false, false, true, false, false};
        case Hold::kReadingShared:
            return {true, false, false, true, true, false};
        case Hold::kWriting:
            return {true, true, false, false, false, false};
        case Hold::kWritingShared:
            return {true, true, false, true, true, false};
    }
    return {};
}

OpenMode ModeOf(Sharing sharing) {
    return {true, false, false, true, sharing == Sharing::kReadWrite, false};
}

bool Allows(const OpenMode& holder, const OpenMode& other) {
    return (holder.sharesReading || !other.reads) && (holder.sharesWriting || !other.writes) &&
           (holder.sharesRemoving || !other.removes);
}

bool AreCompatible(const OpenMode& one, const OpenMode& two) {
    return Allows(one, two) && Allows(two, one);
}

}  // namespace

struct MemoryFiles::Node {
    std::wstring name;
    bool isFolder = false;
    std::string bytes;
    std::uint32_t attributes = 0;
    FileTime modified = 0;
    std::vector<Hold> holds;
    std::map<std::wstring, std::unique_ptr<Node>> children;  // by upper-case name

    bool Has(std::uint32_t attribute) const { return (attributes & attribute) != 0; }
    bool CanOpen(const OpenMode& mode) const {
        return std::all_of(holds.begin(), holds.end(),
                           [&](Hold hold) { return AreCompatible(ModeOf(hold), mode); });
    }
    bool HasOpenFile() const {
        return !holds.empty() || std::any_of(children.begin(), children.end(),
                                             [](const auto& child) { return child.second->HasOpenFile(); });
    }
    std::uint32_t AllAttributes() const {
        const std::uint32_t all = attributes | (isFolder ? kAttributeDirectory : 0);
        return all == 0 ? kAttributeNormal : all;
    }
};

// Where a path leads. The error is kDone if there is such a node.
struct MemoryFiles::Place {
    Node* parent = nullptr;  // the folder of the last name, if there is one
    Node* node = nullptr;
    std::wstring name;
    bool endsInBackslash = false;
    ErrorCode error = kDone;
};

MemoryFiles::MemoryFiles(Clock& clock, CallLog& log) : m_clock(clock), m_log(log) {
    AddDrive(L"C:");
}

MemoryFiles::~MemoryFiles() = default;

MemoryFiles::Place MemoryFiles::Locate(const std::wstring& path) const {
    Place place;
    const MemoryPath parsed = ParseMemoryPath(path);
    place.endsInBackslash = parsed.endsInBackslash;
    place.error = parsed.error;
    if (place.error != kDone) return place;
    const auto root = m_roots.find(ToUpper(parsed.root));
    if (root == m_roots.end()) {
        place.error = parsed.root.size() > 2 ? kBadNetworkPath : kPathNotFound;
        return place;
    }
    place.node = root->second.get();
    for (size_t i = 0; i < parsed.names.size(); ++i) {
        if (!place.node || !place.node->isFolder) {
            place.parent = place.node = nullptr;
            place.error = kPathNotFound;
            return place;
        }
        place.parent = place.node;
        place.name = parsed.names[i];
        const auto child = place.parent->children.find(ToUpper(place.name));
        place.node = child == place.parent->children.end() ? nullptr : child->second.get();
    }
    if (!place.node) place.error = kFileNotFound;
    if (place.node && !place.node->isFolder && place.endsInBackslash) place.error = kInvalidName;
    return place;
}

MemoryFiles::Node* MemoryFiles::AddNode(const Place& place, bool isFolder) {
    auto node = std::make_unique<Node>();
    node->name = place.name;
    node->isFolder = isFolder;
    node->attributes = isFolder ? 0 : kAttributeArchive;
    node->modified = NextStamp();
    Node* added = node.get();
    place.parent->children[ToUpper(place.name)] = std::move(node);
    place.parent->modified = added->modified;
    return added;
}

std::unique_ptr<MemoryFiles::Node> MemoryFiles::TakeNode(const Place& place) {
    const auto child = place.parent->children.find(ToUpper(place.name));
    std::unique_ptr<Node> node = std::move(child->second);
    place.parent->children.erase(child);
    place.parent->modified = NextStamp();
    return node;
}

// Each change has a later time than the one before it, so that a file written twice shows it.
FileTime MemoryFiles::NextStamp() {
    m_lastStamp = std::max(m_clock.Now(), m_lastStamp + 1);
    return m_lastStamp;
}

ErrorCode MemoryFiles::ReadBytes(const std::wstring& path, Sharing sharing, std::string& bytes) {
    bytes.clear();
    if (m_log.Record(L"ReadBytes", path)) return kAccessDenied;
    if (const FaultRule* fault = FindFault(Fault::kOpen, path)) return fault->error;
    const Place place = Locate(path);
    if (place.error != kDone) return place.error;
    if (place.node->isFolder) return kAccessDenied;
    if (!place.node->CanOpen(ModeOf(sharing))) return kSharingViolation;
    bytes = place.node->bytes;
    return kDone;
}

WriteResult MemoryFiles::WriteBytes(const std::wstring& path, std::string_view bytes) {
    const bool isToFail = m_log.Record(L"WriteBytes", path);
    if (isToFail && !m_breakOffAt) return WriteResult::kCannotCreate;
    if (FindFault(Fault::kCreate, path)) return WriteResult::kCannotCreate;
    const Place place = Locate(path);
    Node* node = place.node;
    if (place.endsInBackslash || !place.parent || (place.error != kDone && place.error != kFileNotFound)) {
        return WriteResult::kCannotCreate;
    }
    if (node) {
        // Creating over a hidden or system file is refused as over a read-only one.
        const std::uint32_t protection = kAttributeReadOnly | kAttributeHidden | kAttributeSystem;
        if (node->isFolder || node->Has(protection) || !node->CanOpen(kOpenToWrite)) {
            return WriteResult::kCannotCreate;
        }
    } else {
        node = AddNode(place, false);
    }
    node->modified = NextStamp();
    node->attributes |= kAttributeArchive;
    const FaultRule* fault = FindFault(Fault::kWrite, path);
    size_t written = fault ? fault->byte : bytes.size();
    if (isToFail) written = *m_breakOffAt;
    if (written < bytes.size()) {
        node->bytes = bytes.substr(0, written);
        return WriteResult::kWriteFailed;
    }
    node->bytes = bytes;
    return WriteResult::kWritten;
}

std::uint32_t MemoryFiles::GetAttributes(const std::wstring& path) {
    if (m_log.Record(L"GetAttributes", path)) return kInvalidAttributes;
    return PeekAttributes(path);
}

ErrorCode MemoryFiles::SetAttributes(const std::wstring& path, std::uint32_t attributes) {
    if (m_log.Record(L"SetAttributes", path)) return kAccessDenied;
    const Place place = Locate(path);
    if (place.error == kDone) place.node->attributes = attributes & kSettableAttributes;
    return place.error;
}

ErrorCode MemoryFiles::GetStatus(const std::wstring& path, FileStatus& status) {
    if (m_log.Record(L"GetStatus", path)) return kAccessDenied;
    const Place place = Locate(path);
    if (place.error == kDone) {
        status = {place.node->bytes.size(), place.node->modified, place.node->AllAttributes()};
    }
    return place.error;
}

std::vector<FoundEntry> MemoryFiles::Find(const std::wstring& pattern) {
    std::vector<FoundEntry> entries;
    if (m_log.Record(L"Find", pattern)) return entries;
    const MemoryPath parsed = ParseMemoryPath(pattern, true);
    if (parsed.error != kDone || parsed.names.empty() || parsed.endsInBackslash) return entries;
    std::wstring folderPath = parsed.root + L"\\";
    for (size_t i = 0; i + 1 < parsed.names.size(); ++i)
        folderPath += parsed.names[i] + L"\\";
    if (FindFault(Fault::kOpen, folderPath)) return entries;
    const Place folder = Locate(folderPath);
    if (folder.error != kDone || !folder.node->isFolder) return entries;
    for (const auto& [key, child] : folder.node->children) {
        if (MatchesPattern(child->name, parsed.names.back()))
            entries.push_back({child->name, child->isFolder});
    }
    return entries;
}

ErrorCode MemoryFiles::Move(const std::wstring& from, const std::wstring& to) {
    if (m_log.Record(L"Move", from)) return kAccessDenied;
    if (const FaultRule* fault = FindFault(Fault::kMove, from)) return fault->error;
    const Place source = Locate(from);
    if (source.error != kDone) return source.error;
    if (!source.parent) return kAccessDenied;
    const Place target = Locate(to);
    if (target.node && target.node != source.node) return kAlreadyExists;
    if (target.error != kDone && target.error != kFileNotFound) return target.error;
    if (!target.parent) return kAlreadyExists;
    if (!source.node->CanOpen(kOpenToRemove)) return kSharingViolation;
    if (source.node->isFolder && source.node->HasOpenFile()) return kAccessDenied;
    const std::wstring sourceRoot = ToUpper(ParseMemoryPath(from).root);
    if (source.node->isFolder && sourceRoot != ToUpper(ParseMemoryPath(to).root)) return kAccessDenied;
    // A folder cannot be moved into itself.
    const MemoryPath sourcePath = ParseMemoryPath(from);
    const MemoryPath targetPath = ParseMemoryPath(to);
    if (source.node->isFolder && targetPath.names.size() > sourcePath.names.size() &&
        std::equal(sourcePath.names.begin(), sourcePath.names.end(), targetPath.names.begin(),
                   [](const std::wstring& a, const std::wstring& b) { return EqualWithoutCase(a, b); })) {
        return kSharingViolation;
    }
    std::unique_ptr<Node> node = TakeNode(source);
    node->name = target.name;
    target.parent->children[ToUpper(target.name)] = std::move(node);
    target.parent->modified = NextStamp();
    return kDone;
}

ErrorCode MemoryFiles::Copy(const std::wstring& from, const std::wstring& to, bool failIfExists) {
    if (m_log.Record(L"Copy", from)) return kAccessDenied;
    if (const FaultRule* fault = FindFault(Fault::kOpen, from)) return fault->error;
    const Place source = Locate(from);
    if (source.error != kDone) return source.error;
    if (source.node->isFolder) return kAccessDenied;
    if (!source.node->CanOpen(kOpenToCopy)) return kSharingViolation;
    if (FindFault(Fault::kCreate, to)) return kAccessDenied;
    const Place target = Locate(to);
    if (target.error != kDone && target.error != kFileNotFound) return target.error;
    Node* node = target.node;
    if (node) {
        if (failIfExists) return kFileExists;
        if (node->isFolder || node->Has(kAttributeReadOnly | kAttributeHidden | kAttributeSystem)) {
            return kAccessDenied;
        }
        if (node == source.node || !node->CanOpen(kOpenToWrite)) return kSharingViolation;
    } else {
        node = AddNode(target, false);
    }
    node->attributes = source.node->attributes | kAttributeArchive;
    node->modified = source.node->modified;
    if (const FaultRule* fault = FindFault(Fault::kWrite, to);
        fault && fault->byte < source.node->bytes.size()) {
        // The system removes a copy that it could not finish.
        TakeNode(Locate(to));
        return kDiskFull;
    }
    node->bytes = source.node->bytes;
    return kDone;
}

ErrorCode MemoryFiles::Remove(const std::wstring& path) {
    if (m_log.Record(L"Remove", path)) return kAccessDenied;
    if (const FaultRule* fault = FindFault(Fault::kRemove, path)) return fault->error;
    const Place place = Locate(path);
    if (place.error != kDone) return place.error;
    if (place.node->isFolder || place.node->Has(kAttributeReadOnly)) return kAccessDenied;
    if (!place.node->CanOpen(kOpenToRemove)) return kSharingViolation;
    TakeNode(place);
    return kDone;
}

ErrorCode MemoryFiles::MakeFolder(const std::wstring& path) {
    if (m_log.Record(L"MakeFolder", path)) return kAccessDenied;
    if (const FaultRule* fault = FindFault(Fault::kMakeFolder, path)) return fault->error;
    const Place place = Locate(path);
    if (place.node) return place.parent ? kAlreadyExists : kAccessDenied;
    if (place.error != kFileNotFound) return place.error;
    AddNode(place, true);
    return kDone;
}

ErrorCode MemoryFiles::RemoveFolder(const std::wstring& path) {
    if (m_log.Record(L"RemoveFolder", path)) return kAccessDenied;
    if (const FaultRule* fault = FindFault(Fault::kRemove, path)) return fault->error;
    const Place place = Locate(path);
    if (place.error != kDone) return place.error;
    if (!place.node->isFolder) return kNotAFolder;
    if (!place.parent || place.node->Has(kAttributeReadOnly)) return kAccessDenied;
    if (!place.node->children.empty()) return kDirectoryNotEmpty;
    TakeNode(place);
    return kDone;
}

void MemoryFiles::AddDrive(const std::wstring& root) {
    auto node = std::make_unique<Node>();
    node->isFolder = true;
    node->modified = NextStamp();
    m_roots[ToUpper(ParseMemoryPath(root).root)] = std::move(node);
}

void MemoryFiles::AddFolder(const std::wstring& path) {
    const MemoryPath parsed = ParseMemoryPath(path);
    if (!m_roots.contains(ToUpper(parsed.root))) AddDrive(parsed.root);
    std::wstring running = parsed.root;
    for (const std::wstring& name : parsed.names) {
        running += L"\\" + name;
        const Place place = Locate(running);
        if (!place.node) AddNode(place, true);
    }
}

void MemoryFiles::AddFile(const std::wstring& path, std::string bytes) {
    AddFolder(path.substr(0, path.find_last_of(L"\\/") + 1));
    const Place place = Locate(path);
    Node* node = place.node ? place.node : AddNode(place, false);
    node->bytes = std::move(bytes);
    node->modified = NextStamp();
}

bool MemoryFiles::SetModified(const std::wstring& path, FileTime modified) {
    const Place place = Locate(path);
    if (place.error == kDone) place.node->modified = modified;
    return place.error == kDone;
}

void MemoryFiles::ChangeAttribute(const std::wstring& path, std::uint32_t attribute, bool on) {
    const Place place = Locate(path);
    if (place.error != kDone) return;
    std::uint32_t& attributes = place.node->attributes;
    attributes = on ? attributes | attribute : attributes & ~attribute;
}

ErrorCode MemoryFiles::PeekBytes(const std::wstring& path, std::string& bytes) const {
    const Place place = Locate(path);
    if (place.error == kDone) bytes = place.node->bytes;
    return place.error;
}

std::uint32_t MemoryFiles::PeekAttributes(const std::wstring& path) const {
    const Place place = Locate(path);
    return place.error == kDone ? place.node->AllAttributes() : kInvalidAttributes;
}

void MemoryFiles::HoldFile(const std::wstring& path, Hold hold) {
    if (const Place place = Locate(path); place.node) place.node->holds.push_back(hold);
}

void MemoryFiles::ReleaseFile(const std::wstring& path) {
    if (const Place place = Locate(path); place.node) place.node->holds.clear();
}

void MemoryFiles::AddFault(Fault fault, const std::wstring& path, ErrorCode error, size_t byte) {
    m_faults.push_back({fault, path, error, byte});
}

const MemoryFiles::FaultRule* MemoryFiles::FindFault(Fault fault, const std::wstring& path) const {
    for (const FaultRule& rule : m_faults) {
        if (rule.fault == fault && (rule.path.empty() || EqualWithoutCase(rule.path, path))) return &rule;
    }
    return nullptr;
}

void MemoryFiles::RefuseOpen(const std::wstring& path, ErrorCode error) {
    AddFault(Fault::kOpen, path, error);
}

void MemoryFiles::RefuseCreate(const std::wstring& path) {
    AddFault(Fault::kCreate, path, kAccessDenied);
}

void MemoryFiles::FailWriteAt(const std::wstring& path, size_t byte) {
    AddFault(Fault::kWrite, path, kDiskFull, byte);
}

void MemoryFiles::BreakOffFailingWrite(size_t byte) {
    m_breakOffAt = byte;
}

void MemoryFiles::RefuseMove(const std::wstring& from, ErrorCode error) {
    AddFault(Fault::kMove, from, error);
}

void MemoryFiles::RefuseRemove(const std::wstring& path, ErrorCode error) {
    AddFault(Fault::kRemove, path, error);
}

void MemoryFiles::RefuseMakeFolder(const std::wstring& path, ErrorCode error) {
    AddFault(Fault::kMakeFolder, path, error);
}

void MemoryFiles::ClearFaults() {
    m_faults.clear();
    m_breakOffAt.reset();
}

}  // namespace platform
