// The tabbed menu control in a real window: mouse, keyboard, tooltips, toggles, sizes, scrolling and bad
// files.
#include <afxcmn.h>
#include <commctrl.h>
#include <gmock/gmock.h>

#include "control_fixture.h"
#include "controls/menu_ids.h"

namespace {

using control_test::kRed;
using control_test::PaintedPicture;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr DISPID kIconSizeId = 1;
constexpr DISPID kLoadId = 4;
constexpr DISPID kItemKindId = 10;
constexpr DISPID kToggleId = 11;
const CRect kMenuPlace(10, 10, 250, 450);

const std::string kMenu =
    "TabbedMenu\t1\r\n"
    "Tab\tFirst\r\n"
    "Command\t101\tred.ico\tGate\tGate valve\t(kv2d_Valve \"GATE\")\r\n"
    "Command\t102\tnone.ico\tBall\tBall valve\tball \r\n"
    "Toggle\t103\tred.ico\tAuto\tTag by itself\tAutoTag\r\n"
    "Tab\tSecond\r\n"
    "Command\t201\tred.ico\tPump\tA pump\tpump\r\n"
    "Toggle\t32767\tred.ico\tLast\tThe last\tLastToggle\r\n"
    "Tab\tThird\r\n";

// A tool of the control's tooltip: an item, and where it shows.
struct Tool {
    CRect place;
    std::wstring text;
};

// An icon file with one red picture of 16 pixels.
std::string RedIcon() {
    constexpr int kSide = 16;
    std::string file("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0", 14);
    const auto number = [&file](std::uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8)
            file += static_cast<char>(value >> shift & 0xFF);
    };
    constexpr std::uint32_t kPixels = kSide * kSide * 4, kMask = kSide * 4;
    number(40 + kPixels + kMask);
    number(22);
    for (const std::uint32_t value : {40u, 16u, 32u, 1u | 32u << 16, 0u, kPixels + kMask, 0u, 0u, 0u, 0u})
        number(value);
    for (int i = 0; i < kSide * kSide; ++i)
        number(0xFFFF0000);
    return file + std::string(kMask, '\0');
}

std::string ManyItems(int count) {
    std::string menu = "TabbedMenu\t1\r\nTab\tMany\r\n";
    for (int i = 1; i <= count; ++i) {
        const std::string number = std::to_string(i);
        menu += "Command\t" + number + "\t\tItem " + number + "\tTip " + number + "\tc" + number + "\r\n";
    }
    return menu;
}

BOOL CALLBACK TakeTooltip(HWND window, LPARAM found) {
    if (windows::ClassOf(window) != TOOLTIPS_CLASSW || SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0) == 0)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND FindTooltip() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeTooltip, reinterpret_cast<LPARAM>(&found));
    return found;
}

// What the control offers a tooltip for, in the order of the items.
std::vector<Tool> Tools() {
    std::vector<Tool> tools;
    const HWND tip = FindTooltip();
    const auto count = tip ? SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0) : 0;
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t text[256] = L"";
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.lpszText = text;
        SendMessageW(tip, TTM_ENUMTOOLSW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tool));
        tools.push_back({CRect(tool.rect), text});
    }
    return tools;
}

std::vector<std::wstring> ToolTexts() {
    std::vector<std::wstring> texts;
    for (const Tool& tool : Tools())
        texts.push_back(tool.text);
    return texts;
}

// Where the item with that tooltip shows; empty if it does not.
CRect PlaceOf(const std::wstring& text) {
    for (const Tool& tool : Tools())
        if (tool.text == text) return tool.place;
    return CRect(0, 0, 0, 0);
}

class MenuControlTest : public SystemTest {
  protected:
    MenuControlTest() : m_class(L"KalvorMenu.ocx", controls::kMenuClassId) {
        PutFile(InRoot(L"Icons\\red.ico"), RedIcon());
        PutFile(InRoot(L"menu.tbm"), kMenu);
    }
    void Make(const CRect& place = kMenuPlace) { ASSERT_TRUE(m_window.Make(controls::kMenuClassId, place)); }
    void MakeLoaded(const CRect& place = kMenuPlace) {
        Make(place);
        ASSERT_TRUE(Load(L"menu.tbm"));
    }
    bool Load(const std::wstring& name) {
        static const BYTE parameters[] = VTS_BSTR;
        BOOL loaded = FALSE;
        Control().InvokeHelper(kLoadId, DISPATCH_METHOD, VT_BOOL, &loaded, parameters, InRoot(name).c_str());
        return loaded != FALSE;
    }
    bool LoadText(const std::string& text) {
        PutFile(InRoot(L"other.tbm"), text);
        return Load(L"other.tbm");
    }
    short KindOf(short id) {
        static const BYTE parameters[] = VTS_I2;
        short kind = -1;
        Control().InvokeHelper(kItemKindId, DISPATCH_PROPERTYGET, VT_I2, &kind, parameters, id);
        return kind;
    }
    bool GetToggle(const wchar_t* name) {
        static const BYTE parameters[] = VTS_BSTR;
        BOOL state = FALSE;
        Control().InvokeHelper(kToggleId, DISPATCH_PROPERTYGET, VT_BOOL, &state, parameters, name);
        return state != FALSE;
    }
    void SetToggle(const wchar_t* name, bool state) {
        static const BYTE parameters[] = VTS_BSTR VTS_BOOL;
        Control().InvokeHelper(kToggleId, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, parameters, name,
                               static_cast<BOOL>(state));
    }
    void SetIconSize(short size) { Control().SetProperty(kIconSizeId, VT_I2, size); }
    short GetIconSize() {
        short size = 0;
        Control().GetProperty(kIconSizeId, VT_I2, &size);
        return size;
    }
    void SetEnabled(bool enabled) {
        Control().SetProperty(DISPID_ENABLED, VT_BOOL, static_cast<BOOL>(enabled));
    }
    void Click(CPoint point) {
        windows::MouseMove(Control(), point);
        windows::MouseDown(Control(), point);
        windows::MouseUp(Control(), point);
    }
    void ClickItem(size_t index) {
        const std::vector<Tool> tools = Tools();
        ASSERT_LT(index, tools.size());
        Click(tools[index].place.CenterPoint());
    }
    void Key(WPARAM key) { SendMessageW(Control(), WM_KEYDOWN, key, 0); }
    void ControlKey(WPARAM key) {
        BYTE keys[256] = {}, before[256] = {};
        GetKeyboardState(before);
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        Key(key);
        SetKeyboardState(before);
    }
    CWnd& Control() { return m_window.m_control; }
    auto& Picked() { return m_window.m_picked; }

    control_test::ServedClass m_class;
    control_test::ControlWindow m_window;
};

TEST_F(MenuControlTest, Click_TellsTheItemsNumberAndText) {
    MakeLoaded();
    ClickItem(0);
    ClickItem(1);
    EXPECT_THAT(Picked(), ElementsAre(Pair(101, L"(kv2d_Valve \"GATE\")"), Pair(102, L"ball ")));
}

TEST_F(MenuControlTest, ReleaseBesideTheItem_PicksNothing) {
    MakeLoaded();
    const std::vector<Tool> tools = Tools();
    windows::MouseDown(Control(), tools[0].place.CenterPoint());
    windows::MouseUp(Control(), tools[1].place.CenterPoint());
    windows::MouseDown(Control(), tools[0].place.CenterPoint());
    windows::MouseUp(Control(), CPoint(2, 2));
    EXPECT_THAT(Picked(), IsEmpty());
    EXPECT_NE(GetCapture(), Control().m_hWnd);
}

TEST_F(MenuControlTest, LostCapture_ForgetsThePress) {
    MakeLoaded();
    const CPoint point = Tools()[0].place.CenterPoint();
    windows::MouseDown(Control(), point);
    ReleaseCapture();
    windows::MouseUp(Control(), point);
    EXPECT_THAT(Picked(), IsEmpty());
}

TEST_F(MenuControlTest, ClickOnATab_ShowsItsItems) {
    MakeLoaded();
    const std::vector<std::wstring> first = ToolTexts();
    EXPECT_THAT(first, ElementsAre(L"Gate valve", L"Ball valve", L"Tag by itself"));
    for (int x = 2; x < kMenuPlace.Width() && ToolTexts() == first; x += 4)
        Click({x, 8});
    EXPECT_THAT(ToolTexts(), ElementsAre(L"A pump", L"The last"));
    ClickItem(0);
    EXPECT_THAT(Picked(), ElementsAre(Pair(201, L"pump")));
}

TEST_F(MenuControlTest, Keys_WalkPickAndChangeTabs) {
    MakeLoaded();
    Control().SetFocus();
    Key(VK_RETURN);
    Key(VK_END);
    Key(VK_SPACE);
    Key(VK_HOME);
    Key(VK_RIGHT);
    Key(VK_DOWN);
    Key(VK_LEFT);
    Key(VK_RETURN);
    ASSERT_EQ(Picked().size(), 3u);
    EXPECT_EQ(Picked()[0].first, 101);
    EXPECT_EQ(Picked()[1].first, 103);
    EXPECT_EQ(Picked()[2].first, 102);
    Key(VK_NEXT);
    Key(VK_RETURN);
    EXPECT_EQ(Picked().back().first, 201);
    Key(VK_PRIOR);
    Key(VK_PRIOR);
    Key(VK_RETURN);
    EXPECT_EQ(Picked().back().first, 101) << "before the first tab there is none";
    ControlKey(VK_TAB);
    Key(VK_RETURN);
    EXPECT_EQ(Picked().back().first, 201);
    ControlKey(VK_TAB);
    const size_t before = Picked().size();
    Key(VK_RETURN);
    EXPECT_EQ(Picked().size(), before) << "the third tab is empty";
    ControlKey(VK_TAB);
    Key(VK_RETURN);
    EXPECT_EQ(Picked().back().first, 101) << "behind the last tab comes the first";
}

TEST_F(MenuControlTest, TabKey_LeavesTheControl) {
    CButton next;
    MakeLoaded();
    next.Create(L"Next", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(300, 10, 380, 40), &m_window, 7);
    Control().SetFocus();
    MSG message = {};
    message.hwnd = Control();
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    EXPECT_TRUE(IsDialogMessageW(m_window, &message));
    EXPECT_EQ(GetFocus(), next.m_hWnd);
    EXPECT_EQ(GetWindowLongPtrW(Control(), GWL_STYLE) & WS_TABSTOP, WS_TABSTOP);
}

TEST_F(MenuControlTest, ReturnInADialog_PicksTheItem) {
    MakeLoaded();
    Control().SetFocus();
    MSG message = {};
    message.hwnd = Control();
    message.message = WM_KEYDOWN;
    message.wParam = VK_RETURN;
    EXPECT_TRUE(IsDialogMessageW(m_window, &message));
    EXPECT_THAT(Picked(), ElementsAre(Pair(101, L"(kv2d_Valve \"GATE\")")));
}

TEST_F(MenuControlTest, PickedToggle_HasChangedWhenTheEventComes) {
    MakeLoaded();
    std::vector<bool> states;
    m_window.m_onPicked = [&] { states.push_back(GetToggle(L"AutoTag")); };
    ClickItem(2);
    ClickItem(2);
    EXPECT_THAT(states, ElementsAre(true, false));
    EXPECT_THAT(Picked(), ElementsAre(Pair(103, L"AutoTag"), Pair(103, L"AutoTag")));
}

TEST_F(MenuControlTest, ToggleState_ShowsAndIsKept) {
    MakeLoaded();
    EXPECT_FALSE(GetToggle(L"AutoTag"));
    const PaintedPicture off(Control());
    SetToggle(L"AutoTag", true);
    EXPECT_TRUE(GetToggle(L"AutoTag"));
    const PaintedPicture on(Control());
    const std::vector<Tool> tools = Tools();
    EXPECT_GT(on.DifferencesFrom(off, tools[2].place), 50u);
    EXPECT_EQ(on.DifferencesFrom(off, tools[0].place), 0u);
    SetToggle(L"LastToggle", true);
    SetToggle(L"named by nobody", true);
    ASSERT_TRUE(LoadText(kMenu));
    EXPECT_TRUE(GetToggle(L"AutoTag")) << "another menu, the same toggles";
    EXPECT_TRUE(GetToggle(L"named by nobody"));
    EXPECT_FALSE(GetToggle(L"autotag"));
    SetToggle(L"AutoTag", false);
    EXPECT_FALSE(GetToggle(L"AutoTag"));
}

TEST_F(MenuControlTest, ItemKind_TellsTogglesFromCommands) {
    MakeLoaded();
    EXPECT_EQ(KindOf(101), 0);
    EXPECT_EQ(KindOf(103), 1);
    EXPECT_EQ(KindOf(32767), 1) << "also of a tab that does not show";
    EXPECT_EQ(KindOf(999), 0);
    EXPECT_EQ(KindOf(-1), 0);
}

TEST_F(MenuControlTest, Tooltip_ComesUpOverAnItem) {
    MakeLoaded();
    const CRect place = Tools()[1].place;
    POINT point = place.CenterPoint();
    ClientToScreen(Control(), &point);
    SetCursorPos(point.x, point.y);
    const HWND tip = FindTooltip();
    const auto hovers = [&] {
        SendMessageW(Control(), WM_MOUSEMOVE, 0, MAKELPARAM(place.CenterPoint().x, place.CenterPoint().y));
        return IsWindowVisible(tip) != FALSE;
    };
    hovers();
    EXPECT_TRUE(windows::WaitFor([&] { return IsWindowVisible(tip) != FALSE; }));
    wchar_t text[256] = L"";
    TOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.lpszText = text;
    ASSERT_TRUE(SendMessageW(tip, TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool)));
    EXPECT_STREQ(text, L"Ball valve");
    SetCursorPos(0, 0);
}

TEST_F(MenuControlTest, Tooltips_StandWhereTheItemsShow) {
    MakeLoaded();
    const std::vector<Tool> tools = Tools();
    CRect client;
    Control().GetClientRect(client);
    for (size_t i = 0; i < tools.size(); ++i) {
        EXPECT_TRUE(client.PtInRect(tools[i].place.TopLeft()));
        for (size_t k = 0; k < i; ++k) {
            CRect common;
            EXPECT_FALSE(common.IntersectRect(tools[i].place, tools[k].place));
        }
    }
    ASSERT_TRUE(LoadText("TabbedMenu\t1\nTab\tA\nCommand\t1\t\tNo tip\t\tx\n"));
    EXPECT_THAT(Tools(), IsEmpty());
}

TEST_F(MenuControlTest, Disabled_PicksNothingAndLooksIt) {
    MakeLoaded();
    const PaintedPicture enabled(Control());
    SetEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(Control()));
    const PaintedPicture disabled(Control());
    EXPECT_GT(enabled.Count(kRed), 100u);
    EXPECT_EQ(disabled.Count(kRed), 0u) << "icons without their colours";
    EXPECT_GT(disabled.DifferencesFrom(enabled, Tools()[0].place), 20u) << "a grey label";
    ClickItem(0);
    Key(VK_RETURN);
    EXPECT_THAT(Picked(), IsEmpty());
    SetToggle(L"AutoTag", true);
    EXPECT_TRUE(GetToggle(L"AutoTag")) << "programs still set states";
    SetEnabled(true);
    EXPECT_TRUE(IsWindowEnabled(Control()));
    ClickItem(0);
    EXPECT_EQ(Picked().size(), 1u);
}

TEST_F(MenuControlTest, DisabledBeforeItIsShown_StaysDisabled) {
    MakeLoaded();
    Control().ShowWindow(SW_HIDE);
    SetEnabled(false);
    Control().ShowWindow(SW_SHOW);
    EXPECT_FALSE(IsWindowEnabled(Control()));
}

TEST_F(MenuControlTest, WithoutRoom_TheItemsScroll) {
    Make(CRect(10, 10, 150, 190));
    ASSERT_TRUE(LoadText(ManyItems(30)));
    SCROLLINFO scroll = {sizeof(SCROLLINFO), SIF_ALL, 0, 0, 0, 0, 0};
    ASSERT_TRUE(GetScrollInfo(Control(), SB_VERT, &scroll));
    EXPECT_GT(scroll.nMax, static_cast<int>(scroll.nPage));
    EXPECT_TRUE(Control().GetStyle() & WS_VSCROLL);
    EXPECT_LT(Tools().size(), 30u) << "only what shows";
    ClickItem(0);
    const CRect fourth = PlaceOf(L"Tip 4");
    SendMessageW(Control(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_EQ(PlaceOf(L"Tip 4").top, fourth.top - 3 * fourth.Height()) << "a notch is three rows";
    Click(PlaceOf(L"Tip 4").CenterPoint());
    SendMessageW(Control(), WM_VSCROLL, SB_BOTTOM, 0);
    const CRect last = PlaceOf(L"Tip 30");
    CRect client;
    Control().GetClientRect(client);
    EXPECT_EQ(last.Height(), fourth.Height()) << "wholly to be seen";
    EXPECT_LE(last.bottom, client.bottom);
    Click(last.CenterPoint());
    const CRect before = PlaceOf(L"Tip 28");
    SendMessageW(Control(), WM_VSCROLL, SB_LINEUP, 0);
    EXPECT_EQ(PlaceOf(L"Tip 28").top, before.top + fourth.Height());
    SendMessageW(Control(), WM_VSCROLL, SB_PAGEUP, 0);
    SendMessageW(Control(), WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_EQ(PlaceOf(L"Tip 28").top, before.top + fourth.Height());
    SendMessageW(Control(), WM_VSCROLL, SB_TOP, 0);
    EXPECT_EQ(PlaceOf(L"Tip 4"), fourth);
    EXPECT_THAT(Picked(), ElementsAre(Pair(1, L"c1"), Pair(4, L"c4"), Pair(30, L"c30")));
}

TEST_F(MenuControlTest, KeysScrollTheItemIntoSight) {
    Make(CRect(10, 10, 150, 190));
    ASSERT_TRUE(LoadText(ManyItems(30)));
    Control().SetFocus();
    Key(VK_END);
    EXPECT_EQ(ToolTexts().back(), L"Tip 30");
    Key(VK_RETURN);
    Key(VK_HOME);
    EXPECT_EQ(ToolTexts().front(), L"Tip 1");
    EXPECT_THAT(Picked(), ElementsAre(Pair(30, L"c30")));
}

TEST_F(MenuControlTest, RoomAgain_ScrollsBack) {
    Make(CRect(10, 10, 150, 190));
    ASSERT_TRUE(LoadText(ManyItems(12)));
    SendMessageW(Control(), WM_VSCROLL, SB_BOTTOM, 0);
    Control().MoveWindow(CRect(10, 10, 400, 560));
    EXPECT_EQ(Tools().size(), 12u);
    EXPECT_EQ(ToolTexts().front(), L"Tip 1");
}

TEST_F(MenuControlTest, EveryIconSize_ShowsEveryItem) {
    MakeLoaded();
    size_t red = 0;
    for (const short size : {16, 24, 32, 48, 64, 96, 128}) {
        SetIconSize(size);
        EXPECT_EQ(GetIconSize(), size);
        EXPECT_EQ(Tools().size(), 3u) << size;
        const size_t now = PaintedPicture(Control()).Count(kRed);
        EXPECT_GT(now, red) << "larger icons at " << size;
        red = now;
        Picked().clear();
        ClickItem(2);
        EXPECT_THAT(Picked(), ElementsAre(Pair(103, L"AutoTag"))) << size;
    }
}

TEST_F(MenuControlTest, IconIsHalfAsLargeAsItsButton) {
    MakeLoaded();
    ASSERT_TRUE(LoadText("TabbedMenu\t1\nTab\tA\nCommand\t1\tred.ico\tLabel\tTip\tx\n"));
    for (const short size : {32, 64}) {
        SetIconSize(size);
        EXPECT_EQ(PaintedPicture(Control()).Count(kRed), static_cast<size_t>(size / 2 * (size / 2))) << size;
    }
}

TEST_F(MenuControlTest, SizesThatMakeNoSense_AreBroughtIntoTheRange) {
    MakeLoaded();
    for (const auto& [wanted, got] : {std::pair<short, short>(0, 16), {-5, 16}, {32767, 256}, {-32768, 16}}) {
        SetIconSize(wanted);
        EXPECT_EQ(GetIconSize(), got);
        PaintedPicture(Control()).Count(kRed);
    }
}

TEST_F(MenuControlTest, BadFile_IsRefusedAndTheMenuStays) {
    MakeLoaded();
    const std::vector<std::wstring> before = ToolTexts();
    EXPECT_FALSE(Load(L"missing.tbm"));
    EXPECT_FALSE(Load(L"Icons"));
    EXPECT_FALSE(LoadText(""));
    EXPECT_FALSE(LoadText("no menu"));
    EXPECT_FALSE(LoadText(kMenu + "Command\t101\t\ttwice\t\tx\r\n"));
    EXPECT_FALSE(LoadText(kMenu + std::string(2 << 20, '#'))) << "too large";
    EXPECT_EQ(ToolTexts(), before);
    ClickItem(0);
    EXPECT_EQ(Picked().size(), 1u);
}

TEST_F(MenuControlTest, WithoutAMenu_NothingHappens) {
    Make();
    Click({50, 100});
    for (const WPARAM key :
         {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_RETURN, VK_SPACE})
        Key(key);
    ControlKey(VK_TAB);
    PaintedPicture(Control()).Count(kRed);
    EXPECT_THAT(Picked(), IsEmpty());
}

TEST_F(MenuControlTest, FileOfAnotherProgram_MayBeWrittenMeanwhile) {
    Make();
    const auto held = HoldFile(InRoot(L"menu.tbm"), platform::Hold::kWritingShared);
    EXPECT_TRUE(Load(L"menu.tbm"));
}

TEST_F(MenuControlTest, MenuLoadedWhileTheEventIsHeard_IsShown) {
    MakeLoaded();
    PutFile(InRoot(L"other.tbm"), ManyItems(2));
    m_window.m_onPicked = [&] { EXPECT_TRUE(Load(L"other.tbm")); };
    ClickItem(0);
    EXPECT_THAT(ToolTexts(), ElementsAre(L"Tip 1", L"Tip 2"));
    EXPECT_THAT(Picked(), ElementsAre(Pair(101, L"(kv2d_Valve \"GATE\")")));
}

TEST_F(MenuControlTest, HoveredItem_IsLitAndGoesDarkAgain) {
    MakeLoaded();
    const std::vector<Tool> tools = Tools();
    const PaintedPicture before(Control());
    windows::MouseMove(Control(), tools[0].place.CenterPoint());
    EXPECT_GT(PaintedPicture(Control()).DifferencesFrom(before, tools[0].place), 20u);
    SendMessageW(Control(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(PaintedPicture(Control()).DifferencesFrom(before), 0u);
}

TEST_F(MenuControlTest, ManyLoadsAndSizes_LeaveNoHandlesBehind) {
    MakeLoaded();
    const auto round = [this] {
        for (const short size : {32, 64}) {
            SetIconSize(size);
            Load(L"menu.tbm");
            PaintedPicture(Control()).Count(kRed);
        }
    };
    round();
    const int before = windows::HandleCount::Now().gdi;
    for (int i = 0; i < 50; ++i)
        round();
    EXPECT_LE(windows::HandleCount::Now().gdi, before + 2);
}

}  // namespace
