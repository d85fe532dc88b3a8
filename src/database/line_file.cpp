#include "database/line_file.h"

#include <algorithm>
#include <string_view>

#include "database/line_list.h"
#include "platform/letter_case.h"

namespace {

constexpr wchar_t kEvalName[] = L"Eval";

constexpr std::wstring_view kDefaultName = L"Line ";

std::wstring GetDefaultName(long long nNumber) {
    return std::wstring(kDefaultName) + std::to_wstring(nNumber);
}

// The number of a default name; false for every other name, "Line 07" and "Line +7" among them.
bool ParseDefaultName(std::wstring_view strName, long long& nNumber) {
    constexpr size_t kMostDigits = 18;
    if (!strName.starts_with(kDefaultName)) return false;
    strName.remove_prefix(kDefaultName.size());
    const bool bNegative = strName.starts_with(L'-');
    if (bNegative) strName.remove_prefix(1);
    if (strName.empty() || strName.size() > kMostDigits) return false;
    if (strName.front() == L'0' && (bNegative || strName.size() > 1)) return false;
    nNumber = 0;
    for (const wchar_t ch : strName) {
        if (ch < L'0' || ch > L'9') return false;
        nNumber = 10 * nNumber + (ch - L'0');
    }
    if (bNegative) nNumber = -nNumber;
    return true;
}

// "Line <n>" with the first number from `nFirst` on that FindLineKeyByName does not find. Where all rows bear
// such names, one pass over them tells what is free.
std::wstring FindFreeDefaultName(CKV2D_IniFile& ini, int nFirst) {
    const size_t nPlaces = ini.GetRowCount() + 1;  // one of so many names is free
    std::vector<bool> abTaken(nPlaces);
    for (const wchar_t* pszSection : {kLineSections.pszLive, kLineSections.pszDeleted}) {
        ini.SetSection(pszSection);
        std::vector<std::wstring> astrKeys, astrValues;
        ini.GetSectionEntries(astrKeys, astrValues);
        std::vector<bool> abSeen(nPlaces);
        for (size_t i = 0; i < astrValues.size(); ++i) {
            long long nNumber = 0;
            if (!ParseDefaultName(astrValues[i], nNumber) || nNumber < nFirst) continue;
            const auto nPlace = static_cast<size_t>(nNumber - nFirst);
            if (nPlace >= nPlaces || abSeen[nPlace]) continue;
            // The search ends at the first row of that name, and without a key it has found nothing.
            abSeen[nPlace] = true;
            if (!astrKeys[i].empty()) abTaken[nPlace] = true;
        }
    }
    const auto free = std::find(abTaken.begin(), abTaken.end(), false);
    return GetDefaultName(static_cast<long long>(nFirst) + (free - abTaken.begin()));
}

// What stands behind such a key in a saved file reads as the separator: it is a shorter key the next time.
bool IsChangedBySaving(const std::wstring& strKey) {
    return strKey.ends_with(L" =");
}

// The names of a line file, to tell in one step which are taken.
class CLineNames {
  public:
    explicit CLineNames(CKV2D_IniFile& ini) {
        Count(ini, kLineSections.pszLive, m_mapLive);
        Count(ini, kLineSections.pszDeleted, m_mapDeleted);
    }

    bool IsTaken(const std::wstring& strName) const {
        return m_mapLive.count(strName) != 0 || m_mapDeleted.count(strName) != 0;
    }

    // Whether the names are not to be relied on: a row has no key, and a search by name that comes upon it
    // finds nothing, whatever rows follow; or a key ends in " =", and is another one when the saved file is
    // read.
    bool HasOddKey() const { return m_bOddKey; }

    // Gives the name to a line, or the default name if it is not valid or taken, and returns what the line
    // has got. `strReplaced` is the former name of a line of the same id, as there is after the loss of a
    // counter file: it is free for the new name, but was still taken when the default name was chosen.
    std::wstring ReplaceLive(const std::wstring& strReplaced, std::wstring strName, int nLineId) {
        const auto replaced = m_mapLive.find(strReplaced);
        const bool bValid = ValidateLineName(strName) == kLineOk;
        const bool bOwnName = strName == strReplaced && replaced != m_mapLive.end() &&
                              replaced->second == 1 && m_mapDeleted.count(strName) == 0;
        if (!bValid || (IsTaken(strName) && !bOwnName)) strName = GetFreeName(nLineId);
        if (replaced != m_mapLive.end() && --replaced->second == 0) m_mapLive.erase(replaced);
        ++m_mapLive[strName];
        return strName;
    }

    // "Line <n>" with the first number from `nFirst` on whose name is free.
    std::wstring GetFreeName(int nFirst) const {
        std::wstring strName;
        long long nNumber = nFirst;
        do {
            strName = GetDefaultName(nNumber++);
        } while (IsTaken(strName));
        return strName;
    }

  private:
    using CCounts = std::unordered_map<std::wstring, size_t>;

    void Count(CKV2D_IniFile& ini, const wchar_t* pszSection, CCounts& mapCounts) {
        ini.SetSection(pszSection);
        std::vector<std::wstring> astrKeys, astrValues;
        ini.GetSectionEntries(astrKeys, astrValues);
        for (size_t i = 0; i < astrKeys.size(); ++i) {
            m_bOddKey |= astrKeys[i].empty() || IsChangedBySaving(astrKeys[i]);
            ++mapCounts[astrValues[i]];
        }
    }

    CCounts m_mapLive;
    CCounts m_mapDeleted;
    bool m_bOddKey = false;
};

// The id that many numbers on. The largest number is followed by the smallest one.
int AdvanceId(int nId, size_t nCount) {
    return static_cast<int>(static_cast<unsigned>(nId) + static_cast<unsigned>(nCount));
}

// Draws that many ids. The counter is on disk before the line file is touched: a crash between the two costs
// ids and nothing else. A first draw creates the file. False, with nothing drawn, for several ids from a file
// with a key that may read as the counter's own once it is saved: they must be drawn one by one.
bool DrawLineIds(const std::wstring& strCounter, size_t nCount, int& nFirstId) {
    const std::wstring strKey = L"LastLineId";
    CKV2D_IniFile ini;
    ini.Open(strCounter);
    ini.SetSection(L"General");
    std::vector<std::wstring> astrKeys, astrValues;
    ini.GetSectionEntries(astrKeys, astrValues);
    if (nCount > 1 && std::any_of(astrKeys.begin(), astrKeys.end(), IsChangedBySaving)) return false;
    int nLastId = 0;
    ini.GetLong(strKey, nLastId, 0);
    ini.SetLong(strKey, AdvanceId(nLastId, nCount));
    nFirstId = AdvanceId(nLastId, 1);
    return true;
}

// Creates the line of an id under a default name, and returns that.
std::wstring CreateLineOfId(const std::wstring& strPath, int nLineId) {
    CKV2D_IniFile ini;
    ini.Open(strPath);
    std::wstring strName = GetDefaultName(nLineId);
    // All rows are gone through only when the first name is taken, which is rare.
    if (!FindLineKeyByName(ini, strName, true, true).empty()) strName = FindFreeDefaultName(ini, nLineId);
    ini.SetSection(kLineSections.pszLive);
    ini.SetString(LineKeyFromId(nLineId), strName);
    return strName;
}

// For files that no program of the suite leaves behind: a key is odd, or the counter file holds a number that
// no id follows.
void AddLinesOneByOne(const std::wstring& strPath, int nFirstId, const std::vector<std::wstring>& astrNames) {
    for (size_t i = 0; i < astrNames.size(); ++i) {
        const int nLineId = AdvanceId(nFirstId, i);
        CreateLineOfId(strPath, nLineId);
        std::wstring strName = astrNames[i];
        if (nLineId > 0 && ValidateLineName(strName) == kLineOk) RenameLineInFile(strPath, nLineId, strName);
    }
}

}  // namespace

void CreateLineInFile(const CLineFiles& files, int& nLineId, std::wstring& strName) {
    DrawLineIds(files.strCounter, 1, nLineId);
    strName = CreateLineOfId(files.strLines, nLineId);
}

int CheckRename(int nProjectId, int nLineId, std::wstring& strName) {
    if (nProjectId < 1) return kLineInvalidProjectId;
    if (nLineId < 1) return kLineInvalidId;
    return ValidateLineName(strName);
}

int RenameLineInFile(const std::wstring& strPath, int nLineId, const std::wstring& strName) {
    CKV2D_IniFile ini;
    if (ini.Open(strPath) != kIniDone) return kLineCannotOpenDatafile;
    if (!FindLineKeyByName(ini, strName, true, false).empty()) return kLineAlreadyExists;
    if (!FindLineKeyByName(ini, strName, false, true).empty()) return kLineIsDeleted;
    // Leaves the section current in which the line stands.
    if (GetLineNameById(ini, nLineId, true, true).empty()) return kLineNotFound;
    ini.SetString(LineKeyFromId(nLineId), strName);
    return kLineOk;
}

void AddLinesToFile(const CLineFiles& files, const std::vector<std::wstring>& astrNames) {
    if (astrNames.empty()) return;
    int nFirstId = 0;
    if (!DrawLineIds(files.strCounter, astrNames.size(), nFirstId)) {
        for (const std::wstring& strName : astrNames)
            AddLinesToFile(files, {strName});
        return;
    }
    CKV2D_IniFile ini;
    ini.Open(files.strLines);
    CLineNames names(ini);
    const bool bIds = nFirstId > 0 && AdvanceId(nFirstId, astrNames.size() - 1) >= nFirstId;
    if (!bIds || names.HasOddKey()) return AddLinesOneByOne(files.strLines, nFirstId, astrNames);
    ini.SetSection(kLineSections.pszLive);
    for (size_t i = 0; i < astrNames.size(); ++i) {
        const int nLineId = AdvanceId(nFirstId, i);
        const std::wstring strKey = LineKeyFromId(nLineId);
        std::wstring strReplaced;
        ini.GetString(strKey, strReplaced, L"");
        const std::wstring strName = names.ReplaceLive(strReplaced, astrNames[i], nLineId);
        ini.SetString(strKey, strName);
    }
}

int CLineNameLookUp::GetLineId(const std::wstring& strKeyOrName) {
    if (int nLineId = 0; FindIdInText(strKeyOrName, kLinePrefix, nLineId)) return nLineId;
    if (!m_bFetched) FetchLines();
    if (platform::EqualWithoutCase(strKeyOrName, kEvalName)) return m_nFirstId;
    const auto found = m_mapIds.find(platform::ToUpper(strKeyOrName));
    return found == m_mapIds.end() ? 0 : found->second;
}

void CLineNameLookUp::FetchLines() {
    m_bFetched = true;
    std::vector<int> anIds;
    std::vector<std::wstring> astrNames;
    std::vector<bool> abFlags;
    GetLineList(m_nProjectId, anIds, astrNames, abFlags, true, false, false, m_bUseCache);
    if (!anIds.empty()) m_nFirstId = anIds.front();
    for (size_t i = 0; i < anIds.size(); ++i)
        m_mapIds.emplace(platform::ToUpper(astrNames[i]), anIds[i]);
}

void AppendLines(CKV2D_IniFile& ini, bool bLive, CLineNameLookUp* pNames, std::vector<int>& anIds,
                 std::vector<std::wstring>& astrNames, std::vector<bool>& abFlags) {
    ini.SetSection(bLive ? kLineSections.pszLive : kLineSections.pszDeleted);
    std::vector<std::wstring> astrKeys, astrValues;
    ini.GetSectionEntries(astrKeys, astrValues);
    for (size_t i = 0; i < astrKeys.size(); ++i) {
        int nLineId = 0;
        if (pNames) {
            nLineId = pNames->GetLineId(astrKeys[i]);
        } else {
            FindIdInText(astrKeys[i], kLinePrefix, nLineId);
        }
        anIds.push_back(nLineId);
        astrNames.push_back(std::move(astrValues[i]));
        abFlags.push_back(bLive);
    }
}

void SetEvalLine(std::vector<int>& anIds, std::vector<std::wstring>& astrNames, std::vector<bool>& abFlags) {
    anIds.assign(1, 1);
    astrNames.assign(1, kEvalName);
    abFlags.assign(1, true);
}
