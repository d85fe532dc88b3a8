#include "drawing_manager/dialog_layout.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "resources/resource.h"

namespace {

// A window 808 by 630 with a frame of 4 and a caption of 26: the content's margin is 12, its right edge 784.
CLayoutInput AnInput() {
    CLayoutInput input;
    input.rcWindow = {-4, -26, 804, 604};
    input.rcSplitterV = {300, 65, 308, 540};
    input.rcSplitterH = {12, 380, 300, 388};
    input.nOtherColumnsWidth = 57 + 115;
    return input;
}

std::optional<CPixelRect> FindRect(const CLayout& layout, int nId) {
    std::optional<CPixelRect> found;
    for (const CPlacement& placement : layout.aPlacements) {
        if (placement.nControlId != nId) continue;
        EXPECT_FALSE(found) << nId << " is placed twice";
        found = placement.rect;
    }
    return found;
}

CPixelRect RectOf(const CLayout& layout, int nId) {
    const std::optional<CPixelRect> found = FindRect(layout, nId);
    EXPECT_TRUE(found) << nId << " is not placed";
    return found.value_or(CPixelRect{});
}

CPixelRect At(int x, int y, int nWidth, int nHeight) {
    return MakePixelRect(x, y, nWidth, nHeight);
}

CMeasuredControls AMeasuredDialog() {
    CMeasuredControls controls;
    controls.rcWindow = {-4, -26, 804, 604};
    controls.rcStandardBox = {181, -3, 265, 53};
    controls.rcSingleDoc = {611, 18, 706, 38};
    controls.rcHelp = {720, 10, 780, 40};
    controls.rcLocation = {85, 562, 742, 592};
    controls.rcTree = {12, 65, 300, 380};
    controls.rcList = {308, 65, 780, 554};
    return controls;
}

}  // namespace

TEST(Layout, FixedControls_StandInTheFirstRow) {
    for (bool bShow : {true, false}) {
        CLayoutInput input = AnInput();
        input.bShowDrawings = bShow;
        const CLayout layout = ComputeLayout(input);
        EXPECT_EQ(RectOf(layout, IDC_HELP_BUTTON), At(784 - 60, 10, 60, 30));
        EXPECT_EQ(RectOf(layout, IDC_OPEN_STANDARD), At(189, 15, 30, 30));
        EXPECT_EQ(RectOf(layout, IDC_SHOW_HIDE), At(227, 15, 30, 30));
        EXPECT_EQ(RectOf(layout, IDC_STANDARD_BOX), At(181, -3, 84, 56));
    }
}

TEST(Layout, WithDrawings_PanesFillTheWindow) {
    const CLayout layout = ComputeLayout(AnInput());
    EXPECT_EQ(RectOf(layout, IDC_EXPLORE), At(754, 562, 30, 30));
    EXPECT_EQ(RectOf(layout, IDC_SPLITTER_VERTICAL), At(300, 65, 8, 489));
    EXPECT_EQ(RectOf(layout, IDC_SPLITTER_HORIZONTAL), At(12, 380, 288, 8));
    EXPECT_EQ(RectOf(layout, IDC_THUMBNAIL), At(12, 388, 288, 166));
    EXPECT_EQ(RectOf(layout, IDC_LOCATION), At(85, 562, 661, 30));
    EXPECT_EQ(RectOf(layout, IDC_LOCATION_LABEL), At(12, 562, 73, 30));
    EXPECT_EQ(RectOf(layout, IDC_DRAWINGS_LABEL), At(308, 15, 85, 30));
    EXPECT_EQ(RectOf(layout, IDC_DRAWING_LIST), At(308, 65, 476, 489));
    EXPECT_EQ(RectOf(layout, IDC_TREE), At(12, 65, 288, 315));
}

TEST(Layout, DrawingButtons_FollowTheVerticalSplitter) {
    const CLayout layout = ComputeLayout(AnInput());
    const int nFirst = 308 + 97;
    EXPECT_EQ(RectOf(layout, IDC_OPEN_DRAWING), At(nFirst, 15, 30, 30));
    EXPECT_EQ(RectOf(layout, IDC_NEW_DRAWING), At(nFirst + 38, 15, 30, 30));
    EXPECT_EQ(RectOf(layout, IDC_COPY_DRAWING), At(nFirst + 76, 15, 30, 30));
    EXPECT_EQ(RectOf(layout, IDC_RENAME_DRAWING), At(nFirst + 114, 15, 30, 30));
    EXPECT_EQ(RectOf(layout, IDC_DELETE_DRAWING), At(nFirst + 152, 15, 30, 30));
    EXPECT_EQ(RectOf(layout, IDC_DRAWING_BOX), At(nFirst - 8, -3, 198, 56));
    EXPECT_EQ(RectOf(layout, IDC_SINGLE_DOC), At(nFirst + 206, 18, 95, 20));
}

TEST(Layout, NameColumn_TakesWhatTheOthersLeave) {
    CLayoutInput input = AnInput();
    EXPECT_EQ(ComputeLayout(input).nNameColumnWidth, 476 - 172 - 21);
    input.rcWindow.right += 100;
    EXPECT_EQ(ComputeLayout(input).nNameColumnWidth, 576 - 172 - 21);
}

TEST(Layout, Tree_IsMovedLast) {
    CLayoutInput input = AnInput();
    EXPECT_EQ(ComputeLayout(input).aPlacements.back().nControlId, IDC_TREE);
    input.bShowDrawings = false;
    EXPECT_EQ(ComputeLayout(input).aPlacements.back().nControlId, IDC_TREE);
}

TEST(Layout, SplitterLeftOf265_IsMovedTo265) {
    CLayoutInput input = AnInput();
    input.rcSplitterV = At(120, 65, 8, 400);
    EXPECT_EQ(RectOf(ComputeLayout(input), IDC_SPLITTER_VERTICAL).left, 265);
}

TEST(Layout, NarrowWindow_BringsSplitterTo333FromTheRightEdge) {
    CLayoutInput input = AnInput();
    input.rcWindow.right = 500;  // the content's right edge is 480
    for (int nStored : {0, 265, 300, 5000}) {
        input.rcSplitterV.left = nStored;
        EXPECT_EQ(RectOf(ComputeLayout(input), IDC_SPLITTER_VERTICAL).left, 480 - 333);
    }
}

TEST(Layout, HorizontalSplitter_LeavesLeastPaneAboveAndBelow) {
    CLayoutInput input = AnInput();
    input.rcSplitterH.top = 10;
    EXPECT_EQ(RectOf(ComputeLayout(input), IDC_SPLITTER_HORIZONTAL).top, 65 + 50);
    input.rcSplitterH.top = 9000;
    const CLayout layout = ComputeLayout(input);
    EXPECT_EQ(RectOf(layout, IDC_SPLITTER_HORIZONTAL).top, 562 - 8 - 50 - 8);
    EXPECT_EQ(RectOf(layout, IDC_THUMBNAIL).Height(), 50);
}

TEST(Layout, HugeSplitterPositions_DoNotOverflow) {
    for (int nHuge : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        CLayoutInput input = AnInput();
        input.rcSplitterV = {nHuge, nHuge, nHuge, nHuge};
        input.rcSplitterH = {nHuge, nHuge, nHuge, nHuge};
        const CLayout layout = ComputeLayout(input);
        EXPECT_EQ(RectOf(layout, IDC_SPLITTER_VERTICAL).left, nHuge > 0 ? 451 : 265);
        EXPECT_EQ(RectOf(layout, IDC_SPLITTER_HORIZONTAL).top, nHuge > 0 ? 496 : 115);
    }
}

TEST(Layout, WithoutDrawings_TreeTakesTheRoom) {
    CLayoutInput input = AnInput();
    input.bShowDrawings = false;
    const CLayout layout = ComputeLayout(input);
    EXPECT_EQ(RectOf(layout, IDC_TREE), At(12, 65, 772, 604 - 4 - 8 - 65));
    EXPECT_EQ(RectOf(layout, IDC_THUMBNAIL), CPixelRect{});
    EXPECT_FALSE(FindRect(layout, IDC_DRAWING_LIST));
    EXPECT_FALSE(FindRect(layout, IDC_SPLITTER_VERTICAL));
}

TEST(SizeLimits, ListVisible_ButtonsAndPanesMustFit) {
    EXPECT_EQ(GetSizeLimits(AMeasuredDialog(), 50),
              (CSizeLimits{706 + 15 + 60 + 4, 592 + 10 + 50 - 315 + 26}));
}

TEST(SizeLimits, ListHidden_OnlyTheLeftPartMustFit) {
    CMeasuredControls controls = AMeasuredDialog();
    controls.bListVisible = false;
    EXPECT_EQ(GetSizeLimits(controls, 50), (CSizeLimits{265 + 19 + 60 + 4, 65 + 100}));
}

TEST(DraggedRect, TooSmall_IsHeldAtTheDraggedEdge) {
    const CSizeLimits limits{400, 300};
    const CPixelRect rect{1000, 500, 1100, 600};
    const CPixelRect rcLeft{700, 500, 1100, 800};
    const CPixelRect rcRight{1000, 500, 1400, 800};
    const CPixelRect rcTopRight{1000, 300, 1400, 600};
    EXPECT_EQ(LimitDraggedRect(rect, 1, limits), rcLeft);
    EXPECT_EQ(LimitDraggedRect(rect, 2, limits), rcRight);
    EXPECT_EQ(LimitDraggedRect(rect, 3, limits), rcTopRight);
    EXPECT_EQ(LimitDraggedRect(rect, 4, limits), (CPixelRect{700, 300, 1100, 600}));
    EXPECT_EQ(LimitDraggedRect(rect, 5, limits), rcTopRight);
    EXPECT_EQ(LimitDraggedRect(rect, 6, limits), rcRight);
    EXPECT_EQ(LimitDraggedRect(rect, 7, limits), rcLeft);
    EXPECT_EQ(LimitDraggedRect(rect, 8, limits), rcRight);
}

TEST(DraggedRect, TooLarge_IsHeldTo1600By1200) {
    const CPixelRect rect{0, 0, 3000, 2000};
    EXPECT_EQ(LimitDraggedRect(rect, 8, {400, 300}), (CPixelRect{0, 0, 1600, 1200}));
    EXPECT_EQ(LimitDraggedRect(rect, 4, {400, 300}), (CPixelRect{1400, 800, 3000, 2000}));
}

TEST(DraggedRect, WithinLimits_IsLeftAlone) {
    const CPixelRect rect{10, 20, 810, 620};
    for (unsigned uEdge = 1; uEdge <= 8; ++uEdge)
        EXPECT_EQ(LimitDraggedRect(rect, uEdge, {800, 600}), rect);
}

TEST(SplitterRanges, LeaveRoomForButtonsAndPanes) {
    EXPECT_EQ(GetVerticalRange(AMeasuredDialog()), (CSplitterRange{268, 308 - 4 + (720 - 706)}));
    EXPECT_EQ(GetHorizontalRange(AMeasuredDialog(), 50), (CSplitterRange{115, 504}));
}

TEST(GrowToFit, SmallWindow_GrowsUntilTheExplorerButtonFits) {
    EXPECT_EQ(GrowToFit({100, 100, 400, 300}, {-8, -31, 292, 169}, {750, 562, 780, 592}),
              (CPixelRect{100, 100, 898, 731}));
}

TEST(GrowToFit, LargeWindow_Stays) {
    EXPECT_EQ(GrowToFit({0, 0, 1500, 1100}, {-8, -31, 1492, 1069}, {750, 562, 780, 592}),
              (CPixelRect{0, 0, 1500, 1100}));
}

TEST(GrowToFit, WindowThatWasJustLaidOut_StaysWhateverItsFrame) {
    for (const CPixelRect& rcWindow :
         {CPixelRect{-8, -31, 792, 569}, CPixelRect{-4, -22, 796, 578}, CPixelRect{0, 0, 800, 600}}) {
        CLayoutInput input = AnInput();
        input.rcWindow = rcWindow;
        const CPixelRect rcExplore = RectOf(ComputeLayout(input), IDC_EXPLORE);
        EXPECT_EQ(GrowToFit({50, 50, 850, 650}, rcWindow, rcExplore), (CPixelRect{50, 50, 850, 650}));
    }
}
