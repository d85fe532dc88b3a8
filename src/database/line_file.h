// Operations on one line file and its counter file, the same for a project's lines and a drawing's own. Only
// for the line functions of line_list.h.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "database/id_lists.h"
#include "storage/ini_file.h"

inline constexpr wchar_t kLinePrefix[] = L"KV2D_LINE_";
inline constexpr CLiveAndDeleted kLineSections{L"LineList", L"DeletedLines"};

// Where lines are kept and where their ids come from.
struct CLineFiles {
    std::wstring strLines;
    std::wstring strCounter;
};

// Creates a line under a default name.
void CreateLineInFile(const CLineFiles& files, int& nLineId, std::wstring& strName);

// The tests of RenameLine that need no file; trims the name.
int CheckRename(int nProjectId, int nLineId, std::wstring& strName);

// Renames a line to a name that has passed CheckRename.
int RenameLineInFile(const std::wstring& strPath, int nLineId, const std::wstring& strName);

// Leaves both files as if each name in turn had been given to CreateLineInFile and RenameLineInFile, but
// reads and writes them once.
void AddLinesToFile(const CLineFiles& files, const std::vector<std::wstring>& astrNames);

// The ids of names in the project's list of live lines, which is fetched at the first look-up. For
// LineIdFromKey and for files in which many keys are names.
class CLineNameLookUp {
  public:
    CLineNameLookUp(int nProjectId, bool bUseCache) : m_nProjectId(nProjectId), m_bUseCache(bUseCache) {}

    // LineIdFromKey with `bAllowName`.
    int GetLineId(const std::wstring& strKeyOrName);

  private:
    void FetchLines();

    int m_nProjectId;
    bool m_bUseCache;
    bool m_bFetched = false;
    int m_nFirstId = 0;
    std::unordered_map<std::wstring, int> m_mapIds;  // by name in capitals
};

// Appends the rows of the document's section to the parallel lists. Names in place of keys are looked up in
// `pNames`; without it they give the id 0.
void AppendLines(CKV2D_IniFile& ini, bool bLive, CLineNameLookUp* pNames, std::vector<int>& anIds,
                 std::vector<std::wstring>& astrNames, std::vector<bool>& abFlags);

// The list of an evaluation run: one pseudo-line, no file access.
void SetEvalLine(std::vector<int>& anIds, std::vector<std::wstring>& astrNames, std::vector<bool>& abFlags);
