// Opening and saving: the bytes of the file, share modes, faults.
#include "ini_document.h"

namespace {

class IniSavingTest : public IniDocumentTest {};

TEST_F(IniSavingTest, Open_OfMissingFile_TellsAndMayBeFilled) {
    {
        CKV2D_IniFile ini;
        EXPECT_EQ(ini.Open(Path()), kIniCannotOpen);
        EXPECT_EQ(ini.GetPath(), Path());
        ini.SetSection(L"LineList");
        ini.SetString(L"KV2D_LINE_1", L"Line 1");
    }
    EXPECT_EQ(GetBytes(Path()), "[LineList]\r\nKV2D_LINE_1 = Line 1\r\n");
}

TEST_F(IniSavingTest, Open_OfMissingFile_WithoutChange_MakesNoFile) {
    { CKV2D_IniFile().Open(Path()); }
    EXPECT_FALSE(HasFile(Path()));
}

TEST_F(IniSavingTest, Read_ThatFails_KeepsTheRows) {
    CKV2D_IniFile ini = Open("a = 1\r\n");
    EXPECT_EQ(ini.Open(InRoot(L"Missing.ini")), kIniCannotOpen);
    EXPECT_EQ(Get(ini, L"a"), L"1");
}

TEST_F(IniSavingTest, Read_WhileAnotherWrites_CannotOpen) {
    PutFile(Path(), "a = 1\r\n");
    const auto held = HoldFile(Path(), platform::Hold::kWritingShared);
    CKV2D_IniFile ini;
    EXPECT_EQ(ini.Open(Path()), kIniCannotOpen);
}

TEST_F(IniSavingTest, Save_WhileAnotherReads_CannotCreateAndKeepsOrderAndMark) {
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

TEST_F(IniSavingTest, Save_OfCleanDocument_WritesOnlyByForce) {
    CKV2D_IniFile ini = Open("b = 1\na = 2\n");
    EXPECT_EQ(ini.Save(false), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "b = 1\na = 2\n");
    EXPECT_EQ(ini.Save(true), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "a = 2\r\nb = 1\r\n");
}

TEST_F(IniSavingTest, DocumentThatWasOnlyRead_LeavesTheFileByteForByte) {
    const std::string bytes = "; comment\n[B]\nz = 1\n\n\na = 2\nKey=Value\n[A]\nk = ";
    { Open(bytes); }
    EXPECT_EQ(GetBytes(Path()), bytes);
}

TEST_F(IniSavingTest, ChangedDocument_IsSortedBySectionAndKey) {
    EXPECT_EQ(SaveWith("[B]\nz = 1\na = 2\n\n[A]\nk = v\n", L"A", L"k", L"w"),
              "[A]\r\nk = w\r\n\r\n[B]\r\na = 2\r\nz = 1\r\n");
}

TEST_F(IniSavingTest, SavedDocument_LosesCommentsAndBlankLines) {
    EXPECT_EQ(SaveWith("; comment\r\n\r\n[A]\r\n\r\na=1\r\nb = 2\r\n", L"A", L"c", L"3"),
              "[A]\r\nb = 2\r\nc = 3\r\n");
}

TEST_F(IniSavingTest, RowsWithoutSection_ComeFirstWithoutHeaderAndBlankLine) {
    EXPECT_EQ(SaveWith("[S]\r\ns = 1\r\n", L"", L"b", L"2"), "b = 2\r\n[S]\r\ns = 1\r\n");
}

TEST_F(IniSavingTest, Keys_SortAsTextByCharacterCode) {
    std::string bytes = "[L]\r\nKV2D_PRJ_2 = b\r\nKV2D_PRJ_10 = a\r\na = 1\r\nB = 1\r\n_ = 1\r\n";
    EXPECT_EQ(SaveWith(bytes, L"L", L"KV2D_PRJ", L"c"),
              "[L]\r\nB = 1\r\nKV2D_PRJ = c\r\nKV2D_PRJ_10 = a\r\nKV2D_PRJ_2 = b\r\n_ = 1\r\na = 1\r\n");
}

TEST_F(IniSavingTest, Keys_SortByWideCharacterNotByByte) {
    // In code page 1252 the byte 80 is U+20AC, which stands behind the byte E4, U+00E4.
    EXPECT_EQ(SaveWith("\x80 = 1\r\n\xE4 = 2\r\n", L"", L"z", L"3"), "z = 3\r\n\xE4 = 2\r\n\x80 = 1\r\n");
}

TEST_F(IniSavingTest, Sections_SortByWideCharacterToo) {
    EXPECT_EQ(SaveWith("[\x80]\r\nk = 1\r\n[\xE4]\r\nk = 2\r\n", L"a", L"k", L"3"),
              "[a]\r\nk = 3\r\n\r\n[\xE4]\r\nk = 2\r\n\r\n[\x80]\r\nk = 1\r\n");
}

TEST_F(IniSavingTest, NewRowInSortedFile_TakesItsPlace) {
    EXPECT_EQ(SaveWith("[A]\r\na = 1\r\nc = 3\r\n\r\n[C]\r\nx = 1\r\n", L"A", L"b", L"2"),
              "[A]\r\na = 1\r\nb = 2\r\nc = 3\r\n\r\n[C]\r\nx = 1\r\n");
    EXPECT_EQ(SaveWith("[A]\r\na = 1\r\n\r\n[C]\r\nx = 1\r\n", L"B", L"b", L"2"),
              "[A]\r\na = 1\r\n\r\n[B]\r\nb = 2\r\n\r\n[C]\r\nx = 1\r\n");
}

TEST_F(IniSavingTest, EveryByteOfKeyAndValue_SurvivesASave) {
    std::string text;
    for (int byte = 1; byte < 256; ++byte) {
        const char ch = static_cast<char>(byte);
        if (ch != '\n' && ch != '\t' && ch != '[' && ch != ']') text += ch;
    }
    const std::string row = text + " = " + text + "\r\n";
    EXPECT_EQ(SaveWith(row, L"", L"\x01", L"2"), "\x01 = 2\r\n" + row);
}

TEST_F(IniSavingTest, CharacterOutsideTheCodePage_StaysUntilTheSave) {
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

TEST_F(IniSavingTest, CreateLineIni_WritesTheHeaderOnly) {
    EXPECT_EQ(CKV2D_IniFile::CreateLineIni(Path()), kIniDone);
    EXPECT_EQ(GetBytes(Path()), "[LineList]\r\n");
    EXPECT_EQ(CKV2D_IniFile::CreateLineIni(InRoot(L"No\\Lines.ini")), kIniCannotOpen);
}

TEST_F(IniSavingTest, EmptyPath_IsRefusedBothWays) {
    CKV2D_IniFile ini;
    EXPECT_EQ(ini.Open(L""), kIniCannotOpen);
    ini.SetString(L"a", L"1");
    EXPECT_EQ(ini.Save(false), kIniCannotCreate);
    ini.SetAutoSave(false);
}

TEST_F(IniSavingTest, WithoutAutoSave_TheDestructorLeavesTheFile) {
    {
        CKV2D_IniFile ini = Open("a = 1\r\n");
        ini.SetString(L"a", L"2");
        ini.SetAutoSave(false);
    }
    EXPECT_EQ(GetBytes(Path()), "a = 1\r\n");
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
