#include "controls/balloon_geometry.h"

#include <gtest/gtest.h>

TEST(BalloonGeometry, ShortMessage_HasOneLineAndSixMore) {
    EXPECT_EQ(GetBalloonHeight({.nCharWidth = 6, .nLineHeight = 13, .nLength = 5}, 380), 7 * 13);
}

TEST(BalloonGeometry, LongMessage_CountsWholeWidthsOnly) {
    // 200 characters of 6 pixels are 1200 pixels: three whole widths of 380 and a rest that is not counted.
    EXPECT_EQ(GetBalloonHeight({.nCharWidth = 6, .nLineHeight = 13, .nLength = 200}, 380), 9 * 13);
}

TEST(BalloonGeometry, GivenLineCount_WinsOverLength) {
    EXPECT_EQ(GetBalloonHeight({.nCharWidth = 6, .nLineHeight = 10, .nLength = 2000, .nLines = 3}, 100), 90);
    EXPECT_EQ(GetBalloonHeight({.nCharWidth = 6, .nLineHeight = 10, .nLength = 0, .nLines = 0}, 100), 70);
}

TEST(BalloonGeometry, EmptyRectangle_CountsAsOneLine) {
    EXPECT_EQ(GetBalloonHeight({.nCharWidth = 6, .nLineHeight = 10, .nLength = 80}, 0), 70);
    EXPECT_EQ(GetBalloonHeight({.nCharWidth = 6, .nLineHeight = 10, .nLength = 80}, -40), 70);
}

TEST(BalloonGeometry, Up_StandsAboveItsAnchor) {
    EXPECT_EQ(GetBalloonRect({300, 400}, 101, 91, true), (CPixelRect{250, 309, 350, 400}));
}

TEST(BalloonGeometry, Down_HangsBelowItsAnchor) {
    EXPECT_EQ(GetBalloonRect({300, 400}, 100, 91, false), (CPixelRect{250, 400, 350, 491}));
}

TEST(BalloonGeometry, NearTheScreensCorner_LosesWhatWouldLieOutside) {
    EXPECT_EQ(GetBalloonRect({20, 30}, 100, 91, true), (CPixelRect{0, 0, 70, 30}));
}

TEST(BalloonGeometry, UpShape_HasTailAtTheBottomRight) {
    const CBalloonShape shape = GetBalloonShape({0, 0, 381, 91}, true);
    EXPECT_EQ(shape.rcText, (CPixelRect{40, 9, 361, 63}));
    EXPECT_EQ(shape.rcBody, (CPixelRect{0, 0, 381, 69}));
    EXPECT_EQ(shape.nCornerWidth, 68);
    EXPECT_EQ(shape.nCornerHeight, 22);
    EXPECT_EQ(shape.aTail[0], (CPixelPoint{354, 55}));
    EXPECT_EQ(shape.aTail[1], (CPixelPoint{247, 91}));
    EXPECT_EQ(shape.aTail[2], (CPixelPoint{266, 55}));
}

TEST(BalloonGeometry, DownShape_HasTailAtTheTopLeft) {
    const CBalloonShape shape = GetBalloonShape({0, 0, 250, 100}, false);
    EXPECT_EQ(shape.rcText, (CPixelRect{40, 35, 230, 90}));
    EXPECT_EQ(shape.rcBody, (CPixelRect{0, 25, 250, 100}));
    EXPECT_EQ(shape.nCornerWidth, 45);
    EXPECT_EQ(shape.nCornerHeight, 25);
    EXPECT_EQ(shape.aTail[0], (CPixelPoint{17, 40}));
    EXPECT_EQ(shape.aTail[1], (CPixelPoint{87, 0}));
    EXPECT_EQ(shape.aTail[2], (CPixelPoint{75, 40}));
}
