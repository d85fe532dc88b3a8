// Names that hurt, and things that vanish: whatever a drawing or a folder is called, and whoever takes it
// away meanwhile, there is a clear message or silence, and the dialog goes on.
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "drawing_manager/drawing_state.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr size_t kLongestPath = 259;
constexpr size_t kLongestName = 255;

class DrawingManagerNames : public DrawingManagerTest {
  protected:
    static ManagerDriver::Path Folder(const std::wstring& name) { return {L"Acme", L"Pump House", name}; }
    static void RenameSelected(ManagerDriver& driver, const std::wstring& name) {
        driver.Command(ID_PROJECTS_RENAME);
        ASSERT_NE(driver.TreeEdit(), nullptr);
        windows::EndLabelEdit(driver.TreeEdit(), name);
    }
    // Opens one row and gives what the dialog would have opened.
    std::vector<std::wstring> Open(const std::wstring& row) {
        ManagerDlg dialog;
        Run(dialog, [&](ManagerDriver& driver) {
            driver.SelectRows({row});
            windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
        });
        return dialog.m_astrOpenList;
    }
};

}  // namespace

// --- drawings

TEST_F(DrawingManagerNames, TrailingBlanks_AreKeptAheadOfTheEnding) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), L"B  ");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"B  "));
        EXPECT_TRUE(HasFile(InDrawings(L"B  .dwg")));
        // The blank behind the ending makes it no ending.
        windows::EndLabelEdit(driver.EditRow(L"B  "), L"C.dwg ");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"C.dwg "));
        EXPECT_TRUE(HasFile(InDrawings(L"C.dwg .dwg")));
    });
    EXPECT_THAT(Open(L"C.dwg "), ElementsAre(InDrawings(L"C.dwg .dwg")));
}

TEST_F(DrawingManagerNames, DotsAndNothingElse_AreAName) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), L"...");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"..."));
    });
    EXPECT_THAT(Open(L"..."), ElementsAre(InDrawings(L"....dwg")));
}

TEST_F(DrawingManagerNames, EmptyName_IsTheEndingAlone) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), L"");
        EXPECT_TRUE(HasFile(InDrawings(L".dwg")));
        EXPECT_THAT(driver.Rows(), ElementsAre(L""));
    });
}

TEST_F(DrawingManagerNames, NameOfTheLongestPath_CanBeGivenAndOpened) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    const std::wstring name(kLongestPath - InDrawings(L".dwg").size(), L'n');
    Run([&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), name);
        EXPECT_THAT(driver.Rows(), ElementsAre(name));
        driver.SelectRows({name});
        EXPECT_EQ(GetText(kSelectedDrawingValue), name);
    });
    EXPECT_THAT(Open(name), ElementsAre(InDrawings(name + L".dwg")));
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DrawingManagerNames, NameLongerThanAnyFileMayHave_IsToldAndChangesNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    const auto shown = RunAndAnswer({IDOK}, [&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), std::wstring(kLongestName + 1, L'n'));
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A"));
    });
    EXPECT_THAT(shown, SizeIs(1));
    EXPECT_TRUE(HasFile(InDrawings(L"A.dwg")));
}

TEST_F(DrawingManagerNames, FileWithTheLongestName_IsShownWhole) {
    UseUsualDatabase();
    const std::wstring name(kLongestName - 4, L'n');
    PutFile(L"\\\\?\\" + InDrawings(name + L".dwg"), std::string(3000, 'x'));
    Run([&](ManagerDriver& driver) {
        EXPECT_THAT(driver.Rows(), ElementsAre(name));
        driver.SelectRows({name});
        EXPECT_THAT(driver.SelectedRows(), ElementsAre(name));
        EXPECT_EQ(GetText(kSelectedDrawingValue), name);
        driver.Command(ID_DRAWINGS_REFRESHLIST);
        EXPECT_THAT(driver.SelectedRows(), ElementsAre(name));
    });
    DeleteFileW((L"\\\\?\\" + InDrawings(name + L".dwg")).c_str());
}

TEST_F(DrawingManagerNames, NameInOtherCase_IsARenameAllTheSame) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    const auto shown = RunAndAnswer({}, [&](ManagerDriver& driver) {
        PutDrawings({L"Late.dwg"});
        windows::EndLabelEdit(driver.EditRow(L"A"), L"a");
        // The list is filled again behind every rename.
        EXPECT_THAT(driver.Rows(), Contains(L"Late"));
        EXPECT_THAT(driver.Rows(), SizeIs(2));
    });
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(DrawingManagerNames, CopyNameTakenInOtherCase_IsPassedOver) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"a (COPY 1).dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_COPY_DRAWING);
        EXPECT_THAT(driver.Rows(), Contains(L"A (Copy 2)"));
        EXPECT_THAT(driver.Rows(), SizeIs(3));
    });
}

TEST_F(DrawingManagerNames, LettersOfAnyScript_AreNamesLikeOthers) {
    UseUsualDatabase();
    const std::wstring pump = L"\u041D\u0430\u0441\u043E\u0441";
    const std::wstring piping = L"\u914D\u7BA1 \U0001F527";
    PutFile(InDrawings(pump + L".dwg"), "x");
    const auto shown = RunAndAnswer({IDNO}, [&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(pump), piping);
        EXPECT_THAT(driver.Rows(), ElementsAre(piping));
        driver.SelectRows({piping});
        EXPECT_EQ(GetText(kSelectedDrawingValue), piping);
        windows::Click(driver.Dialog(), IDC_COPY_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(piping, piping + L" (Copy 1)"));
        driver.SelectRows({piping});
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);
    });
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_THAT(shown[0].text, HasSubstr(piping + L".dwg\n"));
    EXPECT_THAT(Open(piping), ElementsAre(InDrawings(piping + L".dwg")));
}

TEST_F(DrawingManagerNames, NewDrawing_CanBeNamedWithPercentSignsAndQuotes) {
    UseUsualDatabase();
    PutFile(InRoot(L"Templates %d\\acad.dwt"), "template");
    m_database.WithGeneral(5, "General",
                           "TemplatesLocation = " + platform::GetText().Narrow(InRoot(L"Templates %d")));
    Run([&](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_NEW_DRAWING);
        ASSERT_NE(driver.ListEdit(), nullptr);
        windows::EndLabelEdit(driver.ListEdit(), L"'50%s' & 100%");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"'50%s' & 100%"));
    });
    EXPECT_TRUE(HasFile(InDrawings(L"'50%s' & 100%.dwg")));
}

// --- folders

TEST_F(DrawingManagerNames, FolderNames_SurviveARename) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A\\P-1.dwg"), "x");
    const auto shown = RunAndAnswer({}, [&](ManagerDriver& driver) {
        std::wstring name = L"A";
        for (const std::wstring& next :
             {std::wstring(L"100%s %n"), std::wstring(L"it's & (x)"), std::wstring(L"v1.2.final"),
              std::wstring(L"\u0426\u0435\u0445 \u914D\u7BA1"), std::wstring(180, L'n')}) {
            driver.SelectItem(Folder(name));
            RenameSelected(driver, next);
            EXPECT_EQ(driver.SelectedLabel(), next);
            EXPECT_EQ(driver.Location(), InDrawings(next + L"\\"));
            driver.Command(ID_DRAWINGS_REFRESHLIST);
            EXPECT_THAT(driver.Rows(), ElementsAre(L"P-1"));
            name = next;
        }
    });
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(DrawingManagerNames, FolderNameLongerThanAnyMayBe_BringsTheOldLabelBack) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    const auto shown = RunAndAnswer({}, [&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        RenameSelected(driver, std::wstring(kLongestName + 1, L'n'));
        EXPECT_EQ(driver.SelectedLabel(), L"A");
        EXPECT_EQ(driver.Location(), InDrawings(L"A\\"));
    });
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_TRUE(HasFolder(InDrawings(L"A")));
}

TEST_F(DrawingManagerNames, RememberedFolderWithQuotes_IsLookedForWithoutThem) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A\\B"));
    SetValue(kSelectedFolderValue, std::wstring(L"\"A\"\\B\\"));
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.SelectedLabel(), L"B"); });
    SetValue(kSelectedFolderValue, std::wstring(L"\"A\\B\\"));
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.SelectedLabel(), L"Pump House"); });
}

TEST_F(DrawingManagerNames, StandardWithAPercentSign_IsShownAndOpened) {
    UseUsualDatabase();
    m_database.WithClient(2, "50%s & Sons").WithClientProject(2, 8);
    AddStandard(8, "100%d", L"Eight %s");
    PutFile(InRoot(L"Eight %s\\P-1.dwg"), "x");
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"50%s & Sons", L"100%d"});
        EXPECT_EQ(driver.Location(), InRoot(L"Eight %s\\"));
        EXPECT_THAT(driver.Rows(), ElementsAre(L"P-1"));
    });
}

// --- things that vanish

TEST_F(DrawingManagerNames, FolderThatVanishesWhileShown_IsToldByEachOperation) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    const auto shown = RunAndAnswer({IDOK, IDYES}, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        ASSERT_TRUE(DeleteFileW(InDrawings(L"A.dwg").c_str()));
        ASSERT_TRUE(RemoveDirectoryW(InRoot(L"Drawings").c_str()));
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
        ASSERT_THAT(GetBoxes(), SizeIs(1));
        EXPECT_EQ(GetBoxes()[0].text, L"Cannot find drawing file:\n" + InDrawings(L"A.dwg"));
        windows::EndLabelEdit(driver.EditRow(L"A"), L"B");  // the framework tells
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A")) << "the list is not filled again";
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);  // after the question, silence
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A"));
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_COPY_DRAWING);
        ASSERT_THAT(GetBoxes(), SizeIs(2));
        EXPECT_EQ(GetBoxes()[1].text, L"Error copying file\nFrom: " + InDrawings(L"A.dwg") + L"\nTo: " +
                                          InDrawings(L"A (Copy 1).dwg"));
        EXPECT_THAT(driver.Rows(), IsEmpty());
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
    });
    EXPECT_THAT(shown, SizeIs(2));
}

TEST_F(DrawingManagerNames, DrawingDeletedBeforeItIsOpenedReadOnly_IsTold) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    ManagerDlg dialog;
    Run(dialog, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"B"});
        ASSERT_TRUE(DeleteFileW(InDrawings(L"A.dwg").c_str()));
        driver.Command(ID_DRAWINGS_OPENREADONLY);
    });
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"B.dwg")));
    ASSERT_THAT(GetBoxes(), SizeIs(1));
    EXPECT_EQ(GetBoxes()[0].text, L"Cannot find drawing file:\n" + InDrawings(L"A.dwg"));
}

TEST_F(DrawingManagerNames, LockThatGoesBeforeTheClick_StillHasItsNote) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    PutFile(InDrawings(L"A.dwl"), Lines({"anna", "WS7", "today"}));
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(driver.ImageOfRow(L"A"), kDrawingLocked);
        ASSERT_TRUE(DeleteFileW(InDrawings(L"A.dwl").c_str()));
        driver.ClickRow(L"A");
        EXPECT_TRUE(windows::WaitFor([] { return FindBalloon() != nullptr; }));
        driver.Command(ID_DRAWINGS_REFRESHLIST);
        EXPECT_EQ(driver.ImageOfRow(L"A"), kDrawingNormal);
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerNames, DriveThatIsNotThere_TakesEveryFolderCommandInSilence) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Lost");
    m_database.WithGeneral(7, "Drawings Location", "PID = Q:\\Nowhere");
    SetValue(kProjectIdValue, 7);
    const auto shown = RunAndAnswer({}, [](ManagerDriver& driver) {
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_EQ(driver.SelectedLabel(), L"Lost");
        driver.Expand({L"Lost"});
        driver.Command(ID_DRAWINGS_REFRESHLIST);
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        EXPECT_THAT(driver.Rows(), IsEmpty());
        driver.Command(ID_PROJECTS_REFRESHLIST);
        EXPECT_THAT(driver.TreeLines(), Contains(L"Lost"));
    });
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_THAT(GetBoxes(), IsEmpty());
}
