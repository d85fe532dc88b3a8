#include "database/project_general.h"

#include <gmock/gmock.h>

#include "a_database.h"
#include "platform/invalid_argument.h"
#include "storage/applications.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr platform::Guid kGuid = {0x0123ABCD, 0x4567, 0x89EF, {1, 2, 3, 4, 5, 6, 0xAB, 0xFF}};

class ProjectGeneralTest : public SystemTest {};

TEST_F(ProjectGeneralTest, Load_ReadsEveryMember) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "Units", "Working = 0")
        .WithGeneral(5, "Units", "Displayed = 3")
        .WithGeneral(5, "Units", "RatingsFormat = 7")
        .WithGeneral(5, "General", "ProjectGuid = 0123ABCD-4567-89EF-0102-03040506ABFF")
        .WithGeneral(5, "General", "LocalLineIni = 1")
        .WithGeneral(5, "General", "BordersLocation = s:\\borders")
        .WithGeneral(5, "General", "TemplatesLocation = s:\\templates")
        .WithGeneral(5, "General", "LibrariesLocation = s:\\libraries")
        .WithGeneral(5, "General", "LocalLineIniPath = s:\\lines")
        .WithGeneral(5, "General", "ProjectVersion = 2020")
        .WithGeneral(5, "Drawings Location", "ELECTRIC = s:\\e")
        .WithGeneral(5, "Drawings Location", "PID = s:\\p")
        .WithGeneral(5, "Drawings Location", "ISOMETRIC = s:\\i")
        .WithGeneral(5, "Drawings Location", "ORTHO = s:\\o\\");
    const CKV2D_ProjectGeneral general(5);
    EXPECT_EQ(general.m_nReserved, 0);
    EXPECT_EQ(general.m_nProjectId, 5);
    EXPECT_EQ(general.m_nWorkingUnits, 0);
    EXPECT_EQ(general.m_nDisplayedUnits, 3);
    EXPECT_EQ(general.m_nRatingsFormat, 7);
    EXPECT_EQ(general.m_ProjectGuid, kGuid);
    EXPECT_TRUE(general.m_bLocalLineIni);
    EXPECT_EQ(general.m_strBordersLocation, L"s:\\borders");
    EXPECT_EQ(general.m_strTemplatesLocation, L"s:\\templates");
    EXPECT_EQ(general.m_strLibrariesLocation, L"s:\\libraries");
    EXPECT_EQ(general.m_strLocalLineIniPath, L"s:\\lines");
    EXPECT_EQ(general.m_nProjectVersion, 2020);
    EXPECT_THAT(general.m_strDrawingsLocation, ElementsAre(L"s:\\e", L"s:\\p", L"s:\\i", L"s:\\o\\"));
    EXPECT_EQ(general.GetDrawingsLocation(1), L"s:\\e\\");
    EXPECT_EQ(general.GetDrawingsLocation(4), L"s:\\o\\");
}

TEST_F(ProjectGeneralTest, Load_MissingKeys_TakeTheirDefaults) {
    ADatabase(*this).WithProject(5, "Pump").WithGeneral(5, "General",
                                                        "ProjectGuid = 0123ABCD-4567-89EF-0102-03040506ABFF");
    const CKV2D_ProjectGeneral general(5);
    EXPECT_EQ(general.m_nWorkingUnits, 1);
    EXPECT_EQ(general.m_nDisplayedUnits, 2);
    EXPECT_EQ(general.m_nRatingsFormat, 1);
    EXPECT_FALSE(general.m_bLocalLineIni);
    EXPECT_EQ(general.m_strBordersLocation, L"");
    EXPECT_EQ(general.m_strTemplatesLocation, L"");
    EXPECT_EQ(general.m_strLibrariesLocation, InData(L"Libraries\\"));
    EXPECT_EQ(general.m_strLocalLineIniPath, L"");
    EXPECT_EQ(general.m_nProjectVersion, 2015);
    EXPECT_EQ(general.GetDrawingsLocation(2), L"");
}

TEST_F(ProjectGeneralTest, Load_Version2015_ReadsTheOlderWords) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "General", "ProjectVersion = 2015")
        .WithGeneral(5, "Drawings Location", "PID = s:\\new")
        .WithGeneral(5, "Drawings Location", "Electric = s:\\e")
        .WithGeneral(5, "Drawings Location", "Flow = s:\\old")
        .WithGeneral(5, "Drawings Location", "Iso = s:\\i")
        .WithGeneral(5, "Drawings Location", "Ortho = s:\\o");
    EXPECT_THAT(CKV2D_ProjectGeneral(5).m_strDrawingsLocation,
                ElementsAre(L"s:\\e", L"s:\\old", L"s:\\i", L"s:\\o"));
}

TEST_F(ProjectGeneralTest, Load_Version2016_ReadsTheNewWordsOnly) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "General", "ProjectVersion = 2016")
        .WithGeneral(5, "Drawings Location", "PID = s:\\new")
        .WithGeneral(5, "Drawings Location", "Flow = s:\\old")
        .WithGeneral(5, "Drawings Location", "Iso = s:\\i");
    EXPECT_THAT(CKV2D_ProjectGeneral(5).m_strDrawingsLocation, ElementsAre(L"", L"s:\\new", L"", L""));
}

TEST_F(ProjectGeneralTest, Load_VersionMissing_CountsAs2015) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "Drawings Location", "PID = s:\\new")
        .WithGeneral(5, "Drawings Location", "Flow = s:\\old");
    EXPECT_EQ(CKV2D_ProjectGeneral(5).GetDrawingsLocation(2), L"s:\\old\\");
}

TEST_F(ProjectGeneralTest, GetDrawingsLocation_OfNoDiscipline_IsEmpty) {
    ADatabase(*this).WithProject(5, "Pump").WithGeneral(5, "Drawings Location", "Ortho = s:\\o");
    const CKV2D_ProjectGeneral general(5);
    for (int nApp : {-1, 0, 5, 11, 1000})
        EXPECT_EQ(general.GetDrawingsLocation(nApp), L"") << nApp;
}

class ProjectGuidTest : public MemorySystemTest {
  protected:
    ProjectGuidTest() { GetMemory().guids.SetNext(kGuid); }
};

TEST_F(ProjectGuidTest, Load_WithoutGuid_WritesOneAndSortsTheFile) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "Units", "Working = 0")
        .WithGeneral(5, "General", "ProjectVersion = 2016")
        .WithGeneral(5, "General", "LocalLineIni = 0");
    const CKV2D_ProjectGeneral first(5);
    EXPECT_EQ(first.m_ProjectGuid, kGuid);
    const std::string strBytes = GetBytes(GetGeneralIniPath(5));
    EXPECT_EQ(strBytes,
              Lines({"[General]", "LocalLineIni = 0", "ProjectGuid = 0123ABCD-4567-89EF-0102-03040506ABFF",
                     "ProjectVersion = 2016", "", "[Units]", "Working = 0"}));
    EXPECT_EQ(CKV2D_ProjectGeneral(5).m_ProjectGuid, first.m_ProjectGuid);
    EXPECT_EQ(GetBytes(GetGeneralIniPath(5)), strBytes);
}

TEST_F(ProjectGuidTest, Load_WithoutFile_CreatesItWithTheGuidAlone) {
    ADatabase(*this).WithProject(5, "Pump");
    CKV2D_ProjectGeneral general(0);
    EXPECT_TRUE(general.Load(5));
    EXPECT_EQ(general.m_nWorkingUnits, 1);
    EXPECT_EQ(GetBytes(GetGeneralIniPath(5)),
              Lines({"[General]", "ProjectGuid = 0123ABCD-4567-89EF-0102-03040506ABFF"}));
}

TEST_F(ProjectGeneralTest, Load_WithGuid_LeavesTheFileByteForByte) {
    const std::string strUnsorted =
        "[Units]\r\nWorking = 0\r\n[General]\r\nProjectGuid = 0123ABCD-4567-89EF-0102-03040506ABFF\r\n; "
        "note\r\n";
    ADatabase(*this).WithProject(5, "Pump");
    PutFile(GetGeneralIniPath(5), strUnsorted);
    EXPECT_EQ(CKV2D_ProjectGeneral(5).m_ProjectGuid, kGuid);
    EXPECT_EQ(GetBytes(GetGeneralIniPath(5)), strUnsorted);
}

TEST_F(ProjectGeneralTest, Load_OfAnUnknownProject_HasNoUnitsAndNoVersion) {
    ADatabase(*this).WithProject(5, "Pump").WithGeneral(5, "General", "BordersLocation = s:\\borders");
    CKV2D_ProjectGeneral general(5);
    EXPECT_FALSE(general.Load(6));
    EXPECT_EQ(general.m_nProjectId, 6);
    EXPECT_EQ(general.m_nWorkingUnits, -1);
    EXPECT_EQ(general.m_nDisplayedUnits, -1);
    EXPECT_EQ(general.m_nProjectVersion, 0);
    EXPECT_EQ(general.m_nRatingsFormat, 0);
    EXPECT_EQ(general.m_ProjectGuid, platform::Guid());
}

TEST_F(ProjectGeneralTest, Load_OfIdBelowOne_LeavesTheOtherMembers) {
    ADatabase(*this).WithProject(5, "Pump").WithGeneral(5, "Units", "Working = 0");
    CKV2D_ProjectGeneral general(5);
    EXPECT_FALSE(general.Load(0));
    EXPECT_EQ(general.m_nProjectId, 0);
    EXPECT_EQ(general.m_nWorkingUnits, 0);
    EXPECT_EQ(general.m_nDisplayedUnits, 2);
    EXPECT_NE(general.m_ProjectGuid, platform::Guid());
}

TEST_F(ProjectGeneralTest, GetProjectFileWord_OfNoDiscipline_IsTheApplicationsName) {
    EXPECT_EQ(GetProjectFileWord(2, 2016), L"PID");
    EXPECT_EQ(GetProjectFileWord(2, 2015), L"Flow");
    EXPECT_EQ(GetProjectFileWord(99, 2016), L"");
}

TEST_F(ProjectGeneralTest, Load_WhenTheFileCannotBeWritten_StillGivesAGuid) {
    ADatabase(*this).WithProject(5, "Pump").WithGeneral(5, "Units", "Working = 0");
    const std::string strBefore = GetBytes(GetGeneralIniPath(5));
    const auto held = HoldFile(GetGeneralIniPath(5), platform::Hold::kReading);
    EXPECT_NE(CKV2D_ProjectGeneral(5).m_ProjectGuid, platform::Guid());
    EXPECT_EQ(GetBytes(GetGeneralIniPath(5)), strBefore);
}

class DrawingFilesTest : public SystemTest {
  protected:
    std::vector<std::wstring> m_astrNames{L"left over"};
    std::vector<std::wstring> m_astrSizes{L"left over"};
    std::vector<std::wstring> m_astrDates{L"left over"};
    std::wstring m_strSize = L"left over";
    std::wstring m_strDate = L"left over";
};

TEST_F(DrawingFilesTest, ListDrawings_GivesTitlesWithoutExtension) {
    PutFile(InRoot(L"a.dwg"), std::string(5000, 'x'));
    PutFile(InRoot(L"Plant.rev2.DWG"), "");
    PutFile(InRoot(L"a.bak"), "");
    PutFile(InRoot(L"a.txt"), "");
    ListDrawings(GetRoot(), m_astrNames, m_astrSizes, m_astrDates, false);
    EXPECT_THAT(m_astrNames, UnorderedElementsAre(L"a", L"Plant.rev2"));
    EXPECT_THAT(m_astrSizes, UnorderedElementsAre(L"4 KB", L"0 KB"));
    EXPECT_EQ(m_astrDates.size(), 2u);
}

TEST_F(DrawingFilesTest, ListDrawings_OfBackups) {
    PutFile(InRoot(L"a.bak"), "");
    PutFile(InRoot(L"b.dwg"), "");
    ListDrawings(GetRoot(), m_astrNames, m_astrSizes, m_astrDates, true);
    EXPECT_THAT(m_astrNames, ElementsAre(L"a"));
}

TEST_F(DrawingFilesTest, ListDrawings_FolderWithoutBackslash_IsTheSame) {
    PutFile(InRoot(L"sub\\a.dwg"), "");
    ListDrawings(InRoot(L"sub"), m_astrNames, m_astrSizes, m_astrDates, false);
    EXPECT_THAT(m_astrNames, ElementsAre(L"a"));
}

TEST_F(DrawingFilesTest, ListDrawings_FoldersNamedLikeDrawings_AreLeftOut) {
    PutFolder(InRoot(L"x.dwg"));
    ListDrawings(GetRoot(), m_astrNames, m_astrSizes, m_astrDates, false);
    EXPECT_THAT(m_astrNames, IsEmpty());
    EXPECT_THAT(m_astrSizes, IsEmpty());
    EXPECT_THAT(m_astrDates, IsEmpty());
}

TEST_F(DrawingFilesTest, ListDrawings_OfAFolderThatDoesNotExist_IsEmpty) {
    ListDrawings(InRoot(L"nowhere"), m_astrNames, m_astrSizes, m_astrDates, false);
    EXPECT_THAT(m_astrNames, IsEmpty());
    EXPECT_THAT(m_astrSizes, IsEmpty());
    EXPECT_THAT(m_astrDates, IsEmpty());
}

TEST_F(DrawingFilesTest, GetFileSizeAndDate_CountsFullKilobytes) {
    for (const auto& [nBytes, strExpected] : {std::pair{1023u, L"0 KB"},
                                              {1024u, L"1 KB"},
                                              {0u, L"0 KB"},
                                              {2047u, L"1 KB"},
                                              {1048576u, L"1024 KB"}}) {
        PutFile(InRoot(L"a.dwg"), std::string(nBytes, 'x'));
        EXPECT_TRUE(GetFileSizeAndDate(InRoot(L"a.dwg"), m_strSize, m_strDate));
        EXPECT_EQ(m_strSize, strExpected);
    }
}

TEST_F(DrawingFilesTest, GetFileSizeAndDate_GivesLocalTimeWithLeadingZeros) {
    PutFile(InRoot(L"a.dwg"), "");
    SetModified(InRoot(L"a.dwg"), platform::ToFileTime({2024, 3, 1, 4, 5, 9}));
    EXPECT_TRUE(GetFileSizeAndDate(InRoot(L"a.dwg"), m_strSize, m_strDate));
    EXPECT_EQ(m_strDate, L"2024-03-01 04:05:09");
}

TEST_F(DrawingFilesTest, GetFileSizeAndDate_OfNoFile_IsFalseAndEmpties) {
    EXPECT_FALSE(GetFileSizeAndDate(InRoot(L"none.dwg"), m_strSize, m_strDate));
    EXPECT_EQ(m_strSize, L"");
    EXPECT_EQ(m_strDate, L"");
}

TEST_F(DrawingFilesTest, GetFileSizeAndDate_TimeWithoutLocalTime_RaisesInvalidArgument) {
    PutFile(InRoot(L"a.dwg"), "");
    SetModified(InRoot(L"a.dwg"), platform::ToFileTime({1960, 1, 1, 0, 0, 0}));
    EXPECT_THROW(GetFileSizeAndDate(InRoot(L"a.dwg"), m_strSize, m_strDate), platform::InvalidArgument);
    EXPECT_THROW(ListDrawings(GetRoot(), m_astrNames, m_astrSizes, m_astrDates, false),
                 platform::InvalidArgument);
}

struct CFrameworkFailure {};

TEST_F(DrawingFilesTest, InvalidArgument_IsThrownByTheInstalledFunction) {
    PutFile(InRoot(L"a.dwg"), "");
    SetModified(InRoot(L"a.dwg"), platform::ToFileTime({1960, 1, 1, 0, 0, 0}));
    platform::SetInvalidArgumentThrower([] { throw CFrameworkFailure(); });
    EXPECT_THROW(GetFileSizeAndDate(InRoot(L"a.dwg"), m_strSize, m_strDate), CFrameworkFailure);
    platform::SetInvalidArgumentThrower([] {});
    EXPECT_THROW(GetFileSizeAndDate(InRoot(L"a.dwg"), m_strSize, m_strDate), platform::InvalidArgument);
    EXPECT_NE(platform::SetInvalidArgumentThrower(nullptr), nullptr);
}

}  // namespace
