#include "database/line_list.h"

#include <iterator>

#include "database/id_lists.h"
#include "database/line_cache.h"
#include "database/line_file.h"
#include "database/project_list.h"
#include "storage/install_paths.h"

std::wstring GetLineErrorText(int nCode) {
    static constexpr const wchar_t* kTexts[] = {
        L"Ok",
        L"Can't create new line",
        L"Can't find line",
        L"Can't open line datafile",
        L"Invalid name",
        L"Invalid line id",
        L"Invalid project id",
        L"Line already exists",
        L"Line is deleted",
    };
    return nCode >= 0 && nCode < static_cast<int>(std::size(kTexts)) ? kTexts[nCode] : L"Unknown error";
}

std::wstring LineKeyFromId(int nLineId) {
    return KeyFromId(kLinePrefix, nLineId);
}

int LineIdFromKey(int nProjectId, const std::wstring& strText, bool bAllowName, bool bUseCache) {
    int nLineId = 0;
    if (FindIdInText(strText, kLinePrefix, nLineId) || !bAllowName) return nLineId;
    return CLineNameLookUp(nProjectId, bUseCache).GetLineId(strText);
}

int ValidateLineName(std::wstring& strName) {
    const size_t nFirst = strName.find_first_not_of(L' ');
    strName = nFirst == std::wstring::npos
                  ? std::wstring()
                  : strName.substr(nFirst, strName.find_last_not_of(L' ') + 1 - nFirst);
    return strName.empty() || strName == L"-" ? kLineInvalidName : kLineOk;
}

std::wstring GetLinesIniPath(int nProjectId) {
    return GetProjectFilePath(nProjectId, L"Lines.ini");
}

std::wstring FindLineKeyByName(CKV2D_IniFile& ini, const std::wstring& strName, bool bSearchLive,
                               bool bSearchDeleted) {
    return FindKeyByName(ini, kLineSections, strName, bSearchLive, bSearchDeleted);
}

std::wstring GetLineNameById(CKV2D_IniFile& ini, int nLineId, bool bSearchLive, bool bSearchDeleted) {
    return GetNameByKey(ini, kLineSections, LineKeyFromId(nLineId), bSearchLive, bSearchDeleted);
}

int GetLineList(int nProjectId, std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                std::vector<bool>& abFlags, bool bLive, bool bDeleted, bool bEval, bool bUseCache) {
    anIds.clear();
    astrNames.clear();
    abFlags.clear();
    if (bEval) {
        SetEvalLine(anIds, astrNames, abFlags);
        return kLineOk;
    }
    if (!bLive && !bDeleted) return kLineOk;
    if (nProjectId < 1) return kLineInvalidProjectId;
    const std::wstring strPath = GetLinesIniPath(nProjectId);
    if (strPath.empty()) return kLineCannotOpenDatafile;
    CKV2D_IniFile ini;
    if (!OpenThroughCache(ini, nProjectId, bUseCache, [&] { return strPath; })) return kLineOk;
    // A name in place of a key is not looked up: the look-up would fetch this list again, without end.
    if (bLive) AppendLines(ini, true, nullptr, anIds, astrNames, abFlags);
    if (bDeleted) AppendLines(ini, false, nullptr, anIds, astrNames, abFlags);
    SortIdsNamesFlags(anIds, astrNames, abFlags);
    return kLineOk;
}

int CreateLine(int nProjectId, int& nLineId, std::wstring& strName) {
    nLineId = 0;
    strName.clear();
    if (nProjectId < 1) return kLineInvalidProjectId;
    const std::wstring strCounter = GetDatafilePath(L"LineDatafile.ini");
    if (strCounter.empty()) return kLineCannotOpenDatafile;
    CreateLineInFile({GetLinesIniPath(nProjectId), strCounter}, nLineId, strName);
    return kLineOk;
}

int RenameLine(int nProjectId, int nLineId, const std::wstring& strNewName) {
    std::wstring strName = strNewName;
    if (const int nCode = CheckRename(nProjectId, nLineId, strName); nCode != kLineOk) return nCode;
    return RenameLineInFile(GetLinesIniPath(nProjectId), nLineId, strName);
}
