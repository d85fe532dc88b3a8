#include "database/line_list.h"

#include <gmock/gmock.h>

#include "a_database.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LineListTest : public SystemTest {
  protected:
    int FetchLines(int nProjectId, bool bLive = true, bool bDeleted = true, bool bUseCache = false) {
        return GetLineList(nProjectId, m_anIds, m_astrNames, m_abFlags, bLive, bDeleted, false, bUseCache);
    }

    std::vector<int> m_anIds{99};
    std::vector<std::wstring> m_astrNames{L"left over"};
    std::vector<bool> m_abFlags{true, false};
    int m_nId = 99;
    std::wstring m_strName = L"left over";
};

TEST_F(LineListTest, GetLineErrorText_HasAWordForEveryCode) {
    EXPECT_EQ(GetLineErrorText(kLineOk), L"Ok");
    EXPECT_EQ(GetLineErrorText(kLineCannotCreate), L"Can't create new line");
    EXPECT_EQ(GetLineErrorText(kLineNotFound), L"Can't find line");
    EXPECT_EQ(GetLineErrorText(kLineCannotOpenDatafile), L"Can't open line datafile");
    EXPECT_EQ(GetLineErrorText(kLineInvalidName), L"Invalid name");
    EXPECT_EQ(GetLineErrorText(kLineInvalidId), L"Invalid line id");
    EXPECT_EQ(GetLineErrorText(kLineInvalidProjectId), L"Invalid project id");
    EXPECT_EQ(GetLineErrorText(kLineAlreadyExists), L"Line already exists");
    EXPECT_EQ(GetLineErrorText(kLineIsDeleted), L"Line is deleted");
    EXPECT_EQ(GetLineErrorText(9), L"Unknown error");
    EXPECT_EQ(GetLineErrorText(-1), L"Unknown error");
}

TEST_F(LineListTest, LineKeyFromId_OfNoLine_IsEmpty) {
    EXPECT_EQ(LineKeyFromId(17), L"KV2D_LINE_17");
    EXPECT_EQ(LineKeyFromId(0), L"");
    EXPECT_EQ(LineKeyFromId(-1), L"");
}

TEST_F(LineListTest, ValidateLineName_TrimsBlanksButNotTabs) {
    for (const auto& [strGiven, strExpected, nCode] : {std::tuple{L" A ", L"A", kLineOk},
                                                       {L"A b", L"A b", kLineOk},
                                                       {L"", L"", kLineInvalidName},
                                                       {L"   ", L"", kLineInvalidName},
                                                       {L"-", L"-", kLineInvalidName},
                                                       {L" - ", L"-", kLineInvalidName},
                                                       {L"--", L"--", kLineOk},
                                                       {L"\t", L"\t", kLineOk}}) {
        std::wstring strName = strGiven;
        EXPECT_EQ(ValidateLineName(strName), nCode) << strExpected;
        EXPECT_EQ(strName, strExpected);
    }
}

TEST_F(LineListTest, LineIdFromKey_OfAKey_NeedsNoFile) {
    EXPECT_EQ(LineIdFromKey(0, L"KV2D_LINE_17", false, false), 17);
    EXPECT_EQ(LineIdFromKey(0, L"x kv2d_line_17 y", true, false), 17);
    EXPECT_EQ(LineIdFromKey(0, L"KV2D_LINE_", true, false), 0);
}

TEST_F(LineListTest, LineIdFromKey_OfAName_IgnoresLetterCase) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 3, "Steam").WithLine(5, 4, "Water");
    EXPECT_EQ(LineIdFromKey(5, L"wATER", true, false), 4);
    EXPECT_EQ(LineIdFromKey(5, L"wATER", false, false), 0);
    EXPECT_EQ(LineIdFromKey(5, L"Oil", true, false), 0);
}

TEST_F(LineListTest, LineIdFromKey_OfADeletedLinesName_IsZero) {
    ADatabase(*this).WithProject(5, "Pump").WithDeletedLine(5, 3, "Steam");
    EXPECT_EQ(LineIdFromKey(5, L"Steam", true, false), 0);
}

TEST_F(LineListTest, LineIdFromKey_Eval_IsTheFirstLineOfTheListWhateverItsName) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithLine(5, 3, "Water")
        .WithLine(5, 4, "Steam")
        .WithLine(5, 5, "eval");
    EXPECT_EQ(LineIdFromKey(5, L"Eval", true, false), 4);
    EXPECT_EQ(LineIdFromKey(5, L"EVAL", true, false), 4);
    EXPECT_EQ(LineIdFromKey(5, L"Eval", false, false), 0);
}

TEST_F(LineListTest, LineIdFromKey_OfANameInAnEmptyList_IsZero) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(LineIdFromKey(5, L"Eval", true, false), 0);
    EXPECT_EQ(LineIdFromKey(0, L"Eval", true, false), 0);
}

TEST_F(LineListTest, LineIdFromKey_TwoNamesThatDifferInLetterCase_GivesTheFirstInNameOrder) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 3, "line 1").WithLine(5, 4, "Line 1");
    EXPECT_EQ(LineIdFromKey(5, L"line 1", true, false), 4);
}

TEST_F(LineListTest, LineIdFromKey_WithCache_MakesTheFileTheCachedOne) {
    ADatabase database(*this);
    database.WithProject(5, "Pump").WithLine(5, 3, "Steam");
    EXPECT_EQ(LineIdFromKey(5, L"Steam", true, true), 3);
    database.WithLine(5, 4, "Water");
    EXPECT_EQ(LineIdFromKey(5, L"Water", true, true), 0);
    EXPECT_EQ(LineIdFromKey(5, L"Water", true, false), 4);
}

TEST_F(LineListTest, FindLineKeyByName_ComparesLetterCase) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 3, "Steam").WithDeletedLine(5, 4, "Water");
    CKV2D_IniFile ini;
    ASSERT_EQ(ini.Open(GetLinesIniPath(5)), kIniDone);
    EXPECT_EQ(FindLineKeyByName(ini, L"Steam", true, true), L"KV2D_LINE_3");
    EXPECT_EQ(ini.GetSection(), L"LineList");
    EXPECT_EQ(FindLineKeyByName(ini, L"steam", true, true), L"");
    EXPECT_EQ(FindLineKeyByName(ini, L"Water", true, false), L"");
    EXPECT_EQ(FindLineKeyByName(ini, L"Water", true, true), L"KV2D_LINE_4");
    EXPECT_EQ(ini.GetSection(), L"DeletedLines");
    EXPECT_EQ(FindLineKeyByName(ini, L"Steam", false, false), L"");
}

TEST_F(LineListTest, GetLineNameById_LeavesTheSectionInWhichTheLineStands) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 3, "Steam").WithDeletedLine(5, 4, "Water");
    CKV2D_IniFile ini;
    ASSERT_EQ(ini.Open(GetLinesIniPath(5)), kIniDone);
    EXPECT_EQ(GetLineNameById(ini, 3, true, true), L"Steam");
    EXPECT_EQ(ini.GetSection(), L"LineList");
    EXPECT_EQ(GetLineNameById(ini, 4, true, true), L"Water");
    EXPECT_EQ(ini.GetSection(), L"DeletedLines");
    EXPECT_EQ(GetLineNameById(ini, 4, true, false), L"");
    EXPECT_EQ(GetLineNameById(ini, 9, true, true), L"");
}

TEST_F(LineListTest, GetLineList_MixesLiveAndDeletedLinesInNameOrder) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "c").WithLine(5, 2, "A").WithDeletedLine(5, 3,
                                                                                                    "b");
    EXPECT_EQ(FetchLines(5), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"A", L"b", L"c"));
    EXPECT_THAT(m_anIds, ElementsAre(2, 3, 1));
    EXPECT_THAT(m_abFlags, ElementsAre(true, false, true));
}

TEST_F(LineListTest, GetLineList_LiveOrDeletedOnly) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "c").WithDeletedLine(5, 3, "b");
    EXPECT_EQ(FetchLines(5, true, false), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(1));
    EXPECT_EQ(FetchLines(5, false, true), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(3));
    EXPECT_THAT(m_abFlags, ElementsAre(false));
}

TEST_F(LineListTest, GetLineList_BothFlagsFalse_IsEmptyEvenForProjectZero) {
    EXPECT_EQ(FetchLines(0, false, false), kLineOk);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
    EXPECT_THAT(m_abFlags, IsEmpty());
}

TEST_F(LineListTest, GetLineList_OfIdBelowOne_IsInvalidAndEmpties) {
    EXPECT_EQ(FetchLines(0), kLineInvalidProjectId);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_EQ(FetchLines(-5, false, true), kLineInvalidProjectId);
    EXPECT_THAT(m_abFlags, IsEmpty());
}

TEST_F(LineListTest, GetLineList_OfAnUnknownProject_CannotOpenAndEmpties) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(FetchLines(6), kLineCannotOpenDatafile);
    EXPECT_THAT(m_astrNames, IsEmpty());
}

TEST_F(LineListTest, GetLineList_WithoutLinesIni_HasNoLines) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(FetchLines(5), kLineOk);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_FALSE(HasFile(GetLinesIniPath(5)));
}

TEST_F(LineListTest, GetLineList_OfAnEvaluationRun_IsOnePseudoLine) {
    EXPECT_EQ(GetLineList(0, m_anIds, m_astrNames, m_abFlags, false, false, true, false), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(1));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Eval"));
    EXPECT_THAT(m_abFlags, ElementsAre(true));
}

TEST_F(LineListTest, GetLineList_KeyWithoutItsPrefix_KeepsItsRowWithIdZero) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithProjectFileRow(5, L"Lines.ini", "LineList", "Water = Steam")
        .WithProjectFileRow(5, L"Lines.ini", "LineList", "eval = b")
        .WithLine(5, 7, "Water");
    EXPECT_EQ(FetchLines(5), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(0, 7, 0));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam", L"Water", L"b"));
}

TEST_F(LineListTest, CreateLine_OnAnEmptyDatabase_IsLineOne) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_nId, 1);
    EXPECT_EQ(m_strName, L"Line 1");
    EXPECT_EQ(GetBytes(InData(L"LineDatafile.ini")), Lines({"[General]", "LastLineId = 1"}));
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)), Lines({"[LineList]", "KV2D_LINE_1 = Line 1"}));
}

TEST_F(LineListTest, CreateLine_DefaultNameTaken_TakesTheNextNumberForTheNameOnly) {
    ADatabase(*this).WithProject(5, "Pump").WithLastLineId(4).WithLine(5, 2, "Line 5");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_nId, 5);
    EXPECT_EQ(m_strName, L"Line 6");
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)),
              Lines({"[LineList]", "KV2D_LINE_2 = Line 5", "KV2D_LINE_5 = Line 6"}));
}

TEST_F(LineListTest, CreateLine_DefaultNameOfADeletedLine_IsTakenToo) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithLastLineId(4)
        .WithDeletedLine(5, 2, "Line 5")
        .WithLine(5, 3, "Line 6");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_strName, L"Line 7");
}

TEST_F(LineListTest, CreateLine_NamesThatOnlyLookLikeDefaultNames_TakeNoNumber) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithLastLineId(4)
        .WithLine(5, 1, "Line 5")
        .WithLine(5, 2, "Line 06")
        .WithLine(5, 3, "Line 6 ")
        .WithLine(5, 4, "Line +6");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_strName, L"Line 6");
}

TEST_F(LineListTest, CreateLine_NumbersTakenInAnyOrderAndInBothSections_FindsTheFirstGap) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithLastLineId(4)
        .WithLine(5, 1, "Line 9")
        .WithDeletedLine(5, 2, "Line 6")
        .WithLine(5, 3, "Line 5")
        .WithLine(5, 40, "Line 3")
        .WithDeletedLine(5, 41, "Line 7")
        .WithLine(5, 42, "Line 999999999999999999999");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_strName, L"Line 8");
}

TEST_F(LineListTest, CreateLine_DefaultNameInOtherLetterCase_IsFree) {
    ADatabase(*this).WithProject(5, "Pump").WithLastLineId(4).WithLine(5, 2, "line 5");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_strName, L"Line 5");
}

TEST_F(LineListTest, CreateLine_DefaultNameOfARowWithoutKey_IsFreeWhoeverElseBearsIt) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithLastLineId(4)
        .WithProjectFileRow(5, L"Lines.ini", "LineList", " = Line 6")
        .WithLine(5, 2, "Line 5")
        .WithLine(5, 3, "Line 6");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_strName, L"Line 6");
}

TEST_F(LineListTest, CreateLine_OneCounterServesAllProjects) {
    ADatabase(*this).WithProject(5, "Pump").WithProject(6, "Tank");
    CreateLine(5, m_nId, m_strName);
    CreateLine(6, m_nId, m_strName);
    EXPECT_EQ(m_nId, 2);
    EXPECT_EQ(m_strName, L"Line 2");
}

TEST_F(LineListTest, CreateLine_CounterLost_ReplacesTheRowOfTheId) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Line 1").WithLine(5, 2, "Steam");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_nId, 1);
    EXPECT_EQ(m_strName, L"Line 2");
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)),
              Lines({"[LineList]", "KV2D_LINE_1 = Line 2", "KV2D_LINE_2 = Steam"}));
}

TEST_F(LineListTest, CreateLine_CounterAtTheLargestNumber_DoesNotCrash) {
    ADatabase(*this).WithProject(5, "Pump").WithLastLineId(2147483647).WithLine(5, 3, "Steam");
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(m_nId, -2147483647 - 1);
    EXPECT_EQ(FetchLines(5), kLineOk);
    EXPECT_THAT(m_anIds, ElementsAre(0, 3));
}

TEST_F(LineListTest, CreateLine_OfIdBelowOne_IsInvalidAndEmpties) {
    ADatabase database(*this);
    EXPECT_EQ(CreateLine(0, m_nId, m_strName), kLineInvalidProjectId);
    EXPECT_EQ(m_nId, 0);
    EXPECT_EQ(m_strName, L"");
    EXPECT_FALSE(HasFile(InData(L"LineDatafile.ini")));
}

TEST_F(LineListTest, CreateLine_WithoutDataFolder_CannotOpenAndEmpties) {
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineCannotOpenDatafile);
    EXPECT_EQ(m_nId, 0);
    EXPECT_EQ(m_strName, L"");
}

TEST_F(LineListTest, CreateLine_LinesIniHeldByAnotherProcess_UsesUpTheIdAndLeavesTheFile) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Steam");
    const std::string strBefore = GetBytes(GetLinesIniPath(5));
    const auto held = HoldFile(GetLinesIniPath(5), platform::Hold::kReading);
    EXPECT_EQ(CreateLine(5, m_nId, m_strName), kLineOk);
    EXPECT_EQ(GetBytes(InData(L"LineDatafile.ini")), Lines({"[General]", "LastLineId = 1"}));
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)), strBefore);
}

TEST_F(LineListTest, RenameLine_StoresTheTrimmedName) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Line 1").WithLine(5, 2, "Line 2");
    EXPECT_EQ(RenameLine(5, 2, L" A "), kLineOk);
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)), Lines({"[LineList]", "KV2D_LINE_1 = Line 1", "KV2D_LINE_2 = A"}));
}

TEST_F(LineListTest, RenameLine_ToNothingOrAHyphen_IsInvalid) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Line 1");
    const std::string strBefore = GetBytes(GetLinesIniPath(5));
    for (const wchar_t* pszName : {L"", L"-", L"   ", L" - "})
        EXPECT_EQ(RenameLine(5, 1, pszName), kLineInvalidName);
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)), strBefore);
}

TEST_F(LineListTest, RenameLine_ToTheNameOfALiveLine_AlreadyExists) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithLine(5, 1, "Steam")
        .WithLine(5, 2, "Water")
        .WithDeletedLine(5, 3, "Steam");
    EXPECT_EQ(RenameLine(5, 2, L"Steam"), kLineAlreadyExists);
    EXPECT_EQ(RenameLine(5, 2, L"steam"), kLineOk);
}

TEST_F(LineListTest, RenameLine_ToItsPresentName_AlreadyExists) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Steam");
    EXPECT_EQ(RenameLine(5, 1, L" Steam "), kLineAlreadyExists);
}

TEST_F(LineListTest, RenameLine_ToNameOfDeletedLine_IsRefusedAsDeleted) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Steam").WithDeletedLine(5, 2, "Water");
    EXPECT_EQ(RenameLine(5, 1, L"Water"), kLineIsDeleted);
}

TEST_F(LineListTest, RenameLine_OfADeletedLine_RenamesItWhereItStands) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Steam").WithDeletedLine(5, 2, "Water");
    EXPECT_EQ(RenameLine(5, 2, L"Oil"), kLineOk);
    EXPECT_EQ(GetBytes(GetLinesIniPath(5)),
              Lines({"[DeletedLines]", "KV2D_LINE_2 = Oil", "", "[LineList]", "KV2D_LINE_1 = Steam"}));
}

TEST_F(LineListTest, RenameLine_OfAnUnknownLine_IsNotFound) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Steam");
    EXPECT_EQ(RenameLine(5, 2, L"Oil"), kLineNotFound);
    EXPECT_EQ(RenameLine(5, 2, L"Steam"), kLineAlreadyExists);  // the names are looked at first
}

TEST_F(LineListTest, RenameLine_TestsInOrder) {
    EXPECT_EQ(RenameLine(0, 0, L"-"), kLineInvalidProjectId);
    EXPECT_EQ(RenameLine(5, 0, L"-"), kLineInvalidId);
    EXPECT_EQ(RenameLine(5, 1, L"-"), kLineInvalidName);
    EXPECT_EQ(RenameLine(5, 1, L"A"), kLineCannotOpenDatafile);
}

TEST_F(LineListTest, RenameLine_WithoutLinesIni_CannotOpenAndCreatesNothing) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(RenameLine(5, 1, L"A"), kLineCannotOpenDatafile);
    EXPECT_FALSE(HasFile(GetLinesIniPath(5)));
}

TEST_F(LineListTest, RenameLine_NameWithPercentAndEqualSign_ComesBackAsItIs) {
    ADatabase(*this).WithProject(5, "Pump").WithLine(5, 1, "Line 1");
    EXPECT_EQ(RenameLine(5, 1, L"100%s = [x]"), kLineOk);
    FetchLines(5);
    EXPECT_THAT(m_astrNames, ElementsAre(L"100%s = [x]"));
}

class LineCacheTest : public LineListTest {};

TEST_F(LineCacheTest, GetLineList_WithCache_ShowsTheOldRowsUntilAReload) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithLine(3, 1, "Steam");
    FetchLines(3, true, true, true);
    database.WithLine(3, 2, "Water");
    EXPECT_EQ(FetchLines(3, true, true, true), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
    EXPECT_TRUE(ReloadProjectLineCache());
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam", L"Water"));
}

TEST_F(LineCacheTest, GetLineList_WithoutCache_LeavesTheCacheAlone) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithLine(3, 1, "Steam");
    FetchLines(3, true, true, true);
    database.WithLine(3, 2, "Water");
    FetchLines(3, true, true, false);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam", L"Water"));
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
}

TEST_F(LineCacheTest, GetLineList_OfAnotherProject_ReplacesTheCachedOne) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithProject(4, "Tank").WithLine(3, 1, "Steam").WithLine(4, 2, "Water");
    FetchLines(3, true, true, true);
    FetchLines(4, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Water"));
    database.WithLine(3, 5, "Oil");
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Oil", L"Steam"));
}

TEST_F(LineCacheTest, GetLineList_FileThatCannotBeOpened_LeavesTheCacheAlone) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithProject(4, "Tank").WithLine(3, 1, "Steam");
    FetchLines(3, true, true, true);
    EXPECT_EQ(FetchLines(4, true, true, true), kLineOk);
    EXPECT_THAT(m_anIds, IsEmpty());
    database.WithLine(3, 2, "Water");
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
}

TEST_F(LineCacheTest, ReloadProjectLineCache_WithNothingCached_IsFalse) {
    ADatabase(*this).WithProject(3, "Pump").WithLine(3, 1, "Steam");
    EXPECT_FALSE(ReloadProjectLineCache());
}

TEST_F(LineCacheTest, ReloadProjectLineCache_FileGone_KeepsTheRows) {
    ADatabase(*this).WithProject(3, "Pump").WithLine(3, 1, "Steam");
    FetchLines(3, true, true, true);
    platform::GetFiles().Remove(GetLinesIniPath(3));
    EXPECT_FALSE(ReloadProjectLineCache());
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
}

TEST_F(LineCacheTest, CreateAndRename_SeeTheFileAsItIs) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithLine(3, 1, "Steam");
    FetchLines(3, true, true, true);
    database.WithLine(3, 2, "Water").WithLastLineId(2);
    CreateLine(3, m_nId, m_strName);
    EXPECT_EQ(RenameLine(3, m_nId, L"Water"), kLineAlreadyExists);
    EXPECT_EQ(GetBytes(GetLinesIniPath(3)),
              Lines({"[LineList]", "KV2D_LINE_1 = Steam", "KV2D_LINE_2 = Water", "KV2D_LINE_3 = Line 3"}));
}

TEST_F(LineCacheTest, OpenProjectLineIni_OfACachedProject_GivesACopy) {
    ADatabase(*this).WithProject(3, "Pump").WithLine(3, 1, "Steam");
    const std::string strBefore = GetBytes(GetLinesIniPath(3));
    {
        CKV2D_IniFile first, second;
        EXPECT_TRUE(OpenProjectLineIni(first, 3, true));
        EXPECT_TRUE(OpenProjectLineIni(second, 3, true));
        EXPECT_EQ(second.GetRowCount(), 1u);
    }
    EXPECT_EQ(GetBytes(GetLinesIniPath(3)), strBefore);
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
}

TEST_F(LineCacheTest, ProjectRenamedWhileItsLinesAreCached_ReloadsFromTheRenamedFolder) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithLine(3, 1, "Steam");
    FetchLines(3, true, true, true);
    PutFile(InData(L"ProjectDatafile.ini"), Lines({"[ProjectList]", "KV2D_PRJ_3 = Tank"}));
    EXPECT_EQ(FetchLines(3, true, true, true), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
    EXPECT_TRUE(HasFolder(InData(L"Projects\\KV2D_PRJ_3 - Tank")));
    EXPECT_FALSE(HasFolder(InData(L"Projects\\KV2D_PRJ_3 - Pump")));

    EXPECT_EQ(CreateLine(3, m_nId, m_strName), kLineOk);
    EXPECT_TRUE(ReloadProjectLineCache());
    FetchLines(3, true, true, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Line 1"));  // the lost counter gave id 1 again
    EXPECT_EQ(GetBytes(InData(L"Projects\\KV2D_PRJ_3 - Tank\\Lines.ini")),
              Lines({"[LineList]", "KV2D_LINE_1 = Line 1"}));
}

TEST_F(LineCacheTest, LinesOfADeletedProject_StillResolve) {
    ADatabase database(*this);
    database.WithProject(3, "Pump").WithLine(3, 1, "Steam");
    PutFile(InData(L"ProjectDatafile.ini"), Lines({"[DeletedProjects]", "KV2D_PRJ_3 = Pump"}));
    EXPECT_EQ(FetchLines(3), kLineOk);
    EXPECT_THAT(m_astrNames, ElementsAre(L"Steam"));
    EXPECT_EQ(RenameLine(3, 1, L"Water"), kLineOk);
}

}  // namespace
