#include "storage/install_paths.h"

#include "platform/platform.h"
#include "storage/applications.h"
#include "storage/ini_file.h"
#include "storage/path_text.h"
#include "storage/registry_settings.h"

namespace {

constexpr wchar_t kMaker[] = L"KALVOR";
constexpr wchar_t kUserFolder[] = L"Orvex 2023";
constexpr wchar_t kUserSettingsFile[] = L"UserSettings.ini";
constexpr int kDefaultIconSize = 16;

// A machine-wide folder that set-up wrote; empty if it is missing.
std::wstring ReadMachineFolder(const std::wstring& strKey, const std::wstring& strName) {
    std::wstring strFolder;
    platform::GetRegistry().ReadString(platform::Hive::kLocalMachine, strKey, strName, strFolder);
    return EnsureBackslash(strFolder);
}

std::wstring ReadMachineFolder(const std::wstring& strName) {
    return ReadMachineFolder(kProductKey, strName);
}

// Below a folder, unless there is none.
std::wstring Below(const std::wstring& strFolder, const std::wstring& strRest) {
    return strFolder.empty() ? strFolder : strFolder + strRest;
}

}  // namespace

std::wstring GetDatafilesPath() {
    return ReadMachineFolder(L"DatafilesPath");
}

std::wstring GetDatafilePath(const std::wstring& strName) {
    return Below(GetDatafilesPath(), strName);
}

std::wstring GetLibrariesPath() {
    return GetDatafilePath(L"Libraries\\");
}

std::wstring GetPipingStandardPath(const std::wstring& strStandard) {
    return GetDatafilePath(L"Standards\\Piping\\" + EnsureBackslash(strStandard));
}

std::wstring GetCommonFilesPath() {
    return Below(ReadMachineFolder(L"NetworkAppPath"), L"Applications\\Common Files\\");
}

std::wstring GetCommonProgramFilesPath() {
    const std::wstring strFolder = platform::GetEnvironment().GetVariable(L"CommonProgramFiles");
    return Below(EnsureBackslash(strFolder), std::wstring(kMaker) + L"\\");
}

std::wstring GetNetworkApplicationPath(int nApp, const std::wstring& strSubfolder) {
    std::wstring strRest = L"Tessarc\\";
    if (nApp != kAppNone) strRest += GetApplicationName(nApp) + L"\\";
    if (!strSubfolder.empty()) strRest += strSubfolder + L"\\";
    return Below(ReadMachineFolder(L"NetworkAppPath"), strRest);
}

std::wstring GetHelpFilePath(int nApp) {
    const std::wstring strFile = (IsDiscipline(nApp) ? GetApplicationName(nApp) : std::wstring()) + L".chm";
    return Below(ReadMachineFolder(L"LocalAppPath"), L"Help\\") + strFile;
}

std::wstring GetUserSettingsPath() {
    const std::wstring strFolder =
        ReadMachineFolder(EnsureBackslash(kProductKey) + L"Installation", L"User Settings Path");
    if (!strFolder.empty()) return strFolder + kUserSettingsFile;
    std::wstring strRoot = platform::GetEnvironment().GetVariable(L"ProgramData");
    if (strRoot.empty()) {
        strRoot = EnsureBackslash(platform::GetEnvironment().GetVariable(L"SystemDrive")) + L"ProgramData";
    }
    return EnsureBackslash(strRoot) + kMaker + L"\\" + kUserFolder + L"\\" + kUserSettingsFile;
}

int GetMenuIconSize() {
    CKV2D_IniFile ini;
    ini.Open(GetUserSettingsPath());
    ini.SetSection(L"AutoCAD Settings");
    int nSize = 0;
    ini.GetInt(L"MenuSize", nSize, kDefaultIconSize);
    return nSize;
}
