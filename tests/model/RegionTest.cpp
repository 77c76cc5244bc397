#include <algorithm>
#include <cmath>
#include <numbers>

#include "model/Region.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

constexpr double pi = std::numbers::pi;

double distanceToLine(const Point2D& p, const Point2D& a, const Point2D& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double share =
        length == 0 ? 0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0);
    return std::hypot(p.x - a.x - share * dx, p.y - a.y - share * dy);
}

double distanceToLoop(const Point2D& p, const Loop& loop) {
    double nearest = HUGE_VAL;
    for (std::size_t i = 0; i < loop.size(); ++i)
        nearest = std::min(nearest, distanceToLine(p, loop[i], loop[(i + 1) % loop.size()]));
    return nearest;
}

/// How far the border is from the outline: the least and the largest distance of its corners and
/// of the middles of its lines.
std::pair<double, double> distances(const std::vector<Loop>& borders, const Loop& outline) {
    double least = HUGE_VAL;
    double largest = 0;
    for (const Loop& loop : borders) {
        for (std::size_t i = 0; i < loop.size(); ++i) {
            const Point2D& a = loop[i];
            const Point2D& b = loop[(i + 1) % loop.size()];
            for (const double share : {0.0, 0.25, 0.5, 0.75}) {
                const double far =
                    distanceToLoop({a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)}, outline);
                least = std::min(least, far);
                largest = std::max(largest, far);
            }
        }
    }
    return {least, largest};
}

double perimeter(const Loop& loop) {
    double length = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point2D& b = loop[(i + 1) % loop.size()];
        length += std::hypot(b.x - loop[i].x, b.y - loop[i].y);
    }
    return length;
}

/// What Steiner's formula takes off at the corners of a loop that runs counter-clockwise, in
/// squares of the skin: the tangents of half the turns inside, less half the turns outside.
double steinerCorners(const Loop& loop) {
    double sum = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point2D& a = loop[(i + loop.size() - 1) % loop.size()];
        const Point2D& b = loop[i];
        const Point2D& c = loop[(i + 1) % loop.size()];
        const double turn = std::remainder(
            std::atan2(c.y - b.y, c.x - b.x) - std::atan2(b.y - a.y, b.x - a.x), 2 * pi);
        sum += turn > 0 ? std::tan(turn / 2) : turn / 2;
    }
    return sum;
}

Loop square(double side) {
    return {{0, 0}, {side, 0}, {side, side}, {0, side}};
}

std::vector<Loop> eroded(const Loop& outline, double skin) {
    Region region(outline);
    region.erode(skin);
    return region.loops();
}

/// A section with an undercamber: its lower side bulges inward.
Loop undercambered() {
    Loop loop;
    for (int i = 0; i <= 20; ++i) {
        const double x = 200 - 10.0 * i;
        loop.push_back({x, 12 * std::sin(pi * x / 200)});
    }
    for (int i = 1; i < 20; ++i) {
        const double x = 10.0 * i;
        loop.push_back({x, 12 * std::sin(pi * x / 200) + 20 * std::sin(pi * x / 200)});
    }
    return loop;
}

TEST(Regions, ErodedSquareIsASmallerSquare) {
    const auto left = eroded(square(10), 1);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_NEAR(areaInside(left), 64, 1e-9);
    EXPECT_EQ(left[0].size(), 4U);
}

TEST(Regions, DirectionOfTheOutlineDoesNotMatter) {
    Loop turned = square(10);
    std::reverse(turned.begin(), turned.end());
    EXPECT_NEAR(areaInside(eroded(turned, 1)), 64, 1e-9);
    EXPECT_GT(signedArea(eroded(turned, 1)[0]), 0) << "outer borders run counter-clockwise";
}

TEST(Regions, BorderIsTheSkinsThicknessFromTheOutline) {
    for (const double skin : {0.2, 1.0, 1.5, 3.0}) {
        const Loop outline = undercambered();
        const auto [least, largest] = distances(eroded(outline, skin), outline);
        EXPECT_NEAR(least, skin, 0.01) << skin;
        EXPECT_NEAR(largest, skin, 0.01) << skin;
    }
}

TEST(Regions, CornersThatBulgeInwardBecomeArcs) {
    // A notch whose inner corner looks at the part's middle.
    const Loop notched{{0, 0}, {60, 0}, {60, 40}, {30, 40}, {30, 20}, {0, 20}};
    const auto left = eroded(notched, 4);
    ASSERT_EQ(left.size(), 1U);
    const auto [least, largest] = distances(left, notched);
    EXPECT_GE(least, 4 - 0.005);
    EXPECT_LE(largest, 4 + 1e-5);
    const double area = signedArea(notched) - perimeter(notched) * 4 + 16 * steinerCorners(notched);
    EXPECT_NEAR(areaInside(left), area, 0.005 * 2 * pi);
    EXPECT_GT(left[0].size(), 20U);
}

TEST(Regions, AreaFollowsSteinersFormula) {
    // Turns of all kinds and no edge that vanishes.
    const Loop shape{{0, 0}, {50, -5}, {90, 10}, {70, 30}, {95, 60}, {40, 75}, {-5, 40}};
    for (const double skin : {0.5, 1.0, 2.0}) {
        const double area =
            signedArea(shape) - perimeter(shape) * skin + skin * skin * steinerCorners(shape);
        EXPECT_NEAR(areaInside(eroded(shape, skin)), area, 0.01 * skin * pi) << skin;
    }
}

TEST(Regions, SharpEdgeEndsWhereTheSkinsMeet) {
    const double half = 0.1;
    const Loop wedge{{100, 0}, {0, 100 * std::tan(half)}, {0, -100 * std::tan(half)}};
    const auto left = eroded(wedge, 1.5);
    double end = 0;
    for (const Point2D& point : left[0]) end = std::max(end, point.x);
    EXPECT_NEAR(end, 100 - 1.5 / std::sin(half), 1e-5);
}

TEST(Regions, ThickerSkinThanThePartLeavesNothing) {
    EXPECT_TRUE(eroded(square(10), 5.01).empty());
    EXPECT_TRUE(eroded(square(10), 1e300).empty());
    EXPECT_TRUE(eroded(square(10), HUGE_VAL).empty());
    EXPECT_FALSE(eroded(square(10), 4.99).empty());
}

TEST(Regions, NoSkinChangesNothing) {
    for (const double skin : {0.0, -1.0}) EXPECT_NEAR(areaInside(eroded(square(10), skin)), 100, 0);
}

TEST(Regions, NarrowWaistGivesTwoPieces) {
    const Loop waist{{0, 0},   {20, 0},  {25, 9},  {35, 9},  {40, 0},  {60, 0},
                     {60, 20}, {40, 20}, {35, 11}, {25, 11}, {20, 20}, {0, 20}};
    Region region(waist);
    EXPECT_EQ(region.pieces(), 1);
    region.erode(2);
    EXPECT_EQ(region.pieces(), 2);
    EXPECT_EQ(region.loops().size(), 2U);
}

TEST(Regions, LoopThatTurnsTheOtherWayIsNoPart) {
    // A large loop and a small one behind the crossing at (20, 5).
    const Loop crossed{{0, 0}, {24, 6}, {24, 4}, {0, 10}};
    const Region region(crossed);
    EXPECT_NEAR(areaInside(region.loops()), 100, 1e-5);
    Region less = region;
    less.erode(0.5);
    const auto [least, largest] = distances(less.loops(), {{0, 0}, {20, 5}, {0, 10}});
    EXPECT_NEAR(least, 0.5, 0.001);
    EXPECT_NEAR(largest, 0.5, 0.001);
}

TEST(Regions, DoublePointsAndSpikesDoNoHarm) {
    const Loop spiked{{0, 0}, {10, 0}, {10, 0}, {10, 5}, {30, 5}, {10, 5}, {10, 10}, {0, 10}};
    EXPECT_NEAR(areaInside(eroded(spiked, 1)), 64, 1e-6);
    EXPECT_TRUE(Region({}).empty());
    EXPECT_TRUE(Region({{1, 1}, {2, 2}}).empty());
}

TEST(Regions, HoldALargePart) {
    EXPECT_NEAR(areaInside(eroded(square(1e6), 1)) / ((1e6 - 2) * (1e6 - 2)), 1, 1e-12);
}

TEST(Regions, RemovedRectangleIsGone) {
    Region region(square(10));
    region.remove({4, 7}, {6, 12});
    EXPECT_NEAR(areaInside(region.loops()), 94, 1e-9);
    EXPECT_EQ(region.pieces(), 1);
}

}  // namespace
}  // namespace velna
