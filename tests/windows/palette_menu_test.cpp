// The tabbed menu: what a pick sends to the host, what LISP does to the menu, a menu that cannot be loaded,
// and the registry entry by which other programs find the palette.
#include <gmock/gmock.h>
#include <rxmfcapi.h>

#include "palette_fixture.h"

using platform::Hive;
using test_control::FirePicked;
using test_control::Seen;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr wchar_t kEscapes[] = L"\x1b\x1b\x1b";
constexpr short kToggle = 1;
const std::wstring kHandles = L"Software\\KALVOR\\Orvex\\2023\\WindowHandle\\";

class PaletteMenu : public PaletteTest {
  protected:
    std::vector<Sent> SentByPick(short id, const wchar_t* text) {
        return SentBy([&] { EXPECT_EQ(FirePicked(id, text), S_OK); });
    }
    static std::wstring PresentMonth() {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        wchar_t month[16];
        swprintf(month, 16, L"%04d%02d", now.wYear, now.wMonth);
        return month;
    }
    std::vector<std::wstring> MonthsWithHandles() {
        return platform::GetRegistry().GetSubkeys(Hive::kCurrentUser, kHandles);
    }
};

}  // namespace

// --- picks

TEST_F(PaletteMenu, Command_GoesToTheHostBehindThreeEscapes_WithABlankAtItsEnd) {
    StartWithDrawing(kAppPid);
    EXPECT_THAT(SentByPick(7, L"(kv2d_Valve \"GATE\")"),
                ElementsAre(Sent{kEscapes, true, false}, Sent{L"(kv2d_Valve \"GATE\") ", true, false}));
}

TEST_F(PaletteMenu, CommandThatEndsInABlank_StaysAsItIs) {
    StartWithDrawing(kAppPid);
    EXPECT_THAT(SentByPick(7, L"_line "),
                ElementsAre(Sent{kEscapes, true, false}, Sent{L"_line ", true, false}));
    EXPECT_THAT(SentByPick(7, L"_line  "),
                ElementsAre(Sent{kEscapes, true, false}, Sent{L"_line  ", true, false}));
}

TEST_F(PaletteMenu, Toggle_IsToldWithTheDisciplinesNumberAndItsState) {
    const int expected[][2] = {{kAppElectric, 1}, {kAppPid, 3}, {kAppIsometric, 4}, {kAppOrtho, 5}};
    UseUsualDatabase();
    for (const auto& [app, number] : expected) {
        StartPalette(app);
        NewDrawing(5);
        Seen().kinds[9] = kToggle;
        Seen().states[L"AutoTag"] = true;
        EXPECT_THAT(
            SentByPick(9, L"AutoTag"),
            ElementsAre(Sent{kEscapes, true, false},
                        Sent{L"(kv2dMenu_OnSelchangeToggle " + std::to_wstring(number) + L" \"AutoTag\" 1) ",
                             true, false}));
        End();
    }
}

TEST_F(PaletteMenu, ToggleWithBlanksBehindItsName_IsAskedWithThemAndToldWithout) {
    StartWithDrawing(kAppPid);
    Seen().kinds[9] = kToggle;
    Seen().states[L"Auto tag  "] = true;
    EXPECT_THAT(SentByPick(9, L"Auto tag  "),
                ElementsAre(Sent{kEscapes, true, false},
                            Sent{L"(kv2dMenu_OnSelchangeToggle 3 \"Auto tag\" 1) ", true, false}));
    EXPECT_THAT(Seen().asked, ElementsAre(L"Auto tag  "));
    Seen().states[L"Auto tag  "] = false;
    EXPECT_EQ(SentByPick(9, L"Auto tag  ").back().text, L"(kv2dMenu_OnSelchangeToggle 3 \"Auto tag\" 0) ");
}

TEST_F(PaletteMenu, KindBeyondToggle_IsACommand) {
    StartWithDrawing(kAppPid);
    Seen().kinds[9] = 2;
    EXPECT_EQ(SentByPick(9, L"x").back().text, L"x ");
    EXPECT_THAT(Seen().asked, IsEmpty());
}

TEST_F(PaletteMenu, EachPick_TakesAChangedMenuSizeOver) {
    StartWithDrawing(kAppPid);
    Seen().iconSizes.clear();
    SetMenuSize(24);
    SentByPick(7, L"x");
    SetMenuSize(0);
    SentByPick(7, L"x");
    SetMenuSize(48);
    SentByPick(7, L"x");
    EXPECT_THAT(Seen().iconSizes, ElementsAre(48, 0, 96));
}

TEST_F(PaletteMenu, Pick_CancelsWhatRuns_AndRunsWithoutWaitingForTheUser) {
    StartWithDrawing(kAppPid);
    Enter(L"LINE");
    EXPECT_EQ(Variable(L"CMDACTIVE"), 1);
    {
        const SentMessages moves(WM_MOUSEMOVE);
        ASSERT_EQ(FirePicked(7, L"(princ (strcat \"the pick \" \"has run\"))"), S_OK);
        ASSERT_EQ(moves.To(acedGetAcadDwgView()->m_hWnd), 1);
        EXPECT_EQ(moves.Seen().back().wParam, 0u);
        EXPECT_EQ(moves.Seen().back().lParam, 0);
    }
    windows::PumpWaiting();
    EXPECT_TRUE(Said(L"the pick has run"));
    EXPECT_EQ(Variable(L"CMDACTIVE"), 0);
}

TEST_F(PaletteMenu, Pick_GivesTheFocusBackToTheHost) {
    StartWithDrawing(kAppPid);
    Frame().SetForegroundWindow();
    SetFocus(Palette().Combo(0));
    ASSERT_EQ(FirePicked(7, L"x"), S_OK);
    const HWND focus = GetFocus();
    EXPECT_NE(focus, Palette().Combo(0));
    EXPECT_FALSE(IsChild(Palette().Dialog(), focus));
}

// --- LISP

TEST_F(PaletteMenu, SetTabbedMenu_KnowsSchematicInAnyCaseAndTakesAllElseAsLayout) {
    StartWithDrawing(kAppElectric);
    const std::wstring folder = InRoot(L"App\\Tessarc\\ELECTRIC\\");
    Seen().loaded.clear();
    Enter(L"(kv2dMenu_SetTabbedMenu \"sChematic\")");
    EXPECT_EQ(Palette().Choice(0), L"Schematic");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_electricMode), 1);
    Enter(L"(kv2dMenu_SetTabbedMenu \"whatever\")");
    EXPECT_EQ(Palette().Choice(0), L"Layout");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_electricMode), 0);
    EXPECT_THAT(Seen().loaded, ElementsAre(folder + L"ElectricSch16.tbm", folder + L"ElectricLay16.tbm"));
}

TEST_F(PaletteMenu, SetTabbedMenu_InOtherDisciplinesDoesNothing) {
    StartWithDrawing(kAppPid);
    Seen().loaded.clear();
    Enter(L"(kv2dMenu_SetTabbedMenu \"SCHEMATIC\")");
    EXPECT_THAT(Seen().loaded, IsEmpty());
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_electricMode), 0);
}

TEST_F(PaletteMenu, SetToggleState_TakesNumbersAndTruth) {
    StartWithDrawing(kAppPid);
    Enter(L"(kv2dMenu_SetToggleState \"five\" 5)");
    Enter(L"(kv2dMenu_SetToggleState \"true\" T)");
    Enter(L"(kv2dMenu_SetToggleState \"page\" 256)");
    Seen().states[L"nil"] = Seen().states[L"zero"] = true;
    Enter(L"(kv2dMenu_SetToggleState \"nil\" nil)");
    Enter(L"(kv2dMenu_SetToggleState \"zero\" 0)");
    EXPECT_TRUE(Seen().states[L"five"]);
    EXPECT_TRUE(Seen().states[L"true"]);
    EXPECT_TRUE(Seen().states[L"page"]);
    EXPECT_FALSE(Seen().states[L"nil"]);
    EXPECT_FALSE(Seen().states[L"zero"]);
}

// --- a menu that cannot be loaded

TEST_F(PaletteMenu, MenuThatCannotBeLoaded_IsToldOverThePalette) {
    Seen().loadsAll = false;
    Start();
    const windows::BoxAnswers boxes({IDOK});
    Init(kAppPid);
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const windows::Box& box = boxes.Shown()[0];
    EXPECT_EQ(box.text, L"Error opening menu:\n" + InRoot(L"App\\Tessarc\\PID\\PID16.tbm"));
    EXPECT_EQ(box.caption, L"TESSARC + Tabbed Menu Toolbox");
    EXPECT_EQ(box.buttons.size(), 1u);
    EXPECT_NE(box.icon, nullptr);
    EXPECT_EQ(box.owner, GetAncestor(Palette().Dialog(), GA_ROOT));
}

TEST_F(PaletteMenu, SecondMenuThatCannotBeLoaded_IsToldEachTime) {
    StartWithDrawing(kAppElectric);
    Seen().loadsAll = false;
    const windows::BoxAnswers boxes({IDOK, IDOK});
    Choose(0, L"Schematic");
    Choose(0, L"Layout");
    ASSERT_EQ(boxes.Shown().size(), 2u);
    EXPECT_EQ(boxes.Shown()[0].text,
              L"Error opening menu:\n" + InRoot(L"App\\Tessarc\\ELECTRIC\\ElectricSch16.tbm"));
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_electricMode), 0);
}

// --- the registry entry

TEST_F(PaletteMenu, WindowHandle_StandsUnderMonthAndMainWindow) {
    const std::wstring month = PresentMonth();
    StartPalette(kAppPid);
    const auto mainWindow = static_cast<int>(reinterpret_cast<INT_PTR>(adsw_acadMainWnd()));
    const std::wstring key = kHandles + month + L"\\" + std::to_wstring(mainWindow);
    std::uint32_t handle = 0;
    if (!platform::GetRegistry().ReadDword(Hive::kCurrentUser, key, L"ToolboxMenu", handle)) {
        ASSERT_NE(PresentMonth(), month) << "no entry";
        GTEST_SKIP() << "the month has changed meanwhile";
    }
    EXPECT_EQ(handle, static_cast<std::uint32_t>(reinterpret_cast<UINT_PTR>(Palette().Dialog())));
}

TEST_F(PaletteMenu, EndOfTheSession_TakesItsEntryAndThoseOfOtherMonths) {
    platform::Registry& registry = platform::GetRegistry();
    registry.WriteDword(Hive::kCurrentUser, kHandles + L"202001\\77", L"ToolboxMenu", 1);
    registry.WriteDword(Hive::kCurrentUser, kHandles + PresentMonth() + L"\\77", L"ToolboxMenu", 2);
    StartPalette(kAppPid);
    EXPECT_EQ(MonthsWithHandles().size(), 2u) << "starting clears nothing";
    End();
    EXPECT_THAT(MonthsWithHandles(), ElementsAre(PresentMonth()));
    EXPECT_THAT(registry.GetSubkeys(Hive::kCurrentUser, kHandles + PresentMonth()), ElementsAre(L"77"));
}
