#include "drawing_manager/window_position.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

const CWindowPosition kSample{{100, 50, 900, 650}, {300, 65, 308, 540}, {11, 380, 300, 388}, true};

}  // namespace

TEST(WindowPosition, Format_HasThirteenNumbers) {
    EXPECT_EQ(FormatWindowPosition(kSample), L"100,50,900,650,300,65,308,540,11,380,300,388,1");
}

TEST(WindowPosition, WhatWasFormatted_IsReadBack) {
    CWindowPosition position = kSample;
    EXPECT_EQ(ParseWindowPosition(FormatWindowPosition(position)), position);
    position.bListVisible = false;
    position.rcWindow.left = -1200;
    EXPECT_EQ(ParseWindowPosition(FormatWindowPosition(position)), position);
}

TEST(WindowPosition, ShortText_GivesZeroForWhatItLacks) {
    EXPECT_EQ(ParseWindowPosition(L"10,20,400,300,280"),
              (CWindowPosition{{10, 20, 400, 300}, {280, 0, 0, 0}, {}, true}));
    EXPECT_EQ(ParseWindowPosition(L""), (CWindowPosition{{}, {}, {}, true}));
}

TEST(WindowPosition, CorruptText_IsReadAsFarAsItParses) {
    EXPECT_EQ(ParseWindowPosition(L"10,20,400x,300").rcWindow, (CPixelRect{10, 20, 400, 0}));
    EXPECT_EQ(ParseWindowPosition(L"10;20,400,300").rcWindow, (CPixelRect{10, 0, 0, 0}));
    EXPECT_EQ(ParseWindowPosition(L"10,,400,300").rcWindow, (CPixelRect{10, 0, 0, 0}));
    EXPECT_EQ(ParseWindowPosition(L"nonsense %d,%d").rcWindow, CPixelRect{});
}

TEST(WindowPosition, Blanks_AheadOfANumberAreAllowed) {
    EXPECT_EQ(ParseWindowPosition(L" 10, +20,\t-400,300").rcWindow, (CPixelRect{10, 20, -400, 300}));
    EXPECT_EQ(ParseWindowPosition(L"10 ,20").rcWindow, (CPixelRect{10, 0, 0, 0}));
}

TEST(WindowPosition, HugeNumbers_StopAtTheLimits) {
    EXPECT_EQ(
        ParseWindowPosition(L"99999999999999999999,-99999999999999999999,2147483648,-2147483648").rcWindow,
        (CPixelRect{kLargest, kSmallest, kLargest, kSmallest}));
}

TEST(WindowPosition, NumbersBeyondTheThirteenth_AreIgnored) {
    EXPECT_EQ(ParseWindowPosition(FormatWindowPosition(kSample) + L",7,8,9"), kSample);
}

TEST(WindowPosition, ListIsVisibleOnlyForOne) {
    EXPECT_FALSE(ParseWindowPosition(L"0,0,0,0,0,0,0,0,0,0,0,0,2").bListVisible);
    EXPECT_FALSE(ParseWindowPosition(L"0,0,0,0,0,0,0,0,0,0,0,0,0").bListVisible);
    EXPECT_TRUE(ParseWindowPosition(L"0,0,0,0,0,0,0,0,0,0,0,0,1").bListVisible);
}

TEST(ClampWindowRect, WidthOf2000_Becomes1600) {
    EXPECT_EQ(ClampWindowRect({100, 50, 2100, 1450}), (CPixelRect{100, 50, 1700, 1250}));
}

TEST(ClampWindowRect, NegativeCorner_BecomesZeroAndOtherEdgesStay) {
    EXPECT_EQ(ClampWindowRect({-40, -30, 760, 570}), (CPixelRect{0, 0, 760, 570}));
}

TEST(ClampWindowRect, HugeNumbers_DoNotOverflow) {
    EXPECT_EQ(ClampWindowRect({kLargest, kSmallest, kSmallest, kLargest}),
              (CPixelRect{kLargest, 0, kSmallest, 1200}));
    EXPECT_EQ(ClampWindowRect({kLargest - 10, 0, kLargest, 10}).right, kLargest);
}
