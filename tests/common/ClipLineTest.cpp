#include <limits>

#include <gtest/gtest.h>

#include "common/ClipLine.h"

namespace velna {
namespace {

constexpr AxisRange columns{-10, 30};
constexpr AxisRange rows{0, 20};

struct Line {
    Point2D from;
    Point2D to;
    bool left = true;
};

Line clipped(Point2D from, Point2D to) {
    const bool left = clipLine(from, to, columns, rows);
    return {from, to, left};
}

TEST(ClipLine, LineInsideStaysAsItIs) {
    const Line line = clipped({-10, 0}, {30, 20});
    EXPECT_TRUE(line.left);
    EXPECT_EQ(line.from, (Point2D{-10, 0}));
    EXPECT_EQ(line.to, (Point2D{30, 20}));
}

TEST(ClipLine, EachEndThatLiesOutsideMovesToTheBorder) {
    const Line across = clipped({-30, 10}, {50, 10});
    EXPECT_TRUE(across.left);
    EXPECT_EQ(across.from, (Point2D{-10, 10}));
    EXPECT_EQ(across.to, (Point2D{30, 10}));
    const Line down = clipped({5, 10}, {5, 44});
    EXPECT_TRUE(down.left);
    EXPECT_EQ(down.from, (Point2D{5, 10}));
    EXPECT_EQ(down.to, (Point2D{5, 20}));
    const Line corner = clipped({-20, 0}, {0, 20});
    EXPECT_TRUE(corner.left);
    EXPECT_EQ(corner.from, (Point2D{-10, 10}));
    EXPECT_EQ(corner.to, (Point2D{0, 20}));
}

TEST(ClipLine, NothingIsLeftBeyondAnySide) {
    EXPECT_FALSE(clipped({-11, 5}, {-40, 5}).left);
    EXPECT_FALSE(clipped({31, 5}, {40, 5}).left);
    EXPECT_FALSE(clipped({5, -1}, {9, -2}).left);
    EXPECT_FALSE(clipped({5, 21}, {9, 40}).left);
    // It passes a corner without touching the rectangle.
    EXPECT_FALSE(clipped({-20, 5}, {0, -20}).left);
}

TEST(ClipLine, HugeEndsLeaveAFiniteLine) {
    const double huge = std::numeric_limits<double>::max();
    const Line line = clipped({-huge, 10}, {huge, 10});
    EXPECT_TRUE(line.left);
    EXPECT_EQ(line.from, (Point2D{-10, 10}));
    EXPECT_EQ(line.to, (Point2D{30, 10}));
}

}  // namespace
}  // namespace velna
