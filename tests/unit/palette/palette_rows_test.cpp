#include "palette/palette_rows.h"

#include <gtest/gtest.h>

#include "storage/applications.h"

namespace {

std::vector<std::wstring> Titles(int nApp) {
    std::vector<std::wstring> titles;
    for (const CPaletteRow& row : FindPaletteDiscipline(nApp)->m_aRows)
        titles.push_back(row.szTitle);
    return titles;
}

using TitleList = std::vector<std::wstring>;

}  // namespace

TEST(PaletteRows, EachDisciplineHasItsRows) {
    EXPECT_EQ(Titles(kAppElectric), (TitleList{L"Menu"}));
    EXPECT_EQ(Titles(kAppPid), (TitleList{L"Spec", L"Pipe Size", L"Line Number"}));
    EXPECT_EQ(Titles(kAppIsometric), (TitleList{L"Spec", L"Main Size", L"Branch Size", L"Line Number"}));
    EXPECT_EQ(Titles(kAppOrtho), (TitleList{L"Spec", L"Main Size", L"Branch Size", L"Line Number"}));
}

TEST(PaletteRows, OtherApplicationsHaveNoPalette) {
    for (int nApp : {0, 5, 9, 11, -1, 99})
        EXPECT_EQ(FindPaletteDiscipline(nApp), nullptr) << nApp;
}

TEST(PaletteRows, ButtonsAndApplicationIds) {
    struct {
        int nApp, nApplicationId;
        bool bIso, bSwap;
        int nNewLineRow;
    } const expected[] = {
        {1, 1, false, false, -1}, {2, 3, false, false, 3}, {3, 4, true, true, 4}, {4, 5, false, true, 4}};
    for (const auto& e : expected) {
        const CPaletteDiscipline& discipline = *FindPaletteDiscipline(e.nApp);
        EXPECT_EQ(discipline.m_nApplicationId, e.nApplicationId) << e.nApp;
        EXPECT_EQ(discipline.m_bIsoButton, e.bIso) << e.nApp;
        EXPECT_EQ(discipline.m_bSwapButton, e.bSwap) << e.nApp;
        EXPECT_EQ(discipline.m_nNewLineRow, e.nNewLineRow) << e.nApp;
    }
}

TEST(PaletteRows, LineNumberRow_IsTheLastOneOfAPipingDiscipline) {
    EXPECT_EQ(FindPaletteRow(*FindPaletteDiscipline(kAppElectric), PaletteRow::kLineNumber), -1);
    EXPECT_EQ(FindPaletteRow(*FindPaletteDiscipline(kAppPid), PaletteRow::kLineNumber), 2);
    EXPECT_EQ(FindPaletteRow(*FindPaletteDiscipline(kAppOrtho), PaletteRow::kLineNumber), 3);
}

TEST(PaletteRows, LargeMenu_OnlyForASizeOfExactly32) {
    const CPaletteDiscipline& pid = *FindPaletteDiscipline(kAppPid);
    EXPECT_EQ(GetMenuFileName(pid, 32, false), L"PID32.tbm");
    for (int nSize : {0, 16, 24, 31, 33, 48, -5})
        EXPECT_EQ(GetMenuFileName(pid, nSize, false), L"PID16.tbm") << nSize;
    EXPECT_EQ(GetMenuFileName(*FindPaletteDiscipline(kAppIsometric), 32, false), L"Isometric32.tbm");
    EXPECT_EQ(GetMenuFileName(*FindPaletteDiscipline(kAppOrtho), 16, false), L"Ortho16.tbm");
}

TEST(PaletteRows, OnlyElectricHasASchematicMenu) {
    const CPaletteDiscipline& electric = *FindPaletteDiscipline(kAppElectric);
    EXPECT_EQ(GetMenuFileName(electric, 16, false), L"ElectricLay16.tbm");
    EXPECT_EQ(GetMenuFileName(electric, 16, true), L"ElectricSch16.tbm");
    EXPECT_EQ(GetMenuFileName(electric, 32, true), L"ElectricSch32.tbm");
    EXPECT_EQ(GetMenuFileName(*FindPaletteDiscipline(kAppPid), 16, true), L"PID16.tbm");
}

TEST(PaletteRows, InitialMenuIconSize) {
    EXPECT_EQ(GetInitialMenuIconSize(0), 32);
    EXPECT_EQ(GetInitialMenuIconSize(1), 2);
    EXPECT_EQ(GetInitialMenuIconSize(16), 32);
    EXPECT_EQ(GetInitialMenuIconSize(24), 48);
    EXPECT_EQ(GetInitialMenuIconSize(32), 64);
    EXPECT_EQ(GetInitialMenuIconSize(33), 64);
}
