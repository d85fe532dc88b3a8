#include "storage/path_text.h"

#include "support/test_platform.h"

namespace {

using Fields = std::vector<std::wstring>;

class PathTextTest : public SystemTest {};
class PathTextMemoryTest : public MemorySystemTest {};

Fields Split(const std::wstring& text, wchar_t delimiter, wchar_t quote) {
    Fields fields = {L"rest"};
    SplitQuotedString(text, fields, delimiter, quote);
    return fields;
}

TEST(PathText, EnsureBackslash_AddsOneUnlessEmptyOrThere) {
    EXPECT_EQ(EnsureBackslash(L""), L"");
    EXPECT_EQ(EnsureBackslash(L"C:\\a"), L"C:\\a\\");
    EXPECT_EQ(EnsureBackslash(L"C:\\a\\"), L"C:\\a\\");
    EXPECT_EQ(EnsureBackslash(L"C:/a/"), L"C:/a/\\");
}

TEST(PathText, FolderOfPath_EndsAtTheLastBackslash) {
    EXPECT_EQ(GetFolderOfPath(L"abc"), L"");
    EXPECT_EQ(GetFolderOfPath(L""), L"");
    EXPECT_EQ(GetFolderOfPath(L"c:\\a\\b.txt"), L"c:\\a\\");
    EXPECT_EQ(GetFolderOfPath(L"c:\\a\\"), L"c:\\a\\");
    EXPECT_EQ(GetFolderOfPath(L"c:/a/b.txt"), L"");
}

TEST(PathText, SplitQuotedString_KeepsDelimitersInsideQuotes) {
    EXPECT_EQ(Split(L"a\\\"b\\c\"\\d", L'\\', L'"'), Fields({L"a", L"b\\c", L"d"}));
}

TEST(PathText, SplitQuotedString_DoubledQuote_IsOneInsideAndNoneOutside) {
    EXPECT_EQ(Split(L"x\"\"y", L',', L'"'), Fields({L"xy"}));
    EXPECT_EQ(Split(L"\"x\"\"y\"", L',', L'"'), Fields({L"x\"y"}));
    EXPECT_EQ(Split(L"\"\"\"\"", L',', L'"'), Fields({L"\""}));
}

TEST(PathText, SplitQuotedString_EmptyTextHasNoField_OneDelimiterTwo) {
    EXPECT_EQ(Split(L"", L',', L'"'), Fields());
    EXPECT_EQ(Split(L",", L',', L'"'), Fields({L"", L""}));
    EXPECT_EQ(Split(L"a,", L',', L'"'), Fields({L"a", L""}));
}

TEST(PathText, SplitQuotedString_UnclosedQuote_GoesToTheEnd) {
    EXPECT_EQ(Split(L"a,\"b,c", L',', L'"'), Fields({L"a", L"b,c"}));
    EXPECT_EQ(Split(L"\"", L',', L'"'), Fields({L""}));
}

TEST(PathText, LeadingInteger_ReadsBlanksSignAndDigits) {
    EXPECT_EQ(LeadingInteger(L"42"), 42);
    EXPECT_EQ(LeadingInteger(L" \t\n\v\f\r-42x"), -42);
    EXPECT_EQ(LeadingInteger(L"+7"), 7);
    EXPECT_EQ(LeadingInteger(L"+-7"), 0);
    EXPECT_EQ(LeadingInteger(L"- 7"), 0);
    EXPECT_EQ(LeadingInteger(L""), 0);
    EXPECT_EQ(LeadingInteger(L"x1"), 0);
    EXPECT_EQ(LeadingInteger(L"0x10"), 0);
    EXPECT_EQ(LeadingInteger(L"007"), 7);
}

TEST(PathText, LeadingInteger_StopsAtTheEndsOfTheRange) {
    EXPECT_EQ(LeadingInteger(L"2147483647"), 2147483647);
    EXPECT_EQ(LeadingInteger(L"2147483648"), 2147483647);
    EXPECT_EQ(LeadingInteger(L"-2147483648"), -2147483647 - 1);
    EXPECT_EQ(LeadingInteger(L"-2147483649"), -2147483647 - 1);
    EXPECT_EQ(LeadingInteger(std::wstring(100, L'9')), 2147483647);
    EXPECT_EQ(LeadingInteger(L"-" + std::wstring(100, L'9')), -2147483647 - 1);
}

TEST_F(PathTextTest, EnsureFolderOfPath_MakesEveryMissingFolderButNotTheFile) {
    EnsureFolderOfPath(InRoot(L"a\\b\\c\\file.ini"));
    EXPECT_TRUE(HasFolder(InRoot(L"a\\b\\c")));
    EXPECT_FALSE(HasFolder(InRoot(L"a\\b\\c\\file.ini")));
    EnsureFolderOfPath(InRoot(L"a\\b\\d\\\\\\"));
    EXPECT_TRUE(HasFolder(InRoot(L"a\\b\\d")));
}

TEST_F(PathTextTest, EnsureFolderOfPath_BehindAFile_IsSilent) {
    PutFile(InRoot(L"file"), "text");
    EnsureFolderOfPath(InRoot(L"file\\a\\x.ini"));
    EXPECT_EQ(GetBytes(InRoot(L"file")), "text");
}

TEST_F(PathTextMemoryTest, EnsureFolderOfPath_WithoutBackslash_DoesNothing) {
    EnsureFolderOfPath(L"file.ini");
    EnsureFolderOfPath(L"");
    EnsureFolderOfPath(L"\\file.ini");
    EXPECT_EQ(GetMemory().log.GetCount(), 0u);
}

TEST_F(PathTextMemoryTest, EnsureFolderOfPath_NeverMakesTheDrive) {
    EnsureFolderOfPath(L"C:\\a\\b\\x.ini");
    ASSERT_EQ(GetMemory().log.GetCount(), 2u);
    EXPECT_EQ(GetMemory().log.GetCalls()[0].path, L"C:\\a");
    EXPECT_EQ(GetMemory().log.GetCalls()[1].path, L"C:\\a\\b");
    GetMemory().log.Clear();
    EnsureFolderOfPath(L"C:\\x.ini");
    EXPECT_EQ(GetMemory().log.GetCount(), 0u);
}

TEST_F(PathTextMemoryTest, EnsureFolderOfPath_OnAShare_WorksAfterItsFirstStepsFail) {
    GetMemory().files.AddDrive(L"\\\\server\\share");
    EnsureFolderOfPath(L"\\\\server\\share\\a\\x.ini");
    EXPECT_TRUE(HasFolder(L"\\\\server\\share\\a"));
}

}  // namespace
