// What the palette's controls do: choices go into the drawing's record, the isoplane and the host's snap
// variables follow each other, the button's tip tells the project.
#include <afxcmn.h>
#include <afxwin.h>
#include <gmock/gmock.h>

#include "document/drawing_queries.h"
#include "palette_fixture.h"
#include "storage/registry_settings.h"

using test_control::Seen;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr wchar_t kEscapes[] = L"\x1b\x1b\x1b";

class PaletteState : public PaletteTest {
  protected:
    void Click(int id) {
        windows::Click(Palette().Dialog(), id);
        windows::PumpWaiting();
    }
    // "SNAPSTYL", "SNAPISOPAIR" and the stored isoplane.
    std::vector<int> Isoplane() {
        return {Variable(L"SNAPSTYL"), Variable(L"SNAPISOPAIR"), Stored(&CKV2D_DocXData::m_isoPlane)};
    }
    void SetSnap(const wchar_t* name, int value) {
        Enter(L"(setvar \"" + std::wstring(name) + L"\" " + std::to_wstring(value) + L")");
    }
    // The text that the dialog gives for the tip of a control, with room for 80 characters; "(none)" if it
    // gives none.
    std::wstring TipOf(int id, UINT flags = TTF_IDISHWND) {
        NMTTDISPINFOW request{};
        const HWND dialog = Palette().Dialog();
        const HWND control = GetDlgItem(dialog, id);
        request.hdr.hwndFrom = dialog;
        request.hdr.idFrom =
            flags & TTF_IDISHWND ? reinterpret_cast<UINT_PTR>(control) : static_cast<UINT_PTR>(id);
        request.hdr.code = TTN_GETDISPINFOW;
        request.uFlags = flags;
        wcscpy(request.szText, L"(none)");
        request.hinst = reinterpret_cast<HINSTANCE>(kUntouched);
        SendMessageW(dialog, WM_NOTIFY, request.hdr.idFrom, reinterpret_cast<LPARAM>(&request));
        EXPECT_EQ(request.hinst, reinterpret_cast<HINSTANCE>(kUntouched)) << "what stands behind the text";
        return request.szText;
    }

    // What comes up when the mouse rests on a control; empty for nothing.
    std::wstring TipUnderTheMouse(int id) {
        RECT rect{};
        GetWindowRect(GetDlgItem(Palette().Dialog(), id), &rect);
        const auto pumped = [](MSG& message) { return AfxPreTranslateMessage(&message) != FALSE; };
        SetCursorPos(rect.left + 8, rect.top + 8);
        windows::WaitFor([] { return false; }, std::chrono::milliseconds(100), pumped);
        SetCursorPos(rect.left + 11, rect.top + 8);
        windows::WaitFor([] { return windows::VisibleTip() != nullptr; }, windows::kPatience, pumped);
        const HWND tip = windows::VisibleTip();
        const std::wstring text = tip ? windows::TextOf(tip) : L"";
        // Away again, so that the next tip is another one.
        SetCursorPos(900, 700);
        windows::WaitFor([] { return windows::VisibleTip() == nullptr; }, windows::kPatience, pumped);
        return text;
    }

  private:
    static constexpr INT_PTR kUntouched = 0x1234;
};

}  // namespace

// --- choices

TEST_F(PaletteState, FlowDiagram_StoresSpecAndLineById_SizeByPlace) {
    StartWithDrawing(kAppPid);
    Choose(kSpecRow, L"SS300");
    ChooseIndex(kMainSizeRow, 5);
    Choose(kPidLineRow, L"P-13");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_specId), 7);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_mainSize), 5);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 13);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_branchSize), 10) << "flow diagrams have one size";
}

TEST_F(PaletteState, IsometricAndPlan_StoreBothSizesAndTheLineOfTheFourthRow) {
    UseUsualDatabase();
    for (int app : {kAppIsometric, kAppOrtho}) {
        StartPalette(app);
        NewDrawing(5);
        Choose(kSpecRow, L"CS150");
        ChooseIndex(kMainSizeRow, 6);
        ChooseIndex(kBranchSizeRow, 3);
        Choose(kLineRow, L"P-12");
        EXPECT_EQ(Stored(&CKV2D_DocXData::m_specId), 3);
        EXPECT_EQ(Stored(&CKV2D_DocXData::m_mainSize), 6);
        EXPECT_EQ(Stored(&CKV2D_DocXData::m_branchSize), 3);
        EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 12);
        End();
    }
}

TEST_F(PaletteState, Spec_IsToldToLispQuietly_ChangedOrNot) {
    StartWithDrawing(kAppPid);
    const auto expected =
        ElementsAre(Sent{kEscapes, false, false}, Sent{L"(kv2dMenu_OnSpecClick) ", false, false});
    EXPECT_THAT(SentBy([this] { Choose(kSpecRow, L"SS300"); }), expected);
    EXPECT_THAT(SentBy([this] { Choose(kSpecRow, L"SS300"); }), expected);
}

TEST_F(PaletteState, SpecClick_FindsTheNewSpecInTheRecordAndLeavesNoTraceOnTheCommandLine) {
    StartWithDrawing(kAppPid);
    Enter(L"(defun kv2dMenu_OnSpecClick () (princ (strcat \"heard \" \"the click\")))");
    Choose(kSpecRow, L"SS300");
    EXPECT_TRUE(Said(L"heard the click"));
    EXPECT_FALSE(Said(L"(kv2dMenu_OnSpecClick)"));
}

TEST_F(PaletteState, OtherRows_SendNothing) {
    StartWithDrawing(kAppIsometric);
    EXPECT_THAT(SentBy([this] {
                    ChooseIndex(kMainSizeRow, 1);
                    ChooseIndex(kBranchSizeRow, 1);
                    Choose(kLineRow, L"P-12");
                }),
                IsEmpty());
}

TEST_F(PaletteState, Electric_StoresTheMenuAndLoadsItChangedOrNot) {
    StartWithDrawing(kAppElectric);
    Seen().loaded.clear();
    Choose(0, L"Schematic");
    Choose(0, L"Schematic");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_electricMode), 1);
    Choose(0, L"Layout");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_electricMode), 0);
    const std::wstring folder = InRoot(L"App\\Tessarc\\ELECTRIC\\");
    EXPECT_THAT(Seen().loaded, ElementsAre(folder + L"ElectricSch16.tbm", folder + L"ElectricSch16.tbm",
                                           folder + L"ElectricLay16.tbm"));
}

TEST_F(PaletteState, Electric_ChangeOfDrawingBringsItsMenu) {
    StartWithDrawing(kAppElectric);
    AcApDocument* first = acDocManager->curDocument();
    Choose(0, L"Schematic");
    NewDrawing(5);
    EXPECT_EQ(Palette().Choice(0), L"Layout");
    Seen().loaded.clear();
    Activate(first);
    EXPECT_EQ(Palette().Choice(0), L"Schematic");
    EXPECT_THAT(Seen().loaded, ElementsAre(InRoot(L"App\\Tessarc\\ELECTRIC\\ElectricSch16.tbm")));
}

TEST_F(PaletteState, Electric_UnknownMode_LoadsNothing) {
    StartWithDrawing(kAppElectric);
    Seen().loaded.clear();
    Store([](CKV2D_DocXData& data) { data.m_electricMode = 5; });
    ShowChoices();
    EXPECT_THAT(Seen().loaded, IsEmpty());
}

TEST_F(PaletteState, RecordChangedByLisp_IsShown) {
    StartWithDrawing(kAppPid);
    Store([](CKV2D_DocXData& data) {
        data.m_specId = 7;
        data.m_mainSize = 2;
        data.m_lineId = 12;
    });
    ShowChoices();
    EXPECT_EQ(Palette().Choice(kSpecRow), L"SS300");
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 2);
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"P-12");
}

TEST_F(PaletteState, StoredIdThatIsNotOffered_LeavesTheRowsAsTheyAre) {
    StartWithDrawing(kAppPid);
    Choose(kSpecRow, L"SS300");
    Store([](CKV2D_DocXData& data) { data.m_specId = 999; });
    Choose(kPidLineRow, L"P-12");
    Store([](CKV2D_DocXData& data) { data.m_lineId = 14; });
    ShowChoices();
    EXPECT_EQ(Palette().Choice(kSpecRow), L"SS300");
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"P-12") << "a deleted line is not offered";
}

TEST_F(PaletteState, SizeBeyondTheList_ChoosesNoOtherSize) {
    StartWithDrawing(kAppPid);
    const SentMessages choices(CB_SETCURSEL);
    Store([](CKV2D_DocXData& data) { data.m_mainSize = 500; });
    ShowChoices();
    // What a combo box makes of it is the system's; the record stays.
    ASSERT_EQ(choices.To(Palette().Combo(kMainSizeRow)), 1);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_mainSize), 500);
}

// --- swap

TEST_F(PaletteState, Swap_ExchangesTheSizesInRecordAndRows) {
    StartWithDrawing(kAppOrtho);
    ChooseIndex(kMainSizeRow, 8);
    ChooseIndex(kBranchSizeRow, 3);
    Click(IDC_PALETTE_SWAP_SIZE);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_mainSize), 3);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_branchSize), 8);
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 3);
    EXPECT_EQ(Palette().ChosenIndex(kBranchSizeRow), 8);
    Click(IDC_PALETTE_SWAP_SIZE);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_mainSize), 8);
}

TEST_F(PaletteState, SwapOfEqualSizes_ShowsTheRecordAgain) {
    StartWithDrawing(kAppIsometric);
    ChooseIndex(kMainSizeRow, 4);
    ChooseIndex(kBranchSizeRow, 4);
    SendMessageW(Palette().Combo(kMainSizeRow), CB_SETCURSEL, 9, 0);
    Click(IDC_PALETTE_SWAP_SIZE);
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 4);
}

// --- isoplane

TEST_F(PaletteState, IsoplaneClicks_GoThroughAllStatesAndWrap) {
    StartWithDrawing(kAppIsometric);
    Store([](CKV2D_DocXData& data) { data.m_isoPlane = 0; });
    ShowChoices();
    EXPECT_THAT(Isoplane(), ElementsAre(1, 2, 0));
    const std::vector<std::vector<int>> expected = {{1, 1, 1}, {1, 0, 2}, {1, 1, 3}, {1, 0, 4},
                                                    {1, 2, 5}, {0, 2, 6}, {1, 2, 0}};
    for (const std::vector<int>& state : expected) {
        Click(IDC_PALETTE_ISOPLANE);
        EXPECT_EQ(Isoplane(), state);
    }
}

TEST_F(PaletteState, SnapChangedByTheUser_SetsTheIsoplane) {
    StartWithDrawing(kAppIsometric);
    SetSnap(L"SNAPSTYL", 1);
    SetSnap(L"SNAPISOPAIR", 2);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 2, 0));
    SetSnap(L"SNAPISOPAIR", 1);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 1, 1));
    SetSnap(L"SNAPISOPAIR", 0);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 0, 2));
    SetSnap(L"SNAPSTYL", 0);
    EXPECT_THAT(Isoplane(), ElementsAre(0, 0, 6));
}

TEST_F(PaletteState, ClickedIsoplane_DoesNotSurviveAChangeOfTheSnap) {
    StartWithDrawing(kAppIsometric);
    Store([](CKV2D_DocXData& data) { data.m_isoPlane = 3; });
    ShowChoices();
    Click(IDC_PALETTE_ISOPLANE);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 0, 4));
    SetSnap(L"SNAPISOPAIR", 1);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 1, 1));
    SetSnap(L"SNAPISOPAIR", 0);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 0, 2)) << "the value of the clicked state gives the other one";
}

TEST_F(PaletteState, StoredIsoplane_SetsTheSnapWhenTheDrawingBecomesCurrent) {
    StartWithDrawing(kAppIsometric);
    AcApDocument* first = acDocManager->curDocument();
    Store([](CKV2D_DocXData& data) { data.m_isoPlane = 3; });
    NewDrawing(5);
    Activate(first);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 1, 3));
}

TEST_F(PaletteState, IsoplaneBeyondTheStates_CountsAsTheFirst) {
    StartWithDrawing(kAppIsometric);
    Store([](CKV2D_DocXData& data) { data.m_isoPlane = 9; });
    ShowChoices();
    EXPECT_THAT(Isoplane(), ElementsAre(1, 2, 9));
    Click(IDC_PALETTE_ISOPLANE);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 1, 1));
}

TEST_F(PaletteState, NewIsometricPalette_FollowsTheSnapWithoutStoringIt) {
    Start();
    Init(kAppIsometric);
    EXPECT_THAT(Isoplane(), ElementsAre(0, Variable(L"SNAPISOPAIR"), 0));
    // It stands at the rectangular snap: the next state is the first.
    SendMessageW(Palette().Dialog(), WM_COMMAND, IDC_PALETTE_ISOPLANE, 0);
    EXPECT_THAT(Isoplane(), ElementsAre(1, 2, 0));
}

TEST_F(PaletteState, SnapChange_IsStoredInEveryDiscipline) {
    StartWithDrawing(kAppPid);
    SetSnap(L"SNAPSTYL", 1);
    SetSnap(L"SNAPISOPAIR", 1);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_isoPlane), 1);
}

TEST_F(PaletteState, DrawingWithoutAProject_GetsTheIsoplaneOfItsSnap) {
    StartWithDrawing(kAppPid);
    NewDrawing(0);
    EXPECT_EQ(Variable(L"SNAPSTYL"), 0);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_isoPlane), 6);
}

TEST_F(PaletteState, OtherVariables_TouchNothing) {
    StartWithDrawing(kAppIsometric);
    const std::vector<int> before = Isoplane();
    Enter(L"(setvar \"ORTHOMODE\" 1)");
    EXPECT_EQ(Isoplane(), before);
}

// --- tip of the Drawing Manager button

TEST_F(PaletteState, Tip_TellsTheDrawingsClientAndStandard) {
    StartWithDrawing(kAppPid);
    EXPECT_EQ(TipOf(IDC_PALETTE_DRAWING_MANAGER), L"Current: Acme \\ Pump");
    NewDrawing(6);
    EXPECT_EQ(TipOf(IDC_PALETTE_DRAWING_MANAGER), L"Current: Tank");
}

TEST_F(PaletteState, Tip_WithoutAProject_TellsTheDefault) {
    StartWithDrawing(kAppPid);
    NewDrawing(0);
    EXPECT_EQ(TipOf(IDC_PALETTE_DRAWING_MANAGER), L"Use the Drawing Manager to open a drawing");
    WriteDisciplineDword(kAppPid, L"DrawingManager", L"ProjectId", 5);
    EXPECT_EQ(TipOf(IDC_PALETTE_DRAWING_MANAGER), L"Default: Acme \\ Pump");
}

TEST_F(PaletteState, MouseAtRestOverAButton_ShowsItsTip) {
    StartWithDrawing(kAppPid);
    WaitForLayout();
    Frame().SetForegroundWindow();
    EXPECT_EQ(TipUnderTheMouse(IDC_PALETTE_DRAWING_MANAGER), L"Current: Acme \\ Pump");
    EXPECT_EQ(TipUnderTheMouse(IDC_PALETTE_NEW_LINE), L"Create a new line number");
}

TEST_F(PaletteState, Tip_OnlyForTheButtonAndOnlyByItsWindow) {
    StartWithDrawing(kAppPid);
    EXPECT_EQ(TipOf(IDC_PALETTE_COMBO_1), L"(none)");
    EXPECT_EQ(TipOf(IDC_PALETTE_DRAWING_MANAGER, 0), L"(none)");
}

TEST_F(PaletteState, TipThatIsTooLong_StaysInsideItsBuffer) {
    UseUsualDatabase();
    const std::string name(150, 'n');
    m_database.WithProjectRow(9, name);
    StartPalette(kAppPid);
    NewDrawing(0);
    WriteDisciplineDword(kAppPid, L"DrawingManager", L"ProjectId", 9);
    EXPECT_EQ(TipOf(IDC_PALETTE_DRAWING_MANAGER), L"Default: " + std::wstring(70, L'n'));
}
