#include "palette/menu_text.h"

#include <gtest/gtest.h>

TEST(MenuText, CommandWithoutTrailingBlank_GetsOne) {
    EXPECT_EQ(GetMenuCommandText(L"(c:valve)"), L"(c:valve) ");
}

TEST(MenuText, CommandWithTrailingBlanks_StaysAsItIs) {
    EXPECT_EQ(GetMenuCommandText(L"_line "), L"_line ");
    EXPECT_EQ(GetMenuCommandText(L"_line  "), L"_line  ");
}

TEST(MenuText, EmptyCommand_IsOneBlank) {
    EXPECT_EQ(GetMenuCommandText(L""), L" ");
}

TEST(MenuText, Toggle_LosesItsTrailingBlanks) {
    EXPECT_EQ(GetToggleExpression(3, L"Auto tag  ", true), L"(kv2dMenu_OnSelchangeToggle 3 \"Auto tag\" 1) ");
    EXPECT_EQ(GetToggleExpression(5, L"  x", false), L"(kv2dMenu_OnSelchangeToggle 5 \"  x\" 0) ");
    EXPECT_EQ(GetToggleExpression(1, L"   ", false), L"(kv2dMenu_OnSelchangeToggle 1 \"\" 0) ");
}

TEST(MenuText, PercentInAToggleName_IsText) {
    EXPECT_EQ(GetToggleExpression(4, L"50%s %d", true), L"(kv2dMenu_OnSelchangeToggle 4 \"50%s %d\" 1) ");
}

TEST(MenuText, EscapesAreThree) {
    EXPECT_EQ(std::wstring(kThreeEscapes), std::wstring(3, L'\x1b'));
}
