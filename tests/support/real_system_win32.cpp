#include <windows.h>

#include <array>

#include "platform/win32_platform.h"
#include "support/real_system.h"

namespace {

using platform::Hive;
using platform::Hold;

constexpr wchar_t kBranchesKey[] = L"Software\\kv2dTests";

struct RedirectedHive {
    HKEY m_handle;
    const wchar_t* m_name;
};

const std::array<RedirectedHive, 3>& GetRedirectedHives() {
    static const std::array<RedirectedHive, 3> hives = {{
        {HKEY_CURRENT_USER, L"CurrentUser"},
        {HKEY_LOCAL_MACHINE, L"LocalMachine"},
        {HKEY_CLASSES_ROOT, L"ClassesRoot"},
    }};
    return hives;
}

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

// A name that no other test of this or another process has.
std::wstring MakeUniqueName() {
    static unsigned count = 0;
    return L"kv2d_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++count);
}

std::wstring GetTemporaryFolder() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, folder);
    return folder;
}

void RemoveFolderTree(const std::wstring& folder) {
    WIN32_FIND_DATAW data{};
    const HANDLE search = FindFirstFileW((folder + L"*").c_str(), &data);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring name = data.cFileName;
            if (name == L"." || name == L"..") continue;
            SetFileAttributesW((folder + name).c_str(), FILE_ATTRIBUTE_NORMAL);
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                RemoveFolderTree(folder + name + L"\\");
            } else {
                DeleteFileW((folder + name).c_str());
            }
        } while (FindNextFileW(search, &data));
        FindClose(search);
    }
    RemoveDirectoryW(folder.c_str());
}

DWORD GetHoldAccess(Hold hold) {
    const bool writes = hold == Hold::kWriting || hold == Hold::kWritingShared;
    return GENERIC_READ | (writes ? GENERIC_WRITE : 0);
}

DWORD GetHoldSharing(Hold hold) {
    switch (hold) {
        case Hold::kReading:
            return FILE_SHARE_READ;
        case Hold::kReadingShared:
        case Hold::kWritingShared:
            return FILE_SHARE_READ | FILE_SHARE_WRITE;
        case Hold::kWriting:
            return 0;
    }
    return 0;
}

}  // namespace

bool TestSystem::RealSystem::IsAvailable() {
    return true;
}

TestSystem::RealSystem::RealSystem() : m_branch(std::wstring(kBranchesKey) + L"\\" + MakeUniqueName()) {
    m_root = GetTemporaryFolder() + MakeUniqueName() + L"\\";
    CreateDirectoryW(m_root.c_str(), nullptr);
    std::array<HKEY, 3> keys{};
    for (size_t i = 0; i < keys.size(); ++i) {
        const std::wstring path = m_branch + L"\\" + GetRedirectedHives()[i].m_name;
        RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &keys[i],
                        nullptr);
    }
    for (size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(RegOverridePredefKey(GetRedirectedHives()[i].m_handle, keys[i]), ERROR_SUCCESS);
        RegCloseKey(keys[i]);
    }
}

TestSystem::RealSystem::~RealSystem() {
    for (const RedirectedHive& hive : GetRedirectedHives())
        RegOverridePredefKey(hive.m_handle, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_branch.c_str());
    RemoveFolderTree(m_root);
}

platform::Platform& TestSystem::RealSystem::GetServices() {
    return platform::GetWin32Platform();
}

bool TestSystem::RealSystem::SetModified(const std::wstring& path, platform::FileTime modified) {
    const HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const FILETIME time = {static_cast<DWORD>(modified), static_cast<DWORD>(modified >> 32)};
    const bool done = SetFileTime(file, nullptr, nullptr, &time);
    CloseHandle(file);
    return done;
}

std::function<void()> TestSystem::RealSystem::HoldFile(const std::wstring& path, platform::Hold hold) {
    const HANDLE file = CreateFileW(path.c_str(), GetHoldAccess(hold), GetHoldSharing(hold), nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return [file] { CloseHandle(file); };
}

bool TestSystem::RealSystem::SetRegistryBytes(platform::Hive hive, const std::wstring& key,
                                              const std::wstring& name, platform::RegistryType type,
                                              const std::string& bytes) {
    return RegSetKeyValueW(GetHiveHandle(hive), key.c_str(), name.c_str(), static_cast<DWORD>(type),
                           bytes.data(), static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}
