#include "database/project_list.h"

#include "database/id_lists.h"
#include "platform/platform.h"
#include "storage/install_paths.h"
#include "storage/path_text.h"

namespace {

constexpr wchar_t kProjectPrefix[] = L"KV2D_PRJ_";
constexpr CLiveAndDeleted kSections{L"ProjectList", L"DeletedProjects"};
constexpr wchar_t kNameSeparator[] = L" - ";

bool OpenProjectDatafile(CKV2D_IniFile& ini) {
    const std::wstring strPath = GetDatafilePath(L"ProjectDatafile.ini");
    return !strPath.empty() && ini.Open(strPath) == kIniDone;
}

// The name of the first folder that matches the pattern, in the platform's order; empty if there is none.
std::wstring FindFirstFolder(const std::wstring& strPattern) {
    for (const platform::FoundEntry& entry : platform::GetFiles().Find(strPattern)) {
        if (entry.isDirectory) return entry.name;
    }
    return std::wstring();
}

// Finds the folder of a project whose own folder is not there under its present name, and renames it to that
// name. `strPlain` is the path that ends in the project's key. Returns the path where the folder should be
// now.
std::wstring RepairProjectFolder(const std::wstring& strPlain, const std::wstring& strName) {
    platform::Files& files = platform::GetFiles();
    const std::wstring strTarget = strName.empty() ? strPlain : strPlain + kNameSeparator + strName;

    // Finds something only while the plain folder resists its renaming; the first folder inside it is then
    // taken for the project's.
    std::wstring strFound = FindFirstFolder(strPlain + L"\\*.*");
    if (!strFound.empty()) {
        strFound = strPlain + L"\\" + strFound;
    } else {
        strFound = FindFirstFolder(strPlain + kNameSeparator + L"*.*");
        if (strFound.empty()) return strTarget;
        strFound = GetFolderOfPath(strPlain) + strFound;
        if (strName.empty()) return strFound;
    }
    if (!strName.empty() && strFound != strTarget) files.Move(strFound, strTarget);
    return strTarget;
}

}  // namespace

std::wstring ProjectKeyFromId(int nProjectId) {
    return KeyFromId(kProjectPrefix, nProjectId);
}

int ProjectIdFromKey(const std::wstring& strKey) {
    int nProjectId = 0;
    FindIdInText(strKey, kProjectPrefix, nProjectId);
    return nProjectId;
}

int GetProjectList(std::vector<int>& anIds, std::vector<std::wstring>& astrNames, bool bDeleted) {
    anIds.clear();
    astrNames.clear();
    CKV2D_IniFile ini;
    if (!OpenProjectDatafile(ini)) return kProjectCannotOpenList;
    ini.SetSection(bDeleted ? kSections.pszDeleted : kSections.pszLive);
    std::vector<std::wstring> astrKeys;
    ini.GetSectionEntries(astrKeys, astrNames);
    for (const std::wstring& strKey : astrKeys)
        anIds.push_back(ProjectIdFromKey(strKey));
    SortIdsAndNames(anIds, astrNames);
    return kProjectDone;
}

std::wstring GetProjectNameFromIni(CKV2D_IniFile& ini, int nProjectId, bool bSearchLive,
                                   bool bSearchDeleted) {
    return GetNameByKey(ini, kSections, ProjectKeyFromId(nProjectId), bSearchLive, bSearchDeleted);
}

std::wstring GetProjectName(int nProjectId, bool bSearchLive, bool bSearchDeleted) {
    CKV2D_IniFile ini;
    if (nProjectId < 1 || !OpenProjectDatafile(ini)) return std::wstring();
    return GetProjectNameFromIni(ini, nProjectId, bSearchLive, bSearchDeleted);
}

int GetProjectFolder(int nProjectId, std::wstring& strFolder) {
    strFolder.clear();
    if (nProjectId < 1) return kProjectInvalidId;
    CKV2D_IniFile ini;
    if (!OpenProjectDatafile(ini)) return kProjectCannotOpenList;
    return ResolveProjectFolder(ini, nProjectId, strFolder);
}

int ResolveProjectFolder(CKV2D_IniFile& ini, int nProjectId, std::wstring& strFolder) {
    strFolder.clear();
    if (nProjectId < 1) return kProjectInvalidId;
    platform::Files& files = platform::GetFiles();
    const std::wstring strPlain = GetDatafilePath(L"Projects\\") + ProjectKeyFromId(nProjectId);
    const std::wstring strName = GetProjectNameFromIni(ini, nProjectId, true, true);

    std::wstring strTarget = strPlain;
    if (!strName.empty()) {
        // Folders of an older form lack the name. The move fails harmlessly where there is none.
        const std::wstring strNamed = strPlain + kNameSeparator + strName;
        files.Move(strPlain, strNamed);
        if (!files.Exists(strPlain)) strTarget = strNamed;
    }
    if (!files.Exists(strTarget)) {
        strTarget = RepairProjectFolder(strPlain, strName);
        if (!files.Exists(strTarget)) return kProjectNoFolder;
    }
    strFolder = EnsureBackslash(strTarget);
    return kProjectDone;
}

CKV2D_ProjectRef::CKV2D_ProjectRef(int nProjectId) : m_nProjectId(nProjectId) {
    if (nProjectId < 1) return;
    CKV2D_IniFile ini;
    if (!OpenProjectDatafile(ini)) return;
    m_strName = GetProjectNameFromIni(ini, nProjectId, true, true);
    if (m_strName.empty()) return;
    if (ResolveProjectFolder(ini, nProjectId, m_strFolder) != kProjectDone) return;
    m_strPath = m_strFolder;
}

std::wstring GetProjectFilePath(int nProjectId, const std::wstring& strFileName) {
    const CKV2D_ProjectRef project(nProjectId);
    return project.m_strPath.empty() ? std::wstring() : project.m_strPath + strFileName;
}
