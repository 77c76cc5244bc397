#include <algorithm>
#include <cmath>
#include <vector>

#include "support/FreshModel.h"

namespace velna {
namespace {

class Outlines : public FreshModel {
protected:
    MeshSections& body() { return Fuselages(1); }
    BodySolid& solid() { return solids.fuselages(1); }

    void setCross(int cross) {
        body().nb_cross = static_cast<std::int16_t>(cross);
        body().initArrays();
    }
};

TEST_F(Outlines, SideBarsRunFromBottomToTop) {
    body().pos_offset = 5;
    body().elevation_offset = 3;
    const SideEdges side = body().computeSidePoints({2, 7, 400});
    EXPECT_EQ(side.top(2), (Point2D{417, 174}));
    EXPECT_EQ(side.bottom(2), (Point2D{417, 374}));
}

TEST_F(Outlines, ASectionHasNoMorePointsThanWereComputed) {
    setCross(8);
    std::vector<Point2D> section;
    Array1<Point2D> front;
    front.allocate(4);
    body().collectSection(front, section);
    EXPECT_EQ(section.size(), 4U);
    front.allocate(12);
    body().collectSection(front, section);
    EXPECT_EQ(section.size(), 8U);
}

TEST_F(Outlines, PlanBarsRunFromEdgeToEdge) {
    body().shift = 10;
    const HTopEdges plan = body().computeHTopPoints({2, 7, 400});
    EXPECT_EQ(plan.plus(2), (Point2D{407, 520}));
    EXPECT_EQ(plan.minus(2), (Point2D{407, 320}));
}

TEST_F(Outlines, ContourRunsToTheTailAndBack) {
    body().shift = 10;
    body().pos_offset = 5;
    const auto contour = body().computeVTopPoints({2, 7, 400});
    EXPECT_EQ(contour(1), (Point2D{47, 410}));
    EXPECT_EQ(contour(2), (Point2D{127, 810}));
    EXPECT_EQ(contour(4), (Point2D{17, 2010}));
    EXPECT_EQ(contour(6), (Point2D{7, 410}));
}

TEST_F(Outlines, ArraysAreIndexedByPlaceAndNotByStorage) {
    body().sectionOrder(2) = 3;
    body().sectionOrder(3) = 2;
    EXPECT_EQ(body().computeSidePoints({}).top(2).x, 800);
    EXPECT_EQ(body().computeHTopPoints({}).plus(2).x, 800);
    EXPECT_EQ(body().computeVTopPoints({})(2).y, 800);
    EXPECT_EQ(body().computeFrontPoints({})(2, 1).x, 5);
}

TEST_F(Outlines, FrontOutlineIsTheMeshSeenFromAhead) {
    setCross(12);
    for (int k = 1; k <= 3; ++k) {
        body().curvature(k) = 0.7;
        body().curvature2(k) = 1.3;
        body().bias_curve(k) = 0.4;
    }
    solid().create(body());
    const auto front = body().computeFrontPoints({2, 7, 400});
    for (int i = 1; i <= 3; ++i) {
        for (int j = 1; j <= 12; ++j) {
            if (j == 7) continue;
            const Point3D point = solid().meshPoint(j, i, false);
            EXPECT_EQ(front(i, j), (Point2D{point.y * 2 + 7, -point.z * 2 + 400}));
            EXPECT_TRUE(body().frontPointUsed(j));
        }
    }
    EXPECT_FALSE(body().frontPointUsed(0));
    EXPECT_FALSE(body().frontPointUsed(13));
}

// Unlike the mesh, the point opposite to the first comes from the formula with the lower exponent.
TEST_F(Outlines, FrontPointOppositeToTheFirstIsComputed) {
    body().curvature2(2) = 0.05;
    const auto front = body().computeFrontPoints({});
    const double t = 2 * (4 * std::atan(1.0)) * 4 / 8;
    EXPECT_EQ(front(2, 5).x, 50 * MeshSections::outlineCos(t, 0.05));
    EXPECT_EQ(front(2, 5).y, -((50 * (MeshSections::outlineSin(t, 0.05) - 1.0) + 50) + 10 + 0));
    EXPECT_NE(front(2, 5).y, -60);
}

// The lower loop runs on half-odd indices; what it stores at an even entry comes from the angle
// with the fraction, and the later of two that fall on one entry stays.
TEST_F(Outlines, OddNumberOfFrontPoints) {
    setCross(7);
    const auto front = body().computeFrontPoints({});
    auto at = [](double j) {
        const double t = 2 * (4 * std::atan(1.0)) * (j - 1) / 7;
        return Point2D{50 * MeshSections::outlineCos(t, 1),
                       -((50 * (MeshSections::outlineSin(t, 1) - 1.0) + 50) + 10 + 0)};
    };
    EXPECT_EQ(front(2, 1), at(1));
    EXPECT_EQ(front(2, 2), at(2));
    EXPECT_EQ(front(2, 3), at(3));
    EXPECT_EQ(front(2, 4), at(4.5));
    EXPECT_EQ(front(2, 5), Point2D{});
    EXPECT_EQ(front(2, 6), at(6.5));
    EXPECT_EQ(front(2, 7), Point2D{});
}

TEST_F(Outlines, UnusedFrontPointsAreThoseThatNoLoopWrites) {
    for (int cross = 0; cross <= 25; ++cross) {
        setCross(cross);
        const auto front = body().computeFrontPoints({1, 1e6, 1e6});
        for (int j = 1; j <= cross; ++j)
            EXPECT_EQ(body().frontPointUsed(j), front(2, j) != Point2D{}) << cross << " " << j;
        std::vector<Point2D> section;
        body().collectSection(front, 2, section);
        EXPECT_EQ(std::ranges::count(section, Point2D{}), 0) << cross;
        EXPECT_EQ(section.empty(), cross < 2);
        body().collectSection(front, 4, section);
        EXPECT_TRUE(section.empty()) << "there is no fourth";
    }
}

TEST_F(Outlines, GridIsMadeWhenItIsComputed) {
    setCross(32767);
    body().nb_sections = 32767;
    body().initArrays();
    body().nb_sections = 2;
    const auto front = body().computeFrontPoints({});
    EXPECT_EQ(front.rows(), 2);
    EXPECT_EQ(front.columns(), 32767);
}

TEST_F(Outlines, OfAChangeWithoutNewArraysStayInside) {
    body().nb_cross = 0;
    EXPECT_EQ(body().computeFrontPoints({}).rows(), -1);
    body().nb_cross = 20;
    body().nb_sections = 50;
    const auto front = body().computeFrontPoints({});
    EXPECT_EQ(body().computeSidePoints({}).top.upper(), 3);
    EXPECT_EQ(body().computeHTopPoints({}).plus.upper(), 3);
    EXPECT_EQ(body().computeVTopPoints({}).upper(), 6);
    solid().create(body());
    EXPECT_EQ(solid().points.rows(), 3);
    EXPECT_EQ(front.rows(), 3);
    EXPECT_EQ(front.columns(), 20);
}

TEST_F(Outlines, FrontPointsOfBeforeStayWhenTheShapeIsTurnedOff) {
    const auto before = body().computeFrontPoints({});
    EXPECT_EQ(before(2, 1), (Point2D{50, -60}));
    body().nb_cross = 0;
    EXPECT_EQ(body().computeFrontPoints({}, before)(2, 1), before(2, 1));
}

TEST_F(Outlines, ASectionComputedAloneIsThatOfAll) {
    for (const int cross : {1, 2, 7, 8, 13}) {
        resetModel();
        setCross(cross);
        body().shift = 3;
        body().curvature(2) = 0.7;
        body().width(3) = 1e308;
        const Transform at{2, 7, 400};
        const auto all = body().computeFrontPoints(at);
        for (int i = 1; i <= 3; ++i) {
            const auto alone = body().computeFrontSection(at, i);
            ASSERT_EQ(alone.upper(), all.columns());
            for (int j = 1; j <= cross; ++j) EXPECT_EQ(alone(j), all(i, j)) << cross << " " << j;
            std::vector<Point2D> ofAll;
            std::vector<Point2D> ofOne;
            body().collectSection(all, i, ofAll);
            body().collectSection(alone, ofOne);
            EXPECT_EQ(ofOne, ofAll);
        }
        for (const int none : {-1, 0, 4})
            EXPECT_EQ(body().computeFrontSection(at, none).upper(), -1);
    }
}

}  // namespace
}  // namespace velna
