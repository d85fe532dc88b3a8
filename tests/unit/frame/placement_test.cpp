#include "frame/placement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace frame {
namespace {

constexpr double kPi = std::numbers::pi;

void ExpectAt(double x, double y, WorldPoint point) {
    EXPECT_NEAR(x, point.x, 1e-9);
    EXPECT_NEAR(y, point.y, 1e-9);
}

TEST(Placement, Reference_TurnsThenMoves) {
    const Placement placement = Placement::Reference({10, 20}, kPi / 2, false);
    ExpectAt(10, 21, placement.Apply({1, 0}));
    ExpectAt(9, 20, placement.Apply({0, 1}));
}

TEST(Placement, Instance_BringsTheOriginToTheOffset) {
    const Placement placement = Placement::Instance({5, 5}, 2, -3, {1, 1});
    ExpectAt(5, 5, placement.Apply({1, 1}));
    ExpectAt(7, 2, placement.Apply({2, 2}));
    EXPECT_DOUBLE_EQ(3, placement.HeightFactor());
}

TEST(Placement, Then_AppliesTheInnerOneFirst) {
    const Placement both =
        Placement::Reference({100, 0}, kPi / 2, false).Then(Placement::Instance({0, 0}, 2, 2, {0, 0}));
    ExpectAt(100, 2, both.Apply({1, 0}));
}

TEST(Placement, SeenFromBehind_IsMirrored) {
    const Placement placement = Placement::Reference({10, 20}, 0, true);
    ExpectAt(-10, 20, placement.Apply({0, 0}));
    ExpectAt(-11, 20, placement.Apply({1, 0}));
}

TEST(Placement, TurnedAngle_KeepsMirroredTextReadable) {
    EXPECT_NEAR(kPi / 2, Placement::Reference({0, 0}, kPi / 2, false).TurnedAngle(0), 1e-9);
    EXPECT_NEAR(0, Placement::Instance({0, 0}, -1, 1, {0, 0}).TurnedAngle(0), 1e-9);
    EXPECT_NEAR(kPi, std::abs(Placement::Instance({0, 0}, -1, -1, {0, 0}).TurnedAngle(0)), 1e-9);
}

TEST(ArcPoints, BeginAndEndWhereTheArcDoes) {
    const auto points = ArcPoints({1, 2}, 10, 0, kPi / 2, false);
    ExpectAt(11, 2, points.front());
    ExpectAt(1, 12, points.back());
    for (const WorldPoint& point : points)
        EXPECT_NEAR(10, std::hypot(point.x - 1, point.y - 2), 1e-9);
    EXPECT_NEAR(-11, ArcPoints({1, 2}, 10, 0, kPi / 2, true).front().x, 1e-9);
}

TEST(PolylinePoints, HalfCircleBulge_RunsOutward) {
    const auto points = PolylinePoints({{{0, 0}, 1, 0}, {{10, 0}, 0, 0}}, false);
    ExpectAt(0, 0, points.front());
    ExpectAt(10, 0, points.back());
    double lowest = 0;
    for (const WorldPoint& point : points)
        lowest = std::min(lowest, point.y);
    EXPECT_NEAR(-5, lowest, 1e-6);
    EXPECT_GT(points.size(), 20u);
}

TEST(PolylinePoints, NegativeBulge_RunsToTheOtherSide) {
    double highest = 0;
    for (const WorldPoint& point : PolylinePoints({{{0, 0}, -0.5, 0}, {{10, 0}, 0, 0}}, false))
        highest = std::max(highest, point.y);
    EXPECT_NEAR(2.5, highest, 0.01);
}

TEST(PolylinePoints, Closed_ComesBackToItsStart) {
    const auto points = PolylinePoints({{{0, 0}, 0, 0}, {{10, 0}, 0, 0}, {{10, 5}, 0, 0}}, true);
    ASSERT_EQ(4u, points.size());
    ExpectAt(0, 0, points.back());
    EXPECT_TRUE(PolylinePoints({}, true).empty());
}

TEST(WidePieces, CoverTheWidthOnBothSides) {
    const auto pieces = WidePieces({{0, 0}, {10, 0}, {10, 0}}, 2);
    ASSERT_EQ(1u, pieces.size());
    ExpectAt(0, 1, pieces[0][0]);
    ExpectAt(10, -1, pieces[0][2]);
}

TEST(Dashes, AlternateWithGapsAndReachBothEnds) {
    const auto dashes = Dashes({{0, 0}, {20, 0}}, {4, -2}, 1, 100);
    ASSERT_EQ(4u, dashes.size());
    ExpectAt(0, 0, dashes[0].front());
    ExpectAt(2, 0, dashes[0].back());
    ExpectAt(4, 0, dashes[1].front());
    ExpectAt(8, 0, dashes[1].back());
    ExpectAt(20, 0, dashes[3].back());
}

TEST(Dashes, RunRoundCorners) {
    const auto dashes = Dashes({{0, 0}, {1, 0}, {1, 10}}, {6, -1}, 1, 100);
    ASSERT_GE(dashes.size(), 2u);
    ASSERT_EQ(3u, dashes[0].size());
    ExpectAt(1, 0, dashes[0][1]);
    ExpectAt(1, 2, dashes[0][2]);
}

TEST(Dashes, Dots_AreSinglePoints) {
    const auto dashes = Dashes({{0, 0}, {3.5, 0}}, {0, -1}, 1, 100);
    ASSERT_EQ(4u, dashes.size());
    for (const auto& dot : dashes)
        EXPECT_EQ(1u, dot.size());
}

TEST(Dashes, TooManyOrNone_GiveTheWholePath) {
    const std::vector<WorldPoint> path = {{0, 0}, {1e9, 0}};
    EXPECT_EQ(1u, Dashes(path, {1, -1}, 1, 4000).size());
    EXPECT_EQ(1u, Dashes(path, {0, 0}, 1, 4000).size());
    EXPECT_EQ(1u, Dashes(path, {1, -1}, 0, 4000).size());
    EXPECT_EQ(1u, Dashes(path, {1, -1}, -2, 4000).size());
    EXPECT_EQ(1u, Dashes({{3, 3}}, {1, -1}, 1, 4000).size());
    EXPECT_EQ(1u, Dashes({}, {1, -1}, 1, 4000).size());
}

}  // namespace
}  // namespace frame
