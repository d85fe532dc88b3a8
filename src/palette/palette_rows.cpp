#include "palette/palette_rows.h"

#include <algorithm>

#include "storage/applications.h"

namespace {

constexpr CPaletteRow kMenuRow{PaletteRow::kMenu, L"Menu"};
constexpr CPaletteRow kSpecRow{PaletteRow::kSpec, L"Spec"};
constexpr CPaletteRow kPipeSizeRow{PaletteRow::kMainSize, L"Pipe Size"};
constexpr CPaletteRow kMainSizeRow{PaletteRow::kMainSize, L"Main Size"};
constexpr CPaletteRow kBranchSizeRow{PaletteRow::kBranchSize, L"Branch Size"};
constexpr CPaletteRow kLineRow{PaletteRow::kLineNumber, L"Line Number"};

const CPaletteDiscipline kDisciplines[] = {
    {kAppElectric,
     L"ElectricLay32.tbm",
     L"ElectricLay16.tbm",
     L"ElectricSch32.tbm",
     L"ElectricSch16.tbm",
     1,
     {kMenuRow},
     false,
     false,
     kNoNewLineRow,
     0,
     L"Current Menu"},
    {kAppPid,
     L"PID32.tbm",
     L"PID16.tbm",
     L"",
     L"",
     3,
     {kSpecRow, kPipeSizeRow, kLineRow},
     false,
     false,
     3,
     1,
     L"Current Settings"},
    {kAppIsometric,
     L"Isometric32.tbm",
     L"Isometric16.tbm",
     L"",
     L"",
     4,
     {kSpecRow, kMainSizeRow, kBranchSizeRow, kLineRow},
     true,
     true,
     4,
     2,
     L"Current Settings"},
    {kAppOrtho,
     L"Ortho32.tbm",
     L"Ortho16.tbm",
     L"",
     L"",
     5,
     {kSpecRow, kMainSizeRow, kBranchSizeRow, kLineRow},
     false,
     true,
     4,
     3,
     L"Current Settings"},
};

}  // namespace

const CPaletteDiscipline* FindPaletteDiscipline(int nApp) {
    const auto it =
        std::find_if(std::begin(kDisciplines), std::end(kDisciplines),
                     [nApp](const CPaletteDiscipline& discipline) { return discipline.m_nApp == nApp; });
    return it == std::end(kDisciplines) ? nullptr : &*it;
}

std::wstring GetMenuFileName(const CPaletteDiscipline& discipline, int nMenuSize, bool bSchematic) {
    const bool bLarge = nMenuSize == kLargeMenuSize;
    if (bSchematic && *discipline.szSchematicMenu32)
        return bLarge ? discipline.szSchematicMenu32 : discipline.szSchematicMenu16;
    return bLarge ? discipline.szMenu32 : discipline.szMenu16;
}

int FindPaletteRow(const CPaletteDiscipline& discipline, PaletteRow kind) {
    const auto it = std::find_if(discipline.m_aRows.begin(), discipline.m_aRows.end(),
                                 [kind](const CPaletteRow& row) { return row.kind == kind; });
    return it == discipline.m_aRows.end() ? -1 : static_cast<int>(it - discipline.m_aRows.begin());
}

int GetInitialMenuIconSize(int nMenuSize) {
    if (nMenuSize <= 0) return 32;
    return nMenuSize > kLargeMenuSize ? 64 : nMenuSize * 2;
}
