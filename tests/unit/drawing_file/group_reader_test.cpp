#include "drawing_file/group_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

using testing::HasSubstr;

std::vector<Group> ReadAll(std::string_view text) {
    GroupReader reader(text);
    std::vector<Group> groups;
    Group group;
    while (reader.Next(group))
        groups.push_back(group);
    return groups;
}

// The error that reading all of `text` ends with; line 0 if it ends well.
DrawingError ErrorOfGroups(std::string_view text) {
    try {
        ReadAll(text);
    } catch (const DrawingError& error) {
        return error;
    }
    return {0, L"no error"};
}

Group WithValue(std::string_view value) {
    return {value, 70, 5};
}

TEST(GroupReader, LinesEndInLineFeedOrCarriageReturnAndLineFeed) {
    const auto groups = ReadAll("0\nLINE\n8\r\nPipes\r\n");
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0].value, "LINE");
    EXPECT_EQ(groups[1].code, 8);
    EXPECT_EQ(groups[1].value, "Pipes");
}

TEST(GroupReader, LastLineNeedsNoLineEnd) {
    const auto groups = ReadAll("0\nEOF");
    ASSERT_EQ(groups.size(), 1u);
    EXPECT_EQ(groups[0].value, "EOF");
}

TEST(GroupReader, BlanksAroundCodeAreIgnored) {
    const auto groups = ReadAll("  70\n1\n\t 8 \n0\n+5\nA\n");
    ASSERT_EQ(groups.size(), 3u);
    EXPECT_EQ(groups[0].code, 70);
    EXPECT_EQ(groups[1].code, 8);
    EXPECT_EQ(groups[2].code, 5);
}

TEST(GroupReader, BlanksOfValueAreKept) {
    EXPECT_EQ(ReadAll("1\n  two  \n")[0].value, "  two  ");
}

TEST(GroupReader, EmptyValueIsAValue) {
    EXPECT_EQ(ReadAll("1\n\n0\nEOF\n")[0].value, "");
}

TEST(GroupReader, LineNumberIsThatOfValue) {
    const auto groups = ReadAll("0\nLINE\n8\n0\n");
    EXPECT_EQ(groups[0].line, 2u);
    EXPECT_EQ(groups[1].line, 4u);
}

TEST(GroupReader, ByteOrderMarkIsSkipped) {
    EXPECT_EQ(ReadAll("\xEF\xBB\xBF  0\nSECTION\n")[0].value, "SECTION");
}

TEST(GroupReader, ZeroByteIsRefusedWithItsLine) {
    EXPECT_EQ(ErrorOfGroups(std::string_view("0\nLINE\n8\na\0b\n", 13)).line, 4u);
}

TEST(GroupReader, CodeThatIsNoNumberIsRefusedWithItsLine) {
    const auto error = ErrorOfGroups("0\nLINE\nlayer\n0\n");
    EXPECT_EQ(error.line, 3u);
    EXPECT_THAT(error.message, HasSubstr(L"\"layer\""));
}

TEST(GroupReader, CodesOutsideTheFormatAreRefused) {
    for (const char* code :
         {"-1", "-3", "1072", "32768", "99999999999999999999", "8.0", "0x8", "", "--5", "+-5"}) {
        EXPECT_EQ(ErrorOfGroups("0\nLINE\n" + std::string(code) + "\n0\n").line, 3u) << code;
    }
}

TEST(GroupReader, TextThatEndsBehindCodeIsRefused) {
    const auto error = ErrorOfGroups("0\nLINE\n8\n");
    EXPECT_EQ(error.line, 3u);
    EXPECT_THAT(error.message, HasSubstr(L"ends behind a group code"));
}

TEST(GroupReader, MessageShowsNoHostileBytesAndStaysShort) {
    const auto error = ErrorOfGroups("\x1b[31m\xff" + std::string(1000, 'x') + "\n1\n");
    EXPECT_THAT(error.message, HasSubstr(L"\"?[31m?xxx"));
    EXPECT_LT(error.message.size(), 100u);
}

TEST(GroupValues, RealsAreReadWithBlanksSignsAndExponents) {
    EXPECT_EQ(RealOf(WithValue(" 12.5 ")), 12.5);
    EXPECT_EQ(RealOf(WithValue("-.5")), -0.5);
    EXPECT_EQ(RealOf(WithValue("+1e-3")), 0.001);
    EXPECT_EQ(RealOf(WithValue("7")), 7.0);
}

TEST(GroupValues, WhatIsNoFiniteRealIsRefusedWithItsLine) {
    for (const char* value : {"", "12x", "1e999", "nan", "inf", "0x10", "1 2", "1,5"}) {
        try {
            RealOf(WithValue(value));
            ADD_FAILURE() << value;
        } catch (const DrawingError& error) {
            EXPECT_EQ(error.line, 5u);
        }
    }
}

TEST(GroupValues, IntegersHaveTheirRanges) {
    EXPECT_EQ(Int16Of(WithValue("-32768")), -32768);
    EXPECT_EQ(Int32Of(WithValue("2147483647")), 2147483647);
    EXPECT_EQ(Int64Of(WithValue("-9223372036854775808")), INT64_MIN);
    EXPECT_THROW(Int16Of(WithValue("65536")), DrawingError);
    EXPECT_THROW(Int16Of(WithValue("-32769")), DrawingError);
    EXPECT_THROW(Int32Of(WithValue("2147483648")), DrawingError);
    EXPECT_THROW(Int64Of(WithValue("9223372036854775808")), DrawingError);
    EXPECT_THROW(Int32Of(WithValue("1.0")), DrawingError);
}

TEST(GroupValues, UnsignedShortsAreTakenAsTheSameBits) {
    EXPECT_EQ(Int16Of(WithValue("65535")), -1);
    EXPECT_EQ(Int16Of(WithValue("32768")), -32768);
}

TEST(GroupValues, HandlesAreHexadecimalOfSixteenDigitsAtMost) {
    EXPECT_EQ(HandleOf(WithValue("1aF")), 0x1AFu);
    EXPECT_EQ(HandleOf(WithValue("FFFFFFFFFFFFFFFF")), UINT64_MAX);
    EXPECT_EQ(HandleOf(WithValue("")), 0u);
    EXPECT_THROW(HandleOf(WithValue("10000000000000000")), DrawingError);
    EXPECT_THROW(HandleOf(WithValue("-1")), DrawingError);
    EXPECT_THROW(HandleOf(WithValue("+1")), DrawingError);
    EXPECT_THROW(HandleOf(WithValue("0x1")), DrawingError);
}

TEST(GroupValues, WordsOfTheFormatHaveNoEscapes) {
    EXPECT_EQ(WordOf(WithValue(" AcDbEntity ")), "AcDbEntity");
    for (const char* value : {"", "  ", "AcDb\\U+0045ntity", "A^JB", "gr\xF6n"}) {
        EXPECT_THROW(WordOf(WithValue(value)), DrawingError) << value;
    }
}

TEST(GroupCodes, TypesFollowTheRangesOfTheFormat) {
    EXPECT_EQ(TypeOfGroup(0), GroupType::kText);
    EXPECT_EQ(TypeOfGroup(5), GroupType::kHandle);
    EXPECT_EQ(TypeOfGroup(8), GroupType::kText);
    EXPECT_EQ(TypeOfGroup(10), GroupType::kReal);
    EXPECT_EQ(TypeOfGroup(59), GroupType::kReal);
    EXPECT_EQ(TypeOfGroup(60), GroupType::kInt16);
    EXPECT_EQ(TypeOfGroup(90), GroupType::kInt32);
    EXPECT_EQ(TypeOfGroup(102), GroupType::kText);
    EXPECT_EQ(TypeOfGroup(105), GroupType::kHandle);
    EXPECT_EQ(TypeOfGroup(160), GroupType::kInt64);
    EXPECT_EQ(TypeOfGroup(290), GroupType::kBool);
    EXPECT_EQ(TypeOfGroup(310), GroupType::kBinary);
    EXPECT_EQ(TypeOfGroup(330), GroupType::kHandle);
    EXPECT_EQ(TypeOfGroup(370), GroupType::kInt16);
    EXPECT_EQ(TypeOfGroup(1000), GroupType::kText);
    EXPECT_EQ(TypeOfGroup(1004), GroupType::kBinary);
    EXPECT_EQ(TypeOfGroup(1005), GroupType::kHandle);
    EXPECT_EQ(TypeOfGroup(1040), GroupType::kReal);
    EXPECT_EQ(TypeOfGroup(1070), GroupType::kInt16);
    EXPECT_EQ(TypeOfGroup(1071), GroupType::kInt32);
}

}  // namespace
}  // namespace workbench::drawing_file
