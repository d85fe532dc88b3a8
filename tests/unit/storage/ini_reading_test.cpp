// How the lines of a file are read, and how sections and keys compare.
#include "ini_document.h"

namespace {

class IniReadingTest : public IniDocumentTest {};

// --- Reading lines.

TEST_F(IniReadingTest, Lines_BeforeFirstHeader_BelongToTheSectionOfTheReader) {
    CKV2D_IniFile ini = Open("a = 1\r\n[S]\r\na = 2\r\n");
    EXPECT_EQ(ini.GetSection(), L"");
    EXPECT_EQ(Get(ini, L"a"), L"1");
    ini.SetSection(L"T");
    CTextStream stream("b = 3\n");
    EXPECT_EQ(ini.ReadFrom(stream), kIniDone);
    EXPECT_EQ(ini.GetSection(), L"T");
    EXPECT_EQ(Get(ini, L"b"), L"3");
}

TEST_F(IniReadingTest, Read_LeavesTheLastHeaderAsCurrentSection) {
    PutFile(Path(), "[A]\r\nk = 1\r\n[B]\r\n");
    CKV2D_IniFile ini;
    ini.Open(Path());
    EXPECT_EQ(ini.GetSection(), L"B");
}

TEST_F(IniReadingTest, EqualSignWithoutBothBlanks_IsDropped) {
    CKV2D_IniFile ini = Open("Key=Value\r\nKey= Value\r\nKey =Value\r\nplain\r\n\r\n");
    EXPECT_EQ(ini.GetRowCount(), 0u);
}

TEST_F(IniReadingTest, CommentWithSeparator_IsAnOrdinaryKey) {
    CKV2D_IniFile ini = Open("; a = b\r\n# c = d\r\n; plain\r\n");
    EXPECT_EQ(GetKeys(ini), Texts({L"; a", L"# c"}));
}

TEST_F(IniReadingTest, HeaderWithSeparator_IsAHeader) {
    CKV2D_IniFile ini = Open("[A = B]\r\nk = v\r\n", L"A = B");
    EXPECT_EQ(Get(ini, L"k"), L"v");
    EXPECT_EQ(ini.GetRowCount(), 1u);
}

TEST_F(IniReadingTest, HeaderWithBlanksAround_IsNoHeader) {
    CKV2D_IniFile ini = Open("[G]\r\n [General]\r\n[General] \r\nk = v\r\n", L"G");
    EXPECT_EQ(Get(ini, L"k"), L"v");
}

TEST_F(IniReadingTest, HeaderWithBlanksInside_IsTrimmed) {
    CKV2D_IniFile ini = Open("[[ General\t]]\r\nk = v\r\n", L"General");
    EXPECT_EQ(Get(ini, L"k"), L"v");
}

TEST_F(IniReadingTest, HeaderThatComesTwice_Merges) {
    CKV2D_IniFile ini = Open("[A]\r\na = 1\r\n[B]\r\nb = 2\r\n[A]\r\nc = 3\r\na = 4\r\n", L"A");
    EXPECT_EQ(GetKeys(ini), Texts({L"a", L"c"}));
    EXPECT_EQ(Get(ini, L"a"), L"4");
}

TEST_F(IniReadingTest, EmptyBrackets_SetTheEmptySection) {
    CKV2D_IniFile ini = Open("[A]\r\n[]\r\nk = v\r\n", L"");
    EXPECT_EQ(Get(ini, L"k"), L"v");
}

TEST_F(IniReadingTest, LineThatOnlyBeginsLikeAHeader_IsARowWithTrimmedKey) {
    CKV2D_IniFile ini = Open("[a]b = c\r\n");
    EXPECT_EQ(GetKeys(ini), Texts({L"a]b"}));
    EXPECT_EQ(Get(ini, L"[a]b"), L"c");
}

TEST_F(IniReadingTest, BlanksBelongToKeyAndValue) {
    CKV2D_IniFile ini = Open("a =  b\r\nc  = d\r\n e = f \r\n");
    EXPECT_EQ(Get(ini, L"a"), L" b");
    EXPECT_EQ(Get(ini, L"c "), L"d");
    EXPECT_EQ(Get(ini, L"c"), L"(missing)");
    EXPECT_EQ(Get(ini, L" e"), L"f ");
}

TEST_F(IniReadingTest, FirstSeparator_EndsTheKey) {
    CKV2D_IniFile ini = Open("a = b = c\r\nx== = y\r\n = z\r\n");
    EXPECT_EQ(Get(ini, L"a"), L"b = c");
    EXPECT_EQ(Get(ini, L"x=="), L"y");
    EXPECT_EQ(Get(ini, L""), L"z");
}

TEST_F(IniReadingTest, EmptyValue_IsNotThereAfterReading) {
    CKV2D_IniFile ini = Open("a = \r\nb = 1\r\n");
    EXPECT_EQ(Get(ini, L"a"), L"(missing)");
    EXPECT_EQ(GetKeys(ini), Texts({L"b"}));
}

TEST_F(IniReadingTest, EmptyValueBehindAValue_EmptiesTheKeyButKeepsTheRow) {
    CKV2D_IniFile ini = Open("a = 1\r\na = \r\n");
    EXPECT_EQ(Get(ini, L"a"), L"");
    EXPECT_EQ(GetKeys(ini), Texts({L"a"}));
}

TEST_F(IniReadingTest, KeyThatComesTwice_KeepsItsPlaceAndTakesTheLastValue) {
    CKV2D_IniFile ini = Open("b = 1\r\na = 2\r\nb = 3\r\n");
    EXPECT_EQ(GetKeys(ini), Texts({L"b", L"a"}));
    EXPECT_EQ(Get(ini, L"b"), L"3");
}

TEST_F(IniReadingTest, LineEnds_OfBothKindsAndNoneAtTheEnd_AreRead) {
    CKV2D_IniFile ini = Open("a = 1\nb = 2\r\nc = 3");
    EXPECT_EQ(Get(ini, L"a"), L"1");
    EXPECT_EQ(Get(ini, L"b"), L"2");
    EXPECT_EQ(Get(ini, L"c"), L"3");
}

TEST_F(IniReadingTest, LoneCarriageReturn_IsText) {
    CKV2D_IniFile ini = Open("a = 1\r2\r\r\nb = 3\r");
    EXPECT_EQ(Get(ini, L"a"), L"1\r2\r");
    EXPECT_EQ(Get(ini, L"b"), L"3\r");
}

TEST_F(IniReadingTest, ZeroBytes_AreText) {
    const std::string bytes("a\0b = c\0d\r\n", 11);
    CKV2D_IniFile ini = Open(bytes);
    EXPECT_EQ(Get(ini, std::wstring(L"a\0b", 3)), std::wstring(L"c\0d", 3));
    ini.SetAutoSave(false);
    EXPECT_EQ(ini.Save(true), kIniDone);
    EXPECT_EQ(GetBytes(Path()), bytes);
}

TEST_F(IniReadingTest, OtherSeparator_StillHidesThreeCharacters) {
    PutFile(Path(), "ab=cde\r\nx=y\r\n");
    CKV2D_IniFile ini;
    ini.SetSeparator(L"=");
    ini.Open(Path());
    EXPECT_EQ(Get(ini, L"ab"), L"e");
    EXPECT_EQ(Get(ini, L"x"), L"(missing)");
    ini.SetString(L"x", L"z");
    EXPECT_EQ(ini.Save(false), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "ab=e\r\nx=z\r\n");
}

// --- Sections and keys of operations.

TEST_F(IniReadingTest, SetSection_TrimsBracketsBlanksTabsAndLineFeeds) {
    CKV2D_IniFile ini;
    ini.SetSection(L"\t[ A B ]\n");
    EXPECT_EQ(ini.GetSection(), L"A B");
    ini.SetSection(L"\r");
    EXPECT_EQ(ini.GetSection(), L"\r");
}

TEST_F(IniReadingTest, Keys_AreTrimmedOfBracketsTabsAndLineFeedsButNotOfBlanks) {
    CKV2D_IniFile ini = Open("");
    ini.SetString(L"\t[k]\n", L"v");
    ini.SetString(L" k ", L"w");
    EXPECT_EQ(GetKeys(ini), Texts({L"k", L" k "}));
    EXPECT_EQ(Get(ini, L"[[k]]"), L"v");
}

TEST_F(IniReadingTest, Section_ExistsOnlyThroughItsRows) {
    EXPECT_EQ(SaveWith("[Empty]\r\n[A]\r\na = 1\r\n", L"B", L"b", L"2"),
              "[A]\r\na = 1\r\n\r\n[B]\r\nb = 2\r\n");
}

TEST_F(IniReadingTest, SectionsAndKeys_DifferByCase) {
    CKV2D_IniFile ini = Open("[a]\r\nk = 1\r\nK = 2\r\n[A]\r\nk = 3\r\n", L"a");
    EXPECT_EQ(Get(ini, L"k"), L"1");
    EXPECT_EQ(Get(ini, L"K"), L"2");
    ini.SetSection(L"A");
    EXPECT_EQ(Get(ini, L"k"), L"3");
}

TEST_F(IniReadingTest, WithoutCase_TheFirstRowIsFoundAndEntriesStayExact) {
    PutFile(Path(), "[a]\r\nk = 1\r\n[A]\r\nK = 2\r\nx = V\r\n");
    CKV2D_IniFile ini;
    ini.Open(Path());
    ini.SetCaseSensitive(false);
    EXPECT_EQ(Get(ini, L"K"), L"1");
    std::wstring key;
    ini.FindKeyByValue(L"v", key);
    EXPECT_EQ(key, L"x");
    EXPECT_EQ(GetKeys(ini), Texts({L"K", L"x"}));
}

TEST_F(IniReadingTest, WithoutCase_AnotherCaseIsSetAsARowOfItsOwn) {
    CKV2D_IniFile ini = Open("[S]\r\nkey = 1\r\n", L"S");
    ini.SetAutoSave(false);
    ini.SetCaseSensitive(false);
    ini.SetString(L"KEY", L"1");
    EXPECT_FALSE(ini.IsDirty());
    ini.SetString(L"KEY", L"2");
    EXPECT_EQ(GetKeys(ini), Texts({L"key", L"KEY"}));
    EXPECT_EQ(Get(ini, L"KEY"), L"1");
}

TEST_F(IniReadingTest, WithoutCase_ReadingSkipsValuesThatAnotherCaseHas) {
    PutFile(Path(), "a = 1\r\nA = 1\r\nA = 2\r\n");
    CKV2D_IniFile ini;
    ini.SetCaseSensitive(false);
    ini.Open(Path());
    EXPECT_EQ(GetKeys(ini), Texts({L"a", L"A"}));
}

}  // namespace
