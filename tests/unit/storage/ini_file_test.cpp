// The ini document in memory: marks of a change, setting, and copies.
#include <memory>

#include "ini_document.h"

namespace {

class IniFileTest : public IniDocumentTest {};

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

}  // namespace
