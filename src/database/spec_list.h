// The piping specs that a project offers, and its pipe sizes. SpecDatafile.ini in the data files folder
// defines the specs and who owns them; Specs.ini in a project's folder switches them on. Both are written by
// the Standards Manager and the SpecGenerator and only read here, anew on every call. An unreadable file
// reads as an empty one.
#pragma once

#include <string>
#include <vector>

#include "storage/ini_file.h"

// Result codes of the spec functions.
inline constexpr int kSpecDone = 0;
inline constexpr int kSpecNoFile = 5;
inline constexpr int kSpecInvalidProjectId = 8;

// The id behind "KV2D_SPEC_" anywhere in the text, in any letter case. Without it, and with `bAllowName`, the
// text is the name of a spec in any letter case. 0 if there is none.
int SpecIdFromKey(const std::wstring& strText, bool bAllowName);

// "Specs.ini" in the project's folder; empty if the project does not resolve to a folder.
std::wstring GetSpecsIniPath(int nProjectId);

// All specs of the open SpecDatafile.ini in row order. A key without its prefix gives the id 0; its row is
// kept. Leaves the document's current section at the specs.
void GetSpecListFromIni(CKV2D_IniFile& ini, std::vector<int>& anIds, std::vector<std::wstring>& astrNames);

// All specs with their scope: 0 for everyone, minus the client's id, or the project's id. A spec of both a
// client and a project counts as the client's. All lists are emptied first. kSpecNoFile if there is no data
// files folder.
int GetSpecScopes(std::vector<int>& anIds, std::vector<int>& anScopes, std::vector<std::wstring>& astrNames);

// The specs for everyone, those of the client and those of the project, each sorted by name; the specs of
// others are left out. With `bZeroScope`, without a client (0) all client specs count as for everyone, and
// without a project all project specs. All lists are emptied first. kSpecNoFile if there is no data files
// folder.
int GetSpecsByScope(int nClientId, int nProjectId, std::vector<int>& anGlobalIds,
                    std::vector<std::wstring>& astrGlobalNames, std::vector<int>& anClientIds,
                    std::vector<std::wstring>& astrClientNames, std::vector<int>& anProjectIds,
                    std::vector<std::wstring>& astrProjectNames, bool bZeroScope);

// The specs that the project's Specs.ini switches on, in row order; a key there may be the name of a spec. A
// name that nobody bears gives 0. Codes: kSpecInvalidProjectId, kSpecNoFile (the project does not resolve to
// a folder).
int GetProjectSpecIds(int nProjectId, std::vector<int>& anIds);

// What the palette offers: of the specs for everyone, then the client's, then the project's, each block
// sorted by name, those that the project's Specs.ini switches on. Always kSpecDone.
int GetProjectSpecs(int nProjectId, std::vector<int>& anIds, std::vector<std::wstring>& astrNames);

// The sizes of a standard ("ANSI") in a size set (see GetSizeSetName), in row order; `anIndices` are the row
// numbers from 0. With `bCommonOnly` only the rows of the sizes 1, 3 and 4. Both lists are emptied first. On
// disk: as LoadSizeTable.
void GetSizeList(const std::wstring& strStandard, int nSizeSet, std::vector<int>& anIndices,
                 std::vector<std::wstring>& astrTexts, bool bCommonOnly);
