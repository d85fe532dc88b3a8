#include "platform/win32_registry.h"

#include <windows.h>

#include <cstring>
#include <memory>

namespace platform {

namespace {

constexpr size_t kLongestText = 1023;
constexpr DWORD kLongestKeyName = 255;

struct KeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<HKEY, KeyCloser>;

HKEY GetHiveHandle(Hive hive) {
    switch (hive) {
        case Hive::kClassesRoot:
            return HKEY_CLASSES_ROOT;
        case Hive::kCurrentUser:
            return HKEY_CURRENT_USER;
        case Hive::kLocalMachine:
            return HKEY_LOCAL_MACHINE;
    }
    return nullptr;
}

// A key of a 32-bit number is no handle that may be closed: the hive is opened anew, which also takes over a
// redirection that is in force.
Key OpenKey(HKEY parent, const wchar_t* path, REGSAM access) {
    HKEY key = nullptr;
    return Key(RegOpenKeyExW(parent, path, 0, access, &key) == ERROR_SUCCESS ? key : nullptr);
}

Key OpenKey(Hive hive, const std::wstring& path, REGSAM access) {
    return OpenKey(GetHiveHandle(hive), path.c_str(), access);
}

// The system stores a path that ends in a backslash as the same key.
Key MakeKey(Hive hive, const std::wstring& path) {
    const Key root = OpenKey(hive, L"", KEY_WRITE);
    if (!root) return nullptr;
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(root.get(), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           KEY_WRITE, nullptr, &key, nullptr);
    return Key(status == ERROR_SUCCESS ? key : nullptr);
}

bool WriteValue(Hive hive, const std::wstring& path, const std::wstring& name, DWORD type, const void* data,
                size_t size) {
    const Key key = MakeKey(hive, path);
    return key && RegSetValueExW(key.get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                                 static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

// Reads a value of any type whose bytes fit; `size` is the room and becomes the number of bytes.
bool ReadValue(Hive hive, const std::wstring& path, const std::wstring& name, void* data, DWORD& size) {
    const Key key = OpenKey(hive, path, KEY_QUERY_VALUE);
    return key && RegQueryValueExW(key.get(), name.c_str(), nullptr, nullptr, static_cast<BYTE*>(data),
                                   &size) == ERROR_SUCCESS;
}

}  // namespace

bool Win32Registry::ReadDword(Hive hive, const std::wstring& key, const std::wstring& name,
                              std::uint32_t& value) {
    std::uint32_t read = 0;
    DWORD size = sizeof read;
    if (!ReadValue(hive, key, name, &read, size)) return false;
    value = read;
    return true;
}

bool Win32Registry::ReadString(Hive hive, const std::wstring& key, const std::wstring& name,
                               std::wstring& text) {
    text.clear();
    // One more than what is asked for: text in the registry need not end in a zero.
    wchar_t buffer[kLongestText + 2] = {};
    DWORD size = (kLongestText + 1) * sizeof(wchar_t);
    if (!ReadValue(hive, key, name, buffer, size)) return false;
    const size_t length = std::wcslen(buffer);
    if (length > kLongestText) return false;
    text.assign(buffer, length);
    return true;
}

bool Win32Registry::WriteDword(Hive hive, const std::wstring& key, const std::wstring& name,
                               std::uint32_t value) {
    return WriteValue(hive, key, name, REG_DWORD, &value, sizeof value);
}

bool Win32Registry::WriteString(Hive hive, const std::wstring& key, const std::wstring& name,
                                const std::wstring& text) {
    return WriteValue(hive, key, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

bool Win32Registry::DeleteValue(Hive hive, const std::wstring& key, const std::wstring& name) {
    const Key opened = OpenKey(hive, key, KEY_SET_VALUE);
    return opened && RegDeleteValueW(opened.get(), name.c_str()) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteEmptyKey(Hive hive, const std::wstring& key) {
    DWORD subkeys = 0;
    DWORD values = 0;
    {
        const Key opened = OpenKey(hive, key, KEY_QUERY_VALUE);
        if (!opened || RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr,
                                        &values, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            return false;
        }
    }
    return subkeys == 0 && values == 0 && RegDeleteKeyW(GetHiveHandle(hive), key.c_str()) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteTree(Hive hive, const std::wstring& key) {
    // The empty path would empty the hive.
    if (key.find_first_not_of(L'\\') == std::wstring::npos) return false;
    return RegDeleteTreeW(GetHiveHandle(hive), key.c_str()) == ERROR_SUCCESS;
}

std::vector<std::wstring> Win32Registry::GetSubkeys(Hive hive, const std::wstring& key) {
    std::vector<std::wstring> names;
    const Key opened = OpenKey(hive, key, KEY_ENUMERATE_SUB_KEYS);
    if (!opened) return names;
    wchar_t name[kLongestKeyName + 1];
    for (DWORD i = 0;; ++i) {
        DWORD length = kLongestKeyName + 1;
        if (RegEnumKeyExW(opened.get(), i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return names;
        }
        names.emplace_back(name, length);
    }
}

}  // namespace platform
