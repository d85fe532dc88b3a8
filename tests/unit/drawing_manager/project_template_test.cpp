#include "drawing_manager/project_template.h"

#include <gtest/gtest.h>

#include "storage/applications.h"
#include "unit/database/a_database.h"

namespace {

class ProjectTemplate : public SystemTest {
  protected:
    ProjectTemplate() : m_database(*this) {
        m_database.WithProject(5, "Pump House").WithGeneral(5, "General", "ProjectVersion = 2016");
    }
    void SetTemplates(const std::string& folder) {
        m_database.WithGeneral(5, "General", "TemplatesLocation = " + folder);
    }

    ADatabase m_database;
};

}  // namespace

TEST_F(ProjectTemplate, Default_IsAcadInTheTemplateFolder) {
    SetTemplates("C:\\Templates");
    for (int nApp = kFirstDiscipline; nApp <= kLastDiscipline; ++nApp) {
        EXPECT_EQ(GetProjectTemplateFile(nApp, 5), L"C:\\Templates\\acad.dwt");
        EXPECT_EQ(GetProjectTemplateFolder(nApp, 5), L"C:\\Templates\\");
    }
}

TEST_F(ProjectTemplate, FolderWithABackslash_GetsNoSecondOne) {
    SetTemplates("C:\\50%s\\");
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 5), L"C:\\50%s\\acad.dwt");
}

TEST_F(ProjectTemplate, WithoutATemplateFolder_NameStandsAlone) {
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 5), L"acad.dwt");
    EXPECT_EQ(GetProjectTemplateFolder(kAppPid, 5), L"");
}

TEST_F(ProjectTemplate, SettingsOfTheDiscipline_NameTheTemplate) {
    SetTemplates("C:\\T");
    m_database.WithProjectFileRow(5, L"PID.ini", "Settings", "Variable 044 = flow sheet A1");
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 5), L"C:\\T\\flow sheet A1.dwt");
    EXPECT_EQ(GetProjectTemplateFile(kAppOrtho, 5), L"C:\\T\\acad.dwt");
}

TEST_F(ProjectTemplate, NoProjectAndNoDiscipline_GiveNothing) {
    SetTemplates("C:\\T");
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 0), L"");
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, -5), L"");
    EXPECT_EQ(GetProjectTemplateFile(kAppNone, 5), L"");
    EXPECT_EQ(GetProjectTemplateFile(kAppHost, 5), L"");
    EXPECT_EQ(GetProjectTemplateFolder(kAppPid, 0), L"");
    EXPECT_EQ(GetProjectTemplateFolder(kAppBomSettingsManager, 5), L"");
}

TEST_F(ProjectTemplate, UnknownProject_GivesTheBareDefault) {
    EXPECT_EQ(GetProjectTemplateFile(kAppPid, 99), L"acad.dwt");
    EXPECT_EQ(GetProjectTemplateFolder(kAppPid, 99), L"");
}
