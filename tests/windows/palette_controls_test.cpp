// What the palette shows in each discipline, before and after a drawing: rows, titles, buttons, tips, fonts.
#include <gmock/gmock.h>

#include <afxcmn.h>
#include <afxwin.h>

#include "palette_fixture.h"

using test_control::Seen;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int kKeepFocusMessage = 28929;

class PaletteControls : public PaletteTest {
  protected:
    // The titles of the rows that show; a row shows with its title or not at all.
    std::vector<std::wstring> ShownTitles() {
        const PaletteWindow palette = Palette();
        std::vector<std::wstring> titles;
        for (int row = 0; row < 4; ++row) {
            EXPECT_EQ(palette.Shown(PaletteWindow::ComboId(row)), palette.Shown(PaletteWindow::TitleId(row)));
            if (palette.Shown(PaletteWindow::TitleId(row))) titles.push_back(palette.Title(row));
        }
        return titles;
    }
    // Isoplane, swap, new line.
    std::vector<bool> ShownButtons() {
        const PaletteWindow palette = Palette();
        return {palette.Shown(IDC_PALETTE_ISOPLANE), palette.Shown(IDC_PALETTE_SWAP_SIZE),
                palette.Shown(IDC_PALETTE_NEW_LINE)};
    }
    std::vector<bool> EnabledControls() {
        const PaletteWindow palette = Palette();
        std::vector<bool> enabled;
        for (int id :
             {IDC_PALETTE_TABBED_MENU, IDC_PALETTE_ISOPLANE, IDC_PALETTE_SWAP_SIZE, IDC_PALETTE_NEW_LINE,
              IDC_PALETTE_COMBO_1, IDC_PALETTE_COMBO_2, IDC_PALETTE_COMBO_3, IDC_PALETTE_COMBO_4})
            enabled.push_back(palette.Enabled(id));
        return enabled;
    }
    // The texts of all tips of this thread's windows.
    static std::vector<std::wstring> Tips() {
        std::vector<std::wstring> texts;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (windows::ClassOf(window) != TOOLTIPS_CLASSW) return TRUE;
                const auto count = static_cast<WPARAM>(SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0));
                for (WPARAM i = 0; i < count; ++i) {
                    wchar_t text[80] = L"";
                    TOOLINFOW tool{};
                    tool.cbSize = sizeof(tool);
                    tool.lpszText = text;
                    SendMessageW(window, TTM_ENUMTOOLSW, i, reinterpret_cast<LPARAM>(&tool));
                    reinterpret_cast<std::vector<std::wstring>*>(result)->push_back(text);
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&texts));
        return texts;
    }
    static std::vector<COLORREF> PixelsOf(HDC dc, POINT corner, int size) {
        std::vector<COLORREF> pixels;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                pixels.push_back(GetPixel(dc, corner.x + x, corner.y + y));
        return pixels;
    }
    // The middle of a button, where its icon stands.
    std::vector<COLORREF> IconOn(int id, int size) {
        const HWND button = windows::Control(Palette().Dialog(), id);
        RedrawWindow(button, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        RECT client{};
        GetClientRect(button, &client);
        CClientDC dc(CWnd::FromHandle(button));
        return PixelsOf(dc, {(client.right - size) / 2, (client.bottom - size) / 2}, size);
    }
    // The module's icon on the background of a button at rest.
    static std::vector<COLORREF> IconOfModule(int icon, int size) {
        const auto handle = static_cast<HICON>(LoadImageW(GetModuleHandleW(L"kv2dMenuOEM64.arx"),
                                                          MAKEINTRESOURCEW(icon), IMAGE_ICON, size, size, 0));
        CWindowDC screen(nullptr);
        CDC dc;
        dc.CreateCompatibleDC(&screen);
        CBitmap bitmap;
        bitmap.CreateCompatibleBitmap(&screen, size, size);
        CBitmap* before = dc.SelectObject(&bitmap);
        dc.FillSolidRect(CRect(0, 0, size, size), GetSysColor(COLOR_BTNFACE));
        dc.DrawState(CPoint(0, 0), CSize(size, size), handle, DST_ICON);
        std::vector<COLORREF> pixels = PixelsOf(dc, {0, 0}, size);
        dc.SelectObject(before);
        DestroyIcon(handle);
        return pixels;
    }
};

}  // namespace

TEST_F(PaletteControls, Electric_HasTheMenuRowAlone) {
    StartPalette(kAppElectric);
    EXPECT_THAT(ShownTitles(), ElementsAre(L"Menu"));
    EXPECT_THAT(ShownButtons(), ElementsAre(false, false, false));
    EXPECT_THAT(Palette().Items(0), ElementsAre(L"Layout", L"Schematic"));
    EXPECT_THAT(Palette().Data(0), ElementsAre(0, 0));
    EXPECT_EQ(Palette().Choice(0), L"Layout");
}

TEST_F(PaletteControls, FlowDiagram_HasThreeRowsAndTheNewLineButton) {
    StartPalette(kAppPid);
    EXPECT_THAT(ShownTitles(), ElementsAre(L"Spec", L"Pipe Size", L"Line Number"));
    EXPECT_THAT(ShownButtons(), ElementsAre(false, false, true));
}

TEST_F(PaletteControls, Isometric_HasFourRowsAndAllButtons) {
    StartPalette(kAppIsometric);
    EXPECT_THAT(ShownTitles(), ElementsAre(L"Spec", L"Main Size", L"Branch Size", L"Line Number"));
    EXPECT_THAT(ShownButtons(), ElementsAre(true, true, true));
}

TEST_F(PaletteControls, Plan_HasFourRowsAndNoIsoplane) {
    StartPalette(kAppOrtho);
    EXPECT_THAT(ShownTitles(), ElementsAre(L"Spec", L"Main Size", L"Branch Size", L"Line Number"));
    EXPECT_THAT(ShownButtons(), ElementsAre(false, true, true));
}

TEST_F(PaletteControls, OtherApplication_HasNothingButTheDrawingManagerButton) {
    StartPalette(kAppStandardsManager);
    EXPECT_THAT(ShownTitles(), IsEmpty());
    EXPECT_THAT(ShownButtons(), Each(false));
    EXPECT_FALSE(Palette().Shown(IDC_PALETTE_TABBED_MENU));
    EXPECT_TRUE(Palette().Shown(IDC_PALETTE_DRAWING_MANAGER));
    EXPECT_THAT(Seen().loaded, IsEmpty());
}

TEST_F(PaletteControls, Template_IsAsOtherProgramsKnowIt) {
    StartPalette(kAppIsometric);
    const PaletteWindow palette = Palette();
    for (int row = 0; row < 4; ++row) {
        const LONG_PTR style = GetWindowLongPtrW(palette.Combo(row), GWL_STYLE);
        // Some systems take the scroll bar's bit away when they make the list.
        EXPECT_EQ(style & 0x50010003, 0x50010003) << row;
        EXPECT_FALSE(style & CBS_SORT) << row;
    }
    EXPECT_TRUE(palette.Shown(IDC_PALETTE_TABBED_MENU));
    EXPECT_EQ(Seen().window, GetDlgItem(palette.Dialog(), IDC_PALETTE_TABBED_MENU));
    for (int id : {IDC_PALETTE_ISOPLANE, IDC_PALETTE_SWAP_SIZE, IDC_PALETTE_NEW_LINE}) {
        EXPECT_EQ(windows::TextOf(palette.Dialog(), id), L"") << id;
        EXPECT_EQ(GetWindowLongPtrW(GetDlgItem(palette.Dialog(), id), GWL_STYLE) & BS_TYPEMASK,
                  static_cast<LONG_PTR>(BS_OWNERDRAW))
            << id;
    }
}

TEST_F(PaletteControls, Buttons_ShowTheirIcons) {
    SetMenuSize(32);
    StartWithDrawing(kAppIsometric);
    ResizeSet(200, 0);
    EXPECT_EQ(IconOn(IDC_PALETTE_NEW_LINE, 32), IconOfModule(231, 32));
    EXPECT_EQ(IconOn(IDC_PALETTE_SWAP_SIZE, 32), IconOfModule(232, 32));
}

TEST_F(PaletteControls, EachIsoplane_ShowsItsIcon) {
    StartWithDrawing(kAppIsometric);
    ResizeSet(200, 0);
    const int icons[] = {239, 234, 235, 236, 237, 238, 233};
    for (int state = 0; state < 7; ++state) {
        Store([state](CKV2D_DocXData& data) { data.m_isoPlane = state; });
        ShowChoices();
        EXPECT_EQ(IconOn(IDC_PALETTE_ISOPLANE, 48), IconOfModule(icons[state], 48)) << state;
    }
    EXPECT_NE(IconOfModule(239, 48), IconOfModule(234, 48));
}

TEST_F(PaletteControls, ButtonsTellWhatTheyDo) {
    StartPalette(kAppIsometric);
    const std::vector<std::wstring> tips = Tips();
    EXPECT_THAT(tips, Contains(L"Switch isoplane"));
    EXPECT_THAT(tips, Contains(L"Switch main and branch sizes"));
    EXPECT_THAT(tips, Contains(L"Create a new line number"));
}

TEST_F(PaletteControls, OnlyTheDialogItselfGetsTheLargeFont) {
    Start();
    const SentMessages fonts(WM_SETFONT);
    Init(kAppPid);
    const HWND dialog = Palette().Dialog();
    ASSERT_GE(fonts.To(dialog), 1);
    const auto last = std::find_if(fonts.Seen().rbegin(), fonts.Seen().rend(),
                                   [dialog](const CWPSTRUCT& sent) { return sent.hwnd == dialog; });
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(last->wParam), sizeof(font), &font);
    EXPECT_EQ(font.lfHeight, 24);
    EXPECT_STREQ(font.lfFaceName, L"Tahoma");
    EXPECT_TRUE(last->lParam) << "it is drawn anew";
    for (const CWPSTRUCT& sent : fonts.Seen())
        EXPECT_FALSE(IsChild(dialog, sent.hwnd) && sent.wParam == last->wParam);
}

TEST_F(PaletteControls, MenuFile_FollowsDisciplineAndMenuSize) {
    const struct {
        int app, size;
        const wchar_t* file;
    } expected[] = {
        {kAppElectric, 16, L"ELECTRIC\\ElectricLay16.tbm"},
        {kAppElectric, 32, L"ELECTRIC\\ElectricLay32.tbm"},
        {kAppPid, 24, L"PID\\PID16.tbm"},
        {kAppPid, 32, L"PID\\PID32.tbm"},
        {kAppIsometric, 48, L"ISOMETRIC\\Isometric16.tbm"},
        {kAppOrtho, 32, L"ORTHO\\Ortho32.tbm"},
    };
    for (const auto& each : expected) {
        SetMenuSize(each.size);
        Seen().loaded.clear();
        StartPalette(each.app);
        EXPECT_THAT(Seen().loaded, ElementsAre(InRoot(L"App\\Tessarc\\") + each.file));
        End();
    }
}

TEST_F(PaletteControls, IconSizeAtTheStart_IsTwiceTheMenuSizeWithinItsLimits) {
    const int expected[][2] = {{0, 32}, {1, 2}, {16, 32}, {24, 48}, {32, 64}, {33, 64}, {48, 64}};
    for (const auto& [menuSize, iconSize] : expected) {
        SetMenuSize(menuSize);
        Seen().iconSizes.clear();
        StartPalette(kAppPid);
        EXPECT_THAT(Seen().iconSizes, ElementsAre(iconSize)) << menuSize;
        End();
    }
}

TEST_F(PaletteControls, BeforeAnyProject_TheSizesAreTheImperialOnes) {
    PutSizes(3);
    StartPalette(kAppIsometric);
    EXPECT_THAT(Palette().Items(kMainSizeRow), ElementsAre(L"1 I", L"2 I", L"3 I"));
    EXPECT_THAT(Palette().Items(kBranchSizeRow), ElementsAre(L"1 I", L"2 I", L"3 I"));
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 0);
    EXPECT_THAT(Palette().Items(kSpecRow), IsEmpty());
    EXPECT_THAT(Palette().Items(kLineRow), IsEmpty());
}

TEST_F(PaletteControls, BeforeAnyProject_TheSizesComeFromTheUsSection) {
    PutFile(InData(L"Standards\\Piping\\ANSI\\size.tp"),
            Lines({"[Imperial NPS Sizes]", " 1.00 = nps", "[Imperial US Sizes]", " 1.00 = us"}));
    StartPalette(kAppPid);
    EXPECT_THAT(Palette().Items(kMainSizeRow), ElementsAre(L"us"));
}

TEST_F(PaletteControls, WithoutADrawing_OnlyTheDrawingManagerCanBeUsed) {
    StartPalette(kAppIsometric);
    CloseAllDrawings();
    EXPECT_THAT(EnabledControls(), Each(false));
    EXPECT_FALSE(Seen().enabled);
    EXPECT_TRUE(Palette().Enabled(IDC_PALETTE_DRAWING_MANAGER));
    for (int row = 0; row < 4; ++row)
        EXPECT_TRUE(Palette().Enabled(PaletteWindow::TitleId(row))) << row;
}

TEST_F(PaletteControls, DrawingOfAProject_EnablesThem_OneWithoutDisablesThem) {
    UseUsualDatabase();
    StartPalette(kAppIsometric);
    NewDrawing(5);
    EXPECT_THAT(EnabledControls(), Each(true));
    EXPECT_TRUE(Seen().enabled);
    NewDrawing(0);
    EXPECT_THAT(EnabledControls(), Each(false));
    EXPECT_FALSE(Seen().enabled);
    EXPECT_TRUE(Palette().Enabled(IDC_PALETTE_DRAWING_MANAGER));
}

TEST_F(PaletteControls, EnterAndEscape_NeverCloseTheDialog) {
    StartPalette(kAppPid);
    const HWND dialog = Palette().Dialog();
    for (int command : {IDOK, IDCANCEL}) {
        SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(command), 0);
        windows::PumpWaiting();
        EXPECT_TRUE(IsWindow(dialog));
        EXPECT_TRUE(IsWindowVisible(dialog));
    }
}

TEST_F(PaletteControls, Tab_GoesFromRowToRow) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    Frame().SetForegroundWindow();
    const PaletteWindow palette = Palette();
    const auto pumped = [](MSG& message) { return AfxPreTranslateMessage(&message) != FALSE; };
    SetFocus(palette.Combo(kSpecRow));
    for (int row : {kMainSizeRow, kPidLineRow}) {
        windows::PostKey(GetFocus(), VK_TAB);
        EXPECT_TRUE(
            windows::WaitFor([&] { return GetFocus() == palette.Combo(row); }, windows::kPatience, pumped))
            << row;
    }
}

TEST_F(PaletteControls, AsksTheHostToLeaveItTheFocus) {
    StartPalette(kAppPid);
    EXPECT_EQ(SendMessageW(Palette().Dialog(), kKeepFocusMessage, 0, 0), 1);
}
