#include "controls/file_bytes.h"

#include <windows.h>

namespace controls {

bool ReadFileStart(const std::wstring& path, std::size_t most, std::string& bytes, bool& isWhole) {
    bytes.clear();
    isWhole = false;
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    LARGE_INTEGER size = {};
    bool read = GetFileSizeEx(file, &size) != FALSE;
    if (read) {
        const auto length = static_cast<unsigned long long>(size.QuadPart);
        isWhole = length <= most;
        bytes.resize(isWhole ? static_cast<std::size_t>(length) : most);
        DWORD got = 0;
        read = ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr) &&
               got == bytes.size();
    }
    CloseHandle(file);
    if (!read) bytes.clear();
    return read;
}

bool ReadFileBytes(const std::wstring& path, std::size_t largest, std::string& bytes) {
    bool isWhole = false;
    const bool read = ReadFileStart(path, largest, bytes, isWhole) && isWhole;
    if (!read) bytes.clear();
    return read;
}

}  // namespace controls
