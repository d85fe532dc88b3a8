// The only door to the operating system for storage, database, settings, sizes, document and the pure parts
// of the dialogs. Each service is a small interface with two implementations: win32 (the product) and memory
// (tests: a file tree and a registry with Windows rules, and faults that a test switches on).
//
// Paths are Windows paths with backslashes; names compare without regard to case. Error numbers are the
// system's own (0 done, 2 file not found, 5 access denied, 32 sharing violation, 183 already exists...).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

using ErrorCode = std::uint32_t;
inline constexpr ErrorCode kDone = 0;
inline constexpr ErrorCode kFileNotFound = 2;
inline constexpr ErrorCode kPathNotFound = 3;
inline constexpr ErrorCode kAccessDenied = 5;
inline constexpr ErrorCode kSharingViolation = 32;
inline constexpr ErrorCode kBadNetworkPath = 53;
inline constexpr ErrorCode kFileExists = 80;
inline constexpr ErrorCode kDiskFull = 112;
inline constexpr ErrorCode kInvalidName = 123;
inline constexpr ErrorCode kDirectoryNotEmpty = 145;
inline constexpr ErrorCode kAlreadyExists = 183;
inline constexpr ErrorCode kNotAFolder = 267;

inline constexpr std::uint32_t kInvalidAttributes = 0xFFFFFFFF;
inline constexpr std::uint32_t kAttributeReadOnly = 0x01;
inline constexpr std::uint32_t kAttributeHidden = 0x02;
inline constexpr std::uint32_t kAttributeDirectory = 0x10;

// What other openers may do with a file while it is being read.
enum class Sharing {
    kReadOnly,   // others may read, not write
    kReadWrite,  // others may read and write
};

enum class WriteResult { kWritten, kCannotCreate, kWriteFailed };

// Moments are counted in units of 100 nanoseconds since 1601-01-01 UTC.
using FileTime = std::int64_t;

struct FileStatus {
    std::uint64_t size = 0;  // bytes
    FileTime modified = 0;
    std::uint32_t attributes = 0;
};

struct FoundEntry {
    std::wstring name;  // without its folder
    bool isDirectory = false;
};

class Files {
  public:
    virtual ~Files() = default;

    // Reads the whole file into `bytes`, which is emptied first, also on failure.
    virtual ErrorCode ReadBytes(const std::wstring& path, Sharing sharing, std::string& bytes) = 0;

    // Creates the file or truncates it in place, opened exclusively, and writes `bytes`. There is no
    // temporary file: a write that fails half way leaves what was written so far.
    virtual WriteResult WriteBytes(const std::wstring& path, std::string_view bytes) = 0;

    // kInvalidAttributes if there is no such file or folder.
    virtual std::uint32_t GetAttributes(const std::wstring& path) = 0;
    virtual ErrorCode SetAttributes(const std::wstring& path, std::uint32_t attributes) = 0;
    virtual ErrorCode GetStatus(const std::wstring& path, FileStatus& status) = 0;

    // Entries that match a path whose last component may hold * and ?, in the platform's order, the entries
    // "." and ".." left out. Nothing found and an unreadable folder both give an empty list.
    virtual std::vector<FoundEntry> Find(const std::wstring& pattern) = 0;

    virtual ErrorCode Move(const std::wstring& from, const std::wstring& to) = 0;
    virtual ErrorCode Copy(const std::wstring& from, const std::wstring& to, bool failIfExists) = 0;
    virtual ErrorCode Remove(const std::wstring& path) = 0;
    virtual ErrorCode MakeFolder(const std::wstring& path) = 0;
    virtual ErrorCode RemoveFolder(const std::wstring& path) = 0;

    bool Exists(const std::wstring& path) { return GetAttributes(path) != kInvalidAttributes; }
};

enum class Hive { kClassesRoot, kCurrentUser, kLocalMachine };

class Registry {
  public:
    virtual ~Registry() = default;

    // A value of any type that fits four bytes is returned as read. False leaves `value` as it was.
    virtual bool ReadDword(Hive hive, const std::wstring& key, const std::wstring& name,
                           std::uint32_t& value) = 0;

    // A text longer than 1,023 characters counts as missing. The empty name is the key's default value.
    // `text` is emptied first, also on failure.
    virtual bool ReadString(Hive hive, const std::wstring& key, const std::wstring& name,
                            std::wstring& text) = 0;

    // Both create the key if needed.
    virtual bool WriteDword(Hive hive, const std::wstring& key, const std::wstring& name,
                            std::uint32_t value) = 0;
    virtual bool WriteString(Hive hive, const std::wstring& key, const std::wstring& name,
                             const std::wstring& text) = 0;

    virtual bool DeleteValue(Hive hive, const std::wstring& key, const std::wstring& name) = 0;
    // Deletes the key if it holds neither values nor subkeys.
    virtual bool DeleteEmptyKey(Hive hive, const std::wstring& key) = 0;
    virtual bool DeleteTree(Hive hive, const std::wstring& key) = 0;
    virtual std::vector<std::wstring> GetSubkeys(Hive hive, const std::wstring& key) = 0;
};

class Environment {
  public:
    virtual ~Environment() = default;
    // Empty if the variable is not set.
    virtual std::wstring GetVariable(const std::wstring& name) = 0;
    // The process's first command-line argument, as it was given.
    virtual std::wstring GetProgramArgument() = 0;
};

// A moment in local time, fields as people count them (January is 1).
struct CalendarTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;
    virtual FileTime Now() = 0;
    // False if the moment has no local time (before 1970 or beyond the year 3000).
    virtual bool ToLocal(FileTime moment, CalendarTime& local) = 0;
};

// The same layout as the platform's GUID: three numbers and eight bytes.
struct Guid {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};
    bool operator==(const Guid&) const = default;
};

class Guids {
  public:
    virtual ~Guids() = default;
    virtual Guid Create() = 0;
};

class Processes {
  public:
    virtual ~Processes() = default;
    // Runs a program and waits for its end. `arguments` are passed as they are, the program's own name first.
    // The result is the exit status, or -1 if the program could not be started.
    virtual int RunAndWait(const std::wstring& program, const std::vector<std::wstring>& arguments) = 0;
};

// Which window owns a message box.
enum class BoxOwner { kNone, kHostMainWindow };

// Flags and answers of message boxes, by their published values.
inline constexpr unsigned kBoxIconError = 0x10;
inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerCancel = 2;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual int Show(BoxOwner owner, const std::wstring& text, const std::wstring& caption,
                     unsigned flags) = 0;
};

// The character of each byte value.
using ByteTable = std::array<wchar_t, 256>;

// The one mapping between the narrow text of files and the wide text in memory. The bytes 0 to 127 are ASCII.
class TextCoding {
  public:
    virtual ~TextCoding() = default;
    // A byte that does not decode becomes the character 0xDC00 + byte, which Narrow turns back into the byte.
    virtual std::wstring Widen(std::string_view bytes) = 0;
    // A character that the code page lacks becomes "?".
    virtual std::string Narrow(std::wstring_view text) = 0;
    // The table of a code page in which every byte is a character of its own, so that Narrow(Widen(b)) is b;
    // null for a code page with characters of several bytes.
    virtual const ByteTable* GetByteTable() = 0;
};

struct Platform {
    Files& files;
    Registry& registry;
    Environment& environment;
    Clock& clock;
    Guids& guids;
    Processes& processes;
    MessageBoxes& boxes;
    TextCoding& text;
};

// Nothing may touch the system before a platform is installed.
[[noreturn]] void FailWithoutPlatform();

extern Platform* g_platform;

// The platform in use. Install comes first: the module installs win32 when it is attached, a test its own.
inline Platform& Current() {
    if (!g_platform) FailWithoutPlatform();
    return *g_platform;
}

// Makes `platform` the one in use and returns the previous one (null before the first call). Null takes the
// platform away again.
Platform* Install(Platform* platform);

inline Files& GetFiles() {
    return Current().files;
}
inline Registry& GetRegistry() {
    return Current().registry;
}
inline Environment& GetEnvironment() {
    return Current().environment;
}
inline Clock& GetClock() {
    return Current().clock;
}
inline Guids& GetGuids() {
    return Current().guids;
}
inline Processes& GetProcesses() {
    return Current().processes;
}
inline MessageBoxes& GetBoxes() {
    return Current().boxes;
}
inline TextCoding& GetText() {
    return Current().text;
}

}  // namespace platform
