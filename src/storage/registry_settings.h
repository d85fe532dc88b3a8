// Registry values of the product: the product key, the disciplines' keys, and typed reading and writing below
// them. Everything here is on HKEY_CURRENT_USER unless a hive is named.
#pragma once

#include <cstdint>
#include <string>

#include "platform/platform.h"

inline constexpr wchar_t kProductKey[] = L"Software\\KALVOR\\Orvex\\2023";

std::wstring GetDisciplineRegistryKey(int nApp);

std::uint32_t ReadDisciplineDword(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                                  std::uint32_t uDefault);
void WriteDisciplineDword(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                          std::uint32_t uValue);
void WriteDisciplineString(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                           const std::wstring& strText);
// Empty if the value cannot be read.
std::wstring ReadDisciplineString(int nApp, const std::wstring& strSubkey, const std::wstring& strName);

bool WriteRegistryDword(platform::Hive hive, const std::wstring& strKey, const std::wstring& strName,
                        std::uint32_t uValue);
