#include "controls/splitter_geometry.h"

#include <gtest/gtest.h>

TEST(SplitterGeometry, WideRectangle_GivesLyingBar) {
    EXPECT_EQ(GetSplitterType({0, 0, 100, 10}), kSplitterHorizontal);
    EXPECT_EQ(GetSplitterType({0, 0, 10, 100}), kSplitterVertical);
}

TEST(SplitterGeometry, SquareRectangle_GivesLyingBar) {
    EXPECT_EQ(GetSplitterType({5, 5, 25, 25}), kSplitterHorizontal);
}

TEST(SplitterGeometry, NewBar_IsFivePixelsThick) {
    EXPECT_EQ(ThinSplitterRect({10, 20, 30, 200}, kSplitterVertical), (CPixelRect{10, 20, 15, 200}));
    EXPECT_EQ(ThinSplitterRect({10, 20, 300, 60}, kSplitterHorizontal), (CPixelRect{10, 20, 300, 25}));
}

TEST(SplitterGeometry, CenterOfOddRectangle_IsRoundedDown) {
    EXPECT_EQ(GetCenter({10, 20, 15, 31}), (CPixelPoint{12, 25}));
    EXPECT_EQ(GetCenterOnAxis({10, 20, 15, 31}, kSplitterVertical), 12);
    EXPECT_EQ(GetCenterOnAxis({10, 20, 15, 31}, kSplitterHorizontal), 25);
}

TEST(SplitterGeometry, Drag_IsHeldToRangeOnBothAxes) {
    EXPECT_EQ(ClampToRange({50, 500}, 100, 300), (CPixelPoint{100, 300}));
    EXPECT_EQ(ClampToRange({150, 200}, 100, 300), (CPixelPoint{150, 200}));
}

TEST(SplitterGeometry, EmptyRange_LeavesOnePosition) {
    EXPECT_EQ(ClampToRange({-7, 1000}, 42, 42), (CPixelPoint{42, 42}));
}

TEST(SplitterGeometry, RangeUpsideDown_GivesLeastPosition) {
    EXPECT_EQ(ClampToRange({250, 10}, 300, 200), (CPixelPoint{300, 300}));
}

TEST(SplitterGeometry, MovedBar_KeepsItsSizeAndOtherAxis) {
    const CPixelRect rcBar{100, 65, 108, 400};
    EXPECT_EQ(MoveCenterTo(rcBar, {204, 9}, kSplitterVertical), (CPixelRect{200, 65, 208, 400}));
    EXPECT_EQ(MoveCenterTo({7, 100, 300, 108}, {9, 204}, kSplitterHorizontal),
              (CPixelRect{7, 200, 300, 208}));
}
