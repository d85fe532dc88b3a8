#include "drawing_file/dxf_text.h"

#include <gtest/gtest.h>

#include <cstring>

namespace workbench::drawing_file {
namespace {

std::wstring Decoded(std::string_view bytes, const char* codePage = "ANSI_1252") {
    return TextDecoder(codePage, false).Decode(bytes).value_or(L"(nothing)");
}

std::wstring DecodedUtf8(std::string_view bytes) {
    return TextDecoder("ANSI_1252", true).Decode(bytes).value_or(L"(nothing)");
}

std::string Western(std::wstring_view text) {
    return EncodeText(text, Encoding::kWestern);
}

TEST(DecodeText, BytesAreThoseOfTheDrawingsCodePage) {
    EXPECT_EQ(Decoded("gr\xF6\xDF"
                      "er \x80"),
              L"gr\u00F6\u00DFer \u20AC");
    EXPECT_EQ(Decoded("\xEF\xF0\xE8", "ANSI_1251"), L"\u043F\u0440\u0438");
    EXPECT_EQ(Decoded("\x84", "dos850"), L"\u00E4");
    EXPECT_EQ(Decoded("\xA1", "ansi_874"), L"\u0E01");
}

TEST(DecodeText, UnknownCodePageCountsAsWestern) {
    EXPECT_EQ(Decoded("\xF6", "ascii"), L"\u00F6");
    EXPECT_EQ(Decoded("\xF6", ""), L"\u00F6");
    EXPECT_EQ(Decoded("\xF6", "ANSI_99999999999999"), L"\u00F6");
}

TEST(DecodeText, DoubleByteCodePageGivesOnlyAsciiText) {
    EXPECT_EQ(TextDecoder("ANSI_932", false).Decode("PUMP P-101"), L"PUMP P-101");
    EXPECT_EQ(TextDecoder("ANSI_932", false).Decode("\x83\x7C"), std::nullopt);
}

TEST(DecodeText, Utf8FromRelease2007) {
    EXPECT_EQ(DecodedUtf8("\xC3\xB6\xE2\x82\xAC"), L"\u00F6\u20AC");
    EXPECT_EQ(DecodedUtf8("\xF0\x9F\x98\x80"), L"\U0001F600");
}

TEST(DecodeText, WhatIsNoUtf8IsTakenAsWestern) {
    EXPECT_EQ(DecodedUtf8("gr\xF6n"), L"gr\u00F6n");
    EXPECT_EQ(DecodedUtf8("\xC0\x80"), L"\u00C0\u20AC");            // an overlong zero
    EXPECT_EQ(DecodedUtf8("\xED\xA0\x80"), L"\u00ED\u00A0\u20AC");  // half a surrogate pair
    EXPECT_EQ(DecodedUtf8("\xE2\x82"), L"\u00E2\u201A");            // torn
}

TEST(DecodeText, UnicodeEscapesOfEitherCase) {
    EXPECT_EQ(Decoded("\\U+00D8 100"), L"\u00D8 100");
    EXPECT_EQ(Decoded("\\U+00d8"), L"\u00D8");
    EXPECT_EQ(Decoded("\\U+D83D\\U+DE00"), L"\U0001F600");
    EXPECT_EQ(DecodedUtf8("\\U+2205"), L"\u2205");
}

TEST(DecodeText, WhatIsNoWholeEscapeStaysAsItIs) {
    for (const char* text : {"\\U+00D", "\\U+00DG", "\\u+00D8", "\\U00D8", "\\U+", "\\", "\\M+14FE5"}) {
        EXPECT_EQ(Decoded(text), std::wstring(text, text + strlen(text)));
    }
}

TEST(DecodeText, CaretEscapes) {
    EXPECT_EQ(Decoded("a^Jb^Ic"), L"a\nb\tc");
    EXPECT_EQ(Decoded("2^ 3"), L"2^3");
    EXPECT_EQ(Decoded("^ J"), L"^J");
    EXPECT_EQ(Decoded("^j^1^"), L"^j^1^");
}

TEST(DecodeText, ZeroCharactersNeverEnterAText) {
    EXPECT_EQ(Decoded(std::string_view("a\0b", 3)), L"ab");
    EXPECT_EQ(Decoded("^@"), L"^@");
    EXPECT_EQ(Decoded("\\U+0000"), L"\\U+0000");
}

TEST(EncodeText, CharactersOfTheCodePageAreBytes) {
    EXPECT_EQ(Western(L"gr\u00F6\u00DFer \u20AC"),
              "gr\xF6\xDF"
              "er \x80");
}

TEST(EncodeText, OtherCharactersAreEscapesInUpperCase) {
    EXPECT_EQ(Western(L"\u2205 \u043F"), "\\U+2205 \\U+043F");
    EXPECT_EQ(Western(L"\U0001F600"), "\\U+D83D\\U+DE00");
    EXPECT_EQ(Western(L"\u0085"), "\\U+0085");
}

TEST(EncodeText, Utf8NeedsNoEscapesForCharacters) {
    EXPECT_EQ(EncodeText(L"\u00F6\u2205\U0001F600", Encoding::kUtf8), "\xC3\xB6\xE2\x88\x85\xF0\x9F\x98\x80");
    EXPECT_EQ(EncodeText(L"a\n^\\U+00D8", Encoding::kUtf8), "a^J^ \\U+005CU+00D8");
}

TEST(EncodeText, ControlCharactersAndCaretsAreEscaped) {
    EXPECT_EQ(Western(L"a\nb\tc^d\x1F"), "a^Jb^Ic^ d^_");
}

TEST(EncodeText, BackslashAheadOfWhatWouldReadAsEscapeIsEscaped) {
    EXPECT_EQ(Western(L"\\U+00D8"), "\\U+005CU+00D8");
    EXPECT_EQ(Western(L"C:\\Users"), "C:\\Users");
}

TEST(EncodeText, DecodingGivesTheSameText) {
    std::wstring all;
    for (wchar_t c = 1; c < 0x3000; ++c)
        all += c;
    all += L"\\U+00D8\\U+005C\\U+D83D ^J^ J^@\\M+14FE5\U0001F600";
    EXPECT_EQ(Decoded(Western(all)), all);
    EXPECT_EQ(DecodedUtf8(EncodeText(all, Encoding::kUtf8)), all);
}

}  // namespace
}  // namespace workbench::drawing_file
