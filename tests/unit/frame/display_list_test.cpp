#include "frame/display_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace frame {
namespace {

constexpr Color kDark = 0x202830;

std::vector<Color> Render(const DisplayList& list, const ViewTransform& view) {
    std::vector<Color> pixels(static_cast<std::size_t>(view.Width() * view.Height()), kDark);
    Canvas canvas(pixels.data(), view.Width(), view.Height());
    list.Draw(canvas, view, kDark);
    return pixels;
}

ViewTransform SquareView(int size, const WorldBox& box) {
    ViewTransform view;
    view.SetWindowSize(size, size);
    view.ZoomExtents(box);
    return view;
}

TEST(IndexColor, Seven_ContrastsWithTheBackground) {
    EXPECT_EQ(0xFFFFFFu, IndexColor(7, 0x000000));
    EXPECT_EQ(0x000000u, IndexColor(7, 0xFFFFFF));
    EXPECT_EQ(0xFFFFFFu, IndexColor(0, 0x000000));
    EXPECT_EQ(0xFFFFFFu, IndexColor(-3, 0x000000));
    EXPECT_EQ(0xFFFFFFu, IndexColor(256, 0x000000));
}

TEST(IndexColor, Wheel_RunsThroughTheColours) {
    EXPECT_EQ(0xFF0000u, IndexColor(10, 0));
    EXPECT_EQ(0xFFFF00u, IndexColor(50, 0));
    EXPECT_EQ(0x00FF00u, IndexColor(90, 0));
    EXPECT_EQ(0x00FFFFu, IndexColor(130, 0));
    EXPECT_EQ(0x0000FFu, IndexColor(170, 0));
    EXPECT_EQ(0xFF00FFu, IndexColor(210, 0));
    EXPECT_EQ(0xFF8080u, IndexColor(11, 0));
    EXPECT_EQ(0xFF4000u, IndexColor(20, 0));
}

TEST(DisplayList, Extents_AreThoseOfStrokesAndTexts) {
    DisplayList list;
    list.AddStroke({{0, 0}, {10, 5}}, 1);
    list.AddText({L"A", {40, -3}, 2.5});
    list.Finish();
    EXPECT_EQ(0, list.Extents().minX);
    EXPECT_EQ(40, list.Extents().maxX);
    EXPECT_EQ(-3, list.Extents().minY);
    EXPECT_EQ(5, list.Extents().maxY);
}

TEST(DisplayList, PointsThatAreNoNumbers_AreLeftOut) {
    DisplayList list;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    list.AddStroke({{nan, 0}}, 1);
    list.AddText({L"A", {nan, 0}, 2.5});
    list.AddText({L"A", {0, 0}, nan});
    list.AddText({L"", {0, 0}, 2.5});
    list.Finish();
    EXPECT_TRUE(list.Empty());
    EXPECT_TRUE(list.Extents().empty);
}

TEST(DisplayList, Draw_ShowsEachShapeInItsColour) {
    DisplayList list;
    list.AddStroke({{0, 5}, {10, 5}}, 1);
    list.AddFilled({{4, 7}, {6, 7}, {6, 9}, {4, 9}}, 3);
    list.AddStroke({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, 7);
    list.Finish();
    const ViewTransform view = SquareView(200, list.Extents());
    const std::vector<Color> pixels = Render(list, view);
    const auto at = [&](WorldPoint point) {
        const ScreenPoint screen = view.ToScreen(point);
        return pixels[static_cast<std::size_t>(int(screen.y) * 200 + int(screen.x))];
    };
    EXPECT_EQ(0x00FF00u, at({5, 8}));
    EXPECT_EQ(kDark, at({2, 2}));
    EXPECT_NE(0, std::count_if(pixels.begin(), pixels.end(),
                               [](Color c) { return (c >> 16) > 0x60 && (c & 0xFF) < 0x40; }));
}

TEST(DisplayList, Draw_ThousandsOfShapes_EveryCornerIsReached) {
    DisplayList list;
    for (int x = 0; x < 100; ++x)
        for (int y = 0; y < 100; ++y)
            list.AddFilled({{x + 0.1, y + 0.1}, {x + 0.9, y + 0.1}, {x + 0.9, y + 0.9}, {x + 0.1, y + 0.9}},
                           7);
    list.Finish();
    EXPECT_EQ(10000u, list.ShapeCount());
    const ViewTransform view = SquareView(1000, list.Extents());
    const std::vector<Color> pixels = Render(list, view);
    for (int x = 0; x < 100; ++x)
        for (int y = 0; y < 100; ++y) {
            const ScreenPoint middle = view.ToScreen({x + 0.5, y + 0.5});
            ASSERT_EQ(0xFFFFFFu, pixels[static_cast<std::size_t>(int(middle.y) * 1000 + int(middle.x))])
                << x << " " << y;
        }
}

TEST(DisplayList, Draw_ShapesBelowAPixel_AreStillSeen) {
    DisplayList list;
    list.AddStroke({{0, 0}, {1000000, 1000000}}, 8);
    list.AddStroke({{200000, 800000}, {200001, 800001}}, 1);
    list.AddStroke({{800000, 200000}}, 3);
    list.Finish();
    const ViewTransform view = SquareView(100, list.Extents());
    const std::vector<Color> pixels = Render(list, view);
    EXPECT_EQ(1, std::count(pixels.begin(), pixels.end(), 0xFF0000u));
    EXPECT_EQ(1, std::count(pixels.begin(), pixels.end(), 0x00FF00u));
}

TEST(DisplayList, TextBox_CoversATurnedText) {
    DisplayList list;
    DisplayText text{L"PUMP", {10, 10}, 2};
    text.rotation = 1.5707963267948966;
    list.AddText(text);
    text.align = TextAlign::kCenter;
    text.rotation = 0;
    list.AddText(text);
    list.Finish();
    EXPECT_GE(list.Texts()[0].box.maxY, 18);
    EXPECT_LE(list.Texts()[1].box.minX, 6);
    EXPECT_GE(list.Texts()[1].box.maxX, 14);
}

}  // namespace
}  // namespace frame
