#include "storage/message_format.h"

#include <gtest/gtest.h>

TEST(MessageFormat, FillsTextsAndNumbersInOrder) {
    EXPECT_EQ(FormatMessageText(L"User: %s on %s (%d)", {L"anna", L"WS7", -3}), L"User: anna on WS7 (-3)");
}

TEST(MessageFormat, PercentInArgument_IsText) {
    EXPECT_EQ(FormatMessageText(L"%s|%s", {L"C:\\100%s\\%d%n", L"%%"}), L"C:\\100%s\\%d%n|%%");
}

TEST(MessageFormat, OtherPercentSignsInFormat_AreText) {
    EXPECT_EQ(FormatMessageText(L"50% of %x, %ld, %%, %s, %", {L"all"}), L"50% of %x, %ld, %%, all, %");
}

TEST(MessageFormat, PlaceWithoutArgument_IsText) {
    EXPECT_EQ(FormatMessageText(L"%s and %s", {L"one"}), L"one and %s");
    EXPECT_EQ(FormatMessageText(L"%d", {}), L"%d");
}

TEST(MessageFormat, ArgumentsLeftOver_AreNotUsed) {
    EXPECT_EQ(FormatMessageText(L"plain", {L"a", 1}), L"plain");
    EXPECT_EQ(FormatMessageText(L"", {L"a"}), L"");
}
