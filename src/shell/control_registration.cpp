#include "shell/control_registration.h"

#include <algorithm>
#include <iterator>

#include "storage/install_paths.h"
#include "storage/message_format.h"
#include "storage/path_text.h"

namespace {

constexpr wchar_t kOcxPattern[] = L"*.ocx";
constexpr wchar_t kRegistrar[] = L"REGSVR32.EXE";
constexpr wchar_t kNoCaption[] = L"";
constexpr wchar_t kMissingFileText[] = L"Couldn't find ocx file: \n%s\n\nPlease check software installation.";
constexpr wchar_t kRegisterErrorText[] =
    L"Error registering ocx file: \n%s\n\nPlease check software installation.";

constexpr wchar_t kMenuFile[] = L"KalvorMenu.ocx";
constexpr wchar_t kMenuRegistrarFolder[] = L"SysWOW64\\";
// The leading backslash belongs to the key that is probed before; the probe after looks at the other view.
constexpr wchar_t kMenuKeyBefore[] = L"\\Wow6432Node\\TypeLib\\{77529779-442F-43F2-9932-A4876EB56D8D}\\1.0";
constexpr wchar_t kMenuKeyAfter[] = L"TypeLib\\{77529779-442F-43F2-9932-A4876EB56D8D}\\1.0";

constexpr wchar_t kThumbnailFile[] = L"DwgThumbnail.ocx";
constexpr wchar_t kThumbnailRegistrarFolder[] = L"system32\\";
constexpr wchar_t kThumbnailClass[] = L"{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";
constexpr wchar_t kThumbnailDescription[] = L"AutoCAD DwgThumbnail Control 2013";
constexpr wchar_t kThumbnailProgramKey[] = L"AUTOCAD.DwgThumbnailCtrl.4\\CLSID";
constexpr wchar_t kThumbnailClassKey[] = L"CLSID\\{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";
constexpr wchar_t kMachineProgramKey[] = L"Software\\Classes\\AUTOCAD.DwgThumbnailCtrl.4\\CLSID";
constexpr wchar_t kMachineClassKey[] = L"Software\\Classes\\CLSID\\{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";

struct Probe {
    platform::Hive hive;
    const wchar_t* szKey;
    const wchar_t* szExpected;
};

// A machine whose class keys match but whose machine key does not runs the registrar at every load, and one
// that lacks only the machine's program key never runs it and stays unverified: the asymmetry of the lists is
// meant.
constexpr Probe kProbesBefore[] = {
    {platform::Hive::kClassesRoot, kThumbnailProgramKey, kThumbnailClass},
    {platform::Hive::kClassesRoot, kThumbnailClassKey, kThumbnailDescription},
    {platform::Hive::kLocalMachine, kMachineClassKey, kThumbnailDescription},
};
constexpr Probe kProbesAfter[] = {
    {platform::Hive::kClassesRoot, kThumbnailProgramKey, kThumbnailClass},
    {platform::Hive::kClassesRoot, kThumbnailClassKey, kThumbnailDescription},
    {platform::Hive::kLocalMachine, kMachineProgramKey, kThumbnailClass},
    {platform::Hive::kLocalMachine, kMachineClassKey, kThumbnailDescription},
};

template <size_t N>
bool AllMatch(const Probe (&probes)[N]) {
    return std::all_of(std::begin(probes), std::end(probes), [](const Probe& probe) {
        return ReadDefaultRegValue(probe.hive, probe.szKey) == probe.szExpected;
    });
}

void ShowControlError(platform::BoxOwner owner, const wchar_t* szFormat, const std::wstring& strPath) {
    platform::GetBoxes().Show(owner, FormatMessageText(szFormat, {strPath}), kNoCaption,
                              platform::kBoxIconError);
}

// True if the control's file is there; otherwise tells the user.
bool HasControlFile(const std::wstring& strPath, platform::BoxOwner owner) {
    if (platform::GetFiles().Exists(strPath)) return true;
    ShowControlError(owner, kMissingFileText, strPath);
    return false;
}

// The registrar's exit status tells nothing that the probes after it do not tell better.
void RunRegistrar(const std::wstring& strPath, const wchar_t* szFolder) {
    std::wstring strProgram = EnsureBackslash(platform::GetEnvironment().GetVariable(L"SystemRoot"));
    if (!strProgram.empty()) strProgram += szFolder;
    strProgram += kRegistrar;
    platform::GetProcesses().RunAndWait(strProgram, {kRegistrar, L"/s", L"\"" + strPath + L"\""});
}

}  // namespace

std::wstring ReadDefaultRegValue(platform::Hive hive, const std::wstring& strKey) {
    std::wstring strValue;
    platform::GetRegistry().ReadString(hive, strKey, L"", strValue);
    return strValue;
}

bool CopyFiles(const wchar_t* szPattern, const wchar_t* szDestinationFolder, bool bFailIfExists) {
    platform::Files& files = platform::GetFiles();
    const std::wstring strSource = GetFolderOfPath(szPattern);
    const std::wstring strDestination = EnsureBackslash(szDestinationFolder);
    bool bAllCopied = true;
    for (const platform::FoundEntry& entry : files.Find(szPattern)) {
        if (entry.isDirectory) continue;
        if (files.Copy(strSource + entry.name, strDestination + entry.name, bFailIfExists) != platform::kDone)
            bAllCopied = false;
    }
    return bAllCopied;
}

void CopyOcxFiles() {
    CopyFiles((GetCommonFilesPath() + kOcxPattern).c_str(), GetCommonProgramFilesPath().c_str(), true);
}

void RegisterMenuControl() {
    CopyOcxFiles();
    if (!ReadDefaultRegValue(platform::Hive::kClassesRoot, kMenuKeyBefore).empty()) return;
    const std::wstring strPath = GetCommonProgramFilesPath() + kMenuFile;
    if (!HasControlFile(strPath, platform::BoxOwner::kHostMainWindow)) return;
    RunRegistrar(strPath, kMenuRegistrarFolder);
    if (ReadDefaultRegValue(platform::Hive::kClassesRoot, kMenuKeyAfter).empty())
        ShowControlError(platform::BoxOwner::kHostMainWindow, kRegisterErrorText, strPath);
}

bool RegisterThumbnailControl() {
    CopyOcxFiles();
    if (!AllMatch(kProbesBefore)) {
        const std::wstring strPath = GetCommonProgramFilesPath() + kThumbnailFile;
        if (!HasControlFile(strPath, platform::BoxOwner::kNone)) return false;
        RunRegistrar(strPath, kThumbnailRegistrarFolder);
    }
    return AllMatch(kProbesAfter);
}
