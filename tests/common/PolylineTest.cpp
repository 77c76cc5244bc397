#include <array>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "common/Polyline.h"

namespace velna {

/// A line as it comes, with its colour.
struct DrawnLine {
    Point2D from;
    Point2D to;
    Rgb colour;

    friend bool operator==(const DrawnLine&, const DrawnLine&) = default;
};

using Lines = std::vector<DrawnLine>;

void line(Lines& lines, Point2D from, Point2D to, Rgb colour) {
    lines.push_back({from, to, colour});
}

namespace {

constexpr Point2D a{1, 2}, b{5, 2}, c{5, 9};
constexpr std::array<Point2D, 3> corner{a, b, c};
constexpr Rgb ink{1, 2, 3};

Rgb numbered(int i) {
    return {static_cast<std::uint8_t>(i), 0, 0};
}

TEST(Polyline, ALineFromEachPointToTheNext) {
    Lines lines;
    polyline(lines, corner, ink);
    EXPECT_EQ(lines, (Lines{{a, b, ink}, {b, c, ink}}));
}

TEST(Polyline, ASegmentHasTheColourOfThePointThatItEndsIn) {
    Lines lines;
    polyline(lines, corner, numbered);
    EXPECT_EQ(lines, (Lines{{a, b, numbered(2)}, {b, c, numbered(3)}}));
}

TEST(Polyline, AClosedOneEndsWhereItBegan) {
    Lines lines;
    closedPolyline(lines, corner, ink);
    EXPECT_EQ(lines, (Lines{{a, b, ink}, {b, c, ink}, {c, a, ink}}));
    lines.clear();
    closedPolyline(lines, std::span(corner).first(1), ink);
    EXPECT_EQ(lines, (Lines{{a, a, ink}}));
}

TEST(Polyline, TheMirroredOneLiesOnTheOtherSideOfTheCentreLine) {
    const Point2D a2{19, 2}, b2{15, 2}, c2{15, 9};
    Lines lines;
    mirroredPolyline(lines, corner, 10, ink);
    EXPECT_EQ(lines, (Lines{{a2, b2, ink}, {b2, c2, ink}}));
    lines.clear();
    mirroredClosedPolyline(lines, corner, 10, ink);
    EXPECT_EQ(lines, (Lines{{a2, b2, ink}, {b2, c2, ink}, {c2, a2, ink}}));
}

TEST(Polyline, NoPointsGiveNoLine) {
    Lines lines;
    polyline(lines, {}, ink);
    closedPolyline(lines, {}, ink);
    mirroredClosedPolyline(lines, {}, 10, ink);
    EXPECT_EQ(lines, Lines());
}

TEST(Polyline, BarsEndWithTheShorterRow) {
    Lines lines;
    bars(lines, corner, std::span(corner).last(2), numbered);
    EXPECT_EQ(lines, (Lines{{a, b, numbered(1)}, {b, c, numbered(2)}}));
}

TEST(Polyline, PointsAreCountedFromOne) {
    Array1<Point2D> points;
    EXPECT_TRUE(pointsOf(points, 3).empty());
    points.allocate(2);
    points(1) = a;
    points(2) = b;
    EXPECT_EQ(pointsOf(points, 3).size(), 2U);
    EXPECT_EQ(pointsOf(points, 1).size(), 1U);
    EXPECT_EQ(pointsOf(points, 1)[0], a);
    EXPECT_TRUE(pointsOf(points, 0).empty());
    EXPECT_TRUE(pointsOf(points, -1).empty());
    EXPECT_EQ(pointsOf(corner).size(), 2U);
    EXPECT_EQ(pointsOf(corner)[0], b);
}

}  // namespace
}  // namespace velna
