// Names of drawings and folders in the Drawing Manager: the forced ending, free names for copies and for new
// things, and the texts that are built from names.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

inline constexpr wchar_t kDrawingExtension[] = L".dwg";
inline constexpr wchar_t kBackupExtension[] = L".bak";

// Tells whether a path is taken by a file or a folder.
using PathExists = std::function<bool(const std::wstring& strPath)>;

// Whether the name's last four characters are ".bak" in any case.
bool IsBackupName(const std::wstring& strName);

// Forces the ending of a drawing's name or path: ".dwg" or ".bak" in any case becomes lower case, anything
// else gets ".dwg" behind it. "A.DWG" becomes "A.dwg", "A" and "A.old" become "A.dwg" and "A.old.dwg".
void NormalizeDrawingName(std::wstring& strName);

// The part between the last backslash and the last dot. A dot ahead of the last backslash is no extension:
// "C:\v1.2\plan" gives "plan".
std::wstring GetFileTitleOnly(const std::wstring& strPath);

// The part from the last dot on, in lower case, if that dot lies behind the last backslash; else empty.
std::wstring GetFileExtensionLower(const std::wstring& strPath);

// The first free path of the form "title (Copy n).ext" in the file's own folder, n from 1 on without limit.
std::wstring MakeCopyName(const std::wstring& strPath, const PathExists& exists);

// The first number n from 1 on for which "Drawingn.dwg" is free in the folder. A gap is taken.
// `strFolder` ends in a backslash or is empty.
int FindFreeDrawingNumber(const std::wstring& strFolder, const PathExists& exists);
// "Drawing7" for 7.
std::wstring MakeDrawingTitle(int nNumber);

// The first free name of the form "New Folder (n)" in the folder, n from 1 on.
std::wstring MakeNewFolderName(const std::wstring& strFolder, const PathExists& exists);

// Where a folder goes when its last component is renamed. Trailing backslashes of `strFolder` do not count:
// "C:\Plant\Old\" and "New" give "C:\Plant\New".
std::wstring MakeRenamedFolder(const std::wstring& strFolder, const std::wstring& strNewName);

std::wstring TrimTrailingBackslashes(std::wstring strPath);

// The question ahead of a deletion: one line for each name, with the ending that the file has.
std::wstring MakeDeleteQuestion(const std::vector<std::wstring>& astrNames);

// Whether the only listed drawing is the default one, the sign of a drawing location that nobody has set.
bool IsOnlyDefaultDrawing(const std::vector<std::wstring>& astrNames);
