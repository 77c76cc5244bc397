#include <cmath>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "common/Turn.h"
#include "model/PlaneOutline.h"

namespace velna::test {
namespace {

using Points = std::vector<Point2D>;

/// Twice the area, positive where the outline goes round to the left.
double doubleArea(const Points& outline) {
    double sum = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point2D& a = outline[i];
        const Point2D& b = outline[(i + 1) % outline.size()];
        sum += a.x * b.y - a.y * b.x;
    }
    return sum;
}

/// Whether two edges touch, looked at pair by pair.
bool simpleByPairs(const Points& outline) {
    const std::size_t n = outline.size();
    const auto on = [](const Point2D& a, const Point2D& b, const Point2D& p) {
        return turn(a, b, p) == 0 && std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) &&
               std::min(a.y, b.y) <= p.y && p.y <= std::max(a.y, b.y);
    };
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            const Point2D& a = outline[i];
            const Point2D& b = outline[(i + 1) % n];
            const Point2D& c = outline[j];
            const Point2D& d = outline[(j + 1) % n];
            if (j != i && j != (i + 1) % n && on(a, b, c)) return false;
            if (j == i || (j + 1) % n == i || (i + 1) % n == j) continue;
            if (turn(a, b, c) * turn(a, b, d) < 0 && turn(c, d, a) * turn(c, d, b) < 0)
                return false;
        }
    }
    return n >= 3;
}

/// The outline filled: every corner used, no triangle without area, the areas' sum the outline's.
void expectFilled(const Points& outline) {
    const auto triangles = triangulated(outline);
    ASSERT_EQ(triangles.size() + 2, outline.size());
    const double whole = doubleArea(outline);
    double sum = 0;
    std::set<std::uint32_t> used;
    for (const OutlineTriangle& t : triangles) {
        EXPECT_EQ(turn(outline[t[0]], outline[t[1]], outline[t[2]]), whole > 0 ? 1 : -1);
        sum += doubleArea({outline[t[0]], outline[t[1]], outline[t[2]]});
        used.insert(t.begin(), t.end());
    }
    EXPECT_EQ(used.size(), outline.size());
    EXPECT_NEAR(sum, whole, std::abs(whole) * 1e-9);
}

/// An airfoil of `n` points with a hollow lower surface, from the trailing edge round the nose.
Points undercambered(int n) {
    Points outline;
    const int half = n / 2;
    for (int i = 0; i < half; ++i) {
        const double x = 1 - static_cast<double>(i) / half;
        outline.push_back({x, 0.3 * std::sqrt(x) * (1 - x) + 0.001});
    }
    for (int i = 0; i < n - half; ++i) {
        const double x = static_cast<double>(i) / (n - half);
        outline.push_back({x, 0.02 * std::sin(3.1 * x) * x - 0.0001 * (1 - x)});
    }
    return outline;
}

TEST(PlaneOutline, LessThanThreePointsAreNoOutline) {
    EXPECT_FALSE(isSimple({}));
    EXPECT_FALSE(isSimple(Points{{1, 2}}));
    EXPECT_FALSE(isSimple(Points{{1, 2}, {3, 4}}));
    EXPECT_TRUE(triangulated(Points{{1, 2}, {3, 4}}).empty());
}

TEST(PlaneOutline, PointsOfOneLineAreNoOutline) {
    EXPECT_FALSE(isSimple(Points{{0, 0}, {1, 0}, {2, 0}}));
    EXPECT_FALSE(isSimple(Points{{0, 0}, {2, 0}, {1, 0}, {3, 0}}));
    EXPECT_TRUE(triangulated(Points{{0, 0}, {1, 0}, {2, 0}}).empty());
}

TEST(PlaneOutline, CrossingAndTouchingOutlinesAreFound) {
    EXPECT_FALSE(isSimple(Points{{0, 0}, {2, 2}, {2, 0}, {0, 2}})) << "an eight";
    EXPECT_FALSE(isSimple(Points{{0, 0}, {4, 0}, {4, 4}, {2, 0}, {0, 4}})) << "point on an edge";
    EXPECT_FALSE(isSimple(Points{{0, 0}, {2, 1}, {4, 0}, {4, 3}, {2, 1}, {0, 3}})) << "point twice";
    EXPECT_FALSE(isSimple(Points{{0, 0}, {4, 0}, {4, 4}, {6, 4}, {4, 4}, {0, 4}})) << "a spur";
    EXPECT_FALSE(isSimple(Points{{0, 0}, {4, 0}, {2, 0}, {2, 4}})) << "back over the same edge";
    EXPECT_FALSE(isSimple(Points{{0, 0}, {0, 0}, {4, 0}, {2, 4}})) << "a point twice in a row";
}

TEST(PlaneOutline, ATouchWithinTheLastDigitIsFound) {
    const double up = std::nextafter(1.0, 2.0);
    EXPECT_FALSE(isSimple(Points{{0, 0}, {3, 0}, {3, 3}, {1, 1}, {0, 3}, {-1, -1}, {2, 2}}));
    EXPECT_TRUE(isSimple(Points{{-1, 5}, {-1, -5}, {0, 0}, {2, 2}, {3, 9}, {up, up + 1e-15}}));
    EXPECT_FALSE(isSimple(Points{{-1, 5}, {-1, -5}, {0, 0}, {2, 2}, {3, 9}, {1, 1}}));
}

TEST(PlaneOutline, OutlinesWithFlatCornersAreFilled) {
    const Points triangle{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {1.5, 1.5}, {0, 3}, {0, 2}, {0, 1}};
    EXPECT_TRUE(isSimple(triangle));
    expectFilled(triangle);
    expectFilled({triangle.rbegin(), triangle.rend()});
}

TEST(PlaneOutline, ACombIsFilled) {
    Points comb;
    for (int tooth = 0; tooth < 200; ++tooth) {
        comb.push_back({2.0 * tooth, 0});
        comb.push_back({2.0 * tooth + 1, 90});
    }
    comb.push_back({400, 100});
    comb.push_back({0, 100});
    EXPECT_TRUE(isSimple(comb));
    expectFilled(comb);
}

TEST(PlaneOutline, TheLongestAirfoilIsFilled) {
    const Points outline = undercambered(32767);
    EXPECT_TRUE(isSimple(outline));
    expectFilled(outline);
}

/// Random outlines on a small grid touch in every way there is.
TEST(PlaneOutline, TheSweepFindsWhatPairsFind) {
    std::mt19937 random(20261122);
    int simple = 0;
    for (int round = 0; round < 20000; ++round) {
        const int n = 3 + static_cast<int>(random() % 7);
        const auto grid = 3 + random() % 6;
        Points outline;
        for (int i = 0; i < n; ++i) {
            outline.push_back(
                {static_cast<double>(random() % grid), static_cast<double>(random() % grid)});
        }
        const bool expected = simpleByPairs(outline);
        ASSERT_EQ(isSimple(outline), expected) << round;
        if (!expected) continue;
        ++simple;
        expectFilled(outline);
    }
    EXPECT_GT(simple, 1000);
}

}  // namespace
}  // namespace velna::test
