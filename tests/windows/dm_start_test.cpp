// How the Drawing Manager starts from the palette: what a launcher left, the palette's button, the end of the
// last document.
#include <gmock/gmock.h>

#include "dm_start_fixture.h"
#include "resources/resource.h"

using platform::Hive;
using testing::IsEmpty;

TestApp g_app;

// --- the first request: what a launcher left

TEST_F(DrawingManagerStart, LauncherWithStandardAndDrawing_OpensItWithoutTheDialog) {
    PutFile(InDrawings(L"100%s P-1.dwg"), kDrawing);
    LeaveByLauncher(6, InDrawings(L"100%s P-1.dwg"));
    Start();
    const NoManagerComes none;
    Request();
    windows::PumpWaiting();
    EXPECT_EQ(CurrentFile(), InDrawings(L"100%s P-1.dwg"));
    EXPECT_EQ(GetNumber(kManagerKey, kProjectIdValue), 6u);
    EXPECT_EQ(GetNumber(kLauncherKey, L"ProjectId"), 0u);
    std::wstring left = L"?";
    EXPECT_TRUE(platform::GetRegistry().ReadString(Hive::kCurrentUser, kLauncherKey, L"DrawingName", left));
    EXPECT_EQ(left, L"");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DrawingManagerStart, LaunchersDrawingThatCannotBeOpened_IsToldWithTheHostsReason) {
    LeaveByLauncher(6, InDrawings(L"50%s gone.dwg"));
    Start();
    const NoManagerComes none;
    Request();
    windows::PumpWaiting();
    ASSERT_EQ(Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].caption, L"TESSARC +");
    EXPECT_EQ(Boxes()[0].text.find(L"Error opening drawing:\n" + InDrawings(L"50%s gone.dwg") +
                                   L"\n\nAutoCAD Error: "),
              0u)
        << testing::PrintToString(Boxes()[0].text);
    EXPECT_EQ(Boxes()[0].owner, m_session->Frame()->m_hWnd);
    EXPECT_EQ(GetNumber(kManagerKey, kProjectIdValue), 6u);
    EXPECT_EQ(acDocManager->documentCount(), 1) << "the first drawing stays";
}

TEST_F(DrawingManagerStart, UntitledFirstDrawing_ClosesUnsavedAndTheDialogComes) {
    LeaveByLauncher(6, L"");
    Start();
    Enter(L"_.LINE 0,0 100,50 ");
    Enter(L"");
    InManager([&](ManagerDriver& driver) {
        EXPECT_EQ(acDocManager->documentCount(), 0);
        EXPECT_EQ(driver.SelectedLabel(), L"Tank Farm");
        driver.Escape();
    });
    EXPECT_THAT(Boxes(), IsEmpty()) << "nothing is asked about the changed drawing";
}

TEST_F(DrawingManagerStart, TitledFirstDrawing_StaysAndTheDialogComesWithTheNextRequest) {
    PutFile(InDrawings(L"P-1.dwg"), kDrawing);
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start({InDrawings(L"P-1.dwg")});
    {
        const NoManagerComes none;
        Request();
        windows::PumpWaiting();
    }
    EXPECT_EQ(CurrentFile(), InDrawings(L"P-1.dwg"));
    bool came = false;
    InManager([&](ManagerDriver& driver) {
        came = true;
        driver.Escape();
    });
    EXPECT_TRUE(came);
    EXPECT_EQ(CurrentFile(), InDrawings(L"P-1.dwg"));
}

TEST_F(DrawingManagerStart, ManagerThatShallNotReturn_LeavesTheFirstDrawingAlone) {
    SetNumber(kManagerKey, kShowWindowValue, 0);
    Start();
    const NoManagerComes none;
    Request();
    windows::PumpWaiting();
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(DrawingManagerStart, LaunchersValues_AreTakenOverOnce) {
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start();
    SpendFirstRequest();
    LeaveByLauncher(6, L"");
    InManager([](ManagerDriver& driver) {
        EXPECT_EQ(driver.SelectedLabel(), L"Pump House");
        driver.Escape();
    });
    EXPECT_EQ(GetNumber(kLauncherKey, L"ProjectId"), 6u);
}

TEST_F(DrawingManagerStart, PalettesButton_OpensTheDialogAtOnce) {
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start();
    HWND button = nullptr;
    EnumChildWindows(
        *m_session->Frame(),
        [](HWND window, LPARAM result) -> BOOL {
            const bool found =
                GetDlgCtrlID(window) == IDC_PALETTE_DRAWING_MANAGER && windows::ClassOf(window) == L"Button";
            if (found) *reinterpret_cast<HWND*>(result) = window;
            return !found;
        },
        reinterpret_cast<LPARAM>(&button));
    ASSERT_NE(button, nullptr);
    bool came = false;
    InManager([&] { PostMessageW(button, BM_CLICK, 0, 0); },
              [&](ManagerDriver& driver) {
                  came = true;
                  EXPECT_EQ(driver.SelectedLabel(), L"Pump House");
                  driver.Escape();
              });
    EXPECT_TRUE(came);
}

TEST_F(DrawingManagerStart, WarningAboutMissingStandards_ComesBeforeTheDialogIsSeen) {
    Start();
    SpendFirstRequest();
    PutFile(InData(L"ClientDatafile.ini"), "");
    PutFile(InData(L"ProjectDatafile.ini"), "");
    SetNumber(kManagerKey, kProjectIdValue, 5);
    InManager([&](ManagerDriver& driver) {
        ASSERT_EQ(Boxes().size(), 1u);
        EXPECT_EQ(Boxes()[0].text,
                  L"Warning: No standards have been created!\n\nPlease use the Standards Manager to create a "
                  L"standard.");
        EXPECT_EQ(Boxes()[0].caption, L"Drawing Manager");
        EXPECT_EQ(Boxes()[0].owner, m_session->Frame()->m_hWnd);
        EXPECT_THAT(driver.TreeLines(), IsEmpty());
        driver.Escape();
    });
}

// --- the last document goes

TEST_F(DrawingManagerStart, LastDocumentClosed_BringsTheDialogBack) {
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start();
    SpendFirstRequest();
    bool came = false;
    InManager([] { acDocManager->appContextCloseDocument(acDocManager->curDocument()); },
              [&](ManagerDriver& driver) {
                  came = true;
                  EXPECT_EQ(acDocManager->documentCount(), 0);
                  driver.Escape();
              });
    EXPECT_TRUE(came);
}

TEST_F(DrawingManagerStart, LastDocumentClosedAfterAStandardWasOpened_BringsNoDialog) {
    Start();
    SpendFirstRequest();
    SetNumber(kManagerKey, kShowWindowValue, 0);
    const NoManagerComes none;
    acDocManager->appContextCloseDocument(acDocManager->curDocument());
    windows::PumpWaiting();
    EXPECT_EQ(acDocManager->documentCount(), 0);
}

TEST_F(DrawingManagerStart, OneOfTwoDocumentsClosed_BringsNoDialog) {
    PutFile(InDrawings(L"P-1.dwg"), kDrawing);
    PutFile(InDrawings(L"P-2.dwg"), kDrawing);
    Start({InDrawings(L"P-1.dwg"), InDrawings(L"P-2.dwg")});
    const NoManagerComes none;
    acDocManager->appContextCloseDocument(acDocManager->curDocument());
    windows::PumpWaiting();
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(DrawingManagerStart, SingleDoc_ClosesTheLastDocumentWithoutASecondDialog) {
    PutFile(InDrawings(L"P-1.dwg"), kDrawing);
    SetNumber(kManagerKey, kProjectIdValue, 5);
    SetNumber(kManagerKey, kSingleDocumentValue, 1);
    Start();
    SpendFirstRequest();
    std::unique_ptr<NoManagerComes> none;
    InManager([&](ManagerDriver& driver) {
        driver.SelectRows({L"P-1"});
        none = std::make_unique<NoManagerComes>(driver.Dialog());
        driver.Command(ID_DRAWINGS_OPEN);
    });
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(CurrentFile(), InDrawings(L"P-1.dwg"));
}
