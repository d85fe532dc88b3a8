// The Drawing Manager inside a host: the current drawing's project, the documents that it closes, the host's
// variables that it sets. The host is the workbench itself, with its window.
#include <acdocman.h>
#include <acedads.h>
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "document/doc_xdata.h"
#include "document/drawing_queries.h"
#include "drawing_manager/manager_registry.h"
#include "frame/hostile_host.h"
#include "frame/workbench_app.h"
#include "resources/resource.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The program's one application object: acedGetAcadWinApp gives it, and closing documents pumps through it.
CWinApp g_app(L"Drawing Manager test");

class DrawingManagerInHost : public DrawingManagerTest {
  protected:
    DrawingManagerInHost() {
        frame::Options options;
        options.withoutModule = true;
        options.withoutDrawing = true;
        EXPECT_TRUE(m_session.Start(options));
    }

    // A new unnamed drawing, current from then on, that belongs to a project (0: to none).
    static void AddDocument(int projectId) {
        ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_projectId = projectId;
        data.m_dirty = true;
    }
    static std::wstring EnvironmentOf(const wchar_t* name) {
        wchar_t value[512] = L"";
        return acedGetEnv(name, value, 512) == RTNORM ? value : L"(none)";
    }

    frame::Session m_session;
};

// Notes what the dialog says of itself while documents go.
class ClosingWatcher : public AcApDocManagerReactor {
  public:
    explicit ClosingWatcher(const CDrawingManagerDlg& dialog) : m_dialog(dialog) {
        acDocManager->addReactor(this);
    }
    ~ClosingWatcher() override { acDocManager->removeReactor(this); }
    void documentDestroyed(const ACHAR*) override { m_flags.push_back(m_dialog.m_bClosingDocuments); }
    std::vector<bool> m_flags;

  private:
    const CDrawingManagerDlg& m_dialog;
};

}  // namespace

TEST_F(DrawingManagerInHost, ProjectOfTheCurrentDrawing_WinsOverTheStoredOne) {
    UseUsualDatabase();
    AddDocument(6);
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.SelectedLabel(), L"Tank Farm"); });
}

TEST_F(DrawingManagerInHost, DrawingWithoutAProject_LeavesTheChoiceToTheStoredOne) {
    UseUsualDatabase();
    AddDocument(0);
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.SelectedLabel(), L"Pump House"); });
}

TEST_F(DrawingManagerInHost, Initialisation_AllowsSeveralDocuments) {
    UseUsualDatabase();
    AddDocument(0);
    SetSysVarShort(L"SDI", 1);
    Run([](ManagerDriver&) {});
    int value = -1;
    EXPECT_TRUE(GetSysVarShort(L"SDI", value));
    EXPECT_EQ(value, 0);
}

TEST_F(DrawingManagerInHost, OpenStandard_PointsTheHostToItsTemplates) {
    UseUsualDatabase();
    m_database.WithGeneral(6, "General", "TemplatesLocation = C:\\50%s");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        windows::Click(driver.Dialog(), IDC_OPEN_STANDARD);
    });
    EXPECT_EQ(EnvironmentOf(L"QnewTemplate"), L"C:\\50%s\\acad.dwt");
    EXPECT_EQ(EnvironmentOf(L"TemplatePath"), L"C:\\50%s\\");
}

TEST_F(DrawingManagerInHost, OpeningADrawing_PointsTheHostToItsTemplates) {
    UseUsualDatabase();
    m_database.WithGeneral(5, "General", "TemplatesLocation = C:\\T");
    PutDrawings({L"A.dwg"});
    Run([](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
    });
    EXPECT_EQ(EnvironmentOf(L"QnewTemplate"), L"C:\\T\\acad.dwt");
    EXPECT_EQ(EnvironmentOf(L"TemplatePath"), L"C:\\T\\");
}

TEST_F(DrawingManagerInHost, PlainClose_LeavesTheHostAsItWas) {
    UseUsualDatabase();
    m_database.WithGeneral(5, "General", "TemplatesLocation = C:\\T");
    acedSetEnv(L"QnewTemplate", L"before");
    acedSetEnv(L"TemplatePath", L"before");
    Run([](ManagerDriver&) {});
    EXPECT_EQ(EnvironmentOf(L"QnewTemplate"), L"before");
    EXPECT_EQ(EnvironmentOf(L"TemplatePath"), L"before");
}

TEST_F(DrawingManagerInHost, SingleDoc_ClosesAllDocumentsFirst) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    SetValue(kSingleDocumentValue, 1);
    AddDocument(5);
    AddDocument(6);
    ManagerDlg dialog;
    ClosingWatcher watcher(dialog);
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.SelectItem({L"Acme", L"Pump House"});
        driver.SelectRows({L"A", L"B"});
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
    });
    EXPECT_EQ(answer, IDOK);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"A.dwg")));
    EXPECT_EQ(acDocManager->documentCount(), 0);
    EXPECT_THAT(watcher.m_flags, ElementsAre(true, true));
    EXPECT_FALSE(dialog.m_bClosingDocuments);
}

TEST_F(DrawingManagerInHost, SingleDocWhereTheHostListsNoDocuments_OpensAllTheSame) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    SetValue(kSingleDocumentValue, 1);
    AddDocument(5);
    ManagerDlg dialog;
    frame::HostileHost hostile(L"AcApDocManager::newAcApDocumentIterator");
    hostile.Watch(GetModuleHandleW(nullptr));
    Run(dialog, [](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
    });
    EXPECT_NE(hostile.Failures(), L"");
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"A.dwg")));
    EXPECT_FALSE(dialog.m_bClosingDocuments);
}

TEST_F(DrawingManagerInHost, SingleDocWithABackup_ClosesAllAndOpensNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.bak"});
    SetValue(kSingleDocumentValue, 1);
    SetValue(kBackupStateValue, 8);
    AddDocument(5);
    ManagerDlg dialog;
    Run(dialog, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A.bak"});
        driver.Command(ID_DRAWINGS_OPEN);
        EXPECT_FALSE(dialog.m_bEnded);
        EXPECT_EQ(acDocManager->documentCount(), 0);
    });
    EXPECT_THAT(dialog.m_astrOpenList, IsEmpty());
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text,
              L"Cannot open drawing backup files.\n\nPlease rename to a .dwg file and try again.");
}

TEST_F(DrawingManagerInHost, WithoutSingleDoc_DocumentsStayOpen) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    AddDocument(5);
    Run([](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
    });
    EXPECT_EQ(acDocManager->documentCount(), 1);
}
