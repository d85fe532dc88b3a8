#include "database/user_access.h"

#include <gmock/gmock.h>

#include "a_database.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UserAccessTest : public SystemTest {
  protected:
    std::vector<std::wstring> GetUsersOf(int nProjectId, int nApp) {
        std::vector<std::wstring> astrUsers{L"left over"};
        CKV2D_UserAccess(nProjectId).GetUsers(nApp, astrUsers);
        return astrUsers;
    }
};

TEST_F(UserAccessTest, GetUsers_ReadsTheValuesOfTheDisciplinesSection) {
    ADatabase(*this)
        .WithProject(7, "Pump")
        .WithGeneral(7, "General", "ProjectVersion = 2016")
        .WithProjectFileRow(7, L"UserAccess.ini", "ELECTRIC", "a = Ann")
        .WithProjectFileRow(7, L"UserAccess.ini", "PID", "b = Bob")
        .WithProjectFileRow(7, L"UserAccess.ini", "PID", "a = Cid")
        .WithProjectFileRow(7, L"UserAccess.ini", "ISOMETRIC", "1 = Dan")
        .WithProjectFileRow(7, L"UserAccess.ini", "ORTHO", "1 = Eve");
    EXPECT_THAT(GetUsersOf(7, 1), ElementsAre(L"Ann"));
    EXPECT_THAT(GetUsersOf(7, 2), ElementsAre(L"Bob", L"Cid"));
    EXPECT_THAT(GetUsersOf(7, 3), ElementsAre(L"Dan"));
    EXPECT_THAT(GetUsersOf(7, 4), ElementsAre(L"Eve"));
}

TEST_F(UserAccessTest, GetUsers_Version2015_ReadsTheOlderSections) {
    ADatabase(*this)
        .WithProject(7, "Pump")
        .WithGeneral(7, "General", "ProjectVersion = 2015")
        .WithProjectFileRow(7, L"UserAccess.ini", "Electric", "1 = Ann")
        .WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob")
        .WithProjectFileRow(7, L"UserAccess.ini", "PID", "1 = Cid");
    EXPECT_THAT(GetUsersOf(7, 1), ElementsAre(L"Ann"));
    EXPECT_THAT(GetUsersOf(7, 2), ElementsAre(L"Bob"));
}

TEST_F(UserAccessTest, GetUsers_Version2016_IgnoresTheOlderSections) {
    ADatabase(*this)
        .WithProject(7, "Pump")
        .WithGeneral(7, "General", "ProjectVersion = 2016")
        .WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob");
    EXPECT_THAT(GetUsersOf(7, 2), IsEmpty());
}

TEST_F(UserAccessTest, GetUsers_OfNoDiscipline_IsEmpty) {
    ADatabase(*this).WithProject(7, "Pump").WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob");
    EXPECT_THAT(GetUsersOf(7, 5), IsEmpty());
    EXPECT_THAT(GetUsersOf(7, 0), IsEmpty());
    EXPECT_THAT(GetUsersOf(7, -1), IsEmpty());
}

TEST_F(UserAccessTest, GetUsers_WithoutFileOrProject_IsEmpty) {
    ADatabase(*this).WithProject(7, "Pump");
    EXPECT_THAT(GetUsersOf(7, 2), IsEmpty());
    EXPECT_THAT(GetUsersOf(8, 2), IsEmpty());
    EXPECT_THAT(GetUsersOf(0, 2), IsEmpty());
    EXPECT_FALSE(HasFile(GetUserAccessIniPath(7)));
}

TEST_F(UserAccessTest, GetUserAccessIniPath_OfAnUnknownProject_IsEmpty) {
    ADatabase database(*this);
    database.WithProject(7, "Pump");
    EXPECT_EQ(GetUserAccessIniPath(7), database.GetProjectFolder(7) + L"UserAccess.ini");
    EXPECT_EQ(GetUserAccessIniPath(8), L"");
}

TEST_F(UserAccessTest, IsUserAllowed_DisciplineWithoutList_IsOpenToEveryone) {
    ADatabase(*this).WithProject(7, "Pump").WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob");
    EXPECT_TRUE(IsUserAllowed(7, 1, L"Ann"));
}

TEST_F(UserAccessTest, IsUserAllowed_ListedInAnyLetterCase) {
    ADatabase(*this)
        .WithProject(7, "Pump")
        .WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob")
        .WithProjectFileRow(7, L"UserAccess.ini", "Flow", "2 = \xC5sa");
    EXPECT_TRUE(IsUserAllowed(7, 2, L"bOB"));
    EXPECT_TRUE(IsUserAllowed(7, 2, L"\u00E5SA"));
    EXPECT_FALSE(IsUserAllowed(7, 2, L"Ann"));
}

TEST_F(UserAccessTest, IsUserAllowed_TheAdministratorAlways_ANamelessUserNever) {
    ADatabase(*this).WithProject(7, "Pump").WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob");
    EXPECT_TRUE(IsUserAllowed(7, 2, L"ADMINISTRATOR"));
    EXPECT_FALSE(IsUserAllowed(7, 1, L""));
    EXPECT_FALSE(IsUserAllowed(7, 5, L"Administrator"));
}

class CheckUserAccessTest : public MemorySystemTest {};

TEST_F(CheckUserAccessTest, OfADiscipline_IsGrantedWithoutAnyFileAccess) {
    ADatabase(*this).WithProject(7, "Pump").WithProjectFileRow(7, L"UserAccess.ini", "Flow", "1 = Bob");
    GetMemory().log.Clear();
    for (int nApp : {1, 2, 3, 4})
        EXPECT_TRUE(CheckUserAccess(7, nApp, true));
    EXPECT_TRUE(CheckUserAccess(0, 2, true));
    EXPECT_EQ(GetMemory().log.GetCount(), 0u);
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(CheckUserAccessTest, OfNoDiscipline_IsRefusedInSilence) {
    for (int nApp : {-1, 0, 5, 11})
        EXPECT_FALSE(CheckUserAccess(7, nApp, false));
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(CheckUserAccessTest, OfNoDiscipline_ShowsOneBoxIfAskedTo) {
    EXPECT_FALSE(CheckUserAccess(7, 5, true));
    ASSERT_EQ(GetBoxes().size(), 1u);
    const platform::ShownBox& box = GetBoxes().front();
    EXPECT_EQ(box.owner, platform::BoxOwner::kNone);
    EXPECT_EQ(
        box.text,
        L"You do not have permission to run this application.\n\nPlease contact your system administrator.");
    EXPECT_EQ(box.caption, L"Orvex 2023");
    EXPECT_EQ(box.flags, 0x10u);
}

}  // namespace
