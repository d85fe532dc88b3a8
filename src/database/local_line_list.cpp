// The lines of projects that keep them per drawing.
#include <unordered_set>

#include "database/line_file.h"
#include "database/line_list.h"
#include "database/project_general.h"
#include "storage/path_text.h"

namespace {

// The drawing's name up to its first dot.
std::wstring GetDrawingWord(const std::wstring& strDrawing) {
    std::wstring strName = strDrawing;
    std::vector<std::wstring> astrPieces;
    SplitQuotedString(strDrawing, astrPieces, L'\\', L'\0');
    for (const std::wstring& strPiece : astrPieces) {
        if (strPiece.find(L".dwg") == std::wstring::npos) continue;
        strName = strPiece;
        break;
    }
    return strName.substr(0, strName.find(L'.'));
}

// Creates the folders of the files.
CLineFiles PrepareLocalLineFiles(const std::wstring& strDrawing, const std::wstring& strApplication,
                                 int nProjectId) {
    std::wstring strFolder = CKV2D_ProjectGeneral(nProjectId).m_strLocalLineIniPath;
    strFolder.erase(strFolder.find_last_not_of(L'\\') + 1);
    strFolder += L"\\";
    const CLineFiles files{strFolder + strApplication + L"_" + std::to_wstring(nProjectId) + L"_" +
                               GetDrawingWord(strDrawing) + L"line.ini",
                           strFolder + L"LineDatafile.ini"};
    EnsureFolderOfPath(files.strLines);
    return files;
}

void MakeLineFile(const CLineFiles& files, int nProjectId, const std::vector<std::wstring>& astrLineNames) {
    if (GetLinesIniPath(nProjectId).empty()) return;
    CKV2D_IniFile::CreateLineIni(files.strLines);
    AddLinesToFile(files, astrLineNames);
}

// The drawing's line numbers that are no live lines of the document.
std::vector<std::wstring> GetMissingLines(CKV2D_IniFile& ini,
                                          const std::vector<std::wstring>& astrDrawingLines) {
    ini.SetSection(kLineSections.pszLive);
    std::vector<std::wstring> astrKeys, astrNames, astrMissing;
    ini.GetSectionEntries(astrKeys, astrNames);
    const std::unordered_set<std::wstring> setNames(astrNames.begin(), astrNames.end());
    for (const std::wstring& strLine : astrDrawingLines) {
        if (!setNames.count(strLine)) astrMissing.push_back(strLine);
    }
    return astrMissing;
}

}  // namespace

std::wstring GetLocalLineIniPath(const std::wstring& strDrawing, const std::wstring& strApplication,
                                 int nProjectId) {
    return PrepareLocalLineFiles(strDrawing, strApplication, nProjectId).strLines;
}

int GetLocalLineList(int nProjectId, const std::wstring& strApplication, const std::wstring& strDrawing,
                     const std::vector<std::wstring>& astrDrawingLines, std::vector<int>& anIds,
                     std::vector<std::wstring>& astrNames, std::vector<bool>& abFlags, bool bLive,
                     bool bDeleted, bool bEval, bool bUseCache) {
    anIds.clear();
    astrNames.clear();
    abFlags.clear();
    if (bEval) {
        SetEvalLine(anIds, astrNames, abFlags);
        return kLineOk;
    }
    if (!bLive && !bDeleted) return kLineOk;
    if (nProjectId < 1) return kLineInvalidProjectId;

    const CLineFiles files = PrepareLocalLineFiles(strDrawing, strApplication, nProjectId);
    CKV2D_IniFile ini;
    if (ini.Open(files.strLines) != kIniDone) {
        MakeLineFile(files, nProjectId, astrDrawingLines);
        // A drawing's file is never without a line.
        if (astrDrawingLines.empty()) AddLinesToFile(files, {L"Line 1"});
        ini.Open(files.strLines);
    }
    CLineNameLookUp names(nProjectId, bUseCache);
    if (bLive) {
        const std::vector<std::wstring> astrMissing = GetMissingLines(ini, astrDrawingLines);
        if (!astrMissing.empty()) {
            AddLinesToFile(files, astrMissing);
            ini.Open(files.strLines);
        }
        AppendLines(ini, true, &names, anIds, astrNames, abFlags);
    }
    if (bDeleted) AppendLines(ini, false, &names, anIds, astrNames, abFlags);
    return kLineOk;
}

int CreateLocalLine(int nProjectId, const std::wstring& strApplication, const std::wstring& strDrawing,
                    int& nLineId, std::wstring& strName) {
    nLineId = 0;
    strName.clear();
    if (nProjectId < 1) return kLineInvalidProjectId;
    CreateLineInFile(PrepareLocalLineFiles(strDrawing, strApplication, nProjectId), nLineId, strName);
    return kLineOk;
}

int RenameLocalLine(int nProjectId, const std::wstring& strApplication, const std::wstring& strDrawing,
                    int nLineId, const std::wstring& strNewName) {
    std::wstring strName = strNewName;
    if (const int nCode = CheckRename(nProjectId, nLineId, strName); nCode != kLineOk) return nCode;
    return RenameLineInFile(GetLocalLineIniPath(strDrawing, strApplication, nProjectId), nLineId, strName);
}

std::wstring CreateLocalLineIni(int nProjectId, const std::wstring& strApplication,
                                const std::wstring& strDrawing,
                                const std::vector<std::wstring>& astrLineNames) {
    MakeLineFile(PrepareLocalLineFiles(strDrawing, strApplication, nProjectId), nProjectId, astrLineNames);
    return std::wstring();
}
