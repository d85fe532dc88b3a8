#include "frame/view_transform.h"

#include <gtest/gtest.h>

#include <limits>

namespace frame {
namespace {

WorldBox Box(double minX, double minY, double maxX, double maxY) {
    WorldBox box;
    box.Add(WorldPoint{minX, minY});
    box.Add(WorldPoint{maxX, maxY});
    return box;
}

TEST(WorldBox, Add_PointThatIsNoNumber_IsLeftOut) {
    WorldBox box;
    box.Add(WorldPoint{std::numeric_limits<double>::quiet_NaN(), 1});
    EXPECT_TRUE(box.empty);
    box.Add(WorldPoint{1, std::numeric_limits<double>::infinity()});
    EXPECT_TRUE(box.empty);
}

TEST(WorldBox, Overlaps_TouchingBoxes_Do) {
    EXPECT_TRUE(Box(0, 0, 1, 1).Overlaps(Box(1, 1, 2, 2)));
    EXPECT_FALSE(Box(0, 0, 1, 1).Overlaps(Box(1.5, 0, 2, 2)));
    EXPECT_FALSE(Box(0, 0, 1, 1).Overlaps(WorldBox()));
}

TEST(ViewTransform, ZoomExtents_PutsTheMiddleInTheMiddleAndKeepsAMargin) {
    ViewTransform view;
    view.SetWindowSize(1000, 500);
    view.ZoomExtents(Box(100, 100, 300, 200));
    const ScreenPoint middle = view.ToScreen({200, 150});
    EXPECT_DOUBLE_EQ(500, middle.x);
    EXPECT_DOUBLE_EQ(250, middle.y);
    const ScreenPoint corner = view.ToScreen({100, 100});
    EXPECT_GT(corner.x, 0);
    EXPECT_LT(corner.y, 500);
    EXPECT_DOUBLE_EQ(4.75, view.Scale());
}

TEST(ViewTransform, YGrowsUpwardsInTheDrawing) {
    ViewTransform view;
    view.SetWindowSize(100, 100);
    view.ZoomExtents(Box(0, 0, 10, 10));
    EXPECT_LT(view.ToScreen({5, 10}).y, view.ToScreen({5, 0}).y);
}

TEST(ViewTransform, ToWorld_UndoesToScreen) {
    ViewTransform view;
    view.SetWindowSize(640, 480);
    view.ZoomExtents(Box(-20, 5, 900, 33));
    const WorldPoint there = view.ToWorld(view.ToScreen({12.5, -7}));
    EXPECT_NEAR(12.5, there.x, 1e-9);
    EXPECT_NEAR(-7, there.y, 1e-9);
}

TEST(ViewTransform, ZoomExtents_SinglePoint_IsShownInTheMiddle) {
    ViewTransform view;
    view.SetWindowSize(200, 100);
    view.ZoomExtents(Box(7, 7, 7, 7));
    EXPECT_DOUBLE_EQ(100, view.ToScreen({7, 7}).x);
    EXPECT_DOUBLE_EQ(1, view.Scale());
}

TEST(ViewTransform, ZoomExtents_NothingDrawn_ShowsASheet) {
    ViewTransform view;
    view.SetWindowSize(420, 297);
    view.ZoomExtents(WorldBox());
    EXPECT_NEAR(0.95, view.Scale(), 1e-9);
}

TEST(ViewTransform, ZoomAbout_KeepsTheFixedPoint) {
    ViewTransform view;
    view.SetWindowSize(640, 480);
    view.ZoomExtents(Box(0, 0, 100, 100));
    const WorldPoint before = view.ToWorld({600, 40});
    view.ZoomAbout({600, 40}, 1.25);
    const WorldPoint after = view.ToWorld({600, 40});
    EXPECT_NEAR(before.x, after.x, 1e-9);
    EXPECT_NEAR(before.y, after.y, 1e-9);
}

TEST(ViewTransform, ZoomAbout_BeyondTheLimits_ChangesNothing) {
    ViewTransform view;
    view.SetWindowSize(640, 480);
    view.ZoomExtents(Box(0, 0, 100, 100));
    const double scale = view.Scale();
    view.ZoomAbout({0, 0}, 1e300);
    view.ZoomAbout({0, 0}, 0);
    view.ZoomAbout({0, 0}, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(scale, view.Scale());
}

TEST(ViewTransform, PanPixels_MovesTheDrawingWithTheMouse) {
    ViewTransform view;
    view.SetWindowSize(640, 480);
    view.ZoomExtents(Box(0, 0, 100, 100));
    const ScreenPoint before = view.ToScreen({10, 10});
    view.PanPixels(30, -12);
    EXPECT_NEAR(before.x + 30, view.ToScreen({10, 10}).x, 1e-9);
    EXPECT_NEAR(before.y - 12, view.ToScreen({10, 10}).y, 1e-9);
}

}  // namespace
}  // namespace frame
