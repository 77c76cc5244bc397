#include <cmath>

#include "ShapingFixture.h"

namespace velna {
namespace {

class Shaping : public ShapingFixture {};

TEST_F(Shaping, CircleOfEqualWidthAndHeight) {
    body().nb_cross = 12;
    body().initArrays();
    build();
    for (int j = 1; j <= 12; ++j) {
        const Point3D point = solid().meshPoint(j, 2, false);
        EXPECT_EQ(point.x, 200);
        EXPECT_NEAR(std::hypot(point.y, point.z - 60), 50, 1e-12) << j;
    }
    EXPECT_EQ(solid().meshPoint(7, 2, false), (Point3D{200, -50, 60}));
}

TEST_F(Shaping, SectionWithoutWidthOrHeightIsALineOrAPoint) {
    body().width(1) = 0;
    body().width(2) = 0;
    body().height(2) = 0;
    build();
    for (int j = 1; j <= 8; ++j) {
        EXPECT_EQ(solid().meshPoint(j, 1, false).y, 0);
        EXPECT_EQ(solid().meshPoint(j, 2, false), (Point3D{200, 0, 10}));
    }
    EXPECT_NE(solid().meshPoint(3, 1, false).z, solid().meshPoint(7, 1, false).z);
}

// The rounding of the halves' bounds leaves one point of each section unset; it is kept, since
// files with it exist and look as they look.
TEST_F(Shaping, OddNumberOfPointsLeavesOneUnset) {
    const int unset[][2] = {{3, 3}, {5, 3}, {7, 5}, {9, 5}, {11, 7}};
    for (const auto& [cross, hole] : unset) {
        body().nb_cross = static_cast<std::int16_t>(cross);
        body().initArrays();
        build();
        for (int j = 1; j <= cross; ++j) {
            const Point3D point = solid().meshPoint(j, 2, false);
            EXPECT_EQ(point.x, 200);
            EXPECT_EQ(point.y == 0 && point.z == 0, j == hole) << cross << " " << j;
        }
    }
}

TEST_F(Shaping, OddNumberOfPointsLeavesItUnsetAtEachRebuild) {
    body().nb_cross = 7;
    body().initArrays();
    build();
    solid().points(2, 5) = {1, 2, 3};
    build();
    EXPECT_EQ(solid().meshPoint(5, 2, false), (Point3D{200, 0, 0}));
}

// For 7 the exact angle takes the last place of the upper half; for 9 the lower half starts on it.
TEST_F(Shaping, LaterOfTwoOverlappingPointsStays) {
    body().nb_cross = 7;
    body().initArrays();
    build();
    EXPECT_EQ(solid().meshPoint(4, 2, false), (Point3D{200, -50, 60}));
    body().nb_cross = 9;
    body().initArrays();
    build();
    const double t = 2 * (4 * std::atan(1.0)) * 5 / 9;
    EXPECT_DOUBLE_EQ(solid().meshPoint(6, 2, false).y, 50 * std::cos(t));
}

TEST_F(Shaping, TwoPointsAreTheEndsOfTheWidestLine) {
    body().nb_cross = 2;
    body().initArrays();
    build();
    EXPECT_EQ(solid().meshPoint(1, 2, false), (Point3D{200, 50, 60}));
    EXPECT_EQ(solid().meshPoint(2, 2, false), (Point3D{200, -50, 60}));
}

TEST_F(Shaping, BelowTwoPointsTheFormerMeshStays) {
    build();
    const Point3D former = solid().meshPoint(3, 2, false);
    for (std::int16_t cross = -1; cross <= 1; ++cross) {
        body().nb_cross = cross;
        body().width(2) = 1;
        build();
        EXPECT_EQ(solid().meshPoint(3, 2, false), former);
    }
    BodySolid fresh;
    fresh.create(body());
    EXPECT_EQ(fresh.meshPoint(1, 1, true), Point3D{});
    EXPECT_EQ(fresh.texCoordAt(1, 1), Point2D{});
}

TEST_F(Shaping, MeshShowsTheOldShapeUntilTheNextRebuild) {
    build();
    body().width(2) = 10;
    EXPECT_EQ(solid().meshPoint(1, 2, false).y, 50);
    build();
    EXPECT_EQ(solid().meshPoint(1, 2, false).y, 5);
}

// The rebuild computes each power once for all sections; the outline functions tell what it must
// be.
TEST_F(Shaping, MeshIsTheOutlineToTheLastBit) {
    body().nb_cross = 36;
    body().initArrays();
    body().shift = 3;
    body().elevation_offset = 0.7;
    for (int k = 1; k <= 3; ++k) {
        body().curvature(k) = 0.4 + 0.3 * k;
        body().curvature2(k) = 1.9 - 0.3 * k;
        body().bias_curve(k) = 0.15 * k;
    }
    build();
    for (int k = 1; k <= 3; ++k) {
        const double w = body().width(k), h = body().height(k), b = body().bias_curve(k);
        const double base = (b - 1) * h;
        for (int j = 1; j <= 36; ++j) {
            if (j == 19) continue;
            const double p = j < 19 ? body().curvature(k) : body().curvature2(k);
            const double rise = j < 19 ? h * b : (1.0 - b) * h;
            const double t = 2 * (4 * std::atan(1.0)) * (j - 1) / 36;
            const Point3D point = solid().meshPoint(j, k, false);
            EXPECT_EQ(point.y, (w / 2) * MeshSections::outlineCos(t, p) + 3);
            EXPECT_EQ(point.z, (rise * (MeshSections::outlineSin(t, p) - 1.0) - base) +
                                   body().elevation(k) + 0.7);
        }
        EXPECT_EQ(solid().meshPoint(19, k, false).y, -w / 2 + 3);
        EXPECT_EQ(solid().meshPoint(19, k, false).z, body().elevation(k) + -base + 0.7);
    }
}

TEST_F(Shaping, ExponentsOfZeroAndBelowGiveFinitePoints) {
    for (double exponent : {0.0, -0.5, -1.0, -1e308, 1e308}) {
        body().curvatureSet(exponent);
        body().curvature2Set(exponent);
        build();
        for (int j = 1; j <= 8; ++j) {
            EXPECT_TRUE(std::isfinite(solid().meshPoint(j, 2, false).y)) << exponent;
            EXPECT_TRUE(std::isfinite(solid().meshPoint(j, 2, false).z)) << exponent;
        }
        EXPECT_EQ(solid().meshPoint(1, 2, false).z, 60);
    }
}

// A grid that keeps its size is written over: a point that fails must still stand at 0.
TEST_F(Shaping, PointThatCannotBeComputedIsZeroAndNotTheOldOne) {
    build();
    EXPECT_NE(solid().meshPoint(3, 2, false).z, 0);
    body().height(2) = 1e308;
    body().elevation(2) = 1e308;
    build();
    EXPECT_EQ(solid().meshPoint(3, 2, false).z, 0);
    EXPECT_EQ(solid().meshPoint(1, 2, false).y, 50);
}

TEST_F(Shaping, TwinLiesTwiceTheShiftLower) {
    body().shift = 50;
    build();
    for (int j = 1; j <= 8; ++j)
        EXPECT_EQ(solid().meshPoint(j, 2, true).y, solid().meshPoint(j, 2, false).y - 100);
}

TEST_F(Shaping, TextureRunsAlongTheBodyAndRoundTheSection) {
    body().pos_offset = 40;
    build();
    EXPECT_EQ(solid().texCoordAt(1, 1), (Point2D{40.0 / 840, 0}));
    EXPECT_EQ(solid().texCoordAt(8, 3), (Point2D{1, 1}));
    EXPECT_EQ(solid().texCoordAt(3, 2), (Point2D{240.0 / 840, 2.0 / 7}));
}

TEST_F(Shaping, APlaceBeyondAllNumbersForgetsTheBuildBefore) {
    for (auto* curvature : {&body().curvature, &body().curvature2}) {
        (*curvature)(2) = 1;
        build();
        const double exponent = -1e6;  // of a sine below 1 this is an infinity
        (*curvature)(2) = exponent;
        build();
        const int half = curvature == &body().curvature ? 2 : 6;
        EXPECT_EQ(solid().meshPoint(half, 2, false), (Point3D{200, 0, 0}));
        (*curvature)(2) = 1;
    }
}

TEST_F(Shaping, TextureOfABodyWithoutLengthIsZero) {
    for (int k = 1; k <= 3; ++k) body().pos(k) = 0;
    build();
    for (int i = 1; i <= 3; ++i)
        for (int j = 1; j <= 8; ++j) EXPECT_EQ(solid().texCoordAt(j, i), Point2D{});
}

TEST_F(Shaping, Measures) {
    body().pos_offset = 7;
    body().elevation_offset = 3;
    EXPECT_EQ(body().lengthPoint(), 807);
    EXPECT_EQ(body().startpoint(), 7);
    EXPECT_EQ(body().maxElevationPoint(), 113);
    EXPECT_EQ(body().minElevationPoint(), 13);
    EXPECT_EQ(body().maxWidthPoint(), 100);
}

TEST_F(Shaping, MeasuresStartFromTheirOwnBounds) {
    body().elevation_offset = 200000;
    EXPECT_EQ(body().minElevationPoint(), 100000);
    EXPECT_EQ(body().maxElevationPoint(), 200110);
    for (int k = 1; k <= 3; ++k) body().width(k) = -5;
    EXPECT_EQ(body().maxWidthPoint(), -1);
    body().nb_sections = 0;
    EXPECT_EQ(body().lengthPoint(), -10000000);
    EXPECT_EQ(body().startpoint(), 10000000);
}

TEST_F(Shaping, MeasuresFarFromTheOriginAreThoseOfTheSectionsAlone) {
    for (int k = 1; k <= 3; ++k) {
        body().pos(k) -= 1000;
        body().elevation(k) -= 500;
    }
    EXPECT_EQ(body().lengthPoint(), -200);
    EXPECT_EQ(body().maxElevationPoint(), -390);
    for (int k = 1; k <= 3; ++k) {
        body().pos(k) += 2000;
        body().elevation(k) += 1000;
    }
    EXPECT_EQ(body().startpoint(), 1000);
    EXPECT_EQ(body().minElevationPoint(), 510);
}

TEST_F(Shaping, MeasuresReadStorageAndLeaveOutRemovedEntries) {
    body().sel_sec = 3;
    body().removeSection();
    EXPECT_EQ(body().height.upper(), 3);
    EXPECT_EQ(body().lengthPoint(), 200);
}

}  // namespace
}  // namespace velna
