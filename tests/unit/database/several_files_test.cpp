// Where several files of the database meet: projects that are renamed, deleted or given to another client
// while their lines, specs and drawings are in use.
#include <gmock/gmock.h>

#include "a_database.h"
#include "database/client_list.h"
#include "database/project_general.h"
#include "database/project_list.h"
#include "database/project_template.h"
#include "database/spec_list.h"
#include "storage/applications.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SeveralFilesTest : public SystemTest {
  protected:
    std::vector<std::wstring> FetchSpecs(int nProjectId) {
        std::vector<int> anIds;
        std::vector<std::wstring> astrNames;
        EXPECT_EQ(GetProjectSpecs(nProjectId, anIds, astrNames), kSpecDone);
        return astrNames;
    }

    std::vector<std::wstring> FetchLines(int nProjectId, bool bUseCache) {
        std::vector<int> anIds;
        std::vector<std::wstring> astrNames;
        std::vector<bool> abFlags;
        EXPECT_EQ(GetLineList(nProjectId, anIds, astrNames, abFlags, true, true, false, bUseCache), kLineOk);
        return astrNames;
    }

    std::vector<std::wstring> FetchLocalLines(int nProjectId,
                                              const std::vector<std::wstring>& astrDrawingLines) {
        std::vector<int> anIds;
        std::vector<std::wstring> astrNames;
        std::vector<bool> abFlags;
        EXPECT_EQ(GetLocalLineList(nProjectId, L"PID", L"c:\\p\\Plant1.dwg", astrDrawingLines, anIds,
                                   astrNames, abFlags, true, true, false, true),
                  kLineOk);
        return astrNames;
    }

    void PutProjects(std::initializer_list<std::string_view> rows) {
        PutFile(InData(L"ProjectDatafile.ini"), Lines(rows));
    }

    std::string Narrow(const std::wstring& strPath) const {
        return std::string(strPath.begin(), strPath.end());
    }
};

TEST_F(SeveralFilesTest, DeletedProject_ItsDrawingsKeepTheirFolderLinesSpecsAndTemplate) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "General", "ProjectVersion = 2016")
        .WithGeneral(5, "Drawings Location", "PID = " + Narrow(InRoot(L"Drawings")))
        .WithProjectFileRow(5, L"PID.ini", "Settings", "Variable 044 = flow")
        .WithLine(5, 1, "Steam")
        .WithLastLineId(1)
        .WithSpec(3, "A")
        .WithEnabledSpec(5, "KV2D_SPEC_3");
    PutFile(InRoot(L"Drawings\\KV2D_PRJ_5\\P-001.dwg"), "");
    PutProjects({"[DeletedProjects]", "KV2D_PRJ_5 = Pump"});

    const int nProjectId = ProjectIdFromKey(InRoot(L"Drawings\\KV2D_PRJ_5\\P-001.dwg"));
    ASSERT_EQ(nProjectId, 5);
    const std::wstring strLocation = CKV2D_ProjectGeneral(nProjectId).GetDrawingsLocation(kAppPid);
    EXPECT_EQ(strLocation, InRoot(L"Drawings\\"));
    std::vector<std::wstring> astrNames, astrSizes, astrDates;
    ListDrawings(strLocation + ProjectKeyFromId(nProjectId), astrNames, astrSizes, astrDates, false);
    EXPECT_THAT(astrNames, ElementsAre(L"P-001"));
    EXPECT_THAT(FetchLines(5, false), ElementsAre(L"Steam"));
    EXPECT_THAT(FetchSpecs(5), ElementsAre(L"A"));
    EXPECT_EQ(GetProjectTemplateName(5, kAppPid), L"flow");
    int nLineId = 0;
    std::wstring strName;
    EXPECT_EQ(CreateLine(5, nLineId, strName), kLineOk);
    EXPECT_THAT(FetchLines(5, false), ElementsAre(L"Line 2", L"Steam"));
    std::vector<int> anIds;
    EXPECT_EQ(GetProjectList(anIds, astrNames, false), kProjectDone);
    EXPECT_THAT(anIds, IsEmpty());
}

TEST_F(SeveralFilesTest, SpecsOfAnotherClientAndOfItsProject_AreNotOfferedThoughSwitchedOn) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithProject(13, "Tank")
        .WithClient(4, "Acme")
        .WithClient(5, "Other")
        .WithClientProject(4, 12)
        .WithClientProject(5, 13)
        .WithSpec(1, "Everyone's")
        .WithSpec(2, "Acme's")
        .WithSpec(3, "Other's")
        .WithSpec(4, "Tank's")
        .WithSpec(5, "Other's and Pump's")
        .WithClientSpec(2, "4")
        .WithClientSpec(3, "5")
        .WithProjectSpec(4, "13")
        .WithClientSpec(5, "5")
        .WithProjectSpec(5, "12")
        .WithEnabledSpec(12, "KV2D_SPEC_1")
        .WithEnabledSpec(12, "KV2D_SPEC_2")
        .WithEnabledSpec(12, "KV2D_SPEC_3")
        .WithEnabledSpec(12, "Tank's")
        .WithEnabledSpec(12, "KV2D_SPEC_5");
    EXPECT_THAT(FetchSpecs(12), ElementsAre(L"Everyone's", L"Acme's"));
}

TEST_F(SeveralFilesTest, ProjectGivenToAnotherClient_IsOfferedThatClientsSpecsAtTheNextCall) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithSpec(2, "Acme's")
        .WithSpec(3, "Other's")
        .WithClientSpec(2, "4")
        .WithClientSpec(3, "5")
        .WithEnabledSpec(12, "KV2D_SPEC_2")
        .WithEnabledSpec(12, "KV2D_SPEC_3");
    const auto putClients = [&](std::string_view section) {
        PutFile(InData(L"ClientDatafile.ini"),
                Lines({"[ClientList]", "KV2D_CLIENT_4 = Acme", "KV2D_CLIENT_5 = Other", section, "12 = x"}));
    };
    putClients("[ProjectList - 4]");
    EXPECT_THAT(FetchSpecs(12), ElementsAre(L"Acme's"));
    putClients("[ProjectList - 5]");
    EXPECT_THAT(FetchSpecs(12), ElementsAre(L"Other's"));
}

TEST_F(SeveralFilesTest, ProjectRenamed_AllItsFilesAreFoundInTheRenamedFolder) {
    ADatabase(*this)
        .WithProject(5, "Pump")
        .WithGeneral(5, "Units", "Displayed = 0")
        .WithLine(5, 1, "Steam")
        .WithSpec(3, "A")
        .WithEnabledSpec(5, "KV2D_SPEC_3");
    PutProjects({"[ProjectList]", "KV2D_PRJ_5 = Pump 2"});
    EXPECT_THAT(FetchSpecs(5), ElementsAre(L"A"));
    EXPECT_EQ(CKV2D_ProjectGeneral(5).m_nDisplayedUnits, 0);
    EXPECT_THAT(FetchLines(5, false), ElementsAre(L"Steam"));
    EXPECT_TRUE(HasFile(InData(L"Projects\\KV2D_PRJ_5 - Pump 2\\Lines.ini")));
    EXPECT_FALSE(HasFolder(InData(L"Projects\\KV2D_PRJ_5 - Pump")));
}

// The lines of drawings do not lie in the project's folder, so its renaming does not touch them.
TEST_F(SeveralFilesTest, ProjectRenamed_LinesOfItsDrawingsStayWhereTheyAre) {
    ADatabase(*this).WithProject(12, "Pump").WithLocalLines(12, InRoot(L"Local"));
    EXPECT_THAT(FetchLocalLines(12, {L"Steam"}), ElementsAre(L"Steam"));
    const std::string strBefore = GetBytes(InRoot(L"Local\\PID_12_Plant1line.ini"));
    PutProjects({"[ProjectList]", "KV2D_PRJ_12 = Tank"});
    EXPECT_THAT(FetchLocalLines(12, {L"Steam"}), ElementsAre(L"Steam"));
    EXPECT_EQ(GetBytes(InRoot(L"Local\\PID_12_Plant1line.ini")), strBefore);
    EXPECT_TRUE(HasFile(InData(L"Projects\\KV2D_PRJ_12 - Tank\\General.ini")));
}

TEST_F(SeveralFilesTest, DisplayedUnits_PickTheSectionOfTheSizeTable) {
    ADatabase(*this).WithProject(5, "Pump").WithGeneral(5, "Units", "Displayed = 1").WithProject(6, "Tank");
    PutFile(InData(L"Standards\\Piping\\ANSI\\size.tp"), Lines({"1,1\",DN 25,33.4"}));
    std::vector<int> anIndices;
    std::vector<std::wstring> astrTexts;
    GetSizeList(L"ANSI", CKV2D_ProjectGeneral(5).m_nDisplayedUnits, anIndices, astrTexts, false);
    EXPECT_THAT(astrTexts, ElementsAre(L"DN 25"));
    GetSizeList(L"ANSI", CKV2D_ProjectGeneral(6).m_nDisplayedUnits, anIndices, astrTexts, false);
    EXPECT_THAT(astrTexts, ElementsAre(L"1\""));
    // A project that does not resolve has the units -1, which read as inches too.
    GetSizeList(L"ANSI", CKV2D_ProjectGeneral(7).m_nDisplayedUnits, anIndices, astrTexts, false);
    EXPECT_THAT(astrTexts, ElementsAre(L"1\""));
}

// Both modes keep their counters apart, so ids of the one say nothing in the other.
TEST_F(SeveralFilesTest, ProjectThatTurnsToLocalLines_BeginsWithItsOwnIds) {
    ADatabase database(*this);
    database.WithProject(12, "Pump").WithLine(12, 40, "Steam").WithLastLineId(40);
    EXPECT_THAT(FetchLines(12, true), ElementsAre(L"Steam"));
    database.WithLocalLines(12, InRoot(L"Local"));
    EXPECT_TRUE(CKV2D_ProjectGeneral(12).m_bLocalLineIni);
    EXPECT_THAT(FetchLocalLines(12, {L"Steam", L"Water"}), ElementsAre(L"Steam", L"Water"));
    EXPECT_EQ(GetBytes(InRoot(L"Local\\LineDatafile.ini")), Lines({"[General]", "LastLineId = 2"}));
    EXPECT_EQ(GetBytes(InData(L"LineDatafile.ini")), Lines({"[General]", "LastLineId = 40"}));
    EXPECT_THAT(FetchLines(12, true), ElementsAre(L"Steam"));
}

}  // namespace
