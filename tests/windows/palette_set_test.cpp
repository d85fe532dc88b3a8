// The palette's window in the host's frame: one for the process, docked or floating, shown or not as the user
// left it, kept apart for each discipline.
#include <adui.h>
#include <gmock/gmock.h>
#include <rxmfcapi.h>

#include "frame/dock_state.h"
#include "palette_fixture.h"
#include "storage/registry_settings.h"

// The interfaces of COM have no virtual destructor, whose slot would change their layout.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

using test_control::Seen;
using testing::IsEmpty;

namespace {

constexpr std::uint32_t kMissing = 0xDEAD;

class PaletteSet : public PaletteTest {
  protected:
    std::uint32_t ShowMenu(int app) { return StoredNumber(app, L"ToolboxMenu", L"Show Menu", kMissing); }
    void SetShowMenu(int app, std::uint32_t value) {
        WriteDisciplineDword(app, L"ToolboxMenu", L"Show Menu", value);
    }
    // As the cross in the caption does.
    void CloseSet(const wchar_t* name) {
        CAdUiDockControlBar* set = Set(name);
        CRect client;
        set->GetClientRect(&client);
        const POINT cross{client.right - 11, 11};
        windows::MouseDown(*set, cross);
        windows::MouseUp(*set, cross);
        windows::PumpWaiting();
    }
    CAdUiPalette* TheOnlyPalette(const wchar_t* name) {
        auto* set = static_cast<CAdUiPaletteSet*>(Set(name));
        EXPECT_EQ(set->GetPaletteCount(), 1);
        return set->GetPalette(0);
    }
    frame::DockManager& Docks() { return Frame().Docks(); }
};

// Counts the references to it and notes what it was asked for.
class ProfileNode final : public IUnknown {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        m_asked.push_back(iid);
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override { return --m_references; }
    std::vector<IID> m_asked;
    ULONG m_references = 1;
};

constexpr IID kProfileNodeId = {0x2933BF80, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

}  // namespace

// --- one set for the process

TEST_F(PaletteSet, BeforeInit_ThereIsNone) {
    Start();
    NewDrawing(0);
    Enter(L"(setvar \"SNAPISOPAIR\" 1)");
    Enter(L"(setvar \"WSCURRENT\" \"Drafting\")");
    for (const wchar_t* name : {L"ELECTRIC", L"PID", L"ISOMETRIC", L"ORTHO"})
        EXPECT_EQ(Set(name), nullptr) << name;
    EXPECT_THAT(Seen().loaded, IsEmpty());
}

TEST_F(PaletteSet, InitOfAnotherDiscipline_KeepsTheFirst) {
    StartPalette(kAppElectric);
    CAdUiDockControlBar* first = Set(L"ELECTRIC");
    ASSERT_NE(first, nullptr);
    GUID toolId = *static_cast<GUID*>(first->GetToolID());
    SetShowMenu(kAppElectric, 0);
    Init(kAppIsometric);
    EXPECT_EQ(Set(L"ELECTRIC"), first);
    EXPECT_EQ(Set(L"ISOMETRIC"), nullptr);
    EXPECT_EQ(*static_cast<GUID*>(first->GetToolID()), toolId);
    EXPECT_FALSE(first->IsWindowVisible()) << "the first discipline's flag decides";
    EXPECT_EQ(ShowMenu(kAppElectric), 0u);
    EXPECT_EQ(ShowMenu(kAppIsometric), kMissing);
    Init(kAppIsometric, false);
    EXPECT_EQ(ShowMenu(kAppElectric), 1u);
    EXPECT_EQ(ShowMenu(kAppIsometric), kMissing);
}

TEST_F(PaletteSet, EachDiscipline_HasItsNameAndToolId) {
    const struct {
        int app;
        const wchar_t* name;
        const wchar_t* toolId;
    } expected[] = {{kAppElectric, L"ELECTRIC", L"{51D98004-8BE6-47C5-BA1D-D089424A351B}"},
                    {kAppPid, L"PID", L"{134346C2-235A-452A-98D9-A087FDE366DB}"},
                    {kAppIsometric, L"ISOMETRIC", L"{39F211D9-FB89-4D2B-BD42-374CB2D20F32}"},
                    {kAppOrtho, L"ORTHO", L"{E5480326-B64B-4835-A333-AE600D73651C}"}};
    for (const auto& each : expected) {
        StartPalette(each.app);
        CAdUiDockControlBar* set = Set(each.name);
        ASSERT_NE(set, nullptr) << each.name;
        wchar_t toolId[40] = L"";
        StringFromGUID2(*static_cast<GUID*>(set->GetToolID()), toolId, 40);
        EXPECT_STREQ(toolId, each.toolId);
        EXPECT_EQ(windows::TextOf(*TheOnlyPalette(each.name)), each.name);
        EXPECT_EQ(static_cast<CAdUiPaletteSet*>(set)->GetPaletteSetStyle(), 30u);
        EXPECT_EQ(TheOnlyPalette(each.name)->GetPaletteStyle(), 1u);
        End();
    }
}

TEST_F(PaletteSet, OtherApplication_HasNeitherNameNorToolId) {
    StartPalette(kAppStandardsManager);
    CAdUiDockControlBar* set = Set(L"");
    ASSERT_NE(set, nullptr);
    EXPECT_EQ(set->GetToolID(), nullptr);
}

// --- shown or not

TEST_F(PaletteSet, FirstInit_ShowsItAndStoresThat) {
    StartPalette(kAppPid);
    EXPECT_TRUE(SetShows(L"PID"));
    EXPECT_EQ(ShowMenu(kAppPid), 1u);
}

TEST_F(PaletteSet, CloseButton_StoresThatItIsHidden) {
    StartPalette(kAppPid);
    CloseSet(L"PID");
    EXPECT_FALSE(SetShows(L"PID"));
    EXPECT_EQ(ShowMenu(kAppPid), 0u);
}

TEST_F(PaletteSet, InitAfterClosing_KeepsItHidden_AChangeOfWorkspaceShowsIt) {
    StartPalette(kAppPid);
    CloseSet(L"PID");
    Init(kAppPid);
    EXPECT_FALSE(SetShows(L"PID"));
    NewDrawing(0);
    Enter(L"(setvar \"WSCURRENT\" \"Drafting\")");
    EXPECT_TRUE(SetShows(L"PID"));
    EXPECT_EQ(ShowMenu(kAppPid), 1u);
}

TEST_F(PaletteSet, NextSession_KeepsItHidden_UnlessItIsForced) {
    StartPalette(kAppPid);
    CloseSet(L"PID");
    End();
    EXPECT_EQ(ShowMenu(kAppPid), 0u) << "the end is not the user's doing";
    StartPalette(kAppPid);
    EXPECT_FALSE(SetShows(L"PID"));
    End();
    Start();
    Init(kAppPid, false);
    EXPECT_TRUE(SetShows(L"PID"));
    EXPECT_EQ(ShowMenu(kAppPid), 1u);
}

TEST_F(PaletteSet, EndOfASessionThatShowsIt_LeavesItShown) {
    StartPalette(kAppPid);
    End();
    EXPECT_EQ(ShowMenu(kAppPid), 1u);
}

TEST_F(PaletteSet, MoveOfTheFloatingSet_StoresThatItShows) {
    StartPalette(kAppPid);
    CAdUiDockControlBar* set = Set(L"PID");
    Docks().Dock(*set, frame::DockSide::kFloating);
    SetShowMenu(kAppPid, 0);
    set->SetWindowPos(nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(ShowMenu(kAppPid), 1u);
}

// --- where it is

TEST_F(PaletteSet, FirstTime_IsDockedLeftAsWideAsItWasMade) {
    StartPalette(kAppPid);
    CAdUiDockControlBar* set = Set(L"PID");
    EXPECT_EQ(Docks().SideOf(*set), frame::DockSide::kLeft);
    CRect rect;
    set->GetWindowRect(&rect);
    EXPECT_EQ(rect.Width(), 125);
}

TEST_F(PaletteSet, DocksLeftAndRightOnly) {
    StartPalette(kAppPid);
    EXPECT_EQ(CDockState::Of(*Set(L"PID")).allowedSides,
              static_cast<DWORD>(CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT));
}

TEST_F(PaletteSet, FirstFloating_IsAtItsFirstFloatingPlace) {
    StartPalette(kAppPid);
    CAdUiDockControlBar* set = Set(L"PID");
    Docks().Dock(*set, frame::DockSide::kFloating);
    CRect rect;
    set->GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(10, 10, 135, 505));
}

TEST_F(PaletteSet, Place_IsKeptForEachDisciplineApart) {
    StartPalette(kAppPid);
    Docks().Dock(*Set(L"PID"), frame::DockSide::kRight);
    ResizeSet(210, 0);
    End();
    StartPalette(kAppOrtho);
    EXPECT_EQ(Docks().SideOf(*Set(L"ORTHO")), frame::DockSide::kLeft);
    End();
    StartPalette(kAppPid);
    EXPECT_EQ(Docks().SideOf(*Set(L"PID")), frame::DockSide::kRight);
    EXPECT_EQ(Palette().Width(), 210);
}

TEST_F(PaletteSet, OnlyAFloatingPalette_GivesTheFocusAwayByItself) {
    StartPalette(kAppPid);
    CAdUiPalette* palette = TheOnlyPalette(L"PID");
    EXPECT_FALSE(palette->CanFrameworkTakeFocus());
    Docks().Dock(*Set(L"PID"), frame::DockSide::kFloating);
    EXPECT_TRUE(palette->CanFrameworkTakeFocus());
    Docks().Dock(*Set(L"PID"), frame::DockSide::kRight);
    EXPECT_FALSE(palette->CanFrameworkTakeFocus());
}

TEST_F(PaletteSet, HostsLimitsOfSize_Stand) {
    StartPalette(kAppPid);
    CAdUiDockControlBar* set = Set(L"PID");
    CSize smallest, largest, hostSmallest, hostLargest;
    set->GetMinimumSize(smallest);
    set->GetMaximumSize(largest);
    set->CAdUiDockControlBar::GetMinimumSize(hostSmallest);
    set->CAdUiDockControlBar::GetMaximumSize(hostLargest);
    EXPECT_EQ(smallest, hostSmallest);
    EXPECT_EQ(largest, hostLargest);
}

// Its three small buttons are disabled until the drawing has a project, and each hands the focus on.
TEST_F(PaletteSet, ComingUpWithoutAProject_TakesTheFocusToTheDrawingManagerButton) {
    for (const int app : {kAppElectric, kAppPid, kAppIsometric, kAppOrtho}) {
        Start();
        Frame().SetForegroundWindow();
        Frame().SetFocus();
        ASSERT_TRUE(IsChild(Frame().CommandLine(), GetFocus()));
        Init(app);
        EXPECT_EQ(GetFocus(), windows::Control(Palette().Dialog(), IDC_PALETTE_DRAWING_MANAGER)) << app;
        End();
    }
}

TEST_F(PaletteSet, MadeByTheStartUpFile_LeavesTheFocusToTheCommandLine) {
    Start("(kv2dMenu_Init 2 T)");
    EXPECT_TRUE(SetShows(L"PID"));
    EXPECT_TRUE(IsChild(Frame().CommandLine(), GetFocus()));
}

TEST_F(PaletteSet, AnotherDrawing_GetsTheFocusBackFromTheDisabledPalette) {
    UseUsualDatabase();
    StartPalette(kAppIsometric);
    AcApDocument* without = acDocManager->curDocument();
    NewDrawing(5);
    Frame().SetForegroundWindow();
    Frame().SetFocus();
    const HWND before = GetFocus();
    const SentMessages focused(WM_SETFOCUS);
    Activate(without);
    EXPECT_FALSE(Palette().Enabled(IDC_PALETTE_NEW_LINE));
    EXPECT_EQ(focused.To(windows::Control(Palette().Dialog(), IDC_PALETTE_DRAWING_MANAGER)), 1);
    EXPECT_EQ(GetFocus(), before);
}

// --- the host's profile

TEST_F(PaletteSet, LoadAndSave_TakeAnyNodeAndKeepNothing) {
    StartPalette(kAppPid);
    CAdUiPalette* palette = TheOnlyPalette(L"PID");
    EXPECT_EQ(palette->Load(nullptr), TRUE);
    EXPECT_EQ(palette->Save(nullptr), TRUE);
    ProfileNode node;
    EXPECT_EQ(palette->Load(&node), TRUE);
    EXPECT_EQ(palette->Save(&node), TRUE);
    ASSERT_EQ(node.m_asked.size(), 2u);
    EXPECT_EQ(node.m_asked[0], kProfileNodeId);
    EXPECT_EQ(node.m_asked[1], kProfileNodeId);
    EXPECT_EQ(node.m_references, 1u);
}

// --- the dialog inside

TEST_F(PaletteSet, Dialog_FillsThePaletteAtEverySize) {
    StartPalette(kAppPid);
    for (int width : {300, 84, 165}) {
        ResizeSet(width, 0);
        EXPECT_EQ(Palette().Width(), width);
        RECT palette{};
        GetClientRect(*TheOnlyPalette(L"PID"), &palette);
        EXPECT_EQ(Palette().Height(), palette.bottom);
    }
}
