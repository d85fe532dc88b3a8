// What the palette shows in each discipline: menu files, titled combo rows, and the small buttons.
#pragma once

#include <string>
#include <vector>

inline constexpr int kNoNewLineRow = -1;
// The "MenuSize" of large icons.
inline constexpr int kLargeMenuSize = 32;
// The piping standard whose sizes are offered.
inline constexpr wchar_t kSizeStandard[] = L"ANSI";

// What a combo row is about: it decides how the row is filled and which field of the drawing's record it
// sets.
enum class PaletteRow { kMenu, kSpec, kMainSize, kBranchSize, kLineNumber };

struct CPaletteRow {
    PaletteRow kind;
    const wchar_t* szTitle;
};

struct CPaletteDiscipline {
    int m_nApp;
    // Name of the menu file for a "MenuSize" of 32 and for every other one. Electric has two menus; the
    // second pair is its schematic menu and empty for the others.
    const wchar_t* szMenu32;
    const wchar_t* szMenu16;
    const wchar_t* szSchematicMenu32;
    const wchar_t* szSchematicMenu16;
    // The number that the LISP programs of the discipline know the palette by.
    int m_nApplicationId;
    std::vector<CPaletteRow> m_aRows;
    bool m_bIsoButton;
    bool m_bSwapButton;
    int m_nNewLineRow;
    int m_nGroup;
    const wchar_t* szGroupTitle;
};

// Null unless `nApp` is one of the four disciplines.
const CPaletteDiscipline* FindPaletteDiscipline(int nApp);

// The menu file's name for a "MenuSize"; `bSchematic` counts only where there is a schematic menu.
std::wstring GetMenuFileName(const CPaletteDiscipline& discipline, int nMenuSize, bool bSchematic);

// Index of the row of that kind, -1 if the discipline has none.
int FindPaletteRow(const CPaletteDiscipline& discipline, PaletteRow kind);

// The menu control's icon size at start: twice the setting, 32 for a setting of 0 or below, 64 for one
// above 32.
int GetInitialMenuIconSize(int nMenuSize);
