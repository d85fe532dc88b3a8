// What the lists of the project database have in common: ids behind a prefix in keys, and parallel lists that
// are sorted together.
#pragma once

#include <string>
#include <vector>

#include "storage/ini_file.h"

// The prefix followed by the id; empty for an id below 1.
std::wstring KeyFromId(const std::wstring& strPrefix, int nId);

// Searches the prefix (given in capitals) anywhere in the text, in any letter case, and reads the leading
// integer behind it: "old kv2d_line_7x" holds 7. False if the prefix is not there; `nId` is then 0.
bool FindIdInText(const std::wstring& strText, const std::wstring& strPrefix, int& nId);

// Sorts parallel lists by name, ascending by character codes: capitals stand ahead of small letters, and
// equal names keep their order. The lists must be of one length.
void SortIdsAndNames(std::vector<int>& anIds, std::vector<std::wstring>& astrNames);
void SortIdsNamesFlags(std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                       std::vector<bool>& abFlags);

// The sections of a file that keeps live and deleted rows apart.
struct CLiveAndDeleted {
    const wchar_t* pszLive;
    const wchar_t* pszDeleted;
};

// The name stored under the key, the live section first, each only if it is to be searched; empty if there is
// none. Leaves the document's current section where the search stopped.
std::wstring GetNameByKey(CKV2D_IniFile& ini, const CLiveAndDeleted& sections, const std::wstring& strKey,
                          bool bSearchLive, bool bSearchDeleted);

// The same the other way round: the key of the first row of exactly that name.
std::wstring FindKeyByName(CKV2D_IniFile& ini, const CLiveAndDeleted& sections, const std::wstring& strName,
                           bool bSearchLive, bool bSearchDeleted);
