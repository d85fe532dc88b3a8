#include "frame/dock_layout.h"

#include <gtest/gtest.h>

namespace frame {
namespace {

constexpr LayoutRect kArea{0, 50, 1000, 650};

TEST(DockLayout, NoBars_LeaveAllToTheDrawing) {
    const DockLayout layout = LayOutDocks(kArea, {}, {});
    EXPECT_EQ(kArea, layout.center);
    EXPECT_TRUE(layout.left.empty());
    EXPECT_EQ(0, layout.leftSplitter.Width());
}

TEST(DockLayout, OneBarLeft_GetsItsWidthAndASplitter) {
    const DockLayout layout = LayOutDocks(kArea, {{125, 60, 800}}, {});
    EXPECT_EQ((LayoutRect{0, 50, 125, 650}), layout.left.at(0));
    EXPECT_EQ((LayoutRect{125, 50, 125 + kSplitterWidth, 650}), layout.leftSplitter);
    EXPECT_EQ((LayoutRect{125 + kSplitterWidth, 50, 1000, 650}), layout.center);
}

TEST(DockLayout, OneBarRight_LiesAtTheRightEdge) {
    const DockLayout layout = LayOutDocks(kArea, {}, {{200, 60, 800}});
    EXPECT_EQ((LayoutRect{800, 50, 1000, 650}), layout.right.at(0));
    EXPECT_EQ(800 - kSplitterWidth, layout.center.right);
}

TEST(DockLayout, TwoBarsOfOneSide_ShareTheColumn) {
    const DockLayout layout = LayOutDocks(kArea, {{125, 60, 800}, {180, 60, 800}}, {});
    EXPECT_EQ((LayoutRect{0, 50, 180, 350}), layout.left.at(0));
    EXPECT_EQ((LayoutRect{0, 350, 180, 650}), layout.left.at(1));
}

TEST(DockLayout, WidthOutsideTheLimits_IsBroughtInside) {
    EXPECT_EQ(60, LayOutDocks(kArea, {{5, 60, 800}}, {}).leftWidth);
    EXPECT_EQ(300, LayOutDocks(kArea, {{5000, 60, 300}}, {}).leftWidth);
    EXPECT_EQ(60, LayOutDocks(kArea, {{5, 60, 0}}, {}).leftWidth);
}

TEST(DockLayout, NarrowFrame_TheColumnsGiveWayBeforeTheDrawing) {
    const LayoutRect narrow{0, 0, 400, 100};
    const DockLayout layout = LayOutDocks(narrow, {{200, 60, 800}}, {{200, 60, 800}});
    EXPECT_EQ(kSmallestCenter, layout.center.Width());
    EXPECT_EQ(70, layout.rightWidth);
    EXPECT_EQ(200, layout.leftWidth);
}

TEST(DockLayout, FrameWithoutRoom_KeepsTheSmallestWidths) {
    const DockLayout layout = LayOutDocks({0, 0, 50, 10}, {{200, 60, 800}}, {{200, 60, 800}});
    EXPECT_EQ(60, layout.leftWidth);
    EXPECT_EQ(60, layout.rightWidth);
    EXPECT_EQ(0, layout.center.Width());
}

TEST(DockSideAt, NearAnEdge_IsThatSide) {
    EXPECT_EQ(DockSide::kLeft, DockSideAt(kArea, 10, 100, true, true));
    EXPECT_EQ(DockSide::kRight, DockSideAt(kArea, 990, 100, true, true));
    EXPECT_EQ(DockSide::kFloating, DockSideAt(kArea, 500, 100, true, true));
    EXPECT_EQ(DockSide::kFloating, DockSideAt(kArea, kDockZone, 100, true, true));
    EXPECT_EQ(DockSide::kLeft, DockSideAt(kArea, kDockZone - 1, 100, true, true));
}

TEST(DockSideAt, SideThatIsNotAllowed_Floats) {
    EXPECT_EQ(DockSide::kFloating, DockSideAt(kArea, 10, 100, false, true));
    EXPECT_EQ(DockSide::kFloating, DockSideAt(kArea, 990, 100, true, false));
}

TEST(DockSideAt, AboveOrBelowTheFrame_Floats) {
    EXPECT_EQ(DockSide::kFloating, DockSideAt(kArea, 10, 49, true, true));
    EXPECT_EQ(DockSide::kFloating, DockSideAt(kArea, 10, 650, true, true));
}

TEST(KeepOnScreen, InsideStaysWhereItIs) {
    const LayoutRect rect{10, 10, 135, 505};
    EXPECT_EQ(rect, KeepOnScreen(rect, {0, 0, 1280, 900}));
}

TEST(KeepOnScreen, OutsideOnEverySide_TheCaptionComesBack) {
    const LayoutRect screen{0, 0, 1280, 900};
    EXPECT_EQ((LayoutRect{1240, 10, 1365, 505}), KeepOnScreen({2000, 10, 2125, 505}, screen));
    EXPECT_EQ((LayoutRect{-85, 10, 40, 505}), KeepOnScreen({-3000, 10, -2875, 505}, screen));
    EXPECT_EQ((LayoutRect{10, 860, 135, 1355}), KeepOnScreen({10, 2000, 135, 2495}, screen));
    EXPECT_EQ((LayoutRect{10, 0, 135, 495}), KeepOnScreen({10, -400, 135, 95}, screen));
}

}  // namespace
}  // namespace frame
