#include "palette/isoplane.h"

#include <gtest/gtest.h>

TEST(Isoplane, StatesShowTheirIconsAndSnap) {
    const CIsoState expected[] = {{239, 1, 2},
                                  {234, 1, 1},
                                  {235, 1, 0},
                                  {236, 1, 1},
                                  {237, 1, 0},
                                  {238, 1, 2},
                                  {233, 0, kIsoPairUnchanged}};
    for (int i = 0; i < kIsoStateCount; ++i) {
        EXPECT_EQ(GetIsoState(i).nIcon, expected[i].nIcon) << i;
        EXPECT_EQ(GetIsoState(i).nSnapStyle, expected[i].nSnapStyle) << i;
        EXPECT_EQ(GetIsoState(i).nIsoPair, expected[i].nIsoPair) << i;
    }
}

TEST(Isoplane, StateBeyondTheLastOne_WrapsToTheFirst) {
    EXPECT_EQ(NormalizeIsoState(kIsoStateRectangular), 6);
    EXPECT_EQ(NormalizeIsoState(7), 0);
    EXPECT_EQ(NormalizeIsoState(-1), 0);
    EXPECT_EQ(GetIsoState(7).nIcon, 239);
    EXPECT_EQ(GetIsoState(-2147483647 - 1).nIcon, 239);
}

TEST(Isoplane, RectangularSnap_IsStateSixWhateverThePair) {
    for (int nPair : {-1, 0, 1, 2, 9})
        EXPECT_EQ(DeriveIsoState(0, nPair), 6) << nPair;
}

TEST(Isoplane, IsometricSnap_GivesTheStateOfThePair) {
    EXPECT_EQ(DeriveIsoState(1, 0), 2);
    EXPECT_EQ(DeriveIsoState(1, 1), 1);
    EXPECT_EQ(DeriveIsoState(1, 2), 0);
    EXPECT_EQ(DeriveIsoState(1, 77), 0);
    EXPECT_EQ(DeriveIsoState(5, -3), 0);
}

TEST(Isoplane, ClickedStates_AreNeverDerived) {
    for (int nState : {3, 4, 5}) {
        const int nDerived = DeriveIsoState(GetIsoState(nState).nSnapStyle, GetIsoState(nState).nIsoPair);
        EXPECT_LT(nDerived, 3) << nState;
        EXPECT_NE(nDerived, nState);
    }
}
