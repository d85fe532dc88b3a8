// The Drawing Manager as a dialog: how it comes up, what it remembers, how it ends and what it then says.
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"
#include "storage/applications.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class DrawingManagerDialog : public DrawingManagerTest {
  protected:
    // A template folder with acad.dwt for the standard.
    std::wstring AddTemplates(int id) {
        const std::wstring folder = InRoot(L"Templates\\");
        PutFile(folder + L"acad.dwt", "template");
        m_database.WithGeneral(id, "General",
                               "TemplatesLocation = " + platform::GetText().Narrow(InRoot(L"Templates")));
        return folder;
    }
};

constexpr wchar_t kCloseWarning[] =
    L"Warning: You must open a drawing that is under project control.\n"
    L"If you do not, Vandrel will not function properly.\n\n"
    L"Are you sure you want to close the Drawing Manager without opening a drawing?";

}  // namespace

TEST_F(DrawingManagerDialog, Title_IsReadBackFromTheWindow) {
    UseUsualDatabase();
    ManagerDlg dialog;
    Run(dialog, [](ManagerDriver& driver) {
        EXPECT_EQ(windows::TextOf(driver.Dialog()), L"Drawing Manager");
        EXPECT_NE(SendMessageW(driver.Dialog(), WM_GETICON, ICON_BIG, 0), 0);
        EXPECT_NE(SendMessageW(driver.Dialog(), WM_GETICON, ICON_SMALL, 0), 0);
    });
    EXPECT_EQ(dialog.m_strTitle, L"Drawing Manager");
}

TEST_F(DrawingManagerDialog, StoredProject_IsSelected) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 6);
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(driver.SelectedLabel(), L"Tank Farm");
        EXPECT_EQ(driver.Location(), InRoot(L"Tanks\\"));
    });
}

TEST_F(DrawingManagerDialog, NegativeStoredProject_CountsAsPositive) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, static_cast<std::uint32_t>(-5));
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.SelectedLabel(), L"Pump House"); });
}

TEST_F(DrawingManagerDialog, DeletedStoredProject_SelectsFirstRootItemAndForgetsTheFolder) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 99);
    SetValue(kSelectedFolderValue, std::wstring(L"Pump House\\"));
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(driver.SelectedLabel(), L"Acme");
        EXPECT_EQ(driver.Location(), L"");
    });
}

TEST_F(DrawingManagerDialog, NoStandards_WarnsAndStillOpens) {
    UseDatabase();
    SetValue(kProjectIdValue, 5);
    bool shown = false;
    Run([&](ManagerDriver& driver) {
        shown = true;
        EXPECT_THAT(driver.TreeLines(), IsEmpty());
        EXPECT_FALSE(driver.Enabled(IDC_OPEN_STANDARD));
        EXPECT_FALSE(driver.Enabled(IDC_NEW_DRAWING));
        ASSERT_EQ(GetBoxes().size(), 1u);
        EXPECT_EQ(GetBoxes()[0].text,
                  L"Warning: No standards have been created!\n\nPlease use the Standards Manager to create a "
                  L"standard.");
        EXPECT_EQ(GetBoxes()[0].caption, L"Drawing Manager");
        EXPECT_EQ(GetBoxes()[0].flags, static_cast<unsigned>(MB_ICONERROR));
    });
    EXPECT_TRUE(shown);
}

TEST_F(DrawingManagerDialog, SecondInitialisation_DoesNothing) {
    UseUsualDatabase();
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        SendMessageW(driver.Dialog(), WM_INITDIALOG, 0, 0);
        EXPECT_EQ(driver.SelectedLabel(), L"Tank Farm");
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerDialog, MissingThumbnailControl_LeavesAnEmptyPane) {
    UseUsualDatabase();
    PutDrawings({L"P-1.dwg"});
    Run([](ManagerDriver& driver) {
        driver.SelectRows({L"P-1"});
        EXPECT_TRUE(driver.Shown(IDC_THUMBNAIL));
        EXPECT_EQ(windows::TextOf(driver.Dialog(), IDC_THUMBNAIL), L"");
    });
}

TEST_F(DrawingManagerDialog, RememberedRectangle_IsCutToTheGreatestSizeAndTheScreensCorner) {
    UseUsualDatabase();
    SetValue(kWindowPositionValue, std::wstring(L"-50,20,1950,720,300,65,308,400,12,300,300,308,1"));
    Run([](ManagerDriver& driver) {
        const CRect rect = driver.WindowRect();
        EXPECT_EQ(rect.left, 0);
        EXPECT_EQ(rect.top, 20);
        // The system holds a window to the screen as well.
        EXPECT_EQ(rect.Width(), std::min(1600, GetSystemMetrics(SM_CXMAXTRACK)));
        EXPECT_EQ(rect.Height(), 700);
    });
}

TEST_F(DrawingManagerDialog, DamagedRectangle_OpensASmallWindowThatCanBeDraggedLarger) {
    UseUsualDatabase();
    for (const wchar_t* text : {L"nonsense", L"1", L"5,6,7", L"99999999999,1,-99999999999,2,3", L",,,,"}) {
        SetValue(kWindowPositionValue, std::wstring(text));
        Run([&](ManagerDriver& driver) {
            EXPECT_TRUE(driver.Shown(IDC_DRAWING_LIST)) << text;
            driver.ResizeTo(900, 600);
            EXPECT_GT(driver.RectOf(IDC_DRAWING_LIST).Width(), 400) << text;
            EXPECT_GT(driver.RectOf(IDC_TREE).Height(), 40) << text;
        });
    }
}

TEST_F(DrawingManagerDialog, HiddenDrawings_AreRemembered) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(GetText(kWindowPositionValue).back(), L'0');
    Run([](ManagerDriver& driver) {
        EXPECT_FALSE(driver.Shown(IDC_DRAWING_LIST));
        EXPECT_FALSE(driver.Shown(IDC_LOCATION));
        EXPECT_TRUE(driver.Shown(IDC_TREE));
    });
}

TEST_F(DrawingManagerDialog, WindowPosition_ComesBackAsItWasLeft) {
    UseUsualDatabase();
    const std::wstring position = L"60,40,960,640,340,65,348,520,12,300,340,308,1";
    SetValue(kWindowPositionValue, position);
    Run([](ManagerDriver& driver) { SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0); });
    const std::wstring saved = GetText(kWindowPositionValue);
    EXPECT_EQ(saved.substr(0, 18), L"60,40,960,640,340,");
    Run([](ManagerDriver& driver) { SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(GetText(kWindowPositionValue), saved);
}

TEST_F(DrawingManagerDialog, Escape_KeepsWhatIsRemembered) {
    UseUsualDatabase();
    const std::wstring position = L"60,40,960,640,340,65,348,520,12,300,340,308,1";
    SetValue(kWindowPositionValue, position);
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 700);
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        driver.Escape();
    });
    EXPECT_EQ(GetText(kWindowPositionValue), position);
    EXPECT_EQ(GetNumber(kBackupStateValue), 0xDEADu);
}

TEST_F(DrawingManagerDialog, CloseBox_RemembersPositionAndBackups) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        SetWindowPos(driver.Dialog(), nullptr, 30, 20, 1000, 700, SWP_NOZORDER);
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(GetText(kWindowPositionValue).substr(0, 14), L"30,20,1030,720");
    EXPECT_EQ(GetNumber(kBackupStateValue), 8u);
}

TEST_F(DrawingManagerDialog, AnyRememberedStateOfBackups_IsSwitchedOff) {
    UseUsualDatabase();
    SetValue(kBackupStateValue, 3);
    Run([](ManagerDriver& driver) {
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(GetNumber(kBackupStateValue), 0u);
}

TEST_F(DrawingManagerDialog, ClosingWithoutEverOpening_AsksAndNoKeepsTheDialog) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 0);
    ManagerDlg dialog;
    windows::BoxAnswers boxes({IDNO, IDYES});
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.Escape();
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
    });
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(dialog.m_strStandardTemplate, L"");
    EXPECT_THAT(dialog.m_astrOpenList, IsEmpty());
    ASSERT_EQ(boxes.Shown().size(), 2u);
    EXPECT_EQ(boxes.Shown()[0].text, kCloseWarning);
    EXPECT_EQ(boxes.Shown()[0].caption, L"Drawing Manager");
    EXPECT_EQ(boxes.Shown()[0].buttons.size(), 2u);
    EXPECT_EQ(boxes.Shown()[0].defaultButton, IDNO);
}

TEST_F(DrawingManagerDialog, CloseBoxAnsweredWithNo_HasRememberedAllTheSame) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 0);
    const auto shown = RunAndAnswer({IDNO, IDYES}, [&](ManagerDriver& driver) {
        SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0);
        windows::PumpWaiting();
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
        EXPECT_NE(GetText(kWindowPositionValue), L"");
    });
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(DrawingManagerDialog, ClosingAfterAnyOpening_DoesNotAsk) {
    UseUsualDatabase();
    const auto shown = RunAndAnswer({}, [](ManagerDriver& driver) { driver.SelectItem({L"Acme"}); });
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(DrawingManagerDialog, OpenStandard_NamesTheTemplateAndRemembers) {
    UseUsualDatabase();
    const std::wstring folder = AddTemplates(6);
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        windows::Click(driver.Dialog(), IDC_OPEN_STANDARD);
    });
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(dialog.m_strStandardTemplate, folder + L"acad.dwt");
    EXPECT_EQ(GetNumber(kProjectIdValue), 6u);
    EXPECT_EQ(GetNumber(kShowWindowValue), 0u);
    EXPECT_NE(GetText(kWindowPositionValue), L"");
}

TEST_F(DrawingManagerDialog, OpenStandardOnAFolder_OpensItsStandard) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A\\B"));
    ManagerDlg dialog;
    Run(dialog, [](ManagerDriver& driver) {
        driver.SelectItem({L"Acme", L"Pump House", L"A", L"B"});
        driver.Command(ID_PROJECTS_OPEN);
    });
    EXPECT_EQ(dialog.m_strStandardTemplate, L"acad.dwt");
    EXPECT_EQ(GetNumber(kProjectIdValue), 5u);
}

TEST_F(DrawingManagerDialog, OpenStandard_NeverAsks) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 0);
    const auto shown = RunAndAnswer({}, [](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        windows::Click(driver.Dialog(), IDC_OPEN_STANDARD);
    });
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(DrawingManagerDialog, ReturnWhileDrawingsAreHidden_OpensTheStandard) {
    UseUsualDatabase();
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        driver.Command(IDOK);
    });
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(dialog.m_strStandardTemplate, L"acad.dwt");
}

TEST_F(DrawingManagerDialog, ReturnWhileHiddenWithAClient_WritesZeroAndOpensNothing) {
    UseUsualDatabase();
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.SelectItem({L"Acme"});
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        driver.Command(IDOK);
    });
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(dialog.m_strStandardTemplate, L"");
    EXPECT_EQ(GetNumber(kProjectIdValue), 0u);
    EXPECT_EQ(GetNumber(kShowWindowValue), 0u);
}

TEST_F(DrawingManagerDialog, ReturnWithARow_OpensTheDrawing) {
    UseUsualDatabase();
    PutDrawings({L"P-1.dwg"});
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.SelectRows({L"P-1"});
        driver.Command(IDOK);
    });
    EXPECT_EQ(answer, IDOK);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"P-1.dwg")));
    EXPECT_FALSE(dialog.m_bOpenReadOnly);
}

TEST_F(DrawingManagerDialog, ReturnAfterOpenReadOnlyOfABackup_OpensForWriting) {
    UseUsualDatabase();
    PutDrawings({L"P-1.dwg", L"P-2.bak"});
    SetValue(kBackupStateValue, 8);
    ManagerDlg dialog;
    Run(dialog, [](ManagerDriver& driver) {
        driver.SelectRows({L"P-2.bak"});
        driver.Command(ID_DRAWINGS_OPENREADONLY);  // only the box, and the dialog stays
        driver.SelectRows({L"P-1"});
        driver.Command(IDOK);
    });
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"P-1.dwg")));
    EXPECT_FALSE(dialog.m_bOpenReadOnly);
}

TEST_F(DrawingManagerDialog, SingleDoc_IsWrittenAtEachClick) {
    UseUsualDatabase();
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(IsDlgButtonChecked(driver.Dialog(), IDC_SINGLE_DOC), static_cast<UINT>(BST_UNCHECKED));
        windows::Click(driver.Dialog(), IDC_SINGLE_DOC);
        EXPECT_EQ(GetNumber(kSingleDocumentValue), 1u);
    });
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(IsDlgButtonChecked(driver.Dialog(), IDC_SINGLE_DOC), static_cast<UINT>(BST_CHECKED));
        windows::Click(driver.Dialog(), IDC_SINGLE_DOC);
        EXPECT_EQ(GetNumber(kSingleDocumentValue), 0u);
    });
}

TEST_F(DrawingManagerDialog, MissingHelpFile_IsTold) {
    UseUsualDatabase();
    const auto shown =
        RunAndAnswer({IDOK}, [](ManagerDriver& driver) { windows::Click(driver.Dialog(), IDC_HELP_BUTTON); });
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_THAT(shown[0].text, HasSubstr(L"Couldn't find help file: \n"));
    EXPECT_THAT(shown[0].text, HasSubstr(L"\n\nPlease check software installation."));
    EXPECT_EQ(GetModuleHandleW(L"hhctrl.ocx"), nullptr);
}

TEST_F(DrawingManagerDialog, Buttons_FollowTreeAndList) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg", L"A.bak"});
    PutFolder(InDrawings(L"Area"));
    SetValue(kBackupStateValue, 8);
    Run([](ManagerDriver& driver) {
        EXPECT_TRUE(driver.Enabled(IDC_OPEN_STANDARD));
        EXPECT_TRUE(driver.Enabled(IDC_NEW_DRAWING));
        EXPECT_TRUE(driver.Enabled(IDC_EXPLORE));
        EXPECT_FALSE(driver.Enabled(IDC_OPEN_DRAWING));
        EXPECT_FALSE(driver.Enabled(IDC_DELETE_DRAWING));
        driver.SelectRows({L"A.bak"});
        EXPECT_FALSE(driver.Enabled(IDC_OPEN_DRAWING));
        EXPECT_TRUE(driver.Enabled(IDC_COPY_DRAWING));
        driver.SelectRows({L"A.bak", L"B"});
        for (int id : {IDC_OPEN_DRAWING, IDC_COPY_DRAWING, IDC_RENAME_DRAWING, IDC_DELETE_DRAWING}) {
            EXPECT_TRUE(driver.Enabled(id)) << id;
        }
        driver.SelectItem({L"Acme", L"Pump House", L"Area"});
        EXPECT_FALSE(driver.Enabled(IDC_OPEN_STANDARD));
        EXPECT_TRUE(driver.Enabled(IDC_NEW_DRAWING));
        EXPECT_FALSE(driver.Enabled(IDC_COPY_DRAWING));
        driver.SelectItem({L"Acme"});
        for (int id : {IDC_OPEN_STANDARD, IDC_NEW_DRAWING, IDC_EXPLORE, IDC_OPEN_DRAWING}) {
            EXPECT_FALSE(driver.Enabled(id)) << id;
        }
    });
}

TEST_F(DrawingManagerDialog, SelectionThatDisablesButtons_TakesTheFocusOutOfTheTree) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        SetFocus(driver.Tree());
        driver.SelectItem({L"Acme"});
        EXPECT_EQ(GetFocus(), windows::Control(driver.Dialog(), IDC_SINGLE_DOC));
        EXPECT_EQ(driver.SelectedLabel(), L"Acme");
    });
}

TEST_F(DrawingManagerDialog, EachDiscipline_HasItsOwnKeyAndLocation) {
    UseUsualDatabase();
    PutFile(InRoot(L"Iso\\I-1.dwg"), "x");
    m_database.WithGeneral(5, "Drawings Location",
                           "ISOMETRIC = " + platform::GetText().Narrow(InRoot(L"Iso")));
    g_nPaletteDiscipline = kAppIsometric;
    SetValue(kProjectIdValue, 5);
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(driver.Location(), InRoot(L"Iso\\"));
        EXPECT_THAT(driver.Rows(), ElementsAre(L"I-1"));
    });
}

TEST_F(DrawingManagerDialog, RunTwentyTimes_LeavesNothingBehind) {
    UseUsualDatabase();
    PutDrawings({L"P-1.dwg"});
    const auto run = [this] { Run([](ManagerDriver& driver) { driver.SelectRows({L"P-1"}); }); };
    run();
    windows::PumpWaiting();
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < 20; ++i)
        run();
    windows::PumpWaiting();
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_LE(after.gdi, before.gdi + 2);
}
