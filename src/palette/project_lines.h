// The lines that a drawing's project offers, whichever of the two ways the project keeps them.
#pragma once

#include <string>
#include <vector>

// What to read; the palette and the new line dialog ask for different lists.
struct CProjectLinesOptions {
    bool bDeletedToo = false;
    bool bUseCache = false;
};

struct CProjectLines {
    std::vector<int> m_anIds;
    std::vector<std::wstring> m_astrNames;
    std::vector<bool> m_abFlags;  // true: live, false: deleted

    // The lines of a project for the current drawing. With local lines, the line numbers that stand in the
    // drawing join its line file first. `nAppId` is the discipline that the drawing's record names. Results
    // as of GetLineList and GetLocalLineList.
    int Read(int nProjectId, bool bLocalLines, int nAppId, const CProjectLinesOptions& options);
};

// The full path of the current drawing; empty without one.
std::wstring GetCurrentDrawingPath();

// Reads the lines of the cache anew, for the current drawing.
void ReloadLineCache(bool bLocalLines, int nAppId);
