#include "storage/install_paths.h"

#include "support/test_platform.h"

namespace {

class InstallPathsTest : public SystemTest {};

TEST_F(InstallPathsTest, DatafilePath_WithAndWithoutTrailingBackslash_IsTheSame) {
    SetMachineValue(L"DatafilesPath", L"X:\\Data");
    EXPECT_EQ(GetDatafilesPath(), L"X:\\Data\\");
    EXPECT_EQ(GetDatafilePath(L"ClientDatafile.ini"), L"X:\\Data\\ClientDatafile.ini");
    SetMachineValue(L"DatafilesPath", L"X:\\Data\\");
    EXPECT_EQ(GetDatafilesPath(), L"X:\\Data\\");
    EXPECT_EQ(GetDatafilePath(L"ClientDatafile.ini"), L"X:\\Data\\ClientDatafile.ini");
}

TEST_F(InstallPathsTest, DatafilePath_WithoutRegistryValue_IsEmptyAndNotTheBareName) {
    EXPECT_EQ(GetDatafilesPath(), L"");
    EXPECT_EQ(GetDatafilePath(L"ClientDatafile.ini"), L"");
    EXPECT_EQ(GetLibrariesPath(), L"");
    EXPECT_EQ(GetPipingStandardPath(L"ANSI"), L"");
    SetMachineValue(L"DatafilesPath", L"");
    EXPECT_EQ(GetDatafilePath(L"ClientDatafile.ini"), L"");
}

TEST_F(InstallPathsTest, NoRoot_StandsInForAnother) {
    SetMachineValue(L"NetworkAppPath", L"N:\\Apps");
    SetMachineValue(L"LocalAppPath", L"C:\\Apps");
    EXPECT_EQ(GetDatafilesPath(), L"");
}

TEST_F(InstallPathsTest, DatafilesPath_IsReadAnewOnEveryCall) {
    SetMachineValue(L"DatafilesPath", L"X:\\Data");
    EXPECT_EQ(GetDatafilesPath(), L"X:\\Data\\");
    DeleteMachineValue(L"DatafilesPath");
    EXPECT_EQ(GetDatafilesPath(), L"");
}

TEST_F(InstallPathsTest, DatafilesPath_OfTheUser_DoesNotCount) {
    platform::GetRegistry().WriteString(platform::Hive::kCurrentUser, L"Software\\KALVOR\\Orvex\\2023",
                                        L"DatafilesPath", L"X:\\Data");
    EXPECT_EQ(GetDatafilesPath(), L"");
}

TEST_F(InstallPathsTest, FoldersBelowTheDatabase) {
    SetMachineValue(L"DatafilesPath", L"\\\\server\\share\\Data");
    EXPECT_EQ(GetLibrariesPath(), L"\\\\server\\share\\Data\\Libraries\\");
    EXPECT_EQ(GetPipingStandardPath(L"ANSI"), L"\\\\server\\share\\Data\\Standards\\Piping\\ANSI\\");
    EXPECT_EQ(GetPipingStandardPath(L""), L"\\\\server\\share\\Data\\Standards\\Piping\\");
}

TEST_F(InstallPathsTest, CommonFilesPath_NeedsTheNetworkFolder) {
    EXPECT_EQ(GetCommonFilesPath(), L"");
    SetMachineValue(L"NetworkAppPath", L"N:\\Apps");
    EXPECT_EQ(GetCommonFilesPath(), L"N:\\Apps\\Applications\\Common Files\\");
}

TEST_F(InstallPathsTest, CommonProgramFilesPath_NeedsTheVariable) {
    EXPECT_EQ(GetCommonProgramFilesPath(), L"");
    SetVariable(L"CommonProgramFiles", L"C:\\Program Files\\Common Files");
    EXPECT_EQ(GetCommonProgramFilesPath(), L"C:\\Program Files\\Common Files\\KALVOR\\");
}

TEST_F(InstallPathsTest, NetworkApplicationPath_AddsApplicationAndSubfolder) {
    EXPECT_EQ(GetNetworkApplicationPath(2, L"Menu"), L"");
    SetMachineValue(L"NetworkAppPath", L"N:\\Apps\\");
    EXPECT_EQ(GetNetworkApplicationPath(2, L"Menu"), L"N:\\Apps\\Tessarc\\PID\\Menu\\");
    EXPECT_EQ(GetNetworkApplicationPath(2, L""), L"N:\\Apps\\Tessarc\\PID\\");
    EXPECT_EQ(GetNetworkApplicationPath(0, L"Menu"), L"N:\\Apps\\Tessarc\\Menu\\");
    EXPECT_EQ(GetNetworkApplicationPath(0, L""), L"N:\\Apps\\Tessarc\\");
    EXPECT_EQ(GetNetworkApplicationPath(12, L""), L"N:\\Apps\\Tessarc\\\\");
}

TEST_F(InstallPathsTest, HelpFilePath_WithoutLocalFolder_IsTheBareFile) {
    EXPECT_EQ(GetHelpFilePath(2), L"PID.chm");
    EXPECT_EQ(GetHelpFilePath(9), L".chm");
    SetMachineValue(L"LocalAppPath", L"C:\\Apps");
    EXPECT_EQ(GetHelpFilePath(1), L"C:\\Apps\\Help\\ELECTRIC.chm");
    EXPECT_EQ(GetHelpFilePath(4), L"C:\\Apps\\Help\\ORTHO.chm");
    EXPECT_EQ(GetHelpFilePath(5), L"C:\\Apps\\Help\\.chm");
    EXPECT_EQ(GetHelpFilePath(0), L"C:\\Apps\\Help\\.chm");
}

TEST_F(InstallPathsTest, UserSettingsPath_PrefersTheInstalledFolder) {
    SetVariable(L"ProgramData", L"C:\\ProgramData");
    SetMachineValue(L"Installation", L"User Settings Path", L"U:\\Settings");
    EXPECT_EQ(GetUserSettingsPath(), L"U:\\Settings\\UserSettings.ini");
    SetMachineValue(L"Installation", L"User Settings Path", L"U:\\Settings\\");
    EXPECT_EQ(GetUserSettingsPath(), L"U:\\Settings\\UserSettings.ini");
}

TEST_F(InstallPathsTest, UserSettingsPath_FallsBackToProgramDataThenToTheSystemDrive) {
    SetMachineValue(L"Installation", L"User Settings Path", L"");
    SetVariable(L"ProgramData", L"C:\\ProgramData");
    SetVariable(L"SystemDrive", L"D:");
    EXPECT_EQ(GetUserSettingsPath(), L"C:\\ProgramData\\KALVOR\\Orvex 2023\\UserSettings.ini");
    SetVariable(L"ProgramData", L"");
    EXPECT_EQ(GetUserSettingsPath(), L"D:\\ProgramData\\KALVOR\\Orvex 2023\\UserSettings.ini");
    SetVariable(L"SystemDrive", L"");
    EXPECT_EQ(GetUserSettingsPath(), L"ProgramData\\KALVOR\\Orvex 2023\\UserSettings.ini");
}

TEST_F(InstallPathsTest, MenuIconSize_WithoutFileOrKey_Is16) {
    SetMachineValue(L"Installation", L"User Settings Path", InRoot(L"User"));
    EXPECT_EQ(GetMenuIconSize(), 16);
    PutFile(InRoot(L"User\\UserSettings.ini"), Lines({"[Other]", "MenuSize = 32"}));
    EXPECT_EQ(GetMenuIconSize(), 16);
    EXPECT_FALSE(HasFile(InRoot(L"User\\Other.ini")));
}

TEST_F(InstallPathsTest, MenuIconSize_IsReadFromTheUsersFile) {
    SetMachineValue(L"Installation", L"User Settings Path", InRoot(L"User"));
    PutFile(InRoot(L"User\\UserSettings.ini"), Lines({"[AutoCAD Settings]", "MenuSize = 32"}));
    EXPECT_EQ(GetMenuIconSize(), 32);
    PutFile(InRoot(L"User\\UserSettings.ini"), Lines({"[AutoCAD Settings]", "MenuSize = large"}));
    EXPECT_EQ(GetMenuIconSize(), 0);
}

// --- Faults.

void PutAllRoots(TestSystem& system) {
    system.SetMachineValue(L"DatafilesPath", L"X:\\Data");
    system.SetMachineValue(L"NetworkAppPath", L"N:\\Apps");
    system.SetMachineValue(L"LocalAppPath", L"C:\\Apps");
    system.SetMachineValue(L"Installation", L"User Settings Path", system.InRoot(L"User"));
    system.SetVariable(L"ProgramData", system.InRoot(L"ProgramData"));
    system.PutFile(system.InRoot(L"User\\UserSettings.ini"), Lines({"[AutoCAD Settings]", "MenuSize = 32"}));
}

TEST(InstallPathsEveryFault, PathThatCannotBeRead_CountsAsMissing) {
    struct {
        std::wstring (*get)();
        const wchar_t* present;
        const wchar_t* missing;
    } const cases[] = {
        {GetDatafilesPath, L"X:\\Data\\", L""},
        {GetLibrariesPath, L"X:\\Data\\Libraries\\", L""},
        {[] { return GetDatafilePath(L"A.ini"); }, L"X:\\Data\\A.ini", L""},
        {[] { return GetPipingStandardPath(L"ANSI"); }, L"X:\\Data\\Standards\\Piping\\ANSI\\", L""},
        {GetCommonFilesPath, L"N:\\Apps\\Applications\\Common Files\\", L""},
        {[] { return GetNetworkApplicationPath(2, L"Menu"); }, L"N:\\Apps\\Tessarc\\PID\\Menu\\", L""},
        {[] { return GetHelpFilePath(2); }, L"C:\\Apps\\Help\\PID.chm", L"PID.chm"},
        {GetUserSettingsPath, L"C:\\Test\\User\\UserSettings.ini",
         L"C:\\Test\\ProgramData\\KALVOR\\Orvex 2023\\UserSettings.ini"},
    };
    for (const auto& path : cases) {
        size_t run = 0;
        const size_t runs = ForEachFailingCall(PutAllRoots, [&](TestSystem&) {
            EXPECT_EQ(path.get(), ++run == 1 ? path.missing : path.present);
        });
        EXPECT_EQ(runs, 2u) << "one registry value each, read once";
    }
}

TEST(InstallPathsEveryFault, MenuIconSize_IsTheStoredOneOrTheDefault) {
    std::vector<int> sizes;
    ForEachFailingCall(PutAllRoots, [&](TestSystem&) { sizes.push_back(GetMenuIconSize()); });
    EXPECT_EQ(sizes, std::vector<int>({16, 16, 32})) << "registry, file, nothing failing";
}

}  // namespace
