#include "palette/launcher_data.h"

#include "support/test_platform.h"

using platform::Hive;

namespace {
const std::wstring kKey = L"Software\\KALVOR\\Orvex\\2023\\TESSARC\\AutoCAD";
}

class LauncherDataTest : public SystemTest {};

TEST_F(LauncherDataTest, HandOver_WorksOnce) {
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, kKey, L"ProjectId", 12);
    platform::GetRegistry().WriteString(Hive::kCurrentUser, kKey, L"DrawingName", L"P:\\a%s.dwg");
    const CLauncherData first = TakeLauncherData();
    EXPECT_EQ(first.m_nProjectId, 12);
    EXPECT_EQ(first.m_strDrawing, L"P:\\a%s.dwg");
    const CLauncherData second = TakeLauncherData();
    EXPECT_EQ(second.m_nProjectId, 0);
    EXPECT_EQ(second.m_strDrawing, L"");
}

TEST_F(LauncherDataTest, NothingLeft_GivesNothingAndResetsBothValues) {
    const CLauncherData data = TakeLauncherData();
    EXPECT_EQ(data.m_nProjectId, 0);
    EXPECT_EQ(data.m_strDrawing, L"");
    std::uint32_t project = 99;
    EXPECT_TRUE(platform::GetRegistry().ReadDword(Hive::kCurrentUser, kKey, L"ProjectId", project));
    EXPECT_EQ(project, 0u);
}

TEST_F(LauncherDataTest, ProjectBelowZero_StaysBelowZero) {
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, kKey, L"ProjectId", 0xFFFFFFFF);
    EXPECT_EQ(TakeLauncherData().m_nProjectId, -1);
}
