#include "shell/profile_first_use.h"

#include <cstdint>

#include "platform/platform.h"
#include "storage/path_text.h"

namespace {
constexpr std::uint32_t kNeverStored = 0xFFFFFFFF;
}

bool IsProfileFirstUse(const std::wstring& strRootKey, const std::wstring& strProfile) {
    if (strRootKey.empty() || strProfile.empty()) return false;
    const std::wstring strKey =
        EnsureBackslash(strRootKey) + L"Profiles\\" + strProfile + L"\\Drawing Window";
    std::uint32_t uValue = kNeverStored;
    if (!platform::GetRegistry().ReadDword(platform::Hive::kCurrentUser, strKey, L"MoreHideWarningDialogs",
                                           uValue))
        uValue = kNeverStored;
    return uValue == kNeverStored;
}
