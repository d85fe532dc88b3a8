#include "database/project_list.h"

#include <gmock/gmock.h>

#include "a_database.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProjectListTest : public SystemTest {
  protected:
    std::wstring InProjects(const std::wstring& strName) const { return InData(L"Projects\\" + strName); }

    std::vector<int> m_anIds{99};
    std::vector<std::wstring> m_astrNames{L"left over"};
    std::wstring m_strFolder = L"left over";
};

TEST_F(ProjectListTest, ProjectKeyFromId_OfNoProject_IsEmpty) {
    EXPECT_EQ(ProjectKeyFromId(5), L"KV2D_PRJ_5");
    EXPECT_EQ(ProjectKeyFromId(0), L"");
    EXPECT_EQ(ProjectKeyFromId(-5), L"");
}

TEST_F(ProjectListTest, ProjectIdFromKey_FindsTheIdInAPath) {
    EXPECT_EQ(ProjectIdFromKey(L"KV2D_PRJ_5"), 5);
    EXPECT_EQ(ProjectIdFromKey(L"s:\\db\\projects\\kv2d_prj_12 - pump\\a.dwg"), 12);
    EXPECT_EQ(ProjectIdFromKey(L"c:\\drawings\\a.dwg"), 0);
}

TEST_F(ProjectListTest, GetProjectList_IsSortedByCharacterCodes) {
    ADatabase(*this)
        .WithProjectRow(1, "b")
        .WithProjectRow(2, "C")
        .WithProjectRow(3, "a")
        .WithDeletedProjectRow(4, "d");
    EXPECT_EQ(GetProjectList(m_anIds, m_astrNames, false), kProjectDone);
    EXPECT_THAT(m_astrNames, ElementsAre(L"C", L"a", L"b"));
    EXPECT_THAT(m_anIds, ElementsAre(2, 3, 1));
}

TEST_F(ProjectListTest, GetProjectList_OfDeletedProjects) {
    ADatabase(*this).WithProjectRow(1, "b").WithDeletedProjectRow(4, "z").WithDeletedProjectRow(5, "y");
    EXPECT_EQ(GetProjectList(m_anIds, m_astrNames, true), kProjectDone);
    EXPECT_THAT(m_anIds, ElementsAre(5, 4));
}

TEST_F(ProjectListTest, GetProjectList_KeyWithoutId_KeepsItsRowWithIdZero) {
    ADatabase(*this).WithRow(L"ProjectDatafile.ini", "ProjectList", "odd = Zed").WithProjectRow(3, "a");
    EXPECT_EQ(GetProjectList(m_anIds, m_astrNames, false), kProjectDone);
    EXPECT_THAT(m_anIds, ElementsAre(0, 3));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Zed", L"a"));
}

TEST_F(ProjectListTest, GetProjectList_WithoutFile_CannotOpenAndEmpties) {
    ADatabase database(*this);
    EXPECT_EQ(GetProjectList(m_anIds, m_astrNames, false), kProjectCannotOpenList);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
}

TEST_F(ProjectListTest, GetProjectList_WithoutDataFolder_CannotOpenAndEmpties) {
    EXPECT_EQ(GetProjectList(m_anIds, m_astrNames, false), kProjectCannotOpenList);
    EXPECT_THAT(m_anIds, IsEmpty());
}

TEST_F(ProjectListTest, GetProjectName_OfADeletedProject_OnlyIfDeletedOnesAreSearched) {
    ADatabase(*this).WithDeletedProjectRow(4, "Gone");
    EXPECT_EQ(GetProjectName(4, true, true), L"Gone");
    EXPECT_EQ(GetProjectName(4, false, true), L"Gone");
    EXPECT_EQ(GetProjectName(4, true, false), L"");
    EXPECT_EQ(GetProjectName(4, false, false), L"");
}

TEST_F(ProjectListTest, GetProjectName_InBothSections_TheLiveOneComesFirst) {
    ADatabase(*this).WithProjectRow(4, "Live").WithDeletedProjectRow(4, "Gone");
    EXPECT_EQ(GetProjectName(4, true, true), L"Live");
    EXPECT_EQ(GetProjectName(4, false, true), L"Gone");
}

TEST_F(ProjectListTest, GetProjectName_OfNoProject_IsEmpty) {
    ADatabase(*this).WithProjectRow(4, "Live").WithRow(L"ProjectDatafile.ini", "ProjectList",
                                                       " = Nameless key");
    EXPECT_EQ(GetProjectName(0, true, true), L"");
    EXPECT_EQ(GetProjectName(-4, true, true), L"");
    EXPECT_EQ(GetProjectName(5, true, true), L"");
}

TEST_F(ProjectListTest, GetProjectNameFromIni_LeavesTheSectionWhereTheSearchStopped) {
    ADatabase(*this).WithProjectRow(1, "Live").WithDeletedProjectRow(2, "Gone");
    CKV2D_IniFile ini;
    ini.Open(InData(L"ProjectDatafile.ini"));
    GetProjectNameFromIni(ini, 1, true, true);
    EXPECT_EQ(ini.GetSection(), L"ProjectList");
    GetProjectNameFromIni(ini, 2, true, true);
    EXPECT_EQ(ini.GetSection(), L"DeletedProjects");
}

TEST_F(ProjectListTest, GetProjectFolder_UnderItsPresentName) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5 - Pump\\"));
}

TEST_F(ProjectListTest, GetProjectFolder_OfTheOlderFormWithoutName_IsRenamed) {
    ADatabase(*this).WithProjectRow(5, "Pump");
    PutFile(InProjects(L"KV2D_PRJ_5\\General.ini"), "content");
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5 - Pump\\"));
    EXPECT_FALSE(HasFolder(InProjects(L"KV2D_PRJ_5")));
    EXPECT_EQ(GetBytes(InProjects(L"KV2D_PRJ_5 - Pump\\General.ini")), "content");
}

TEST_F(ProjectListTest, GetProjectFolder_AfterTheProjectWasRenamed_RenamesTheFolder) {
    ADatabase(*this).WithProjectRow(5, "New");
    PutFile(InProjects(L"KV2D_PRJ_5 - Old\\Lines.ini"), "content");
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5 - New\\"));
    EXPECT_FALSE(HasFolder(InProjects(L"KV2D_PRJ_5 - Old")));
    EXPECT_EQ(GetBytes(InProjects(L"KV2D_PRJ_5 - New\\Lines.ini")), "content");
}

TEST_F(ProjectListTest, GetProjectFolder_OfAProjectWithoutRow_IsFoundByItsIdAndKeepsItsName) {
    ADatabase(*this).WithProjectRow(6, "Other");
    PutFolder(InProjects(L"KV2D_PRJ_5 - Old"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5 - Old\\"));
    EXPECT_TRUE(HasFolder(InProjects(L"KV2D_PRJ_5 - Old")));
    EXPECT_EQ(GetProjectName(5, true, true), L"");
    const CKV2D_ProjectRef project(5);
    EXPECT_EQ(project.m_nProjectId, 5);
    EXPECT_EQ(project.m_strName, L"");
    EXPECT_EQ(project.m_strFolder, L"");
    EXPECT_EQ(project.m_strPath, L"");
}

TEST_F(ProjectListTest, GetProjectFolder_OfAProjectWithoutRow_AcceptsThePlainFolder) {
    ADatabase(*this).WithProjectRow(6, "Other");
    PutFolder(InProjects(L"KV2D_PRJ_5"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5\\"));
}

TEST_F(ProjectListTest, GetProjectFolder_BothFormsExist_TakesThePlainOneAndKeepsBoth) {
    ADatabase(*this).WithProject(5, "Pump");
    PutFolder(InProjects(L"KV2D_PRJ_5"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5\\"));
    EXPECT_TRUE(HasFolder(InProjects(L"KV2D_PRJ_5 - Pump")));
}

TEST_F(ProjectListTest, GetProjectFolder_OfALongerId_IsNotMatched) {
    ADatabase(*this).WithProjectRow(1, "X");
    PutFolder(InProjects(L"KV2D_PRJ_15 - X"));
    EXPECT_EQ(GetProjectFolder(1, m_strFolder), kProjectNoFolder);
    EXPECT_EQ(m_strFolder, L"");
    EXPECT_TRUE(HasFolder(InProjects(L"KV2D_PRJ_15 - X")));
}

TEST_F(ProjectListTest, GetProjectFolder_AFileOfThatName_IsNotTakenForTheFolder) {
    ADatabase(*this).WithProjectRow(5, "New");
    PutFile(InProjects(L"KV2D_PRJ_5 - Note.txt"), "a file");
    PutFolder(InProjects(L"KV2D_PRJ_5 - Old"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5 - New\\"));
    EXPECT_TRUE(HasFile(InProjects(L"KV2D_PRJ_5 - Note.txt")));
}

TEST_F(ProjectListTest, GetProjectFolder_NameThatNoFolderMayBear_LeavesTheOldFolderAndFindsNone) {
    ADatabase(*this).WithProjectRow(5, "A/B?");
    PutFolder(InProjects(L"KV2D_PRJ_5 - Old"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectNoFolder);
    EXPECT_TRUE(HasFolder(InProjects(L"KV2D_PRJ_5 - Old")));
}

TEST_F(ProjectListTest, GetProjectFolder_WithoutAnyFolder_CreatesNothing) {
    ADatabase(*this).WithProjectRow(5, "Pump");
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectNoFolder);
    EXPECT_EQ(m_strFolder, L"");
    EXPECT_FALSE(HasFolder(InData(L"Projects")));
}

TEST_F(ProjectListTest, GetProjectFolder_OfADeletedProject_StillResolves) {
    ADatabase(*this).WithDeletedProjectRow(5, "Gone");
    PutFolder(InProjects(L"KV2D_PRJ_5 - Gone"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectDone);
    EXPECT_EQ(m_strFolder, InProjects(L"KV2D_PRJ_5 - Gone\\"));
}

TEST_F(ProjectListTest, GetProjectFolder_OfIdBelowOne_IsInvalidAndEmpties) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(GetProjectFolder(0, m_strFolder), kProjectInvalidId);
    EXPECT_EQ(m_strFolder, L"");
    m_strFolder = L"left over";
    EXPECT_EQ(GetProjectFolder(-5, m_strFolder), kProjectInvalidId);
    EXPECT_EQ(m_strFolder, L"");
}

TEST_F(ProjectListTest, GetProjectFolder_WithoutTheFile_CannotOpenEvenIfTheFolderExists) {
    ADatabase database(*this);
    PutFolder(InProjects(L"KV2D_PRJ_5 - Pump"));
    EXPECT_EQ(GetProjectFolder(5, m_strFolder), kProjectCannotOpenList);
    EXPECT_EQ(m_strFolder, L"");
}

TEST_F(ProjectListTest, ResolveProjectFolder_OfIdBelowOne_IsInvalidAndEmpties) {
    ADatabase database(*this);
    CKV2D_IniFile ini;
    EXPECT_EQ(ResolveProjectFolder(ini, 0, m_strFolder), kProjectInvalidId);
    EXPECT_EQ(m_strFolder, L"");
}

TEST_F(ProjectListTest, ProjectRef_HoldsNameFolderAndPath) {
    ADatabase(*this).WithProject(5, "Pump");
    const CKV2D_ProjectRef project(5);
    EXPECT_FALSE(project.m_bValid);
    EXPECT_EQ(project.m_nProjectId, 5);
    EXPECT_EQ(project.m_strName, L"Pump");
    EXPECT_EQ(project.m_strFolder, InProjects(L"KV2D_PRJ_5 - Pump\\"));
    EXPECT_EQ(project.m_strPath, project.m_strFolder);
}

TEST_F(ProjectListTest, ProjectRef_WithNameButWithoutFolder_HasNoPath) {
    ADatabase(*this).WithProjectRow(5, "Pump");
    const CKV2D_ProjectRef project(5);
    EXPECT_EQ(project.m_strName, L"Pump");
    EXPECT_EQ(project.m_strPath, L"");
}

TEST_F(ProjectListTest, ProjectRef_OfIdBelowOne_IsEmpty) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(CKV2D_ProjectRef(0).m_strName, L"");
    EXPECT_EQ(CKV2D_ProjectRef(-5).m_nProjectId, -5);
}

TEST_F(ProjectListTest, GetProjectFilePath_OfAnUnknownProject_IsEmpty) {
    ADatabase(*this).WithProject(5, "Pump");
    EXPECT_EQ(GetProjectFilePath(5, L"Lines.ini"), InProjects(L"KV2D_PRJ_5 - Pump\\Lines.ini"));
    EXPECT_EQ(GetProjectFilePath(6, L"Lines.ini"), L"");
}

class ProjectFolderRaceTest : public MemorySystemTest {};

// The other workstation's rename is not done yet when this one looks for the folder.
TEST_F(ProjectFolderRaceTest, GetProjectFolder_RenameRefused_FindsNoFolderAndLeavesTheOldOne) {
    ADatabase(*this).WithProjectRow(5, "New");
    PutFolder(InData(L"Projects\\KV2D_PRJ_5 - Old"));
    GetMemory().files.RefuseMove(InData(L"Projects\\KV2D_PRJ_5 - Old"), platform::kSharingViolation);
    std::wstring strFolder;
    EXPECT_EQ(GetProjectFolder(5, strFolder), kProjectNoFolder);
    EXPECT_TRUE(HasFolder(InData(L"Projects\\KV2D_PRJ_5 - Old")));
}

TEST_F(ProjectFolderRaceTest, GetProjectFolder_PlainFolderResistsItsRenaming_IsUsedAsItIs) {
    ADatabase(*this).WithProjectRow(5, "Pump");
    PutFolder(InData(L"Projects\\KV2D_PRJ_5"));
    GetMemory().files.RefuseMove(InData(L"Projects\\KV2D_PRJ_5"), platform::kSharingViolation);
    std::wstring strFolder;
    EXPECT_EQ(GetProjectFolder(5, strFolder), kProjectDone);
    EXPECT_EQ(strFolder, InData(L"Projects\\KV2D_PRJ_5\\"));
}

}  // namespace
