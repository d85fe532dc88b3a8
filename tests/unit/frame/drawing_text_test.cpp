#include "frame/drawing_text.h"

#include <gtest/gtest.h>

namespace frame {
namespace {

using Lines = std::vector<std::wstring>;

TEST(PlainLine, PercentCodes_BecomeTheirSigns) {
    EXPECT_EQ(L"90\u00B0", PlainLine(L"90%%d"));
    EXPECT_EQ(L"\u00B10.5", PlainLine(L"%%P0.5"));
    EXPECT_EQ(L"\u230050", PlainLine(L"%%c50"));
    EXPECT_EQ(L"100%", PlainLine(L"100%%%"));
    EXPECT_EQ(L"A", PlainLine(L"%%065"));
    EXPECT_EQ(L"NOTE", PlainLine(L"%%uNOTE%%u"));
}

TEST(PlainLine, WhatIsNoCode_Stays) {
    EXPECT_EQ(L"50% of", PlainLine(L"50% of"));
    EXPECT_EQ(L"%%", PlainLine(L"%%"));
    EXPECT_EQ(L"%%x", PlainLine(L"%%x"));
    EXPECT_EQ(L"%%000", PlainLine(L"%%000"));
    EXPECT_EQ(L"%%12", PlainLine(L"%%12"));
    EXPECT_EQ(L"\\U+00G0", PlainLine(L"\\U+00G0"));
    EXPECT_EQ(L"\\U+00", PlainLine(L"\\U+00"));
}

TEST(PlainLine, UnicodeEscape_IsItsCharacter) {
    EXPECT_EQ(L"a\u00E9b", PlainLine(L"a\\U+00E9b"));
}

TEST(PlainParagraphs, FormatCodes_AreLeftOut) {
    EXPECT_EQ((Lines{L"Pump P-101", L"DN 50"}), PlainParagraphs(L"{\\fArial|b1;Pump} P-101\\PDN 50"));
    EXPECT_EQ((Lines{L"tall"}), PlainParagraphs(L"\\H2.5x;\\C1;\\Ltall\\l"));
}

TEST(PlainParagraphs, EscapedSigns_AreThemselves) {
    EXPECT_EQ((Lines{L"\\ { }"}), PlainParagraphs(L"\\\\ \\{ \\}"));
    EXPECT_EQ((Lines{L"a b"}), PlainParagraphs(L"a\\~b"));
}

TEST(PlainParagraphs, Fraction_IsWrittenInALine) {
    EXPECT_EQ((Lines{L"1/2 inch"}), PlainParagraphs(L"\\S1^2; inch"));
    EXPECT_EQ((Lines{L"1/2"}), PlainParagraphs(L"\\S1#2"));
}

TEST(PlainParagraphs, TextThatEndsInACode_IsReadToItsEnd) {
    EXPECT_EQ((Lines{L"a\\"}), PlainParagraphs(L"a\\"));
    EXPECT_EQ((Lines{L"a"}), PlainParagraphs(L"a\\fArial"));
    EXPECT_EQ((Lines{L"a", L""}), PlainParagraphs(L"a\\P"));
    EXPECT_EQ((Lines{L""}), PlainParagraphs(L""));
}

}  // namespace
}  // namespace frame
