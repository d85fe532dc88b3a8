#include <gmock/gmock.h>

#include "a_database.h"
#include "database/line_list.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Project 12 keeps its lines per drawing.
class LocalLineListTest : public SystemTest {
  protected:
    LocalLineListTest() : m_database(*this) {
        m_database.WithProject(12, "Pump").WithLocalLines(12, InRoot(L"Local"));
    }

    std::wstring InLocal(const std::wstring& strName) const { return InRoot(L"Local\\" + strName); }

    int FetchLines(const std::vector<std::wstring>& astrDrawingLines, bool bLive = true, bool bDeleted = true,
                   bool bUseCache = false) {
        return GetLocalLineList(12, L"PID", kDrawing, astrDrawingLines, m_anIds, m_astrNames, m_abFlags,
                                bLive, bDeleted, false, bUseCache);
    }

    static constexpr wchar_t kDrawing[] = L"c:\\p\\Plant1.dwg";

    ADatabase m_database;
    const std::wstring m_strFile = InLocal(L"PID_12_Plant1line.ini");
    const std::wstring m_strCounter = InLocal(L"LineDatafile.ini");
    std::vector<int> m_anIds{99};
    std::vector<std::wstring> m_astrNames{L"left over"};
    std::vector<bool> m_abFlags{true, false};
    int m_nId = 99;
    std::wstring m_strName = L"left over";
};

TEST_F(LocalLineListTest, GetLocalLineIniPath_IsMadeOfApplicationProjectAndDrawing) {
    EXPECT_EQ(GetLocalLineIniPath(kDrawing, L"PID", 12), m_strFile);
    EXPECT_TRUE(HasFolder(InRoot(L"Local")));
    EXPECT_FALSE(HasFile(m_strFile));
}

TEST_F(LocalLineListTest, GetLocalLineIniPath_TakesTheDrawingUpToItsFirstDot) {
    EXPECT_EQ(GetLocalLineIniPath(L"c:\\p\\Plant.rev2.dwg", L"PID", 12), InLocal(L"PID_12_Plantline.ini"));
    EXPECT_EQ(GetLocalLineIniPath(L"c:\\p\\.dwg", L"PID", 12), InLocal(L"PID_12_line.ini"));
}

TEST_F(LocalLineListTest, GetLocalLineIniPath_OfAnUnsavedDrawing) {
    EXPECT_EQ(GetLocalLineIniPath(L"Drawing1", L"PID", 12), InLocal(L"PID_12_Drawing1line.ini"));
    EXPECT_EQ(GetLocalLineIniPath(L"Drawing1.dwg", L"PID", 12), InLocal(L"PID_12_Drawing1line.ini"));
    EXPECT_EQ(GetLocalLineIniPath(L"", L"PID", 12), InLocal(L"PID_12_line.ini"));
}

TEST_F(LocalLineListTest, GetLocalLineIniPath_WithoutDwgInThePath_StaysWholeUpToItsFirstDot) {
    EXPECT_EQ(GetLocalLineIniPath(L"c:\\p\\noext", L"PID", 12), InLocal(L"PID_12_c:\\p\\noextline.ini"));
    EXPECT_EQ(GetLocalLineIniPath(L"c:\\p\\UP.DWG", L"PID", 12), InLocal(L"PID_12_c:\\p\\UPline.ini"));
}

TEST_F(LocalLineListTest, GetLocalLineIniPath_FolderNamedLikeADrawing_IsTakenForTheDrawing) {
    EXPECT_EQ(GetLocalLineIniPath(L"c:\\old.dwg.files\\Plant.dwg", L"PID", 12),
              InLocal(L"PID_12_oldline.ini"));
}

TEST_F(LocalLineListTest, GetLocalLineIniPath_FolderWithBackslashes_LosesThem) {
    m_database.WithProject(13, "Tank").WithLocalLines(13, InRoot(L"Local\\\\"));
    EXPECT_EQ(GetLocalLineIniPath(kDrawing, L"ORTHO", 13), InLocal(L"ORTHO_13_Plant1line.ini"));
}

TEST_F(LocalLineListTest, GetLocalLineIniPath_CreatesAllFoldersOfThePath) {
    m_database.WithProject(13, "Tank").WithLocalLines(13, InRoot(L"a\\b\\c"));
    GetLocalLineIniPath(kDrawing, L"PID", 13);
    EXPECT_TRUE(HasFolder(InRoot(L"a\\b\\c")));
}

TEST_F(LocalLineListTest, GetLocalLineList_OfADrawingWithoutLines_MakesTheFileWithLineOne) {
    EXPECT_EQ(FetchLines({}), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Line 1"));
    EXPECT_THAT(m_anIds, ElementsAre(1));
    EXPECT_THAT(m_abFlags, ElementsAre(true));
    EXPECT_EQ(GetBytes(m_strFile), Lines({"[LineList]", "KV2D_LINE_1 = Line 1"}));
    EXPECT_EQ(GetBytes(m_strCounter), Lines({"[General]", "LastLineId = 1"}));
}

TEST_F(LocalLineListTest, GetLocalLineList_FirstFileOfALaterDrawing_NamesItsLineLineOneToo) {
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 16"}));
    FetchLines({});
    EXPECT_EQ(GetBytes(m_strFile), Lines({"[LineList]", "KV2D_LINE_17 = Line 1"}));
}

TEST_F(LocalLineListTest, GetLocalLineList_OfANewFile_TakesTheDrawingsLinesInTheirOrder) {
    EXPECT_EQ(FetchLines({L"Water", L"Steam"}), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(1, 2));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Water", L"Steam"));
    EXPECT_EQ(GetBytes(m_strCounter), Lines({"[General]", "LastLineId = 2"}));
}

TEST_F(LocalLineListTest, GetLocalLineList_LinesOfTheDrawingThatTheFileLacks_JoinIt) {
    PutFile(m_strFile, Lines({"[LineList]", "KV2D_LINE_1 = Steam"}));
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 7"}));
    EXPECT_EQ(FetchLines({L"Oil", L"Steam", L"steam"}), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam", L"Oil", L"steam"));
    EXPECT_THAT(m_anIds, ElementsAre(1, 8, 9));
    EXPECT_EQ(FetchLines({L"Oil", L"Steam", L"steam"}), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(1, 8, 9));
    EXPECT_EQ(GetBytes(m_strCounter), Lines({"[General]", "LastLineId = 9"}));
}

TEST_F(LocalLineListTest, GetLocalLineList_DeletedOnly_AddsNothing) {
    PutFile(m_strFile,
            Lines({"[DeletedLines]", "KV2D_LINE_2 = Old", "", "[LineList]", "KV2D_LINE_1 = Steam"}));
    EXPECT_EQ(FetchLines({L"Oil"}, false, true), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Old"));
    EXPECT_THAT(m_abFlags, ElementsAre(false));
    EXPECT_FALSE(HasFile(m_strCounter));
}

TEST_F(LocalLineListTest, GetLocalLineList_IsInRowOrderLiveLinesFirst) {
    PutFile(m_strFile,
            Lines({"[DeletedLines]", "KV2D_LINE_3 = A", "[LineList]", "KV2D_LINE_2 = Z", "KV2D_LINE_1 = B"}));
    EXPECT_EQ(FetchLines({}), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Z", L"B", L"A"));
    EXPECT_THAT(m_abFlags, ElementsAre(true, true, false));
}

TEST_F(LocalLineListTest,
       GetLocalLineList_DrawingsLineThatIsDeletedInTheFile_JoinsUnderADefaultNameEachTime) {
    PutFile(m_strFile, Lines({"[DeletedLines]", "KV2D_LINE_1 = Old", "", "[LineList]", "KV2D_LINE_2 = B"}));
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 2"}));
    FetchLines({L"Old"});
    EXPECT_THAT(m_astrNames, ElementsAre(L"B", L"Line 3", L"Old"));
    FetchLines({L"Old"});
    EXPECT_THAT(m_astrNames, ElementsAre(L"B", L"Line 3", L"Line 4", L"Old"));
}

TEST_F(LocalLineListTest, GetLocalLineList_DrawingsLineThatIsNoName_JoinsUnderADefaultNameEachTime) {
    FetchLines({L"-", L"A"});
    EXPECT_THAT(m_astrNames, ElementsAre(L"Line 1", L"A", L"Line 3"));
    FetchLines({L"-", L"A"});
    EXPECT_EQ(m_astrNames.size(), 4u);
}

TEST_F(LocalLineListTest, GetLocalLineList_SameNumberTwiceInTheDrawing_SecondTakesADefaultName) {
    FetchLines({L"Steam", L"Steam", L" Steam "});
    // The third one is no name of the file, blanks counted, and joins once more.
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam", L"Line 2", L"Line 3", L"Line 4"));
}

TEST_F(LocalLineListTest, GetLocalLineList_NameInPlaceOfAKey_IsLookedUpInTheProjectsLines) {
    m_database.WithLine(12, 40, "Steam").WithLine(12, 41, "Air");
    PutFile(m_strFile, Lines({"[LineList]", "STEAM = x", "Eval = y", "Oil = z", "KV2D_LINE_5 = v"}));
    EXPECT_EQ(FetchLines({}), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(40, 41, 0, 5));
}

TEST_F(LocalLineListTest, GetLocalLineList_OfIdBelowOne_IsInvalidAndEmpties) {
    EXPECT_EQ(
        GetLocalLineList(0, L"PID", kDrawing, {}, m_anIds, m_astrNames, m_abFlags, true, true, false, false),
        kLineInvalidProjectId);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
    EXPECT_THAT(m_abFlags, IsEmpty());
}

TEST_F(LocalLineListTest, GetLocalLineList_BothFlagsFalse_MakesNoFile) {
    EXPECT_EQ(FetchLines({L"Steam"}, false, false), kLineOk);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_FALSE(HasFile(m_strFile));
    EXPECT_EQ(GetLocalLineList(0, L"PID", kDrawing, {}, m_anIds, m_astrNames, m_abFlags, false, false, false,
                               false),
              kLineOk);
}

TEST_F(LocalLineListTest, GetLocalLineList_OfAnEvaluationRun_IsOnePseudoLine) {
    EXPECT_EQ(
        GetLocalLineList(0, L"PID", kDrawing, {}, m_anIds, m_astrNames, m_abFlags, true, true, true, false),
        kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(1));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Eval"));
    EXPECT_THAT(m_abFlags, ElementsAre(true));
    EXPECT_FALSE(HasFile(m_strFile));
}

TEST_F(LocalLineListTest, CreateLocalLine_UsesTheCounterOfTheFolder) {
    m_database.WithLastLineId(100);
    EXPECT_EQ(CreateLocalLine(12, L"PID", kDrawing, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_nId, 1);
    EXPECT_EQ(CreateLocalLine(12, L"PID", L"c:\\p\\Other.dwg", m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_nId, 2);
    EXPECT_EQ(m_strName, L"Line 2");
    EXPECT_EQ(GetBytes(InLocal(L"PID_12_Otherline.ini")), Lines({"[LineList]", "KV2D_LINE_2 = Line 2"}));
    EXPECT_EQ(GetBytes(m_strCounter), Lines({"[General]", "LastLineId = 2"}));
}

TEST_F(LocalLineListTest, CreateLocalLine_OfIdBelowOne_IsInvalidAndEmpties) {
    EXPECT_EQ(CreateLocalLine(0, L"PID", kDrawing, m_nId, m_strName), kLineInvalidProjectId);
    EXPECT_EQ(m_nId, 0);
    EXPECT_EQ(m_strName, L"");
}

TEST_F(LocalLineListTest, RenameLocalLine_HasTheCodesOfRenameLine) {
    PutFile(m_strFile, Lines({"[DeletedLines]", "KV2D_LINE_3 = Old", "", "[LineList]", "KV2D_LINE_1 = A",
                              "KV2D_LINE_2 = B"}));
    const auto rename = [&](int nProject, int nLine, const wchar_t* pszName) {
        return RenameLocalLine(nProject, L"PID", kDrawing, nLine, pszName);
    };
    EXPECT_EQ(rename(0, 0, L""), kLineInvalidProjectId);
    EXPECT_EQ(rename(12, 0, L""), kLineInvalidId);
    EXPECT_EQ(rename(12, 1, L" - "), kLineInvalidName);
    EXPECT_EQ(rename(12, 1, L"B"), kLineAlreadyExists);
    EXPECT_EQ(rename(12, 1, L"Old"), kLineIsDeleted);
    EXPECT_EQ(rename(12, 9, L"C"), kLineNotFound);
    EXPECT_EQ(rename(12, 1, L" C "), kLineOk);
    EXPECT_EQ(rename(12, 3, L"D"), kLineOk);
    EXPECT_EQ(GetBytes(m_strFile), Lines({"[DeletedLines]", "KV2D_LINE_3 = D", "", "[LineList]",
                                          "KV2D_LINE_1 = C", "KV2D_LINE_2 = B"}));
    EXPECT_EQ(RenameLocalLine(12, L"PID", L"c:\\p\\None.dwg", 1, L"C"), kLineCannotOpenDatafile);
}

TEST_F(LocalLineListTest, CreateLocalLineIni_ReplacesTheFile) {
    PutFile(m_strFile, Lines({"[LineList]", "KV2D_LINE_1 = A"}));
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 7"}));
    EXPECT_EQ(CreateLocalLineIni(12, L"PID", kDrawing, {L"B", L"C"}), L"");
    EXPECT_EQ(GetBytes(m_strFile), Lines({"[LineList]", "KV2D_LINE_8 = B", "KV2D_LINE_9 = C"}));
}

TEST_F(LocalLineListTest, CreateLocalLineIni_WithoutNames_HoldsTheSectionAlone) {
    CreateLocalLineIni(12, L"PID", kDrawing, {});
    EXPECT_EQ(GetBytes(m_strFile), Lines({"[LineList]"}));
    EXPECT_FALSE(HasFile(m_strCounter));
}

// Adding many lines at once must leave what creating and renaming them one by one leaves.
TEST_F(LocalLineListTest, CreateLocalLineIni_LeavesWhatCreatingAndRenamingOneByOneLeaves) {
    const std::vector<std::wstring> astrNames = {L"Line 9", L"A",      L"A", L"-",       L" B ", L"B",
                                                 L"Line 3", L"Line 7", L"",  L"Line 10", L"a"};
    const std::wstring strOther = L"c:\\p\\Other.dwg";
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 2"}));
    CreateLocalLineIni(12, L"PID", kDrawing, astrNames);
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 2"}));
    for (const std::wstring& strName : astrNames) {
        CreateLocalLine(12, L"PID", strOther, m_nId, m_strName);
        RenameLocalLine(12, L"PID", strOther, m_nId, strName);
    }
    EXPECT_EQ(GetBytes(m_strFile), GetBytes(InLocal(L"PID_12_Otherline.ini")));
    EXPECT_EQ(GetBytes(m_strCounter), Lines({"[General]", "LastLineId = 13"}));
}

TEST_F(LocalLineListTest, GetLocalLineList_LostCounter_LeavesWhatCreatingAndRenamingOneByOneLeaves) {
    const std::string strRows =
        Lines({"[DeletedLines]", "KV2D_LINE_4 = Line 4", "", "[LineList]", "KV2D_LINE_1 = Line 1",
               "KV2D_LINE_2 = A", "KV2D_LINE_3 = Line 2", "KV2D_LINE_5 = C"});
    const std::vector<std::wstring> astrNames = {L"-", L"E", L"Line 4", L"Line 6", L"D"};
    const std::wstring strOther = L"c:\\p\\Other.dwg";
    PutFile(m_strFile, strRows);
    FetchLines(astrNames);
    PutFile(InLocal(L"PID_12_Otherline.ini"), strRows);
    PutFile(m_strCounter, "");
    for (const std::wstring& strName : astrNames) {
        CreateLocalLine(12, L"PID", strOther, m_nId, m_strName);
        RenameLocalLine(12, L"PID", strOther, m_nId, strName);
    }
    EXPECT_EQ(GetBytes(m_strFile), GetBytes(InLocal(L"PID_12_Otherline.ini")));
}

// A search by name ends at the row without a key, so the name counts as free, whoever else bears it.
TEST_F(LocalLineListTest, GetLocalLineList_RowWithoutKey_LeavesWhatCreatingAndRenamingOneByOneLeaves) {
    const std::string strRows =
        Lines({"[LineList]", "KV2D_LINE_1 = A", " = B", "KV2D_LINE_2 = B", "KV2D_LINE_3 = Line 5"});
    const std::vector<std::wstring> astrNames = {L"C", L"-", L"C", L"D"};
    const std::wstring strOther = L"c:\\p\\Other.dwg";
    PutFile(m_strFile, strRows);
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 3"}));
    FetchLines(astrNames);
    PutFile(InLocal(L"PID_12_Otherline.ini"), strRows);
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 3"}));
    for (const std::wstring& strName : astrNames) {
        CreateLocalLine(12, L"PID", strOther, m_nId, m_strName);
        RenameLocalLine(12, L"PID", strOther, m_nId, strName);
    }
    EXPECT_EQ(GetBytes(m_strFile), GetBytes(InLocal(L"PID_12_Otherline.ini")));
    EXPECT_EQ(RenameLocalLine(12, L"PID", kDrawing, 1, L"B"), kLineOk);
    EXPECT_EQ(RenameLocalLine(12, L"PID", kDrawing, 2, L"A"), kLineOk);
}

TEST_F(LocalLineListTest, GetLocalLineList_KeyThatASaveChanges_LeavesWhatCreatingAndRenamingOneByOneLeaves) {
    const std::string strRows = Lines({"[LineList]", "KV2D_LINE_2 =]] = A", "KV2D_LINE_3 = B"});
    const std::wstring strOther = L"c:\\p\\Other.dwg";
    PutFile(m_strFile, strRows);
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 3"}));
    FetchLines({L"C", L"A"});
    PutFile(InLocal(L"PID_12_Otherline.ini"), strRows);
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 3"}));
    CreateLocalLine(12, L"PID", strOther, m_nId, m_strName);
    RenameLocalLine(12, L"PID", strOther, m_nId, L"C");
    EXPECT_EQ(GetBytes(m_strFile), GetBytes(InLocal(L"PID_12_Otherline.ini")));
    EXPECT_EQ(GetBytes(m_strFile),
              Lines({"[LineList]", "KV2D_LINE_2 = = A", "KV2D_LINE_3 = B", "KV2D_LINE_4 = C"}));
}

TEST_F(LocalLineListTest,
       GetLocalLineList_CounterWithASecondKey_LeavesWhatCreatingAndRenamingOneByOneLeaves) {
    const std::string strCounter = Lines({"[General]", "LastLineId = 7", "LastLineId =] =] = 3"});
    const std::wstring strOther = L"c:\\p\\Other.dwg";
    PutFile(m_strCounter, strCounter);
    FetchLines({L"A", L"B"});
    const std::string strAfter = GetBytes(m_strCounter);
    PutFile(InLocal(L"PID_12_Otherline.ini"), Lines({"[LineList]"}));
    PutFile(m_strCounter, strCounter);
    for (const wchar_t* pszName : {L"A", L"B"}) {
        CreateLocalLine(12, L"PID", strOther, m_nId, m_strName);
        RenameLocalLine(12, L"PID", strOther, m_nId, pszName);
    }
    EXPECT_EQ(GetBytes(m_strFile), GetBytes(InLocal(L"PID_12_Otherline.ini")));
    EXPECT_EQ(strAfter, GetBytes(m_strCounter));
}

TEST_F(LocalLineListTest, GetLocalLineList_CounterAtTheLargestNumber_GivesRowsWithoutKeyAndDoesNotCrash) {
    PutFile(m_strFile, Lines({"[LineList]", "KV2D_LINE_1 = A"}));
    PutFile(m_strCounter, Lines({"[General]", "LastLineId = 2147483646"}));
    FetchLines({L"A", L"B", L"C"});
    EXPECT_THAT(m_anIds, ElementsAre(0, 1, 2147483647));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Line -2147483648", L"A", L"B"));
}

TEST_F(LocalLineListTest, CacheOfTheProject_IsSharedByBothModesWhateverTheDrawing) {
    m_database.WithLine(12, 40, "Of the project");
    PutFile(m_strFile, Lines({"[LineList]", "KV2D_LINE_1 = Of the drawing"}));
    CKV2D_IniFile ini;
    EXPECT_TRUE(OpenLocalLineIni(ini, L"PID", kDrawing, 12, true));
    std::vector<bool> abFlags;
    EXPECT_EQ(GetLineList(12, m_anIds, m_astrNames, abFlags, true, false, false, true), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Of the drawing"));
    EXPECT_TRUE(OpenLocalLineIni(ini, L"PID", L"c:\\p\\Other.dwg", 12, true));
    EXPECT_EQ(GetLineNameById(ini, 1, true, true), L"Of the drawing");
    EXPECT_TRUE(ReloadProjectLineCache());
    GetLineList(12, m_anIds, m_astrNames, abFlags, true, false, false, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Of the project"));
}

TEST_F(LocalLineListTest, ReloadLocalLineCache_PutsTheDrawingsRowsUnderTheProjectsId) {
    m_database.WithLine(12, 40, "Of the project");
    PutFile(m_strFile, Lines({"[LineList]", "KV2D_LINE_1 = Of the drawing"}));
    GetLineList(12, m_anIds, m_astrNames, m_abFlags, true, false, false, true);
    EXPECT_TRUE(ReloadLocalLineCache(L"PID", kDrawing));
    GetLineList(12, m_anIds, m_astrNames, m_abFlags, true, false, false, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Of the drawing"));
    EXPECT_FALSE(ReloadLocalLineCache(L"PID", L"c:\\p\\Other.dwg"));
    GetLineList(12, m_anIds, m_astrNames, m_abFlags, true, false, false, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Of the drawing"));
}

TEST_F(LocalLineListTest, OpenLocalLineIni_WithoutCacheOfAMissingFile_IsFalse) {
    CKV2D_IniFile ini;
    EXPECT_FALSE(OpenLocalLineIni(ini, L"PID", kDrawing, 12, false));
    EXPECT_FALSE(HasFile(m_strFile));
}

class LocalLineWithoutFolderTest : public MemorySystemTest {};

// A project without the folder in its settings keeps its files in the root of the current drive.
TEST_F(LocalLineWithoutFolderTest, CreateLocalLine_UsesTheRootOfTheCurrentDrive) {
    ADatabase(*this).WithProject(12, "Pump");
    int nId = 0;
    std::wstring strName;
    EXPECT_EQ(GetLocalLineIniPath(L"Plant1.dwg", L"PID", 12), L"\\PID_12_Plant1line.ini");
    EXPECT_EQ(CreateLocalLine(12, L"PID", L"Plant1.dwg", nId, strName), kLineOk);
    EXPECT_EQ(nId, 1);
    EXPECT_TRUE(HasFile(L"C:\\LineDatafile.ini"));
    EXPECT_TRUE(HasFile(L"C:\\PID_12_Plant1line.ini"));
}

TEST_F(LocalLineWithoutFolderTest, CreateLocalLineIni_OfAProjectThatDoesNotResolve_WritesNothing) {
    ADatabase(*this).WithProject(12, "Pump");
    EXPECT_EQ(CreateLocalLineIni(13, L"PID", L"Plant1.dwg", {L"B"}), L"");
    EXPECT_EQ(GetMemory().log.GetCount(L"WriteBytes"), 0u);
}

}  // namespace
