// The ini document as its callers and the other programs of the suite see it.
#include "storage/ini_file.h"

#include <memory>

#include "storage/ini_table.h"
#include "support/test_platform.h"

namespace {

using Texts = std::vector<std::wstring>;

class IniFileTest : public SystemTest {
  protected:
    std::wstring Path() const { return InRoot(L"Document.ini"); }

    // The document of a file with these bytes; the current section is `section`.
    CKV2D_IniFile Open(std::string_view bytes, const std::wstring& section = L"") {
        PutFile(Path(), bytes);
        CKV2D_IniFile ini;
        EXPECT_EQ(ini.Open(Path()), kIniDone);
        ini.SetSection(section);
        return ini;
    }

    static std::wstring Get(const CKV2D_IniFile& ini, const std::wstring& key) {
        std::wstring text;
        ini.GetString(key, text, L"(missing)");
        return text;
    }

    static Texts GetKeys(const CKV2D_IniFile& ini) {
        Texts keys = {L"rest"};
        Texts values = {L"rest"};
        ini.GetSectionEntries(keys, values);
        EXPECT_EQ(keys.size(), values.size());
        return keys;
    }

    // The file after the document `bytes` was opened and one value was set.
    std::string SaveWith(std::string_view bytes, const std::wstring& section, const std::wstring& key,
                         const std::wstring& value) {
        {
            CKV2D_IniFile ini = Open(bytes, section);
            ini.SetString(key, value);
        }
        return GetBytes(Path());
    }
};

// --- Construction.

TEST_F(IniFileTest, NewDocument_IsCleanAndEmpty) {
    const CKV2D_IniFile ini;
    EXPECT_FALSE(ini.IsDirty());
    EXPECT_EQ(ini.GetRowCount(), 0u);
    EXPECT_EQ(ini.GetSection(), L"");
}

TEST_F(IniFileTest, DefaultPath_TrimsTheCharactersOfExeFromTheEnd) {
    SetProgramArgument(L"C:\\Programs\\host.exe");
    EXPECT_EQ(CKV2D_IniFile::DefaultPath(), L"C:\\Programs\\host.ini");
    SetProgramArgument(L"axe.exe");
    EXPECT_EQ(CKV2D_IniFile::DefaultPath(), L"a.ini");
    SetProgramArgument(L"exe.exe");
    EXPECT_EQ(CKV2D_IniFile::DefaultPath(), L".ini");
    SetProgramArgument(L"HOST.EXE");
    EXPECT_EQ(CKV2D_IniFile::DefaultPath(), L"HOST.EXE.ini");
    EXPECT_EQ(CKV2D_IniFile().GetPath(), L"HOST.EXE.ini");
}

// --- Reading lines.

TEST_F(IniFileTest, Lines_BeforeFirstHeader_BelongToTheSectionOfTheReader) {
    CKV2D_IniFile ini = Open("a = 1\r\n[S]\r\na = 2\r\n");
    EXPECT_EQ(ini.GetSection(), L"");
    EXPECT_EQ(Get(ini, L"a"), L"1");
    ini.SetSection(L"T");
    CTextStream stream("b = 3\n");
    EXPECT_EQ(ini.ReadFrom(stream), kIniDone);
    EXPECT_EQ(ini.GetSection(), L"T");
    EXPECT_EQ(Get(ini, L"b"), L"3");
}

TEST_F(IniFileTest, Read_LeavesTheLastHeaderAsCurrentSection) {
    PutFile(Path(), "[A]\r\nk = 1\r\n[B]\r\n");
    CKV2D_IniFile ini;
    ini.Open(Path());
    EXPECT_EQ(ini.GetSection(), L"B");
}

TEST_F(IniFileTest, EqualSignWithoutBothBlanks_IsDropped) {
    CKV2D_IniFile ini = Open("Key=Value\r\nKey= Value\r\nKey =Value\r\nplain\r\n\r\n");
    EXPECT_EQ(ini.GetRowCount(), 0u);
}

TEST_F(IniFileTest, CommentWithSeparator_IsAnOrdinaryKey) {
    CKV2D_IniFile ini = Open("; a = b\r\n# c = d\r\n; plain\r\n");
    EXPECT_EQ(GetKeys(ini), Texts({L"; a", L"# c"}));
}

TEST_F(IniFileTest, HeaderWithSeparator_IsAHeader) {
    CKV2D_IniFile ini = Open("[A = B]\r\nk = v\r\n", L"A = B");
    EXPECT_EQ(Get(ini, L"k"), L"v");
    EXPECT_EQ(ini.GetRowCount(), 1u);
}

TEST_F(IniFileTest, HeaderWithBlanksAround_IsNoHeader) {
    CKV2D_IniFile ini = Open("[G]\r\n [General]\r\n[General] \r\nk = v\r\n", L"G");
    EXPECT_EQ(Get(ini, L"k"), L"v");
}

TEST_F(IniFileTest, HeaderWithBlanksInside_IsTrimmed) {
    CKV2D_IniFile ini = Open("[[ General\t]]\r\nk = v\r\n", L"General");
    EXPECT_EQ(Get(ini, L"k"), L"v");
}

TEST_F(IniFileTest, HeaderThatComesTwice_Merges) {
    CKV2D_IniFile ini = Open("[A]\r\na = 1\r\n[B]\r\nb = 2\r\n[A]\r\nc = 3\r\na = 4\r\n", L"A");
    EXPECT_EQ(GetKeys(ini), Texts({L"a", L"c"}));
    EXPECT_EQ(Get(ini, L"a"), L"4");
}

TEST_F(IniFileTest, EmptyBrackets_SetTheEmptySection) {
    CKV2D_IniFile ini = Open("[A]\r\n[]\r\nk = v\r\n", L"");
    EXPECT_EQ(Get(ini, L"k"), L"v");
}

TEST_F(IniFileTest, LineThatOnlyBeginsLikeAHeader_IsARowWithTrimmedKey) {
    CKV2D_IniFile ini = Open("[a]b = c\r\n");
    EXPECT_EQ(GetKeys(ini), Texts({L"a]b"}));
    EXPECT_EQ(Get(ini, L"[a]b"), L"c");
}

TEST_F(IniFileTest, BlanksBelongToKeyAndValue) {
    CKV2D_IniFile ini = Open("a =  b\r\nc  = d\r\n e = f \r\n");
    EXPECT_EQ(Get(ini, L"a"), L" b");
    EXPECT_EQ(Get(ini, L"c "), L"d");
    EXPECT_EQ(Get(ini, L"c"), L"(missing)");
    EXPECT_EQ(Get(ini, L" e"), L"f ");
}

TEST_F(IniFileTest, FirstSeparator_EndsTheKey) {
    CKV2D_IniFile ini = Open("a = b = c\r\nx== = y\r\n = z\r\n");
    EXPECT_EQ(Get(ini, L"a"), L"b = c");
    EXPECT_EQ(Get(ini, L"x=="), L"y");
    EXPECT_EQ(Get(ini, L""), L"z");
}

TEST_F(IniFileTest, EmptyValue_IsNotThereAfterReading) {
    CKV2D_IniFile ini = Open("a = \r\nb = 1\r\n");
    EXPECT_EQ(Get(ini, L"a"), L"(missing)");
    EXPECT_EQ(GetKeys(ini), Texts({L"b"}));
}

TEST_F(IniFileTest, EmptyValueBehindAValue_EmptiesTheKeyButKeepsTheRow) {
    CKV2D_IniFile ini = Open("a = 1\r\na = \r\n");
    EXPECT_EQ(Get(ini, L"a"), L"");
    EXPECT_EQ(GetKeys(ini), Texts({L"a"}));
}

TEST_F(IniFileTest, KeyThatComesTwice_KeepsItsPlaceAndTakesTheLastValue) {
    CKV2D_IniFile ini = Open("b = 1\r\na = 2\r\nb = 3\r\n");
    EXPECT_EQ(GetKeys(ini), Texts({L"b", L"a"}));
    EXPECT_EQ(Get(ini, L"b"), L"3");
}

TEST_F(IniFileTest, LineEnds_OfBothKindsAndNoneAtTheEnd_AreRead) {
    CKV2D_IniFile ini = Open("a = 1\nb = 2\r\nc = 3");
    EXPECT_EQ(Get(ini, L"a"), L"1");
    EXPECT_EQ(Get(ini, L"b"), L"2");
    EXPECT_EQ(Get(ini, L"c"), L"3");
}

TEST_F(IniFileTest, LoneCarriageReturn_IsText) {
    CKV2D_IniFile ini = Open("a = 1\r2\r\r\nb = 3\r");
    EXPECT_EQ(Get(ini, L"a"), L"1\r2\r");
    EXPECT_EQ(Get(ini, L"b"), L"3\r");
}

TEST_F(IniFileTest, ZeroBytes_AreText) {
    const std::string bytes("a\0b = c\0d\r\n", 11);
    CKV2D_IniFile ini = Open(bytes);
    EXPECT_EQ(Get(ini, std::wstring(L"a\0b", 3)), std::wstring(L"c\0d", 3));
    ini.SetAutoSave(false);
    EXPECT_EQ(ini.Save(true), kIniDone);
    EXPECT_EQ(GetBytes(Path()), bytes);
}

TEST_F(IniFileTest, OtherSeparator_StillHidesThreeCharacters) {
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

TEST_F(IniFileTest, SetSection_TrimsBracketsBlanksTabsAndLineFeeds) {
    CKV2D_IniFile ini;
    ini.SetSection(L"\t[ A B ]\n");
    EXPECT_EQ(ini.GetSection(), L"A B");
    ini.SetSection(L"\r");
    EXPECT_EQ(ini.GetSection(), L"\r");
}

TEST_F(IniFileTest, Keys_AreTrimmedOfBracketsTabsAndLineFeedsButNotOfBlanks) {
    CKV2D_IniFile ini = Open("");
    ini.SetString(L"\t[k]\n", L"v");
    ini.SetString(L" k ", L"w");
    EXPECT_EQ(GetKeys(ini), Texts({L"k", L" k "}));
    EXPECT_EQ(Get(ini, L"[[k]]"), L"v");
}

TEST_F(IniFileTest, Section_ExistsOnlyThroughItsRows) {
    EXPECT_EQ(SaveWith("[Empty]\r\n[A]\r\na = 1\r\n", L"B", L"b", L"2"),
              "[A]\r\na = 1\r\n\r\n[B]\r\nb = 2\r\n");
}

TEST_F(IniFileTest, SectionsAndKeys_DifferByCase) {
    CKV2D_IniFile ini = Open("[a]\r\nk = 1\r\nK = 2\r\n[A]\r\nk = 3\r\n", L"a");
    EXPECT_EQ(Get(ini, L"k"), L"1");
    EXPECT_EQ(Get(ini, L"K"), L"2");
    ini.SetSection(L"A");
    EXPECT_EQ(Get(ini, L"k"), L"3");
}

TEST_F(IniFileTest, WithoutCase_TheFirstRowIsFoundAndEntriesStayExact) {
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

TEST_F(IniFileTest, WithoutCase_AnotherCaseIsSetAsARowOfItsOwn) {
    CKV2D_IniFile ini = Open("[S]\r\nkey = 1\r\n", L"S");
    ini.SetAutoSave(false);
    ini.SetCaseSensitive(false);
    ini.SetString(L"KEY", L"1");
    EXPECT_FALSE(ini.IsDirty());
    ini.SetString(L"KEY", L"2");
    EXPECT_EQ(GetKeys(ini), Texts({L"key", L"KEY"}));
    EXPECT_EQ(Get(ini, L"KEY"), L"1");
}

TEST_F(IniFileTest, WithoutCase_ReadingSkipsValuesThatAnotherCaseHas) {
    PutFile(Path(), "a = 1\r\nA = 1\r\nA = 2\r\n");
    CKV2D_IniFile ini;
    ini.SetCaseSensitive(false);
    ini.Open(Path());
    EXPECT_EQ(GetKeys(ini), Texts({L"a", L"A"}));
}

// --- Dirty marks and setting.

TEST_F(IniFileTest, SetString_OfPresentValue_LeavesTheFileAlone) {
    PutFile(Path(), "[A]\r\nb = 1\r\na = 2\r\n");
    const platform::FileTime old = platform::ToFileTime({2010, 1, 2, 3, 4, 5});
    SetModified(Path(), old);
    {
        CKV2D_IniFile ini;
        ini.Open(Path());
        ini.SetString(L"b", L"1");
        EXPECT_FALSE(ini.IsDirty());
    }
    EXPECT_EQ(GetModified(Path()), old);
    EXPECT_EQ(GetBytes(Path()), "[A]\r\nb = 1\r\na = 2\r\n");
}

TEST_F(IniFileTest, SetString_OfEmptyTextToMissingKey_StoresNothing) {
    CKV2D_IniFile ini = Open("a = 1\r\n");
    ini.SetString(L"b", L"");
    EXPECT_FALSE(ini.IsDirty());
    EXPECT_EQ(GetKeys(ini), Texts({L"a"}));
}

TEST_F(IniFileTest, SetString_OfEmptyTextToValue_GoesFromTheFileAtTheNextLoad) {
    EXPECT_EQ(SaveWith("a = 1\r\nb = 2\r\n", L"", L"a", L""), "a = \r\nb = 2\r\n");
    EXPECT_EQ(SaveWith(GetBytes(Path()), L"", L"b", L"3"), "b = 3\r\n");
}

TEST_F(IniFileTest, SetString_OfValueWithLineFeed_IsWrittenAsTwoLines) {
    EXPECT_EQ(SaveWith("", L"S", L"a", L"1\n2"), "[S]\r\na = 1\r\n2\r\n");
}

TEST_F(IniFileTest, SetString_OverAndOver_KeepsTheLastValue) {
    CKV2D_IniFile ini = Open("n = 0\r\nother = x\r\n");
    for (int i = 1; i <= 5000; ++i)
        ini.SetInt(L"n", i);
    EXPECT_EQ(Get(ini, L"n"), L"5000");
    EXPECT_EQ(Get(ini, L"other"), L"x");
    EXPECT_EQ(ini.GetRowCount(), 2u);
}

TEST_F(IniFileTest, ManyNewRows_AreAllFound) {
    CKV2D_IniFile ini = Open("");
    ini.SetAutoSave(false);
    for (int i = 0; i < 3000; ++i) {
        ini.SetSection(L"S" + std::to_wstring(i % 40));
        ini.SetInt(L"k" + std::to_wstring(i), i);
    }
    for (int i = 0; i < 3000; ++i) {
        ini.SetSection(L"S" + std::to_wstring(i % 40));
        int value = -1;
        ini.GetInt(L"k" + std::to_wstring(i), value, -1);
        ASSERT_EQ(value, i);
    }
    EXPECT_EQ(GetKeys(ini).size(), 75u);
}

TEST_F(IniFileTest, Clear_OfRows_MarksTheDocumentAndSavesAnEmptyFile) {
    {
        CKV2D_IniFile ini = Open("a = 1\r\n");
        ini.Clear();
        EXPECT_TRUE(ini.IsDirty());
        EXPECT_EQ(Get(ini, L"a"), L"(missing)");
    }
    EXPECT_EQ(GetBytes(Path()), "");
}

TEST_F(IniFileTest, Clear_OfNothing_LeavesTheDocumentClean) {
    CKV2D_IniFile ini = Open("; nothing here\r\n");
    ini.Clear();
    EXPECT_FALSE(ini.IsDirty());
}

TEST_F(IniFileTest, ReadFrom_MergesAndKeepsTheMark) {
    CKV2D_IniFile ini = Open("[S]\r\na = 1\r\nb = 2\r\n", L"S");
    CTextStream first("b = 3\r\nc = 4\r\na = \r\nd = \r\n");
    ini.ReadFrom(first);
    EXPECT_FALSE(ini.IsDirty());
    EXPECT_EQ(GetKeys(ini), Texts({L"a", L"b", L"c"}));
    EXPECT_EQ(Get(ini, L"a"), L"");
    EXPECT_EQ(Get(ini, L"b"), L"3");
    ini.SetString(L"x", L"1");
    CTextStream second("y = 1\r\n");
    ini.ReadFrom(second);
    EXPECT_TRUE(ini.IsDirty());
}

TEST_F(IniFileTest, ReloadFrom_ReplacesTheRowsAndEndsClean) {
    CKV2D_IniFile ini = Open("[S]\r\na = 1\r\n", L"S");
    ini.SetString(L"a", L"2");
    CTextStream stream("b = 3\r\n");
    EXPECT_EQ(ini.ReloadFrom(stream), kIniDone);
    EXPECT_FALSE(ini.IsDirty());
    EXPECT_EQ(GetKeys(ini), Texts({L"b"}));
}

TEST_F(IniFileTest, Stream_IsReadFromWhereItStands) {
    CTextStream stream("title\r\na = 1\r\n");
    std::wstring line;
    ASSERT_TRUE(stream.ReadLine(line));
    EXPECT_EQ(line, L"title");
    CKV2D_IniFile ini;
    ini.ReadFrom(stream);
    EXPECT_EQ(Get(ini, L"a"), L"1");
    EXPECT_FALSE(stream.ReadLine(line));
    EXPECT_EQ(line, L"");
}

// --- Files.

TEST_F(IniFileTest, Open_OfMissingFile_TellsAndMayBeFilled) {
    {
        CKV2D_IniFile ini;
        EXPECT_EQ(ini.Open(Path()), kIniCannotOpen);
        EXPECT_EQ(ini.GetPath(), Path());
        ini.SetSection(L"LineList");
        ini.SetString(L"KV2D_LINE_1", L"Line 1");
    }
    EXPECT_EQ(GetBytes(Path()), "[LineList]\r\nKV2D_LINE_1 = Line 1\r\n");
}

TEST_F(IniFileTest, Open_OfMissingFile_WithoutChange_MakesNoFile) {
    { CKV2D_IniFile().Open(Path()); }
    EXPECT_FALSE(HasFile(Path()));
}

TEST_F(IniFileTest, Read_ThatFails_KeepsTheRows) {
    CKV2D_IniFile ini = Open("a = 1\r\n");
    EXPECT_EQ(ini.Open(InRoot(L"Missing.ini")), kIniCannotOpen);
    EXPECT_EQ(Get(ini, L"a"), L"1");
}

TEST_F(IniFileTest, Read_WhileAnotherWrites_CannotOpen) {
    PutFile(Path(), "a = 1\r\n");
    const auto held = HoldFile(Path(), platform::Hold::kWritingShared);
    CKV2D_IniFile ini;
    EXPECT_EQ(ini.Open(Path()), kIniCannotOpen);
}

TEST_F(IniFileTest, Save_WhileAnotherReads_CannotCreateAndKeepsOrderAndMark) {
    CKV2D_IniFile ini = Open("b = 1\r\na = 2\r\n");
    ini.SetString(L"c", L"3");
    {
        const auto held = HoldFile(Path(), platform::Hold::kReadingShared);
        EXPECT_EQ(ini.Save(false), kIniCannotCreate);
    }
    EXPECT_TRUE(ini.IsDirty());
    EXPECT_EQ(GetKeys(ini), Texts({L"b", L"a", L"c"}));
    EXPECT_EQ(GetBytes(Path()), "b = 1\r\na = 2\r\n");
    EXPECT_EQ(ini.Save(false), kIniDone);
    EXPECT_EQ(GetKeys(ini), Texts({L"a", L"b", L"c"}));
}

TEST_F(IniFileTest, Save_OfCleanDocument_WritesOnlyByForce) {
    CKV2D_IniFile ini = Open("b = 1\na = 2\n");
    EXPECT_EQ(ini.Save(false), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "b = 1\na = 2\n");
    EXPECT_EQ(ini.Save(true), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "a = 2\r\nb = 1\r\n");
}

TEST_F(IniFileTest, DocumentThatWasOnlyRead_LeavesTheFileByteForByte) {
    const std::string bytes = "; comment\n[B]\nz = 1\n\n\na = 2\nKey=Value\n[A]\nk = ";
    { Open(bytes); }
    EXPECT_EQ(GetBytes(Path()), bytes);
}

TEST_F(IniFileTest, ChangedDocument_IsSortedBySectionAndKey) {
    EXPECT_EQ(SaveWith("[B]\nz = 1\na = 2\n\n[A]\nk = v\n", L"A", L"k", L"w"),
              "[A]\r\nk = w\r\n\r\n[B]\r\na = 2\r\nz = 1\r\n");
}

TEST_F(IniFileTest, SavedDocument_LosesCommentsAndBlankLines) {
    EXPECT_EQ(SaveWith("; comment\r\n\r\n[A]\r\n\r\na=1\r\nb = 2\r\n", L"A", L"c", L"3"),
              "[A]\r\nb = 2\r\nc = 3\r\n");
}

TEST_F(IniFileTest, RowsWithoutSection_ComeFirstWithoutHeaderAndBlankLine) {
    EXPECT_EQ(SaveWith("[S]\r\ns = 1\r\n", L"", L"b", L"2"), "b = 2\r\n[S]\r\ns = 1\r\n");
}

TEST_F(IniFileTest, Keys_SortAsTextByCharacterCode) {
    std::string bytes = "[L]\r\nKV2D_PRJ_2 = b\r\nKV2D_PRJ_10 = a\r\na = 1\r\nB = 1\r\n_ = 1\r\n";
    EXPECT_EQ(SaveWith(bytes, L"L", L"KV2D_PRJ", L"c"),
              "[L]\r\nB = 1\r\nKV2D_PRJ = c\r\nKV2D_PRJ_10 = a\r\nKV2D_PRJ_2 = b\r\n_ = 1\r\na = 1\r\n");
}

TEST_F(IniFileTest, Keys_SortByWideCharacterNotByByte) {
    // In code page 1252 the byte 80 is U+20AC, which stands behind the byte E4, U+00E4.
    EXPECT_EQ(SaveWith("\x80 = 1\r\n\xE4 = 2\r\n", L"", L"z", L"3"), "z = 3\r\n\xE4 = 2\r\n\x80 = 1\r\n");
}

TEST_F(IniFileTest, Sections_SortByWideCharacterToo) {
    EXPECT_EQ(SaveWith("[\x80]\r\nk = 1\r\n[\xE4]\r\nk = 2\r\n", L"a", L"k", L"3"),
              "[a]\r\nk = 3\r\n\r\n[\xE4]\r\nk = 2\r\n\r\n[\x80]\r\nk = 1\r\n");
}

TEST_F(IniFileTest, NewRowInSortedFile_TakesItsPlace) {
    EXPECT_EQ(SaveWith("[A]\r\na = 1\r\nc = 3\r\n\r\n[C]\r\nx = 1\r\n", L"A", L"b", L"2"),
              "[A]\r\na = 1\r\nb = 2\r\nc = 3\r\n\r\n[C]\r\nx = 1\r\n");
    EXPECT_EQ(SaveWith("[A]\r\na = 1\r\n\r\n[C]\r\nx = 1\r\n", L"B", L"b", L"2"),
              "[A]\r\na = 1\r\n\r\n[B]\r\nb = 2\r\n\r\n[C]\r\nx = 1\r\n");
}

TEST_F(IniFileTest, EveryByteOfKeyAndValue_SurvivesASave) {
    std::string text;
    for (int byte = 1; byte < 256; ++byte) {
        const char ch = static_cast<char>(byte);
        if (ch != '\n' && ch != '\t' && ch != '[' && ch != ']') text += ch;
    }
    const std::string row = text + " = " + text + "\r\n";
    EXPECT_EQ(SaveWith(row, L"", L"\x01", L"2"), "\x01 = 2\r\n" + row);
}

TEST_F(IniFileTest, CharacterOutsideTheCodePage_StaysUntilTheSave) {
    if (!platform::GetText().GetByteTable()) GTEST_SKIP() << "this code page has more than 256 characters";
    {
        CKV2D_IniFile ini = Open("? = 1\r\n");
        ini.SetString(L"\uFFFC", L"\uFFFD");
        EXPECT_EQ(Get(ini, L"\uFFFC"), L"\uFFFD");
        EXPECT_EQ(Get(ini, L"?"), L"1");
        std::wstring key;
        ini.FindKeyByValue(L"\uFFFD", key);
        EXPECT_EQ(key, L"\uFFFC");
        ini.SetString(L"\uFFFC", L"\uFFFD");
        EXPECT_EQ(ini.GetRowCount(), 2u);
    }
    EXPECT_EQ(GetBytes(Path()), "? = 1\r\n? = ?\r\n");
}

TEST_F(IniFileTest, CreateLineIni_WritesTheHeaderOnly) {
    EXPECT_EQ(CKV2D_IniFile::CreateLineIni(Path()), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "[LineList]\r\n");
    EXPECT_EQ(CKV2D_IniFile::CreateLineIni(InRoot(L"No\\Lines.ini")), kIniCannotOpen);
}

TEST_F(IniFileTest, EmptyPath_IsRefusedBothWays) {
    CKV2D_IniFile ini;
    EXPECT_EQ(ini.Open(L""), kIniCannotOpen);
    ini.SetString(L"a", L"1");
    EXPECT_EQ(ini.Save(false), kIniCannotCreate);
    ini.SetAutoSave(false);
}

TEST_F(IniFileTest, WithoutAutoSave_TheDestructorLeavesTheFile) {
    {
        CKV2D_IniFile ini = Open("a = 1\r\n");
        ini.SetString(L"a", L"2");
        ini.SetAutoSave(false);
    }
    EXPECT_EQ(GetBytes(Path()), "a = 1\r\n");
}

// --- Copies.

TEST_F(IniFileTest, Copy_HasRowsPathMarkAndSavesToo) {
    auto ini = std::make_unique<CKV2D_IniFile>(Open("a = 1\r\n"));
    ini->SetString(L"a", L"2");
    auto copy = std::make_unique<CKV2D_IniFile>(*ini);
    EXPECT_TRUE(copy->IsDirty());
    EXPECT_EQ(copy->GetPath(), Path());
    ini.reset();
    PutFile(Path(), "overwritten");
    copy.reset();
    EXPECT_EQ(GetBytes(Path()), "a = 2\r\n");
}

TEST_F(IniFileTest, Copies_ChangeApart) {
    CKV2D_IniFile ini = Open("[S]\r\na = 1\r\n", L"S");
    CKV2D_IniFile copy = ini;
    copy.SetAutoSave(false);
    copy.SetString(L"a", L"2");
    copy.SetString(L"b", L"3");
    EXPECT_EQ(Get(ini, L"a"), L"1");
    EXPECT_EQ(Get(ini, L"b"), L"(missing)");
    ini.Clear();
    EXPECT_EQ(Get(copy, L"a"), L"2");
    EXPECT_EQ(Get(copy, L"b"), L"3");
    ini.SetAutoSave(false);
}

TEST_F(IniFileTest, Assignment_ReplacesEverything_AndToItselfDoesNothing) {
    CKV2D_IniFile ini = Open("[S]\r\na = 1\r\n", L"S");
    CKV2D_IniFile other;
    other.SetString(L"x", L"1");
    other = ini;
    EXPECT_FALSE(other.IsDirty());
    EXPECT_EQ(Get(other, L"a"), L"1");
    EXPECT_EQ(other.GetSection(), L"S");
    CKV2D_IniFile& self = ini;
    ini = self;
    EXPECT_EQ(Get(ini, L"a"), L"1");
}

TEST_F(IniFileTest, SaveOfACopy_LeavesTheOrderOfTheOther) {
    CKV2D_IniFile ini = Open("b = 1\r\na = 2\r\n");
    CKV2D_IniFile copy = ini;
    EXPECT_EQ(copy.Save(true), kIniDone);
    EXPECT_EQ(GetKeys(copy), Texts({L"a", L"b"}));
    EXPECT_EQ(GetKeys(ini), Texts({L"b", L"a"}));
}

// --- Typed values.

TEST_F(IniFileTest, GetInt_TakesTheLeadingInteger_AndZeroNotTheDefault) {
    CKV2D_IniFile ini = Open("a = 12 mm\r\nb = x\r\nc =  -7\r\nd = 99999999999\r\n");
    int value = 1;
    ini.GetInt(L"a", value, 5);
    EXPECT_EQ(value, 12);
    ini.GetInt(L"b", value, 5);
    EXPECT_EQ(value, 0);
    ini.GetLong(L"c", value, 5);
    EXPECT_EQ(value, -7);
    ini.GetInt(L"d", value, 5);
    EXPECT_EQ(value, 2147483647);
    ini.GetInt(L"missing", value, -5);
    EXPECT_EQ(value, -5);
}

TEST_F(IniFileTest, GetInt_OfEmptiedValue_IsZero) {
    CKV2D_IniFile ini = Open("a = 1\r\na = \r\n");
    int value = 9;
    ini.GetInt(L"a", value, 5);
    EXPECT_EQ(value, 0);
}

TEST_F(IniFileTest, GetDouble_PassesTheDefaultThroughSixDecimals) {
    CKV2D_IniFile ini = Open("a = 2.5 inch\r\nb = x\r\nc = 1e3\r\n");
    double value = 1;
    ini.GetDouble(L"missing", value, 0.00000001);
    EXPECT_EQ(value, 0.0);
    ini.GetDouble(L"missing", value, 1.25);
    EXPECT_EQ(value, 1.25);
    ini.GetDouble(L"a", value, 9);
    EXPECT_EQ(value, 2.5);
    ini.GetDouble(L"b", value, 9);
    EXPECT_EQ(value, 0.0);
    ini.GetDouble(L"c", value, 9);
    EXPECT_EQ(value, 1000.0);
}

TEST_F(IniFileTest, GetBool_OfWord_IsFalse) {
    CKV2D_IniFile ini = Open("a = true\r\nb = 1\r\nc = -3\r\nd = 0\r\n");
    bool value = true;
    ini.GetBool(L"a", value, true);
    EXPECT_FALSE(value);
    ini.GetBool(L"b", value, false);
    EXPECT_TRUE(value);
    ini.GetBool(L"c", value, false);
    EXPECT_TRUE(value);
    ini.GetBool(L"d", value, true);
    EXPECT_FALSE(value);
    ini.GetBool(L"missing", value, true);
    EXPECT_TRUE(value);
}

TEST_F(IniFileTest, TypedWriting_GivesTheTextsOfTheFile) {
    CKV2D_IniFile ini = Open("");
    ini.SetInt(L"int", -5);
    ini.SetLong(L"long", 2147483647);
    ini.SetDouble(L"double", 2.123456789);
    ini.SetBool(L"yes", true);
    ini.SetBool(L"no", false);
    ini.SetGuid(L"guid", {0x1234ABCD, 0x5, 0xFFFF, {1, 2, 3, 4, 5, 6, 7, 0xFE}});
    EXPECT_EQ(Get(ini, L"int"), L"-5");
    EXPECT_EQ(Get(ini, L"long"), L"2147483647");
    EXPECT_EQ(Get(ini, L"double"), L"2.123457");
    EXPECT_EQ(Get(ini, L"yes"), L"1");
    EXPECT_EQ(Get(ini, L"no"), L"0");
    EXPECT_EQ(Get(ini, L"guid"), L"1234ABCD-0005-FFFF-0102-0304050607FE");
}

TEST_F(IniFileTest, GetGuid_ReadsBothCasesAndSpreadsBraces) {
    const platform::Guid guid{0x1234ABCD, 0x5678, 0x9ABC, {1, 2, 3, 4, 5, 6, 7, 0xFE}};
    CKV2D_IniFile ini =
        Open("a = 1234abcd-5678-9abc-0102-0304050607fe\r\nb = {1234ABCD-5678-9ABC-0102-0304050607FE}\r\n");
    platform::Guid read;
    ini.GetGuid(L"a", read, {});
    EXPECT_TRUE(read == guid);
    ini.GetGuid(L"missing", read, guid);
    EXPECT_TRUE(read == guid);
    // The brace ends the first piece and moves all others by one character.
    ini.GetGuid(L"b", read, guid);
    EXPECT_TRUE(read ==
                (platform::Guid{0, 0xD567, 0x89AB, {0xC0, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x7F}}));
}

TEST_F(IniFileTest, FindKeyByValue_GivesTheFirstRowOfTheSection) {
    CKV2D_IniFile ini = Open("[A]\r\nx = Line 1\r\n[B]\r\nc = Line 1\r\na = Line 1\r\nb =  Line 1\r\n", L"B");
    std::wstring key = L"rest";
    ini.FindKeyByValue(L"Line 1", key);
    EXPECT_EQ(key, L"c");
    ini.FindKeyByValue(L" Line 1", key);
    EXPECT_EQ(key, L"b");
    ini.FindKeyByValue(L"line 1", key);
    EXPECT_EQ(key, L"");
}

TEST_F(IniFileTest, GetSectionEntries_OfUnknownSection_EmptiesBoth) {
    CKV2D_IniFile ini = Open("[A]\r\nx = 1\r\n", L"B");
    EXPECT_TRUE(GetKeys(ini).empty());
}

// --- Faults.

class IniFileFaults : public MemorySystemTest {};

TEST_F(IniFileFaults, WriteThatBreaksOff_IsToldAndStaysDirty) {
    const std::wstring path = InRoot(L"Document.ini");
    PutFile(path, "b = 1\r\na = 2\r\n");
    CKV2D_IniFile ini;
    ini.Open(path);
    ini.SetString(L"c", L"3");
    GetMemory().files.FailWriteAt(path, 4);
    EXPECT_EQ(ini.Save(false), kIniCannotCreate);
    EXPECT_TRUE(ini.IsDirty());
    EXPECT_EQ(GetBytes(path), "a = ");
    GetMemory().files.ClearFaults();
    EXPECT_EQ(ini.Save(false), kIniDone);
    EXPECT_EQ(GetBytes(path), "a = 2\r\nb = 1\r\nc = 3\r\n");
}

TEST_F(IniFileFaults, CreateLineIni_WhoseWriteBreaksOff_CannotOpen) {
    GetMemory().files.FailWriteAt(L"", 3);
    EXPECT_EQ(CKV2D_IniFile::CreateLineIni(InRoot(L"Lines.ini")), kIniCannotOpen);
}

TEST_F(IniFileFaults, DestructorThatCannotSave_IsSilent) {
    GetMemory().files.RefuseCreate(L"");
    {
        CKV2D_IniFile ini;
        ini.Open(InRoot(L"Document.ini"));
        ini.SetString(L"a", L"1");
    }
    EXPECT_TRUE(GetBoxes().empty());
    EXPECT_FALSE(HasFile(InRoot(L"Document.ini")));
}

TEST_F(IniFileFaults, OpenChangeAndDestroy_OpensTheFileTwice) {
    PutFile(InRoot(L"Document.ini"), "a = 1\r\n");
    GetMemory().log.Clear();
    {
        CKV2D_IniFile ini;
        ini.Open(InRoot(L"Document.ini"));
        ini.SetString(L"a", L"2");
    }
    EXPECT_EQ(GetMemory().log.GetCount(), 2u);
    EXPECT_EQ(GetMemory().log.GetCount(L"ReadBytes"), 1u);
    EXPECT_EQ(GetMemory().log.GetCount(L"WriteBytes"), 1u);
}

}  // namespace
