// A file tree in memory with Windows rules: drives and network shares, backslashes, names that keep their
// case and compare without it, share modes, attributes, the system's error numbers - and faults on demand.
//
// Drive C: is there from the start. A relative path counts from C:\.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/call_log.h"
#include "platform/platform.h"

namespace platform {

// How another process holds a file open.
enum class Hold {
    kReading,        // reads; others may read
    kReadingShared,  // reads; others may read and write
    kWriting,        // writes; others may do nothing
    kWritingShared,  // writes; others may read and write
};

class MemoryFiles : public Files {
  public:
    MemoryFiles(Clock& clock, CallLog& log);
    ~MemoryFiles() override;

    ErrorCode ReadBytes(const std::wstring& path, Sharing sharing, std::string& bytes) override;
    WriteResult WriteBytes(const std::wstring& path, std::string_view bytes) override;
    std::uint32_t GetAttributes(const std::wstring& path) override;
    ErrorCode SetAttributes(const std::wstring& path, std::uint32_t attributes) override;
    ErrorCode GetStatus(const std::wstring& path, FileStatus& status) override;
    std::vector<FoundEntry> Find(const std::wstring& pattern) override;
    ErrorCode Move(const std::wstring& from, const std::wstring& to) override;
    ErrorCode Copy(const std::wstring& from, const std::wstring& to, bool failIfExists) override;
    ErrorCode Remove(const std::wstring& path) override;
    ErrorCode MakeFolder(const std::wstring& path) override;
    ErrorCode RemoveFolder(const std::wstring& path) override;

    // Setting the scene. These neither count as calls nor fail by faults.
    void AddDrive(const std::wstring& root);                    // L"D:" or L"\\\\server\\share"
    void AddFolder(const std::wstring& path);                   // with all folders above it
    void AddFile(const std::wstring& path, std::string bytes);  // with all folders above it
    bool SetModified(const std::wstring& path, FileTime modified);
    void ChangeAttribute(const std::wstring& path, std::uint32_t attribute, bool on);
    void HoldFile(const std::wstring& path, Hold hold);
    void ReleaseFile(const std::wstring& path);

    // Looking at the scene, past the log, the faults and the share modes.
    ErrorCode PeekBytes(const std::wstring& path, std::string& bytes) const;
    std::uint32_t PeekAttributes(const std::wstring& path) const;

    // Faults. An empty path means every path. They last until ClearFaults.
    void RefuseOpen(const std::wstring& path, ErrorCode error = kAccessDenied);
    void RefuseCreate(const std::wstring& path);
    void FailWriteAt(const std::wstring& path, size_t byte);  // bytes ahead of it reach the file
    // A write that is to fail by CallLog::FailCall is not refused but breaks off at that byte.
    void BreakOffFailingWrite(size_t byte);
    void RefuseMove(const std::wstring& from, ErrorCode error = kAccessDenied);
    void RefuseRemove(const std::wstring& path, ErrorCode error = kAccessDenied);
    void RefuseMakeFolder(const std::wstring& path, ErrorCode error = kAccessDenied);
    void ClearFaults();

  private:
    struct Node;
    struct Place;
    enum class Fault { kOpen, kCreate, kWrite, kMove, kRemove, kMakeFolder };
    struct FaultRule {
        Fault fault;
        std::wstring path;
        ErrorCode error;
        size_t byte;
    };

    Place Locate(const std::wstring& path) const;
    const FaultRule* FindFault(Fault fault, const std::wstring& path) const;
    void AddFault(Fault fault, const std::wstring& path, ErrorCode error, size_t byte = 0);
    Node* AddNode(const Place& place, bool isFolder);
    std::unique_ptr<Node> TakeNode(const Place& place);
    FileTime NextStamp();

    Clock& m_clock;
    CallLog& m_log;
    FileTime m_lastStamp = 0;
    std::map<std::wstring, std::unique_ptr<Node>> m_roots;
    std::vector<FaultRule> m_faults;
    std::optional<size_t> m_breakOffAt;
};

// Whether a file's name, or the short name that an old file system gives it, matches a pattern with * and ?.
// "*.txt" matches "x.txtx" by its short name, "*.*" matches every name.
bool MatchesPattern(const std::wstring& name, const std::wstring& pattern);

}  // namespace platform
