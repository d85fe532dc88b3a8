#include "platform/letter_case.h"

#include <gtest/gtest.h>

namespace {

using platform::CompareWithoutCase;
using platform::EqualWithoutCase;
using platform::ToLower;
using platform::ToUpper;

TEST(LetterCase, LettersOfSeveralScripts_Change) {
    EXPECT_EQ(ToUpper(L"az\u00E4\u00FF\u0161\u017E\u03B1\u03CE\u044F\u0451"),
              L"AZ\u00C4\u0178\u0160\u017D\u0391\u038F\u042F\u0401");
    EXPECT_EQ(ToLower(L"AZ\u00C4\u0178\u0160\u017D\u0391\u038F\u042F\u0401"),
              L"az\u00E4\u00FF\u0161\u017E\u03B1\u03CE\u044F\u0451");
}

TEST(LetterCase, OtherCharacters_Stay) {
    const std::wstring text = L"09[]_{}@`\u00D7\u00F7\u00DF\u20AC\u0130\u0131";
    EXPECT_EQ(ToUpper(text), text);
    EXPECT_EQ(ToLower(text), text);
}

TEST(LetterCase, UpperAndLower_UndoEachOther) {
    for (unsigned code = 0; code < 0x3000; ++code) {
        const auto ch = static_cast<wchar_t>(code);
        if (ToLower(ch) != ch) {
            EXPECT_EQ(ToUpper(ToLower(ch)), ch) << code;
        }
        if (ToUpper(ch) != ch) {
            EXPECT_EQ(ToLower(ToUpper(ch)), ch) << code;
        }
    }
}

TEST(LetterCase, Comparison_GoesByUpperCaseCodes) {
    EXPECT_TRUE(EqualWithoutCase(L"Line 1", L"LINE 1"));
    EXPECT_FALSE(EqualWithoutCase(L"Line 1", L"Line 10"));
    EXPECT_LT(CompareWithoutCase(L"line", L"LINE 1"), 0);
    EXPECT_GT(CompareWithoutCase(L"a_b", L"aab"), 0);
    EXPECT_LT(CompareWithoutCase(L"a", L"B"), 0);
}

}  // namespace
