#include "database/spec_list.h"

#include <unordered_map>
#include <unordered_set>

#include "database/client_list.h"
#include "database/id_lists.h"
#include "database/project_list.h"
#include "platform/letter_case.h"
#include "sizes/size_table.h"
#include "storage/install_paths.h"
#include "storage/path_text.h"

namespace {

constexpr wchar_t kSpecPrefix[] = L"KV2D_SPEC_";
constexpr wchar_t kSpecSection[] = L"SpecList";

bool OpenSpecDatafile(CKV2D_IniFile& ini) {
    const std::wstring strPath = GetDatafilePath(L"SpecDatafile.ini");
    return !strPath.empty() && ini.Open(strPath) == kIniDone;
}

// The ids of specs by name, read from SpecDatafile.ini at the first look-up: most files hold no names.
class CSpecNameLookUp {
  public:
    // SpecIdFromKey with `bAllowName`.
    int GetSpecId(const std::wstring& strKeyOrName) {
        if (int nSpecId = 0; FindIdInText(strKeyOrName, kSpecPrefix, nSpecId)) return nSpecId;
        if (!m_bRead) ReadSpecs();
        const auto found = m_mapIds.find(platform::ToUpper(strKeyOrName));
        return found == m_mapIds.end() ? 0 : found->second;
    }

  private:
    void ReadSpecs() {
        m_bRead = true;
        CKV2D_IniFile ini;
        if (!OpenSpecDatafile(ini)) return;
        std::vector<int> anIds;
        std::vector<std::wstring> astrNames;
        GetSpecListFromIni(ini, anIds, astrNames);
        for (size_t i = 0; i < anIds.size(); ++i)
            m_mapIds.emplace(platform::ToUpper(astrNames[i]), anIds[i]);
    }

    bool m_bRead = false;
    std::unordered_map<std::wstring, int> m_mapIds;  // by name in capitals; of equal names the first
};

// Who owns which spec: the leading integers of a section's values by spec id. Of several rows of one spec the
// first counts.
std::unordered_map<int, int> ReadOwners(CKV2D_IniFile& ini, const wchar_t* pszSection) {
    ini.SetSection(pszSection);
    std::vector<std::wstring> astrKeys, astrValues;
    ini.GetSectionEntries(astrKeys, astrValues);
    std::unordered_map<int, int> mapOwners;
    for (size_t i = 0; i < astrKeys.size(); ++i) {
        mapOwners.emplace(SpecIdFromKey(astrKeys[i], false), LeadingInteger(astrValues[i]));
    }
    return mapOwners;
}

// The smallest integer has no counterpart; it stays what it is.
int Negate(int nValue) {
    return static_cast<int>(0u - static_cast<unsigned>(nValue));
}

void AppendLists(std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                 const std::vector<int>& anMoreIds, const std::vector<std::wstring>& astrMoreNames) {
    anIds.insert(anIds.end(), anMoreIds.begin(), anMoreIds.end());
    astrNames.insert(astrNames.end(), astrMoreNames.begin(), astrMoreNames.end());
}

}  // namespace

int SpecIdFromKey(const std::wstring& strText, bool bAllowName) {
    int nSpecId = 0;
    if (FindIdInText(strText, kSpecPrefix, nSpecId) || !bAllowName) return nSpecId;
    return CSpecNameLookUp().GetSpecId(strText);
}

std::wstring GetSpecsIniPath(int nProjectId) {
    return GetProjectFilePath(nProjectId, L"Specs.ini");
}

void GetSpecListFromIni(CKV2D_IniFile& ini, std::vector<int>& anIds, std::vector<std::wstring>& astrNames) {
    anIds.clear();
    astrNames.clear();
    ini.SetSection(kSpecSection);
    std::vector<std::wstring> astrKeys;
    ini.GetSectionEntries(astrKeys, astrNames);
    // A name in place of a key is not looked up: the look-up would read this list again, without end.
    for (const std::wstring& strKey : astrKeys)
        anIds.push_back(SpecIdFromKey(strKey, false));
}

int GetSpecScopes(std::vector<int>& anIds, std::vector<int>& anScopes, std::vector<std::wstring>& astrNames) {
    anIds.clear();
    anScopes.clear();
    astrNames.clear();
    if (GetDatafilePath(L"SpecDatafile.ini").empty()) return kSpecNoFile;
    CKV2D_IniFile ini;
    if (!OpenSpecDatafile(ini)) return kSpecDone;
    GetSpecListFromIni(ini, anIds, astrNames);
    const std::unordered_map<int, int> mapClients = ReadOwners(ini, L"ClientSpecs");
    const std::unordered_map<int, int> mapProjects = ReadOwners(ini, L"ProjectSpecs");
    for (int nId : anIds) {
        int nScope = 0;
        if (const auto client = mapClients.find(nId); client != mapClients.end()) {
            nScope = Negate(client->second);
        } else if (const auto project = mapProjects.find(nId); project != mapProjects.end()) {
            nScope = project->second;
        }
        anScopes.push_back(nScope);
    }
    return kSpecDone;
}

int GetSpecsByScope(int nClientId, int nProjectId, std::vector<int>& anGlobalIds,
                    std::vector<std::wstring>& astrGlobalNames, std::vector<int>& anClientIds,
                    std::vector<std::wstring>& astrClientNames, std::vector<int>& anProjectIds,
                    std::vector<std::wstring>& astrProjectNames, bool bZeroScope) {
    for (std::vector<int>* pIds : {&anGlobalIds, &anClientIds, &anProjectIds})
        pIds->clear();
    for (std::vector<std::wstring>* pNames : {&astrGlobalNames, &astrClientNames, &astrProjectNames})
        pNames->clear();
    std::vector<int> anIds, anScopes;
    std::vector<std::wstring> astrNames;
    if (const int nCode = GetSpecScopes(anIds, anScopes, astrNames); nCode != kSpecDone) return nCode;

    for (size_t i = 0; i < anIds.size(); ++i) {
        const bool bUnowned =
            bZeroScope && ((anScopes[i] < 0 && nClientId == 0) || (anScopes[i] > 0 && nProjectId == 0));
        const int nScope = bUnowned ? 0 : anScopes[i];
        if (nScope == 0) {
            anGlobalIds.push_back(anIds[i]);
            astrGlobalNames.push_back(astrNames[i]);
        } else if (nScope == Negate(nClientId)) {
            anClientIds.push_back(anIds[i]);
            astrClientNames.push_back(astrNames[i]);
        } else if (nScope == nProjectId) {
            anProjectIds.push_back(anIds[i]);
            astrProjectNames.push_back(astrNames[i]);
        }
    }
    SortIdsAndNames(anGlobalIds, astrGlobalNames);
    SortIdsAndNames(anClientIds, astrClientNames);
    SortIdsAndNames(anProjectIds, astrProjectNames);
    return kSpecDone;
}

int GetProjectSpecIds(int nProjectId, std::vector<int>& anIds) {
    anIds.clear();
    if (nProjectId < 1) return kSpecInvalidProjectId;
    const std::wstring strPath = GetSpecsIniPath(nProjectId);
    if (strPath.empty()) return kSpecNoFile;
    CKV2D_IniFile ini;
    ini.Open(strPath);
    ini.SetSection(kSpecSection);
    std::vector<std::wstring> astrKeys, astrUnused;
    ini.GetSectionEntries(astrKeys, astrUnused);
    CSpecNameLookUp names;
    for (const std::wstring& strKey : astrKeys)
        anIds.push_back(names.GetSpecId(strKey));
    return kSpecDone;
}

int GetProjectSpecs(int nProjectId, std::vector<int>& anIds, std::vector<std::wstring>& astrNames) {
    int nClientId = 0;
    std::wstring strClientName;
    GetClientOfProject(nProjectId, nClientId, strClientName);
    std::vector<int> anClientIds, anProjectIds, anEnabled;
    std::vector<std::wstring> astrClientNames, astrProjectNames;
    GetSpecsByScope(nClientId, nProjectId, anIds, astrNames, anClientIds, astrClientNames, anProjectIds,
                    astrProjectNames, false);
    AppendLists(anIds, astrNames, anClientIds, astrClientNames);
    AppendLists(anIds, astrNames, anProjectIds, astrProjectNames);

    GetProjectSpecIds(nProjectId, anEnabled);
    const std::unordered_set<int> setEnabled(anEnabled.begin(), anEnabled.end());
    size_t nKept = 0;
    for (size_t i = 0; i < anIds.size(); ++i) {
        if (!setEnabled.count(anIds[i])) continue;
        anIds[nKept] = anIds[i];
        std::swap(astrNames[nKept], astrNames[i]);
        ++nKept;
    }
    anIds.resize(nKept);
    astrNames.resize(nKept);
    return kSpecDone;
}

void GetSizeList(const std::wstring& strStandard, int nSizeSet, std::vector<int>& anIndices,
                 std::vector<std::wstring>& astrTexts, bool bCommonOnly) {
    anIndices.clear();
    astrTexts.clear();
    CKV2D_IniFile ini = LoadSizeTable(L"size.tp", strStandard);
    ini.SetSection(GetSizeSetName(nSizeSet));
    std::vector<std::wstring> astrKeys, astrValues;
    ini.GetSectionEntries(astrKeys, astrValues);
    for (size_t i = 0; i < astrKeys.size(); ++i) {
        const bool bCommon = astrKeys[i] == L" 1.00" || astrKeys[i] == L" 3.00" || astrKeys[i] == L" 4.00";
        if (bCommonOnly && !bCommon) continue;
        anIndices.push_back(static_cast<int>(i));
        astrTexts.push_back(std::move(astrValues[i]));
    }
}
