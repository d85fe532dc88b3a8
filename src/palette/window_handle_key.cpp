#include "palette/window_handle_key.h"

#include <cstdio>

#include "platform/invalid_argument.h"
#include "platform/platform.h"
#include "storage/registry_settings.h"

namespace {

using platform::Hive;

std::wstring GetHandlesKey() {
    return std::wstring(kProductKey) + L"\\WindowHandle\\";
}

// Year and month as the other programs write them: "202611".
std::wstring GetPresentMonth() {
    platform::Clock& clock = platform::GetClock();
    platform::CalendarTime local;
    if (!clock.ToLocal(clock.Now(), local)) platform::ThrowInvalidArgument();
    wchar_t szMonth[32];
    std::swprintf(szMonth, std::size(szMonth), L"%04d%02d", local.year, local.month);
    return szMonth;
}

}  // namespace

std::wstring GetWindowHandleKey(std::int32_t nMainWindow) {
    return GetHandlesKey() + GetPresentMonth() + L"\\" + std::to_wstring(nMainWindow);
}

void WriteWindowHandle(std::int32_t nMainWindow, const std::wstring& strName, std::uint32_t uDialog) {
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, GetWindowHandleKey(nMainWindow), strName, uDialog);
}

void RemoveWindowHandle(std::int32_t nMainWindow, const std::wstring& strName) {
    platform::Registry& registry = platform::GetRegistry();
    const std::wstring strKey = GetWindowHandleKey(nMainWindow);
    registry.DeleteValue(Hive::kCurrentUser, strKey, strName);
    registry.DeleteEmptyKey(Hive::kCurrentUser, strKey);
    const std::wstring strPresent = GetPresentMonth();
    for (const std::wstring& strMonth : registry.GetSubkeys(Hive::kCurrentUser, GetHandlesKey()))
        if (strMonth != strPresent) registry.DeleteTree(Hive::kCurrentUser, GetHandlesKey() + strMonth);
}
