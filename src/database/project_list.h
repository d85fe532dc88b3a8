// The projects of the database (standards, to the user): ProjectDatafile.ini in the data files folder, which
// the Standards Manager writes and this module only reads, and the folder of each project.
//
// The folder "Projects\KV2D_PRJ_<id> - <name>\" carries the project's name, so looking it up may rename it on
// disk. A deleted project keeps its id, its name and its folder, and drawings of it keep working.
#pragma once

#include <string>
#include <vector>

#include "storage/ini_file.h"

// Result codes of the project functions.
inline constexpr int kProjectDone = 0;
inline constexpr int kProjectNoFolder = 3;
inline constexpr int kProjectCannotOpenList = 5;
inline constexpr int kProjectInvalidId = 10;

// "KV2D_PRJ_<id>"; empty for an id below 1.
std::wstring ProjectKeyFromId(int nProjectId);

// The id behind "KV2D_PRJ_" anywhere in the text (a key or a path), in any letter case; 0 if it is not there.
int ProjectIdFromKey(const std::wstring& strKey);

// The live projects, or the deleted ones, sorted by name (see SortIdsAndNames). Both lists are emptied first.
// kProjectCannotOpenList if the file cannot be opened. A key without its prefix gives the id 0; its row is
// kept.
int GetProjectList(std::vector<int>& anIds, std::vector<std::wstring>& astrNames, bool bDeleted);

// The name in the open ProjectDatafile.ini, live rows first; empty if there is none. Leaves the document's
// current section where the search stopped.
std::wstring GetProjectNameFromIni(CKV2D_IniFile& ini, int nProjectId, bool bSearchLive, bool bSearchDeleted);

// The same from the file; empty also for an id below 1 and if the file cannot be opened.
std::wstring GetProjectName(int nProjectId, bool bSearchLive, bool bSearchDeleted);

// The project's folder with a backslash behind it; empty unless the result is kProjectDone. A project without
// a row in the file is still found by its id. Codes: kProjectNoFolder, kProjectCannotOpenList,
// kProjectInvalidId.
//
// On disk: renames "KV2D_PRJ_<id>" and "KV2D_PRJ_<id> - <old name>" to the present name; a rename that fails
// is passed over. Never creates a folder.
int GetProjectFolder(int nProjectId, std::wstring& strFolder);

// The same with the open ProjectDatafile.ini; kProjectCannotOpenList does not occur.
int ResolveProjectFolder(CKV2D_IniFile& ini, int nProjectId, std::wstring& strFolder);

// What a project id resolves to, read once at construction. A project without a name in the file stays empty
// even if its folder exists.
class CKV2D_ProjectRef {
  public:
    explicit CKV2D_ProjectRef(int nProjectId);

    bool m_bValid = false;  // nothing sets it: of no use
    int m_nProjectId = 0;
    std::wstring m_strName;
    std::wstring m_strFolder;
    std::wstring m_strPath;  // the folder with its backslash; the paths of the project's files start with it
};

// The path of a file in the project's folder; empty if the project does not resolve to one.
std::wstring GetProjectFilePath(int nProjectId, const std::wstring& strFileName);
