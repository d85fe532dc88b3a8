#include "database/client_list.h"

#include "database/id_lists.h"
#include "storage/ini_file.h"
#include "storage/install_paths.h"
#include "storage/path_text.h"

namespace {

constexpr wchar_t kClientPrefix[] = L"KV2D_CLIENT_";
constexpr wchar_t kClientSection[] = L"ClientList";

std::wstring GetProjectSection(int nClientId) {
    return L"ProjectList - " + std::to_wstring(nClientId);
}

// False only without a data files folder: a file that cannot be opened reads as an empty one.
bool OpenClientDatafile(CKV2D_IniFile& ini) {
    const std::wstring strPath = GetDatafilePath(L"ClientDatafile.ini");
    if (strPath.empty()) return false;
    ini.Open(strPath);
    return true;
}

std::vector<int> ReadProjectIds(CKV2D_IniFile& ini, int nClientId) {
    ini.SetSection(GetProjectSection(nClientId));
    std::vector<std::wstring> astrKeys, astrValues;
    ini.GetSectionEntries(astrKeys, astrValues);
    std::vector<int> anProjectIds;
    for (const std::wstring& strKey : astrKeys)
        anProjectIds.push_back(LeadingInteger(strKey));
    return anProjectIds;
}

}  // namespace

std::wstring ClientKeyFromId(int nClientId) {
    return KeyFromId(kClientPrefix, nClientId);
}

int ClientIdFromKey(const std::wstring& strKey) {
    int nClientId = 0;
    FindIdInText(strKey, kClientPrefix, nClientId);
    return nClientId;
}

bool GetClientList(std::vector<int>& anIds, std::vector<std::wstring>& astrNames) {
    anIds.clear();
    astrNames.clear();
    CKV2D_IniFile ini;
    if (!OpenClientDatafile(ini)) return false;
    ini.SetSection(kClientSection);
    std::vector<std::wstring> astrKeys;
    ini.GetSectionEntries(astrKeys, astrNames);
    for (const std::wstring& strKey : astrKeys)
        anIds.push_back(ClientIdFromKey(strKey));
    return true;
}

bool GetClientProjects(int nClientId, std::vector<int>& anProjectIds) {
    anProjectIds.clear();
    if (nClientId < 1) return false;
    CKV2D_IniFile ini;
    if (!OpenClientDatafile(ini)) return false;
    anProjectIds = ReadProjectIds(ini, nClientId);
    return true;
}

bool GetProjectsOfClients(const std::vector<int>& anClientIds, std::vector<std::vector<int>>& aanProjectIds) {
    aanProjectIds.assign(anClientIds.size(), {});
    CKV2D_IniFile ini;
    if (!OpenClientDatafile(ini)) return false;
    for (size_t i = 0; i < anClientIds.size(); ++i) {
        if (anClientIds[i] > 0) aanProjectIds[i] = ReadProjectIds(ini, anClientIds[i]);
    }
    return true;
}

bool GetClientOfProject(int nProjectId, int& nClientId, std::wstring& strClientName) {
    nClientId = 0;
    strClientName.clear();
    CKV2D_IniFile ini;
    if (!OpenClientDatafile(ini)) return false;
    ini.SetSection(kClientSection);
    std::vector<std::wstring> astrKeys, astrNames;
    ini.GetSectionEntries(astrKeys, astrNames);

    const std::wstring strProject = std::to_wstring(nProjectId);
    for (const std::wstring& strKey : astrKeys) {
        const int nId = ClientIdFromKey(strKey);
        ini.SetSection(GetProjectSection(nId));
        std::wstring strValue;
        ini.GetString(strProject, strValue, L"");
        if (strValue.empty()) continue;
        nClientId = nId;
        ini.SetSection(kClientSection);
        ini.GetString(ClientKeyFromId(nId), strClientName, L"");
        break;
    }
    return true;
}
