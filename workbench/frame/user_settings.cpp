#include "frame/user_settings.h"

#include <vector>

namespace frame {

namespace {

std::wstring FullKey(const std::wstring& key) {
    const std::wstring root = L"Software\\Workbench";
    return key.empty() ? root : root + L"\\" + key;
}

bool Write(const std::wstring& key, const std::wstring& name, DWORD type, const void* data, DWORD size) {
    return RegSetKeyValueW(HKEY_CURRENT_USER, FullKey(key).c_str(), name.c_str(), type, data, size) ==
           ERROR_SUCCESS;
}

}  // namespace

std::optional<DWORD> ReadSetting(const std::wstring& key, const std::wstring& name) {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegGetValueW(HKEY_CURRENT_USER, FullKey(key).c_str(), name.c_str(), RRF_RT_REG_DWORD, nullptr, &value,
                     &size) != ERROR_SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<std::wstring> ReadTextSetting(const std::wstring& key, const std::wstring& name) {
    DWORD size = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, FullKey(key).c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr,
                     &size) != ERROR_SUCCESS)
        return std::nullopt;
    std::vector<wchar_t> text(size / sizeof(wchar_t) + 1);
    if (RegGetValueW(HKEY_CURRENT_USER, FullKey(key).c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                     text.data(), &size) != ERROR_SUCCESS)
        return std::nullopt;
    return std::wstring(text.data());
}

bool WriteSetting(const std::wstring& key, const std::wstring& name, DWORD value) {
    return Write(key, name, REG_DWORD, &value, sizeof value);
}

bool WriteTextSetting(const std::wstring& key, const std::wstring& name, const std::wstring& value) {
    return Write(key, name, REG_SZ, value.c_str(), static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

}  // namespace frame
