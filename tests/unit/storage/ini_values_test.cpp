#include "storage/ini_values.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(IniValues, FormatDouble_HasSixDecimals_AlsoForTheLargest) {
    EXPECT_EQ(FormatDouble(0.5), L"0.500000");
    EXPECT_EQ(FormatDouble(-1e-9), L"-0.000000");
    EXPECT_EQ(FormatDouble(std::numeric_limits<double>::max()).size(), 316u);
}

TEST(IniValues, LeadingDouble_EndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(LeadingDouble(L" \t-2.75in"), -2.75);
    EXPECT_EQ(LeadingDouble(L".5"), 0.5);
    EXPECT_EQ(LeadingDouble(L"1e2x"), 100.0);
    EXPECT_EQ(LeadingDouble(L"1e"), 1.0);
    EXPECT_EQ(LeadingDouble(L""), 0.0);
    EXPECT_EQ(LeadingDouble(L"\u0661"), 0.0);
    EXPECT_EQ(LeadingDouble(L"1,5"), 1.0);
}

TEST(IniValues, ParseHex_CountsTheCharactersFromAsteriskToQuestionMark) {
    EXPECT_EQ(ParseHex(L"0"), 0u);
    EXPECT_EQ(ParseHex(L"1aF"), 0x1AFu);
    EXPECT_EQ(ParseHex(L"*+,-./"), 0xABCDEFu);
    EXPECT_EQ(ParseHex(L":;<=>?"), 0xABCDEFu);
    EXPECT_EQ(ParseHex(L"1g2"), 1u);
    EXPECT_EQ(ParseHex(L"{12"), 0u);
    EXPECT_EQ(ParseHex(L""), 0u);
    EXPECT_EQ(ParseHex(std::wstring(L"1\0002", 3)), 1u);
    EXPECT_EQ(ParseHex(L"\u0131"), 0u);
    EXPECT_EQ(ParseHex(L"FFFFFFFFFFFFFFFF"), 0xFFFFFFFFFFFFFFFFu);
}

TEST(IniValues, ParseGuid_OfShortText_FillsWithZeros) {
    EXPECT_TRUE(ParseGuid(L"") == platform::Guid());
    EXPECT_TRUE(ParseGuid(L"12345678-9A") == (platform::Guid{0x12345678, 0x9A, 0, {}}));
    EXPECT_TRUE(ParseGuid(L"0000000000000000FF1") == (platform::Guid{0, 0, 0, {0xFF, 1}}));
}

TEST(IniValues, Guid_SurvivesItsText) {
    const platform::Guid guid{0xFFFFFFFF, 0, 0x8001, {0, 1, 0x7F, 0x80, 0xFF, 2, 3, 4}};
    EXPECT_EQ(FormatGuid(guid), L"FFFFFFFF-0000-8001-0001-7F80FF020304");
    EXPECT_TRUE(ParseGuid(FormatGuid(guid)) == guid);
}

}  // namespace
