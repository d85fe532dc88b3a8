#include "palette/launcher_data.h"

#include <cstdint>

#include "platform/platform.h"
#include "storage/registry_settings.h"

namespace {
constexpr wchar_t kProjectValue[] = L"ProjectId";
constexpr wchar_t kDrawingValue[] = L"DrawingName";
}  // namespace

CLauncherData TakeLauncherData() {
    constexpr platform::Hive hive = platform::Hive::kCurrentUser;
    const std::wstring strKey = std::wstring(kProductKey) + L"\\TESSARC\\AutoCAD";
    platform::Registry& registry = platform::GetRegistry();
    CLauncherData data;
    std::uint32_t uProjectId = 0;
    if (registry.ReadDword(hive, strKey, kProjectValue, uProjectId))
        data.m_nProjectId = static_cast<std::int32_t>(uProjectId);
    registry.ReadString(hive, strKey, kDrawingValue, data.m_strDrawing);
    registry.WriteDword(hive, strKey, kProjectValue, 0);
    registry.WriteString(hive, strKey, kDrawingValue, L"");
    return data;
}
