#include "drawing_file/file_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace workbench::drawing_file {
namespace {

using testing::HasSubstr;

DrawingError ErrorOf(std::string_view text) {
    try {
        FileTree tree(text);
    } catch (const DrawingError& error) {
        return error;
    }
    return {0, L"no error"};
}

constexpr std::string_view kSmall =
    "999\nmade by hand\n"
    "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n"
    "0\nLINE\n8\n0\n999\na comment\n10\n1.0\n"
    "0\nCIRCLE\n8\nPipes\n"
    "0\nENDSEC\n0\nEOF\n";

TEST(FileTree, SectionsHoldRecordsOfGroups) {
    const FileTree tree(kSmall);
    ASSERT_EQ(tree.Sections().size(), 2u);
    const Section* entities = tree.Find("ENTITIES");
    ASSERT_NE(entities, nullptr);
    ASSERT_EQ(entities->records.size(), 2u);
    EXPECT_EQ(entities->records[0].type, "LINE");
    EXPECT_EQ(entities->records[1].type, "CIRCLE");
    EXPECT_EQ(NameIn(entities->records[1].groups, 8), "Pipes");
    EXPECT_EQ(tree.Find("OBJECTS"), nullptr);
}

TEST(FileTree, HeaderSectionHasOnlyLeadingGroups) {
    const FileTree tree(kSmall);
    const Section* header = tree.Find("HEADER");
    ASSERT_NE(header, nullptr);
    EXPECT_TRUE(header->records.empty());
    ASSERT_EQ(header->leading.size(), 2u);
    EXPECT_EQ(header->leading[1].value, "AC1009");
}

TEST(FileTree, CommentsAreLeftOut) {
    const FileTree tree(kSmall);
    const auto& line = tree.Find("ENTITIES")->records[0];
    EXPECT_EQ(line.groups.size(), 2u);
    EXPECT_EQ(FindGroup(line.groups, 999), nullptr);
    EXPECT_EQ(line.groups[1].line, 24u);
}

TEST(FileTree, WhatFollowsTheEndMarkIsIgnored) {
    EXPECT_EQ(ErrorOf("0\nEOF\nthis is no group").message, L"no error");
    EXPECT_EQ(ErrorOf("0\nEOF\n0\nSECTION\n").message, L"no error");
}

TEST(FileTree, EmptyFileIsRefused) {
    EXPECT_EQ(ErrorOf("").message, L"The file is empty.");
    EXPECT_EQ(ErrorOf("").line, 1u);
}

TEST(FileTree, OtherFormsOfDrawingsAreRefusedByName) {
    EXPECT_THAT(ErrorOf("AutoCAD Binary DXF\r\n\x1a").message, HasSubstr(L"binary form of the interchange"));
    EXPECT_THAT(ErrorOf("AC1032\x01\x02").message, HasSubstr(L"binary drawing format"));
}

TEST(FileTree, FileWithoutEndMarkIsRefusedWithItsLastLine) {
    const auto error = ErrorOf("0\nSECTION\n2\nHEADER\n0\nENDSEC\n");
    EXPECT_EQ(error.line, 6u);
    EXPECT_THAT(error.message, HasSubstr(L"EOF"));
}

TEST(FileTree, EveryTornFileIsRefused) {
    const std::string_view whole = kSmall.substr(0, kSmall.size() - 1);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_NE(ErrorOf(whole.substr(0, length)).message, L"no error") << length;
    }
    EXPECT_EQ(ErrorOf(whole).message, L"no error");
}

TEST(FileTree, SectionWithoutEndIsRefused) {
    EXPECT_EQ(ErrorOf("0\nSECTION\n2\nENTITIES\n0\nLINE\n0\nEOF\n").line, 8u);
    EXPECT_EQ(ErrorOf("0\nSECTION\n2\nENTITIES\n0\nSECTION\n2\nOBJECTS\n0\nENDSEC\n0\nEOF\n").line, 6u);
}

TEST(FileTree, TextThatBeginsWithSomethingElseIsRefused) {
    EXPECT_EQ(ErrorOf("0\nLINE\n0\nEOF\n").line, 2u);
    EXPECT_EQ(ErrorOf("8\n0\n0\nEOF\n").line, 2u);
}

TEST(FileTree, SectionWithoutNameIsRefused) {
    EXPECT_EQ(ErrorOf("0\nSECTION\n0\nENDSEC\n0\nEOF\n").line, 4u);
    EXPECT_EQ(ErrorOf("0\nSECTION\n0\nEOF\n").line, 4u);
}

TEST(FileTree, BlanksAroundTypesAndSectionNamesAreIgnored) {
    const FileTree tree(" 0\n SECTION \n2\nENTITIES \n0\n LINE\n0\nENDSEC\n0\nEOF \n");
    ASSERT_NE(tree.Find("ENTITIES"), nullptr);
    EXPECT_EQ(tree.Find("ENTITIES")->records[0].type, "LINE");
}

TEST(FileTree, ErrorsAreDescribedWithTheirLine) {
    EXPECT_EQ(DescribeError({12, L"Bad."}), L"Line 12: Bad.");
    EXPECT_EQ(DescribeError({0, L"Bad."}), L"Bad.");
}

}  // namespace
}  // namespace workbench::drawing_file
