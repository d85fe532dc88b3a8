#include "drawing_manager/tree_contents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "storage/applications.h"
#include "unit/database/a_database.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class TreeContents : public SystemTest {
  protected:
    static std::vector<std::wstring> NamesOf(const std::vector<CTreeProject>& projects) {
        std::vector<std::wstring> names;
        for (const CTreeProject& project : projects)
            names.push_back(project.strName);
        return names;
    }
};

}  // namespace

TEST_F(TreeContents, MissingFiles_GiveAnEmptyTree) {
    UseDatabase();
    const CTreeContents contents = ReadTreeContents(kAppPid);
    EXPECT_THAT(contents.aClients, IsEmpty());
    EXPECT_THAT(contents.aLooseProjects, IsEmpty());
}

TEST_F(TreeContents, Projects_GoToTheirClientsAndTheRestIsLoose) {
    ADatabase(*this)
        .WithClient(2, "Beta")
        .WithClient(1, "Acme")
        .WithProject(5, "Pump House")
        .WithProject(6, "Tank Farm")
        .WithProject(7, "Yard")
        .WithClientProject(1, 6)
        .WithClientProject(1, 5);
    const CTreeContents contents = ReadTreeContents(kAppPid);
    ASSERT_EQ(contents.aClients.size(), 2u);
    EXPECT_EQ(contents.aClients[0].strName, L"Beta") << "clients keep the order of the file";
    EXPECT_THAT(contents.aClients[0].aProjects, IsEmpty());
    EXPECT_EQ(contents.aClients[1].strName, L"Acme");
    EXPECT_THAT(NamesOf(contents.aClients[1].aProjects),
                testing::UnorderedElementsAre(L"Pump House", L"Tank Farm"));
    EXPECT_THAT(contents.aLooseProjects, ElementsAre(CTreeProject{7, L"Yard"}));
}

TEST_F(TreeContents, ProjectOfTwoClients_GoesToTheFirstInTheListOfClients) {
    ADatabase(*this)
        .WithClient(1, "Acme")
        .WithClient(2, "Beta")
        .WithProject(5, "Pump House")
        .WithClientProject(2, 5)
        .WithClientProject(1, 5);
    const CTreeContents contents = ReadTreeContents(kAppPid);
    EXPECT_THAT(NamesOf(contents.aClients[0].aProjects), ElementsAre(L"Pump House"));
    EXPECT_THAT(contents.aClients[1].aProjects, IsEmpty());
}

TEST_F(TreeContents, UnknownAndDeletedProjects_AreLeftOutInSilence) {
    ADatabase(*this)
        .WithClient(1, "Acme")
        .WithDeletedProjectRow(5, "Gone")
        .WithClientProject(1, 5)
        .WithClientProject(1, 99);
    const CTreeContents contents = ReadTreeContents(kAppPid);
    ASSERT_EQ(contents.aClients.size(), 1u);
    EXPECT_THAT(contents.aClients[0].aProjects, IsEmpty());
    EXPECT_THAT(contents.aLooseProjects, IsEmpty());
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(TreeContents, ApplicationThatIsNoDiscipline_SeesNoProject) {
    ADatabase(*this).WithClient(1, "Acme").WithProject(5, "Pump House").WithClientProject(1, 5);
    const CTreeContents contents = ReadTreeContents(kAppStandardsManager);
    ASSERT_EQ(contents.aClients.size(), 1u);
    EXPECT_THAT(contents.aClients[0].aProjects, IsEmpty());
    EXPECT_THAT(contents.aLooseProjects, IsEmpty());
}

TEST_F(TreeContents, RowsWithoutAProperKey_AreKept) {
    ADatabase(*this)
        .WithRow(L"ProjectDatafile.ini", "ProjectList", "broken = One")
        .WithRow(L"ProjectDatafile.ini", "ProjectList", "worse = Two");
    const CTreeContents contents = ReadTreeContents(kAppPid);
    EXPECT_THAT(contents.aLooseProjects, ElementsAre(CTreeProject{0, L"One"}, CTreeProject{0, L"Two"}));
}
