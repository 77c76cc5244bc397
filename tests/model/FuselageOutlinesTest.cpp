#include <cmath>

#include "support/FreshModel.h"

namespace velna {
namespace {

class Outlines : public FreshModel {
protected:
    MeshSections& body() { return Fuselages(1); }

    void setCross(int cross) {
        body().nb_cross = static_cast<std::int16_t>(cross);
        body().initArrays();
    }
};

TEST_F(Outlines, SideBarsRunFromBottomToTop) {
    body().pos_offset = 5;
    body().elevation_offset = 3;
    body().computeSidePoints(2, 7, 400);
    EXPECT_EQ(body().topPoints(2), (Point2D{417, 174}));
    EXPECT_EQ(body().bottomPoints(2), (Point2D{417, 374}));
}

TEST_F(Outlines, PlanBarsRunFromEdgeToEdge) {
    body().shift = 10;
    body().computeHTopPoints(2, 7, 400);
    EXPECT_EQ(body().htopPlus(2), (Point2D{407, 520}));
    EXPECT_EQ(body().htopMinus(2), (Point2D{407, 320}));
}

TEST_F(Outlines, ContourRunsToTheTailAndBack) {
    body().shift = 10;
    body().pos_offset = 5;
    body().computeVTopPoints(2, 7, 400);
    EXPECT_EQ(body().vtopPoints(1), (Point2D{47, 410}));
    EXPECT_EQ(body().vtopPoints(2), (Point2D{127, 810}));
    EXPECT_EQ(body().vtopPoints(4), (Point2D{17, 2010}));
    EXPECT_EQ(body().vtopPoints(6), (Point2D{7, 410}));
}

TEST_F(Outlines, ArraysAreIndexedByPlaceAndNotByStorage) {
    body().sectionOrder(2) = 3;
    body().sectionOrder(3) = 2;
    body().computeSidePoints(1, 0, 0);
    EXPECT_EQ(body().topPoints(2).x, 800);
    body().computeHTopPoints(1, 0, 0);
    EXPECT_EQ(body().htopPlus(2).x, 800);
    body().computeVTopPoints(1, 0, 0);
    EXPECT_EQ(body().vtopPoints(2).y, 800);
    body().computeFrontPoints(1, 0, 0);
    EXPECT_EQ(body().frontPoint(2, 1).x, 5);
}

TEST_F(Outlines, FrontOutlineIsTheMeshSeenFromAhead) {
    setCross(12);
    for (int k = 1; k <= 3; ++k) {
        body().curvature(k) = 0.7;
        body().curvature2(k) = 1.3;
        body().bias_curve(k) = 0.4;
    }
    body().create();
    body().computeFrontPoints(2, 7, 400);
    for (int i = 1; i <= 3; ++i) {
        for (int j = 1; j <= 12; ++j) {
            if (j == 7) continue;
            const Point3D point = body().meshPoint(j, i, false);
            EXPECT_EQ(body().frontPoint(i, j), (Point2D{point.y * 2 + 7, -point.z * 2 + 400}));
            EXPECT_TRUE(body().frontPointUsed(j));
        }
    }
    EXPECT_FALSE(body().frontPointUsed(0));
    EXPECT_FALSE(body().frontPointUsed(13));
}

// Unlike the mesh, the point opposite to the first comes from the formula with the lower exponent.
TEST_F(Outlines, FrontPointOppositeToTheFirstIsComputed) {
    body().curvature2(2) = 0.05;
    body().computeFrontPoints(1, 0, 0);
    const double t = 2 * (4 * std::atan(1.0)) * 4 / 8;
    EXPECT_EQ(body().frontPoint(2, 5).x, 50 * MeshSections::outlineCos(t, 0.05));
    EXPECT_EQ(body().frontPoint(2, 5).y,
              -((50 * (MeshSections::outlineSin(t, 0.05) - 1.0) + 50) + 10 + 0));
    EXPECT_NE(body().frontPoint(2, 5).y, -60);
}

// The lower loop runs on half-odd indices; what it stores at an even entry comes from the angle
// with the fraction, and the later of two that fall on one entry stays.
TEST_F(Outlines, OddNumberOfFrontPoints) {
    setCross(7);
    body().computeFrontPoints(1, 0, 0);
    auto at = [](double j) {
        const double t = 2 * (4 * std::atan(1.0)) * (j - 1) / 7;
        return Point2D{50 * MeshSections::outlineCos(t, 1),
                       -((50 * (MeshSections::outlineSin(t, 1) - 1.0) + 50) + 10 + 0)};
    };
    EXPECT_EQ(body().frontPoint(2, 1), at(1));
    EXPECT_EQ(body().frontPoint(2, 2), at(2));
    EXPECT_EQ(body().frontPoint(2, 3), at(3));
    EXPECT_EQ(body().frontPoint(2, 4), at(4.5));
    EXPECT_EQ(body().frontPoint(2, 5), Point2D{});
    EXPECT_EQ(body().frontPoint(2, 6), at(6.5));
    EXPECT_EQ(body().frontPoint(2, 7), Point2D{});
}

TEST_F(Outlines, UnusedFrontPointsAreThoseThatNoLoopWrites) {
    for (int cross = 0; cross <= 25; ++cross) {
        setCross(cross);
        body().computeFrontPoints(1, 1e6, 1e6);
        for (int j = 1; j <= cross; ++j)
            EXPECT_EQ(body().frontPointUsed(j), body().frontPoint(2, j) != Point2D{})
                << cross << " " << j;
    }
}

TEST_F(Outlines, GridIsMadeWhenItIsComputed) {
    setCross(32767);
    body().nb_sections = 32767;
    body().initArrays();
    EXPECT_EQ(body().frontPoints.rows(), -1);
    EXPECT_EQ(body().frontPoint(32767, 32767), Point2D{});
    body().nb_sections = 2;
    body().computeFrontPoints(1, 0, 0);
    EXPECT_EQ(body().frontPoints.rows(), 2);
    EXPECT_EQ(body().frontPoints.columns(), 32767);
}

TEST_F(Outlines, OfAChangeWithoutNewArraysStayInside) {
    body().nb_cross = 0;
    body().computeFrontPoints(1, 0, 0);
    EXPECT_EQ(body().frontPoint(1, 1), Point2D{});
    body().nb_cross = 20;
    body().nb_sections = 50;
    body().computeFrontPoints(1, 0, 0);
    body().computeSidePoints(1, 0, 0);
    body().computeHTopPoints(1, 0, 0);
    body().computeVTopPoints(1, 0, 0);
    body().create();
    EXPECT_EQ(body().points.rows(), 3);
    EXPECT_EQ(body().frontPoints.rows(), 3);
    EXPECT_EQ(body().frontPoints.columns(), 20);
}

}  // namespace
}  // namespace velna
