// The palette's controls stand where the layout puts them, a moment after the size has changed.
#include "palette/palette_layout.h"

#include <gmock/gmock.h>

#include "palette/palette_rows.h"
#include "palette_fixture.h"

using test_control::Seen;

namespace {

constexpr UINT kKeepAwake = WM_APP;

class PaletteLayoutInWindows : public PaletteTest {
  protected:
    static RECT ToRect(const CPixelRect& rect) {
        return {rect.left, rect.top, std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
    }
    void ExpectAt(int id, const CPixelRect& expected) {
        const RECT is = Palette().RectOf(id);
        const RECT should = ToRect(expected);
        EXPECT_TRUE(EqualRect(&is, &should))
            << "control " << id << " at " << is.left << ',' << is.top << ',' << is.right << ',' << is.bottom
            << " instead of " << should.left << ',' << should.top << ',' << should.right << ','
            << should.bottom;
    }
    // The system gives a closed combo box its height; its place and width are the layout's.
    void ExpectComboAt(int row, const CPixelRect& expected) {
        const RECT is = Palette().RectOf(PaletteWindow::ComboId(row));
        EXPECT_EQ(is.left, expected.left) << row;
        EXPECT_EQ(is.top, expected.top) << row;
        EXPECT_EQ(is.right, std::max(expected.left, expected.right)) << row;
    }
    void ExpectLayout(int app, int menuSize, bool menuLoaded = true) {
        const CPaletteDiscipline& discipline = *FindPaletteDiscipline(app);
        const CPaletteLayout layout =
            ArrangePalette({.nWidth = Palette().Width(),
                            .nHeight = Palette().Height(),
                            .nMenuSize = menuSize,
                            .bMenuLoaded = menuLoaded,
                            .bIsoButton = discipline.m_bIsoButton,
                            .bSwapButton = discipline.m_bSwapButton,
                            .nNewLineRow = discipline.m_nNewLineRow,
                            .nComboCount = static_cast<int>(discipline.m_aRows.size())});
        ExpectAt(IDC_PALETTE_DRAWING_MANAGER, layout.drawingManager);
        EXPECT_EQ(windows::TextOf(Palette().Dialog(), IDC_PALETTE_DRAWING_MANAGER),
                  layout.szDrawingManagerText);
        if (layout.menu) ExpectAt(IDC_PALETTE_TABBED_MENU, *layout.menu);
        if (layout.isoButton) ExpectAt(IDC_PALETTE_ISOPLANE, *layout.isoButton);
        if (layout.swapButton) ExpectAt(IDC_PALETTE_SWAP_SIZE, *layout.swapButton);
        if (layout.newLineButton) ExpectAt(IDC_PALETTE_NEW_LINE, *layout.newLineButton);
        for (int row = 0; row < static_cast<int>(layout.rows.size()); ++row) {
            ExpectAt(PaletteWindow::TitleId(row), layout.rows[static_cast<size_t>(row)].title);
            ExpectComboAt(row, layout.rows[static_cast<size_t>(row)].combo);
        }
    }
};

class PaletteLayoutAtMenuSize : public PaletteLayoutInWindows, public testing::WithParamInterface<int> {};

}  // namespace

TEST_P(PaletteLayoutAtMenuSize, EveryDiscipline_NarrowAndWide) {
    UseUsualDatabase();
    SetMenuSize(GetParam());
    for (int app : {kAppElectric, kAppPid, kAppIsometric, kAppOrtho}) {
        StartPalette(app);
        for (int width : {84, 85, 125, 165, 300}) {
            SCOPED_TRACE(testing::Message() << "discipline " << app << ", width " << width);
            ResizeSet(width, 0);
            ASSERT_EQ(Palette().Width(), width);
            ExpectLayout(app, GetParam());
        }
        End();
    }
}

INSTANTIATE_TEST_SUITE_P(MenuSizes, PaletteLayoutAtMenuSize, testing::Values(0, 16, 24, 32, 48));

TEST_F(PaletteLayoutInWindows, DrawingManagerText_FollowsTheWidth) {
    StartPalette(kAppPid);
    const struct {
        int width;
        const wchar_t* text;
    } expected[] = {{84, L"Dwg Mgr"}, {85, L"Drawing Mgr"}, {164, L"Drawing Mgr"}, {165, L"Drawing Manager"}};
    for (const auto& each : expected) {
        ResizeSet(each.width, 0);
        EXPECT_EQ(windows::TextOf(Palette().Dialog(), IDC_PALETTE_DRAWING_MANAGER), each.text) << each.width;
    }
}

TEST_F(PaletteLayoutInWindows, Electric_MenuEndsAboveItsOneRow) {
    StartPalette(kAppElectric);
    ResizeSet(140, 0);
    EXPECT_EQ(Palette().RectOf(IDC_PALETTE_TABBED_MENU).bottom, Palette().Height() - 10 - 5 - 62);
    EXPECT_EQ(Palette().RectOf(IDC_PALETTE_TABBED_MENU).top, 30);
}

TEST_F(PaletteLayoutInWindows, MenuThatFailedToLoad_GivesItsRoomToTheRest) {
    Seen().loadsAll = false;
    Start();
    {
        const windows::BoxAnswers boxes({IDOK});
        Init(kAppIsometric);
    }
    ResizeSet(200, 0);
    ExpectLayout(kAppIsometric, 16, false);
    EXPECT_EQ(Palette().RectOf(IDC_PALETTE_ISOPLANE).top, 30);
    EXPECT_EQ(Palette().RectOf(PaletteWindow::TitleId(0)).top, 30 + 5 + 68);
}

TEST_F(PaletteLayoutInWindows, FloatingPalette_IsLaidOutToo) {
    StartPalette(kAppOrtho);
    Frame().Docks().Dock(*Set(L"ORTHO"), frame::DockSide::kFloating);
    ResizeSet(240, 620);
    ExpectLayout(kAppOrtho, 16);
    EXPECT_GT(Palette().Width(), 165);
}

TEST_F(PaletteLayoutInWindows, MenuSizeChangedMeanwhile_CountsAtTheNextLayout) {
    StartPalette(kAppPid);
    ResizeSet(200, 0);
    ExpectLayout(kAppPid, 16);
    SetMenuSize(32);
    ResizeSet(201, 0);
    ExpectLayout(kAppPid, 32);
}

TEST_F(PaletteLayoutInWindows, ItemHeight_IsSetWhereThereAreItems) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    WaitForLayout();
    const SentMessages heights(CB_SETITEMHEIGHT);
    ResizeSet(200, 0);
    const PaletteWindow palette = Palette();
    for (int row : {kSpecRow, kMainSizeRow, kPidLineRow})
        EXPECT_GE(heights.To(palette.Combo(row)), 1) << row;
    EXPECT_EQ(heights.To(palette.Combo(kLineRow)), 0) << "the fourth combo is empty";
    for (const CWPSTRUCT& sent : heights.Seen())
        EXPECT_EQ(sent.lParam, 24);
}

TEST_F(PaletteLayoutInWindows, BurstOfSizes_CostsOneLayout_TheNewestSizeWins) {
    StartPalette(kAppPid);
    WaitForLayout();
    Seen().extent = {};
    const SIZEL none = Seen().extent;
    CAdUiDockControlBar* set = Set(L"PID");
    for (int width : {300, 250, 220, 180})
        Frame().Docks().Resize(*set, width, 0);
    EXPECT_EQ(Seen().extent.cx, none.cx) << "nothing is laid out before its time";
    EXPECT_EQ(Palette().RectOf(IDC_PALETTE_DRAWING_MANAGER).right, 115);
    WaitForLayout();
    EXPECT_EQ(Palette().RectOf(IDC_PALETTE_DRAWING_MANAGER).right, 170);
    // The timer ends with its tick: no second one comes for a size that is there already.
    MoveWindow(GetDlgItem(Palette().Dialog(), IDC_PALETTE_DRAWING_MANAGER), 1, 1, 50, 20, TRUE);
    SetTimer(Palette().Dialog(), kKeepAwake, 400, nullptr);
    EXPECT_FALSE(windows::WaitFor([this] { return Palette().RectOf(IDC_PALETTE_DRAWING_MANAGER).left != 1; },
                                  std::chrono::milliseconds(350)));
}
