// Registry values of the product: the product key, the disciplines' keys, and typed reading and writing below
// them. Everything here is on HKEY_CURRENT_USER unless a hive is named, and nothing is cached. A write
// creates its key; one that fails is passed over in silence unless the result tells it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/platform.h"

inline constexpr wchar_t kProductKey[] = L"Software\\KALVOR\\Orvex\\2023";

// The key of an application, with a backslash behind it: a subkey is simply appended. The disciplines and the
// host lie below "KALVOR 2D\"; an unknown number gives the product key.
std::wstring GetDisciplineRegistryKey(int nApp);

// The default if the value cannot be read. A value of another type that fits four bytes is returned as read:
// the text "1" gives 0x31.
std::uint32_t ReadDisciplineDword(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                                  std::uint32_t uDefault);
void WriteDisciplineDword(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                          std::uint32_t uValue);
void WriteDisciplineString(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                           const std::wstring& strText);
// Empty if the value cannot be read, and for a text longer than 1,023 characters.
std::wstring ReadDisciplineString(int nApp, const std::wstring& strSubkey, const std::wstring& strName);

// True if the value was written.
bool WriteRegistryDword(platform::Hive hive, const std::wstring& strKey, const std::wstring& strName,
                        std::uint32_t uValue);
