#include "storage/registry_settings.h"

#include "storage/applications.h"
#include "support/test_platform.h"

namespace {

using platform::Hive;

constexpr wchar_t kPidManagerKey[] = L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\PID\\DrawingManager";

class RegistrySettingsTest : public SystemTest {};
class RegistrySettingsMemoryTest : public MemorySystemTest {};

TEST(Applications, Names_AreThoseOfTheSuite) {
    const wchar_t* const names[] = {L"",
                                    L"ELECTRIC",
                                    L"PID",
                                    L"ISOMETRIC",
                                    L"ORTHO",
                                    L"BOM Settings Manager",
                                    L"License Manager",
                                    L"SetupMaintenance",
                                    L"SpecGenerator",
                                    L"Standards Manager",
                                    L"DataFiles Editor",
                                    L"AutoCAD",
                                    L""};
    for (int app = 0; app <= 12; ++app)
        EXPECT_EQ(GetApplicationName(app), names[app]);
    for (int app = 5; app <= 12; ++app)
        EXPECT_EQ(GetApplicationFolderName(app), names[app]);
    EXPECT_EQ(GetApplicationName(-1), L"");
}

TEST(Applications, FolderNames_OfDisciplinesAreTheOldWords) {
    EXPECT_EQ(GetApplicationFolderName(kAppElectric), L"Electric");
    EXPECT_EQ(GetApplicationFolderName(kAppPid), L"Flow");
    EXPECT_EQ(GetApplicationFolderName(kAppIsometric), L"Iso");
    EXPECT_EQ(GetApplicationFolderName(kAppOrtho), L"Ortho");
    EXPECT_EQ(GetApplicationFolderName(0), L"");
    EXPECT_EQ(GetApplicationFolderName(-1), L"");
}

TEST(DisciplineKey, DisciplinesAndHost_LieBelowTheirGroup) {
    EXPECT_EQ(GetDisciplineRegistryKey(1), L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\ELECTRIC\\");
    EXPECT_EQ(GetDisciplineRegistryKey(2), L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\PID\\");
    EXPECT_EQ(GetDisciplineRegistryKey(4), L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\ORTHO\\");
    EXPECT_EQ(GetDisciplineRegistryKey(11), L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\AutoCAD\\");
    EXPECT_EQ(GetDisciplineRegistryKey(9), L"Software\\KALVOR\\Orvex\\2023\\Standards Manager\\");
    EXPECT_EQ(GetDisciplineRegistryKey(0), L"Software\\KALVOR\\Orvex\\2023\\");
}

TEST_F(RegistrySettingsTest, ReadDisciplineDword_OfMissingKeyOrValue_IsTheDefault) {
    EXPECT_EQ(ReadDisciplineDword(2, L"DrawingManager", L"ShowWindow", 1), 1u);
    WriteDisciplineDword(2, L"DrawingManager", L"Other", 5);
    EXPECT_EQ(ReadDisciplineDword(2, L"DrawingManager", L"ShowWindow", 1), 1u);
}

TEST_F(RegistrySettingsTest, ReadDisciplineDword_OfAnotherTypeThatFits_IsReadAsItIs) {
    SetRegistryBytes(Hive::kCurrentUser, kPidManagerKey, L"ProjectId", platform::RegistryType::kBinary,
                     std::string("\x01\x02\x00\x00", 4));
    EXPECT_EQ(ReadDisciplineDword(2, L"DrawingManager", L"ProjectId", 7), 0x201u);
    SetRegistryBytes(Hive::kCurrentUser, kPidManagerKey, L"ProjectId", platform::RegistryType::kString,
                     platform::EncodeRegistryText(L"12345"));
    EXPECT_EQ(ReadDisciplineDword(2, L"DrawingManager", L"ProjectId", 7), 7u);
}

TEST_F(RegistrySettingsTest, WriteDisciplineDword_LandsUnderTheUsersDisciplineKey) {
    WriteDisciplineDword(2, L"DrawingManager", L"ProjectId", 0xFFFFFFFF);
    std::uint32_t value = 0;
    EXPECT_TRUE(platform::GetRegistry().ReadDword(Hive::kCurrentUser, kPidManagerKey, L"ProjectId", value));
    EXPECT_EQ(value, 0xFFFFFFFFu);
    EXPECT_EQ(ReadDisciplineDword(2, L"DrawingManager", L"ProjectId", 0), 0xFFFFFFFFu);
    EXPECT_EQ(ReadDisciplineDword(3, L"DrawingManager", L"ProjectId", 0), 0u);
}

TEST_F(RegistrySettingsTest, DisciplineString_ComesBack_AndMissingIsEmpty) {
    EXPECT_EQ(ReadDisciplineString(2, L"DrawingManager", L"SelectedFolder"), L"");
    WriteDisciplineString(2, L"DrawingManager", L"SelectedFolder", L"C:\\Standards\\");
    EXPECT_EQ(ReadDisciplineString(2, L"DrawingManager", L"SelectedFolder"), L"C:\\Standards\\");
    WriteDisciplineString(2, L"DrawingManager", L"SelectedFolder", std::wstring(1024, L'x'));
    EXPECT_EQ(ReadDisciplineString(2, L"DrawingManager", L"SelectedFolder"), L"");
}

TEST_F(RegistrySettingsTest, WriteRegistryDword_TellsSuccess) {
    EXPECT_TRUE(WriteRegistryDword(Hive::kCurrentUser, L"TESSARC\\AutoCAD", L"ProjectId", 3));
    std::uint32_t value = 0;
    EXPECT_TRUE(
        platform::GetRegistry().ReadDword(Hive::kCurrentUser, L"TESSARC\\AutoCAD", L"ProjectId", value));
    EXPECT_EQ(value, 3u);
}

TEST_F(RegistrySettingsMemoryTest, RefusedWrites_AreSilentOrTold) {
    GetMemory().registry.RefuseWrites(Hive::kCurrentUser, L"");
    WriteDisciplineDword(2, L"DrawingManager", L"ProjectId", 5);
    WriteDisciplineString(2, L"DrawingManager", L"SelectedFolder", L"x");
    EXPECT_FALSE(WriteRegistryDword(Hive::kCurrentUser, L"TESSARC\\AutoCAD", L"ProjectId", 3));
    EXPECT_EQ(ReadDisciplineDword(2, L"DrawingManager", L"ProjectId", 1), 1u);
    EXPECT_TRUE(GetBoxes().empty());
}

}  // namespace
