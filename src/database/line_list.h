// The line numbers of a project, the one part of the database that this module writes.
//
// A project keeps them in one of two ways (LocalLineIni of General.ini):
// - project mode: Lines.ini in the project's folder; the last id given out, of all projects, is in
//   LineDatafile.ini in the data files folder;
// - local mode: a file per drawing and a LineDatafile.ini, both in the folder LocalLineIniPath.
//
// Either line file holds live lines (LineList) and deleted ones (DeletedLines), as KV2D_LINE_<id> = <name>.
// The name of a deleted line stays taken. Nothing guards the files against other workstations: the last
// writer wins.
//
// One line document is cached, by project id alone and for both modes: a cached list is stale until one of
// the Reload calls.
#pragma once

#include <string>
#include <vector>

#include "storage/ini_file.h"

// Result codes of the line functions; GetLineErrorText gives their words.
inline constexpr int kLineOk = 0;
inline constexpr int kLineCannotCreate = 1;  // returned by nobody
inline constexpr int kLineNotFound = 2;
inline constexpr int kLineCannotOpenDatafile = 3;
inline constexpr int kLineInvalidName = 4;
inline constexpr int kLineInvalidId = 5;
inline constexpr int kLineInvalidProjectId = 6;
inline constexpr int kLineAlreadyExists = 7;
inline constexpr int kLineIsDeleted = 8;

// "Can't find line" for kLineNotFound...; "Unknown error" for any other number.
std::wstring GetLineErrorText(int nCode);

// "KV2D_LINE_<id>"; empty for an id below 1.
std::wstring LineKeyFromId(int nLineId);

// The id behind "KV2D_LINE_" anywhere in the text, in any letter case. Without it, and with `bAllowName`, the
// text is the name of a live line of the project in any letter case; "Eval" stands for the first line of the
// list, whatever its name. 0 if there is none.
int LineIdFromKey(int nProjectId, const std::wstring& strText, bool bAllowName, bool bUseCache);

// Trims the blanks (not tabs) around the name. kLineInvalidName if nothing or only "-" is left, else kLineOk.
int ValidateLineName(std::wstring& strName);

// "Lines.ini" in the project's folder; empty if the project does not resolve to a folder.
std::wstring GetLinesIniPath(int nProjectId);

// The line file of a drawing: "PID_12_Plant1line.ini" in LocalLineIniPath for c:\p\Plant1.rev2.dwg. A drawing
// path without ".dwg" is used whole up to its first dot, backslashes included. On disk: creates the folders
// of the path, on every call.
std::wstring GetLocalLineIniPath(const std::wstring& strDrawing, const std::wstring& strApplication,
                                 int nProjectId);

// The key of the first line of exactly that name in an open line document, live lines first; empty if there
// is none. Leaves the document's current section where the search stopped.
std::wstring FindLineKeyByName(CKV2D_IniFile& ini, const std::wstring& strName, bool bSearchLive,
                               bool bSearchDeleted);

// The name of a line in an open line document, live lines first; empty if there is none. Leaves the
// document's current section where the search stopped.
std::wstring GetLineNameById(CKV2D_IniFile& ini, int nLineId, bool bSearchLive, bool bSearchDeleted);

// Live and deleted lines of the project together, sorted by name; the flag is true for a live line. All lists
// are emptied first. A project without a Lines.ini has no lines, which is no failure. A key without its
// prefix gives the id 0; its row is kept. With `bEval` the list is the one pseudo-line "Eval" of id 1. Codes:
// kLineInvalidProjectId, kLineCannotOpenDatafile (the project does not resolve to a folder).
int GetLineList(int nProjectId, std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                std::vector<bool>& abFlags, bool bLive, bool bDeleted, bool bEval, bool bUseCache);

// The lines of a drawing's own file, live lines first, in row order, not sorted. `astrDrawingLines` are the
// line numbers found in the drawing. A key without its prefix is taken as the name of a line of the project's
// Lines.ini (the only thing `bUseCache` is for). Code: kLineInvalidProjectId.
//
// On disk: makes the file if it cannot be opened, with the drawing's lines or "Line 1"; with `bLive` each
// number of the drawing that is not a live line joins the file under a fresh id, on every call. A number that
// cannot be a name ("-", or the name of a deleted line) joins under a default name each time.
int GetLocalLineList(int nProjectId, const std::wstring& strApplication, const std::wstring& strDrawing,
                     const std::vector<std::wstring>& astrDrawingLines, std::vector<int>& anIds,
                     std::vector<std::wstring>& astrNames, std::vector<bool>& abFlags, bool bLive,
                     bool bDeleted, bool bEval, bool bUseCache);

// A new line with the next id and the name "Line <id>", or the next free number if that name is taken.
// Codes: kLineInvalidProjectId, kLineCannotOpenDatafile (no data files folder). On failure id 0 and an empty
// name. On disk: the counter first, then Lines.ini, both read anew. A save that fails is not noticed: the id
// is used up.
int CreateLine(int nProjectId, int& nLineId, std::wstring& strName);

// The same in the drawing's own file. Code: kLineInvalidProjectId.
int CreateLocalLine(int nProjectId, const std::wstring& strApplication, const std::wstring& strDrawing,
                    int& nLineId, std::wstring& strName);

// Renames a live or a deleted line where it stands; the name is trimmed first. Codes, in the order of the
// tests: kLineInvalidProjectId, kLineInvalidId, kLineInvalidName, kLineCannotOpenDatafile, kLineAlreadyExists
// (the present name included), kLineIsDeleted, kLineNotFound. On disk: rewrites Lines.ini on kLineOk only.
int RenameLine(int nProjectId, int nLineId, const std::wstring& strNewName);

// The same in the drawing's own file.
int RenameLocalLine(int nProjectId, const std::wstring& strApplication, const std::wstring& strDrawing,
                    int nLineId, const std::wstring& strNewName);

// Makes the drawing's line file anew, replacing what is there, with a line for each name. Does nothing for a
// project that does not resolve to a folder. The result is empty and means nothing.
std::wstring CreateLocalLineIni(int nProjectId, const std::wstring& strApplication,
                                const std::wstring& strDrawing,
                                const std::vector<std::wstring>& astrLineNames);

// Opens the line document of a project, or takes it from the cache; true if `ini` is ready. A file opened
// with `bUseCache` is the cached one from then on.
bool OpenProjectLineIni(CKV2D_IniFile& ini, int nProjectId, bool bUseCache);
bool OpenLocalLineIni(CKV2D_IniFile& ini, const std::wstring& strApplication, const std::wstring& strDrawing,
                      int nProjectId, bool bUseCache);

// Read the cached project's line file anew into the cache; true if it could be opened. If not, the cached
// rows stay.
bool ReloadProjectLineCache();
bool ReloadLocalLineCache(const std::wstring& strApplication, const std::wstring& strDrawing);

// Empties the cache, as it is when the module starts.
void DropLineCache();
