#include "database/project_template.h"

#include <gtest/gtest.h>

#include <string>

#include "drawing_manager/project_template.h"
#include "storage/applications.h"
#include "support/test_platform.h"

namespace {

// Project 5, "Pump", in a database of its own.
class ProjectTemplateTest : public SystemTest {
  protected:
    ProjectTemplateTest() {
        UseDatabase();
        PutFile(InData(L"ProjectDatafile.ini"), Lines({"[ProjectList]", "KV2D_PRJ_5 = Pump"}));
        PutFolder(InProject(L""));
    }

    std::wstring InProject(const std::wstring& name) const {
        return InData(L"Projects\\KV2D_PRJ_5 - Pump\\" + name);
    }

    void PutGeneral(const std::string& version, const std::string& working, const std::string& displayed) {
        PutFile(InProject(L"General.ini"),
                Lines({"[General]", "ProjectGuid = 00000001-0000-0000-0000-000000000001",
                       "ProjectVersion = " + version, "[Units]", "Working = " + working,
                       "Displayed = " + displayed}));
    }

    void PutTemplateName(const std::wstring& file, const std::string& name) {
        PutFile(InProject(file), Lines({"[Settings]", "Variable 044 = " + name}));
    }
};

TEST_F(ProjectTemplateTest, EachDiscipline_ReadsItsOwnFile) {
    PutGeneral("2016", "0", "1");
    PutTemplateName(L"ELECTRIC.ini", "panel");
    PutTemplateName(L"PID.ini", "flow");
    PutTemplateName(L"ISOMETRIC.ini", "iso");
    PutTemplateName(L"ORTHO.ini", "plan");
    EXPECT_EQ(GetProjectTemplateName(5, kAppElectric), L"panel");
    EXPECT_EQ(GetProjectTemplateName(5, kAppPid), L"flow");
    EXPECT_EQ(GetProjectTemplateName(5, kAppIsometric), L"iso");
    EXPECT_EQ(GetProjectTemplateName(5, kAppOrtho), L"plan");
}

TEST_F(ProjectTemplateTest, OlderProject_ReadsTheOlderFileNames) {
    PutGeneral("2015", "0", "1");
    PutTemplateName(L"Electric.ini", "panel");
    PutTemplateName(L"Flow.ini", "flow");
    PutTemplateName(L"Iso.ini", "iso");
    PutTemplateName(L"Ortho.ini", "plan");
    EXPECT_EQ(GetProjectTemplateName(5, kAppElectric), L"panel");
    EXPECT_EQ(GetProjectTemplateName(5, kAppPid), L"flow");
    EXPECT_EQ(GetProjectTemplateName(5, kAppIsometric), L"iso");
    EXPECT_EQ(GetProjectTemplateName(5, kAppOrtho), L"plan");
}

TEST_F(ProjectTemplateTest, WithoutSettingsFile_IsAcad) {
    PutGeneral("2016", "0", "1");
    for (int nApp = kFirstDiscipline; nApp <= kLastDiscipline; ++nApp) {
        EXPECT_EQ(GetProjectTemplateName(5, nApp), L"acad") << nApp;
    }
}

TEST_F(ProjectTemplateTest, UnknownProject_IsAcadAndWritesNothing) {
    EXPECT_EQ(GetProjectTemplateName(6, kAppIsometric), L"acad");
    EXPECT_EQ(GetProjectTemplateName(0, kAppIsometric), L"acad");
    EXPECT_EQ(GetProjectTemplateName(-1, kAppIsometric), L"acad");
    EXPECT_FALSE(HasFile(InProject(L"ISOMETRIC.ini")));
}

TEST_F(ProjectTemplateTest, OutsideTheDisciplines_IsEmptyAndTouchesNoFile) {
    for (int nApp : {-1, int(kAppNone), int(kAppBomSettingsManager), int(kAppHost), 99}) {
        EXPECT_EQ(GetProjectTemplateName(5, nApp), L"") << nApp;
    }
    EXPECT_FALSE(HasFile(InProject(L"General.ini"))) << "the project was not even read";
}

TEST_F(ProjectTemplateTest, WorkingUnits_ChooseTheDefaultsThatTheRepairsSave) {
    PutGeneral("2016", "0", "1");
    GetProjectTemplateName(5, kAppIsometric);
    EXPECT_EQ(GetBytes(InProject(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
    PutGeneral("2015", "3", "1");
    GetProjectTemplateName(5, kAppIsometric);
    EXPECT_EQ(GetBytes(InProject(L"Iso.ini")), Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36",
                                                      "Variable 182 = 36", "Variable 185 = 0.375000"}));
}

TEST_F(ProjectTemplateTest, DisplayedUnits_ReachTheRepairOfOrtho) {
    PutGeneral("2016", "0", "3");
    GetProjectTemplateName(5, kAppOrtho);
    EXPECT_NE(GetBytes(InProject(L"ORTHO.ini")).find("Variable 183 = 40\r\n"), std::string::npos);
}

// --- The template as a file.

TEST_F(ProjectTemplateTest, TemplateFile_IsFolderNameAndExtension) {
    PutFile(InProject(L"General.ini"),
            Lines({"[General]", "ProjectVersion = 2016", "TemplatesLocation = C:\\T"}));
    PutTemplateName(L"PID.ini", "flow 100%");
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 5), L"C:\\T\\flow 100%.dwt");
    EXPECT_EQ(GetProjectTemplateFolder(kAppPid, 5), L"C:\\T\\");
}

TEST_F(ProjectTemplateTest, TemplateFile_WithoutTemplateFolderIsTheBareFileName) {
    PutGeneral("2016", "0", "1");
    EXPECT_EQ(GetProjectTemplateFile(kAppIsometric, 5), L"acad.dwt");
    EXPECT_EQ(GetProjectTemplateFolder(kAppIsometric, 5), L"");
}

TEST_F(ProjectTemplateTest, TemplateFile_OfNoProjectOrNoDisciplineIsEmpty) {
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 0), L"");
    EXPECT_EQ(GetProjectTemplateFile(kAppHost, 5), L"");
    EXPECT_EQ(GetProjectTemplateFile(kAppNone, 5), L"");
    EXPECT_EQ(GetProjectTemplateFolder(kAppPid, -1), L"");
    EXPECT_EQ(GetProjectTemplateFolder(kAppHost, 5), L"");
}

TEST_F(ProjectTemplateTest, RenamedProject_IsReadAfterItsFolderTookTheNewName) {
    PutGeneral("2016", "0", "1");
    PutTemplateName(L"PID.ini", "flow");
    PutFile(InData(L"ProjectDatafile.ini"), Lines({"[ProjectList]", "KV2D_PRJ_5 = Pump Station"}));
    EXPECT_EQ(GetProjectTemplateName(5, kAppPid), L"flow");
    EXPECT_TRUE(HasFolder(InData(L"Projects\\KV2D_PRJ_5 - Pump Station")));
}

}  // namespace
