#include "storage/registry_settings.h"

#include "storage/applications.h"
#include "storage/path_text.h"

namespace {

constexpr platform::Hive kUserHive = platform::Hive::kCurrentUser;

}  // namespace

std::wstring GetDisciplineRegistryKey(int nApp) {
    std::wstring strKey = EnsureBackslash(kProductKey);
    if (IsDiscipline(nApp) || nApp == kAppHost) strKey += L"KALVOR 2D\\";
    return strKey + EnsureBackslash(GetApplicationName(nApp));
}

std::uint32_t ReadDisciplineDword(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                                  std::uint32_t uDefault) {
    std::uint32_t uValue = uDefault;
    const std::wstring strKey = GetDisciplineRegistryKey(nApp) + strSubkey;
    return platform::GetRegistry().ReadDword(kUserHive, strKey, strName, uValue) ? uValue : uDefault;
}

void WriteDisciplineDword(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                          std::uint32_t uValue) {
    WriteRegistryDword(kUserHive, GetDisciplineRegistryKey(nApp) + strSubkey, strName, uValue);
}

void WriteDisciplineString(int nApp, const std::wstring& strSubkey, const std::wstring& strName,
                           const std::wstring& strText) {
    const std::wstring strKey = GetDisciplineRegistryKey(nApp) + strSubkey;
    platform::GetRegistry().WriteString(kUserHive, strKey, strName, strText);
}

std::wstring ReadDisciplineString(int nApp, const std::wstring& strSubkey, const std::wstring& strName) {
    std::wstring strText;
    const std::wstring strKey = GetDisciplineRegistryKey(nApp) + strSubkey;
    platform::GetRegistry().ReadString(kUserHive, strKey, strName, strText);
    return strText;
}

bool WriteRegistryDword(platform::Hive hive, const std::wstring& strKey, const std::wstring& strName,
                        std::uint32_t uValue) {
    return platform::GetRegistry().WriteDword(hive, strKey, strName, uValue);
}
