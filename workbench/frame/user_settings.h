// The workbench's own settings in the registry: below HKEY_CURRENT_USER\Software\Workbench, never below a key
// of the product that is loaded into it.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace frame {

// `key` is a path below the workbench's key, such as L"Palettes\\{...}"; empty for the key itself. Reading
// gives nothing for a value that is missing or of another type; writing creates the key and tells success.
std::optional<DWORD> ReadSetting(const std::wstring& key, const std::wstring& name);
std::optional<std::wstring> ReadTextSetting(const std::wstring& key, const std::wstring& name);
bool WriteSetting(const std::wstring& key, const std::wstring& name, DWORD value);
bool WriteTextSetting(const std::wstring& key, const std::wstring& name, const std::wstring& value);

}  // namespace frame
