#include "frame/canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace frame {
namespace {

struct Picture {
    Picture(int w, int h)
        : width(w), pixels(static_cast<std::size_t>(w * h), 0), canvas(pixels.data(), w, h) {}
    Color At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    std::ptrdiff_t Lit() const {
        return std::ptrdiff_t(pixels.size()) - std::count(pixels.begin(), pixels.end(), 0u);
    }

    int width;
    std::vector<Color> pixels;
    Canvas canvas;
};

TEST(Canvas, DrawLine_AlongPixelCentres_IsSharp) {
    Picture picture(10, 10);
    picture.canvas.DrawLine({0.5, 3.5}, {9.5, 3.5}, 0xFFFFFF);
    for (int x = 0; x < 10; ++x) {
        EXPECT_EQ(0xFFFFFFu, picture.At(x, 3));
        EXPECT_EQ(0u, picture.At(x, 2));
        EXPECT_EQ(0u, picture.At(x, 4));
    }
}

TEST(Canvas, DrawLine_BetweenPixels_IsShared) {
    Picture picture(10, 10);
    picture.canvas.DrawLine({4, 0}, {4, 9}, 0x0000FF);
    EXPECT_EQ(picture.At(3, 5), picture.At(4, 5));
    EXPECT_GT(picture.At(3, 5), 0x60u);
    EXPECT_LT(picture.At(3, 5), 0xA0u);
}

TEST(Canvas, DrawLine_Diagonal_TouchesEveryRow) {
    Picture picture(20, 20);
    picture.canvas.DrawLine({0.5, 0.5}, {19.5, 19.5}, 0xFFFFFF);
    for (int i = 0; i < 20; ++i)
        EXPECT_NE(0u, picture.At(i, i));
}

TEST(Canvas, DrawLine_OutsideOnEverySide_DrawsNothing) {
    Picture picture(10, 10);
    picture.canvas.DrawLine({-5, -5}, {-5, 20}, 0xFFFFFF);
    picture.canvas.DrawLine({20, -5}, {20, 20}, 0xFFFFFF);
    picture.canvas.DrawLine({-5, -5}, {20, -5}, 0xFFFFFF);
    picture.canvas.DrawLine({-5, 20}, {20, 20}, 0xFFFFFF);
    EXPECT_EQ(0, picture.Lit());
}

TEST(Canvas, DrawLine_FarOutsideOnBothEnds_CrossesThePicture) {
    Picture picture(10, 10);
    picture.canvas.DrawLine({-1e12, 5.5}, {1e12, 5.5}, 0xFFFFFF);
    EXPECT_NE(0u, picture.At(0, 5));
    EXPECT_NE(0u, picture.At(9, 5));
    EXPECT_EQ(10, picture.Lit());
}

TEST(Canvas, DrawLine_NoNumbers_DrawsNothing) {
    Picture picture(10, 10);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    picture.canvas.DrawLine({nan, 0}, {9, 9}, 0xFFFFFF);
    picture.canvas.DrawLine({0, 0}, {std::numeric_limits<double>::infinity(), 9}, 0xFFFFFF);
    picture.canvas.DrawPoint({nan, nan}, 0xFFFFFF);
    EXPECT_EQ(0, picture.Lit());
}

TEST(Canvas, DrawPoint_LastPixelInsideAndFirstOutside) {
    Picture picture(10, 10);
    picture.canvas.DrawPoint({9.9, 9.9}, 0x123456);
    EXPECT_EQ(0x123456u, picture.At(9, 9));
    picture.canvas.DrawPoint({10, 0}, 0x123456);
    picture.canvas.DrawPoint({-0.1, 0}, 0x123456);
    EXPECT_EQ(1, picture.Lit());
}

TEST(Canvas, FillPolygon_Square_FillsExactlyIt) {
    Picture picture(10, 10);
    picture.canvas.FillPolygon({{2, 2}, {6, 2}, {6, 5}, {2, 5}}, 0xABCDEF);
    EXPECT_EQ(12, picture.Lit());
    EXPECT_EQ(0xABCDEFu, picture.At(2, 2));
    EXPECT_EQ(0xABCDEFu, picture.At(5, 4));
    EXPECT_EQ(0u, picture.At(6, 5));
}

TEST(Canvas, FillPolygon_LargerThanThePicture_FillsAllOfIt) {
    Picture picture(10, 10);
    picture.canvas.FillPolygon({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}}, 1);
    EXPECT_EQ(100, picture.Lit());
}

TEST(Canvas, FillPolygon_TwoCorners_IsNothing) {
    Picture picture(10, 10);
    picture.canvas.FillPolygon({{0, 0}, {9, 9}}, 1);
    EXPECT_EQ(0, picture.Lit());
}

}  // namespace
}  // namespace frame
