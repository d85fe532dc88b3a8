#include "platform/win32_files.h"

#include <windows.h>

#include <algorithm>
#include <memory>

namespace platform {

namespace {

// One call reads or writes at most this much; the system's counts have 32 bits.
constexpr size_t kLargestBlock = size_t{1} << 30;

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, HandleCloser>;

struct FindCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { FindClose(handle); }
};
using FindHandle = std::unique_ptr<HANDLE, FindCloser>;

Handle OpenFile(const std::wstring& path, DWORD access, DWORD sharing, DWORD disposition) {
    const HANDLE handle =
        CreateFileW(path.c_str(), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

ErrorCode Outcome(BOOL done) {
    return done ? kDone : GetLastError();
}

bool IsDotsEntry(const wchar_t* name) {
    return name[0] == L'.' && (name[1] == L'\0' || (name[1] == L'.' && name[2] == L'\0'));
}

// Reads to the end, which may have moved since the size was asked for.
ErrorCode ReadToEnd(HANDLE file, std::string& bytes) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file, &size)) return GetLastError();
    bytes.resize(static_cast<size_t>(size.QuadPart));
    size_t done = 0;
    while (done < bytes.size()) {
        DWORD count = 0;
        const auto block = static_cast<DWORD>(std::min(kLargestBlock, bytes.size() - done));
        if (!::ReadFile(file, bytes.data() + done, block, &count, nullptr)) return GetLastError();
        if (count == 0) break;
        done += count;
    }
    bytes.resize(done);
    return kDone;
}

}  // namespace

ErrorCode Win32Files::ReadBytes(const std::wstring& path, Sharing sharing, std::string& bytes) {
    bytes.clear();
    const DWORD share = FILE_SHARE_READ | (sharing == Sharing::kReadWrite ? FILE_SHARE_WRITE : 0);
    const Handle file = OpenFile(path, GENERIC_READ, share, OPEN_EXISTING);
    if (!file) return GetLastError();
    const ErrorCode error = ReadToEnd(file.get(), bytes);
    if (error != kDone) bytes.clear();
    return error;
}

WriteResult Win32Files::WriteBytes(const std::wstring& path, std::string_view bytes) {
    const Handle file = OpenFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    if (!file) return WriteResult::kCannotCreate;
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto block = static_cast<DWORD>(std::min(kLargestBlock, bytes.size()));
        if (!::WriteFile(file.get(), bytes.data(), block, &count, nullptr) || count == 0) {
            return WriteResult::kWriteFailed;
        }
        bytes.remove_prefix(count);
    }
    return WriteResult::kWritten;
}

std::uint32_t Win32Files::GetAttributes(const std::wstring& path) {
    return GetFileAttributesW(path.c_str());
}

ErrorCode Win32Files::SetAttributes(const std::wstring& path, std::uint32_t attributes) {
    return Outcome(SetFileAttributesW(path.c_str(), attributes & ~kAttributeDirectory));
}

ErrorCode Win32Files::GetStatus(const std::wstring& path, FileStatus& status) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return GetLastError();
    const auto join = [](DWORD high, DWORD low) { return static_cast<std::uint64_t>(high) << 32 | low; };
    status.size = join(data.nFileSizeHigh, data.nFileSizeLow);
    status.modified =
        static_cast<FileTime>(join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime));
    status.attributes = data.dwFileAttributes;
    return kDone;
}

std::vector<FoundEntry> Win32Files::Find(const std::wstring& pattern) {
    std::vector<FoundEntry> entries;
    WIN32_FIND_DATAW data{};
    const HANDLE handle = FindFirstFileW(pattern.c_str(), &data);
    if (handle == INVALID_HANDLE_VALUE) return entries;
    const FindHandle search(handle);
    do {
        if (IsDotsEntry(data.cFileName)) continue;
        entries.push_back({data.cFileName, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileW(search.get(), &data));
    return entries;
}

ErrorCode Win32Files::Move(const std::wstring& from, const std::wstring& to) {
    return Outcome(MoveFileW(from.c_str(), to.c_str()));
}

ErrorCode Win32Files::Copy(const std::wstring& from, const std::wstring& to, bool failIfExists) {
    return Outcome(CopyFileW(from.c_str(), to.c_str(), failIfExists));
}

ErrorCode Win32Files::Remove(const std::wstring& path) {
    return Outcome(DeleteFileW(path.c_str()));
}

ErrorCode Win32Files::MakeFolder(const std::wstring& path) {
    return Outcome(CreateDirectoryW(path.c_str(), nullptr));
}

ErrorCode Win32Files::RemoveFolder(const std::wstring& path) {
    return Outcome(RemoveDirectoryW(path.c_str()));
}

}  // namespace platform
