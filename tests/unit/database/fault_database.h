// The database that the fault tests work in, and what is in its files.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/test_platform.h"

inline constexpr wchar_t kDrawing[] = L"c:\\p\\Plant1.dwg";
inline constexpr wchar_t kNewDrawing[] = L"c:\\p\\Fresh.dwg";

// Project 5 keeps its lines in one file and bears a folder with its former name; project 6 keeps them per
// drawing and has the older form of folder. Neither has a GUID yet, and size.tp is in the old form.
void ArrangeDatabase(TestSystem& system);

// Where a file may lie: the folder of a project is renamed on the way.
using Places = std::vector<std::wstring>;

// All files that may be there before or after an operation, by name.
std::map<std::string, Places> GetAllFiles(TestSystem& system);

inline constexpr char kAbsent[] = "(absent)";

// Contents by the files' names; kAbsent for a file that is not there.
using Snapshot = std::map<std::string, std::string>;

// The contents of all files, past the log and the faults.
Snapshot TakeSnapshot(TestSystem& system);
