#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "model/Airfoil.h"

namespace velna {
namespace {

struct Profile {
    Array1<Point3D> points;
    double thickness1 = 0.5;
    double thickness2 = 0.25;

    explicit Profile(const std::vector<Point2D>& rows) {
        points.allocate(static_cast<int>(rows.size()));
        for (int i = 1; i <= points.upper(); ++i)
            points(i) = {rows[static_cast<std::size_t>(i) - 1].x, 0,
                         rows[static_cast<std::size_t>(i) - 1].y};
    }

    void normalize() { Airfoil::normalize(points, points.upper(), thickness1, thickness2); }
};

TEST(Airfoil, BuiltInProfileGivesItsRatio) {
    Profile profile(std::vector<Point2D>(16));
    Airfoil::fillBuiltIn(profile.points, 16);
    EXPECT_EQ(profile.points(4).x, 0.225);  // no mirror of the thirteenth
    EXPECT_EQ(profile.points(13).x, 0.2);
    profile.normalize();
    EXPECT_EQ(profile.thickness1, 0.13);
    EXPECT_EQ(profile.thickness2, 0.13);
    EXPECT_EQ(profile.points(3).z, -0.5);
    EXPECT_EQ(profile.points(8).z, -0.005 / 0.13);
}

TEST(Airfoil, BuiltInProfileFillsAsFarAsThePointsReach) {
    Profile longer(std::vector<Point2D>(20, {7, 8}));
    Airfoil::fillBuiltIn(longer.points, 20);
    EXPECT_EQ(longer.points(16).x, 1.0);
    EXPECT_EQ(longer.points(17).x, 7);
    Profile shorter(std::vector<Point2D>(5));
    Airfoil::fillBuiltIn(shorter.points, 16);
    EXPECT_EQ(shorter.points(5).x, 0.15);
}

// The stored height times the rounded ratio gives back the file's height, whatever the rounding
// did.
TEST(Airfoil, RatioIsRoundedToTwoDecimalsBeforeTheDivision) {
    Profile profile({{1, 0}, {0.5, -0.0605}, {0, 0}, {0.5, 0.0605}, {1, 0}});
    profile.normalize();
    EXPECT_EQ(profile.thickness1, 0.12);
    EXPECT_EQ(profile.points(2).z, -0.0605 / 0.12);
}

TEST(Airfoil, RatioRoundsHalvesToEven) {
    Profile down({{0, 0.125}, {1, 0}});
    down.normalize();
    EXPECT_EQ(down.thickness1, 0.12);
    Profile up({{0, 0.375}, {1, 0}});
    up.normalize();
    EXPECT_EQ(up.thickness1, 0.38);
}

// No search runs for two points: each is compared with the height 0.
TEST(Airfoil, TwoPointsAreMeasuredFromZero) {
    Profile profile({{0, 0.2}, {1, -0.3}});
    profile.normalize();
    EXPECT_EQ(profile.thickness1, 0.3);
    EXPECT_EQ(profile.points(1).z, 0.2 / 0.3);
    EXPECT_EQ(profile.points(2).z, -1);
}

// Point 1 finds the height 4 of point 3; points 2 and 3 have nothing left to search and are
// measured from the plain mean of what stood then: (4 + 0) / 2.
TEST(Airfoil, LastTwoPointsUseTheHeightsFoundBefore) {
    Profile profile({{0, 0}, {10, -6}, {0, 4}});
    profile.normalize();
    // point 1: d1 = 0, so v = (1000000 * 4 + 0 * 0) / 1000000 = 4; point 2: |2 - -6| = 8
    EXPECT_EQ(profile.thickness1, 0.8);
}

// The second search passes over points of the very height that the first one found.
TEST(Airfoil, SecondNearestPointHasAnotherHeight) {
    Profile profile({{0, 0}, {5, 0}, {1, 3}, {2, 3}, {4, 9}});
    profile.normalize();
    // point 1: y1 = 3 at distance 1, y2 = 9 at distance 4: v = (4 * 3 + 1 * 9) / 5 = 4.2
    // point 2: y1 = 9 at distance 1, y2 = 3 at distance 3: v = (3 * 9 + 1 * 3) / 4 = 7.5
    // point 3: y1 = 9 at distance 3, nothing else: v = (1000000 * 9 + 3 * 3) / 1000003
    // points 4 and 5: the mean of 9 and 3 is 6: 3 and 3; so the thickness is 7.5 on a chord of 5
    EXPECT_EQ(profile.thickness1, 1.5);
}

TEST(Airfoil, WithoutPointsHasTheRatioZero) {
    Profile profile({});
    profile.normalize();
    EXPECT_EQ(profile.thickness1, 0);
    EXPECT_EQ(profile.thickness2, 0);
}

TEST(Airfoil, FlatProfileKeepsItsHeights) {
    Profile profile({{1, 0}, {0.5, 0}, {0, 0}, {0.5, 0}});
    profile.normalize();
    EXPECT_EQ(profile.thickness1, 0);
    EXPECT_EQ(profile.thickness2, 0);
    EXPECT_EQ(profile.points(2).z, 0);
    Profile thin({{1, 0}, {0.5, -0.001}, {0, 0}, {0.5, 0.001}});
    thin.normalize();
    EXPECT_EQ(thin.thickness1, 0);
    EXPECT_EQ(thin.points(2).z, -0.001);
}

TEST(Airfoil, ProfileWithoutChordKeepsTheThicknesses) {
    Profile profile({{2, 1}, {2, 3}, {2, 5}});
    profile.normalize();
    EXPECT_EQ(profile.thickness1, 0.5);
    EXPECT_EQ(profile.thickness2, 0.25);
    EXPECT_EQ(profile.points(2).z, 6);
}

// Two points in one place, opposite the first: their distances 0 and 0 cannot be weighed.
TEST(Airfoil, HeightThatCannotBeComputedIsTheOneBefore) {
    Profile profile({{0, 1}, {9, 1}, {0, 5}, {0, 7}, {10, 1}});
    profile.normalize();
    // point 1: the height stays 0 (thickness 1); point 2 sees y1 = 1 at 1 and y2 = 5 at 9: 1.4;
    // point 3: y1 = 1 at 10 alone, with y2 = 5 from before: about 1: thickness about 4;
    // points 4 and 5: the mean of 1 and 5 is 3: 4 and 2
    EXPECT_EQ(profile.thickness1, 0.4);
}

TEST(Airfoil, PromisedPointsThatDoNotExistAreNotRead) {
    Profile profile({{0, 0.2}, {1, -0.3}});
    Airfoil::normalize(profile.points, 32767, profile.thickness1, profile.thickness2);
    EXPECT_EQ(profile.thickness1, 0.3);
    Airfoil::normalize(profile.points, -5, profile.thickness1, profile.thickness2);
    EXPECT_EQ(profile.thickness1, 0);
}

TEST(Airfoil, ExtremeNumbersStayFinite) {
    Profile profile({{1e308, 1e308}, {-1e308, -1e308}, {5e-324, 5e-324}, {0, -1e308}, {-1, 1e308}});
    profile.normalize();
    for (int i = 1; i <= 5; ++i) EXPECT_TRUE(std::isfinite(profile.points(i).z)) << i;
    EXPECT_TRUE(std::isfinite(profile.thickness1));
}

}  // namespace
}  // namespace velna
