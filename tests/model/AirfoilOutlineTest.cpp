// Sections in every usual order, and what is none.

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "common/ValueReader.h"
#include "model/AirfoilOutline.h"
#include "model/Plane.h"

namespace velna::AirfoilOutline {
namespace {

/// A section with camber, from the tail along the lower side; the nose is one point.
Points section(double halfEdge = 0) {
    return {{1, -halfEdge}, {0.8, -0.015}, {0.5, -0.04}, {0.2, -0.045}, {0.05, -0.025}, {0, 0},
            {0.06, 0.05},   {0.21, 0.085}, {0.52, 0.08}, {0.8, 0.04},   {1, halfEdge}};
}
constexpr std::size_t nose = 5;

Points reversed(Points points) {
    std::ranges::reverse(points);
    return points;
}

/// Upper side, then lower side, each from the nose to the tail.
Points sideBySide(const Points& points) {
    Points sides(points.begin() + nose, points.end());
    const Points lower = reversed({points.begin(), points.begin() + nose + 1});
    sides.insert(sides.end(), lower.begin(), lower.end());
    return sides;
}

Points times(Points points, double factor, Point2D from = {}) {
    for (Point2D& point : points) point = {point.x * factor + from.x, point.y * factor + from.y};
    return points;
}

/// From the nose over the top to the tail and back below.
Points fromNose(const Points& points) {
    Points run(points.begin() + nose, points.end());
    const auto below = points.begin() + (points.front() == points.back() ? 1 : 0);
    run.insert(run.end(), below, points.begin() + nose + 1);
    return run;
}

std::string reasonAgainst(const Points& points, std::size_t firstSide = 0) {
    try {
        arranged({points, firstSide});
    } catch (const ReadFailure& failure) {
        return failure.what();
    }
    return "none";
}

TEST(AirfoilOutline, EveryOrderGivesTheSamePointsWithAClosedAndAnOpenEdge) {
    for (const double halfEdge : {0.0, 0.002}) {
        const Points wanted = section(halfEdge);
        EXPECT_EQ(arranged({wanted}), wanted);
        EXPECT_EQ(arranged({reversed(wanted)}), wanted);
        EXPECT_EQ(arranged({sideBySide(wanted), 6}), wanted);
        EXPECT_EQ(arranged({sideBySide(wanted)}), wanted) << "sides that nobody counts";
        EXPECT_EQ(arranged({fromNose(wanted)}), wanted);
        EXPECT_EQ(arranged({reversed(fromNose(wanted))}), wanted);
    }
}

TEST(AirfoilOutline, SidesInTheOtherDirectionOrSequenceAreKnown) {
    const Points wanted = section();
    const Points sides = sideBySide(wanted);
    Points lowerFirst(sides.begin() + 6, sides.end());
    lowerFirst.insert(lowerFirst.end(), sides.begin(), sides.begin() + 6);
    EXPECT_EQ(arranged({lowerFirst, 6}), wanted);
    Points towardsNose = sides;
    std::reverse(towardsNose.begin(), towardsNose.begin() + 6);
    std::reverse(towardsNose.begin() + 6, towardsNose.end());
    EXPECT_EQ(arranged({towardsNose, 6}), wanted);
    EXPECT_EQ(arranged({towardsNose}), wanted);
}

TEST(AirfoilOutline, PercentBecomeTheDecimalsWithThePointMoved) {
    Points percent;
    Points wanted;
    for (int i = 0; i <= 40; ++i) {
        const double angle = std::numbers::pi * (i <= 20 ? 20 - i : i - 20) / 20;
        const long x = std::lround(1e7 * (1 - std::cos(angle)) / 2);
        const long z = std::lround(1e6 * std::sin(angle) / 2 * (i < 20 ? -1 : 1));
        wanted.push_back(
            {std::stod(std::to_string(x) + "e-7"), std::stod(std::to_string(z) + "e-7")});
        percent.push_back(
            {std::stod(std::to_string(x) + "e-5"), std::stod(std::to_string(z) + "e-5")});
    }
    EXPECT_EQ(arranged({wanted}), wanted);
    EXPECT_EQ(arranged({percent}), wanted);
}

TEST(AirfoilOutline, AnyOtherChordBecomesOneWithTheNoseAtTheOrigin) {
    const Points wanted = section(0.001);
    for (const double chord : {230.0, 9.25, 0.3, 1000.0}) {
        const Points got = arranged({reversed(times(wanted, chord, {17, -240}))});
        ASSERT_EQ(got.size(), wanted.size());
        EXPECT_EQ(got[nose].x, 0);
        EXPECT_EQ(got[nose].y, 0);
        for (std::size_t i = 0; i < got.size(); ++i) {
            EXPECT_NEAR(got[i].x, wanted[i].x, 1e-12);
            EXPECT_NEAR(got[i].y, wanted[i].y, 1e-12);
        }
    }
}

TEST(AirfoilOutline, ANoseAndAFlapALittleOffStayAsTheyAre) {
    Points wanted = section();
    wanted[nose] = {0.00012, 0.003};
    wanted.front() = wanted.back() = {0.985, -0.02};
    EXPECT_EQ(arranged({wanted}), wanted);
}

TEST(AirfoilOutline, APointThatComesTwiceIsTakenOnce) {
    Points doubled;
    for (const Point2D& point : section()) doubled.insert(doubled.end(), 2, point);
    EXPECT_EQ(arranged({doubled}), section());
    EXPECT_EQ(reasonAgainst(Points(40, {0.5, 0.1})), "its points have no chord");
}

TEST(AirfoilOutline, ASideThatEndsEarlyIsLedToTheEdge) {
    Points early = section();
    early.pop_back();
    early.back().x = 0.95;
    const Points got = arranged({early});
    EXPECT_EQ(got.size(), 11u);
    EXPECT_EQ(got.back(), got.front());
    EXPECT_EQ(arranged({reversed(early)}), got);
    early.back().x = 0.6;
    EXPECT_EQ(reasonAgainst(early), "its points do not go round the section");
}

TEST(AirfoilOutline, WhatIsNoSectionIsRefusedWithItsReason) {
    EXPECT_EQ(reasonAgainst({}), "too few points");
    EXPECT_EQ(reasonAgainst({{1, 0}, {0, 0}}), "too few points");
    EXPECT_EQ(reasonAgainst({{0.3, 0}, {0.3, 1}, {0.3, 2}}), "its points have no chord");
    EXPECT_EQ(reasonAgainst({{1, 0}, {0.5, 0}, {0, 0}, {0.5, 0}, {1, 0}}), "it has no height");
    // Their area is none but for the rounding of its sum.
    const Points side{{0, -4.125}, {75, -1.4}, {100, 0}};
    Points twice = side;
    twice.insert(twice.end(), side.begin(), side.end());
    EXPECT_EQ(reasonAgainst(twice), "it has no height");
    EXPECT_EQ(reasonAgainst({{1, 0}, {0.5, 2}, {0, 0}, {0.5, -2}, {1, 0}}),
              "it is higher than it is long");
    EXPECT_EQ(reasonAgainst({{1, 0}, {0.6, 0.1}, {0.3, 0.1}, {0, 0}}),
              "its points do not go round the section");
    EXPECT_EQ(reasonAgainst({{0.5, 0.1}, {0, 0}, {0.5, -0.1}, {1, 0}, {0.5, 0.1}}),
              "its points begin neither at the tail nor at the nose");
    EXPECT_EQ(reasonAgainst(section(), 3), "its sides do not reach from the nose to the tail");
    EXPECT_EQ(reasonAgainst({{1e308, 0}, {-1e308, 0.1}, {1e308, -0.1}}),
              "its points have no chord");
    EXPECT_EQ(reasonAgainst(Points(100'000)), "100000 points; a panel holds 32767");
}

TEST(AirfoilOutline, SidesThatCrossOrRunBackAndForthAreRefused) {
    Points crossing = section();
    crossing[2].y = 0.2;
    crossing[8].y = -0.04;
    EXPECT_EQ(reasonAgainst(crossing).substr(0, 20), "its sides cross at 5");
    Points eight{{1, 0.05}, {0.5, 0}, {0, -0.05}, {0, 0.04}, {0.5, 0}, {1, -0.05}};
    EXPECT_NE(reasonAgainst(eight), "none");
    Points zigzag = section();
    zigzag[8].x = 0.1;
    EXPECT_EQ(reasonAgainst(zigzag), "its points run back and forth");
}

TEST(AirfoilOutline, ATailWhoseSidesMeetIsNoCrossing) {
    Points cusp = section();
    cusp[1] = {0.8, 0.04};  // the point above it, too
    EXPECT_EQ(arranged({cusp}), cusp);
}

/// Runs from end to end again and again are found out in the first.
TEST(AirfoilOutline, AsManyPointsAsAPanelHoldsAreLookedAtOnce) {
    Points back;
    for (int i = 0; i < 32'767; ++i) back.push_back({i % 2 == 0 ? 1.0 : 0.0, i % 3 * 0.1});
    EXPECT_NE(reasonAgainst(back), "none");
}

class OnPanels : public ::testing::Test {
protected:
    OnPanels() { Plane::setDefaultPlane(project); }
    void makePanels(std::int16_t count) {
        project.Wings.fill(count, project.Wings(1));
        project.nbWings = count;
    }
    Project project;
};

TEST_F(OnPanels, TheCurrentPanelOrAllOfThemGetTheSection) {
    makePanels(3);
    project.currentWing = 2;
    const SymWingSections before = project.Wings(1);
    putOnWing(project, section(), false);
    EXPECT_EQ(project.Wings(1), before);
    EXPECT_EQ(project.Wings(2).nb, 11);
    EXPECT_EQ(project.Wings(2).thickness1, 0.13);
    EXPECT_EQ(project.Wings(2).airfoilPoint(3).x, 0.5);
    EXPECT_DOUBLE_EQ(project.Wings(2).airfoilPoint(3).z, -0.04 / 0.13);
    const SymWingSections stabilizer = project.Stabilizer;
    putOnWing(project, section(0.002), true);
    for (int wing = 1; wing <= 3; ++wing) {
        EXPECT_EQ(project.Wings(wing), project.Wings(2));
        EXPECT_EQ(project.Wings(wing).nb, 11);
    }
    EXPECT_EQ(project.Stabilizer, stabilizer);
}

TEST_F(OnPanels, EveryPanelGetsTheCurrentOnesOutlineAndThicknessAndKeepsItsOwnMeasures) {
    makePanels(2);
    project.currentWing = 2;
    putOnWing(project, section(), false);
    project.Wings(2).thickness1 = 0.15;
    project.Wings(1).span = 321;
    copyToEveryPanel(project);
    EXPECT_EQ(project.Wings(1).thickness1, 0.15);
    EXPECT_EQ(project.Wings(1).thickness2, 0.13);
    EXPECT_EQ(project.Wings(1).span, 321);
    EXPECT_EQ(project.Wings(1).nb, 11);
    EXPECT_EQ(project.Wings(1).airfoilPoint(3), project.Wings(2).airfoilPoint(3));
}

TEST_F(OnPanels, APlateLeavesThePanelAsItWas) {
    const Project before = project;
    const Points plate{{1, 0}, {0.5, -0.001}, {0, 0}, {0.5, 0.001}, {1, 0}};
    EXPECT_THROW(putOnWing(project, plate, true), ReadFailure);
    EXPECT_TRUE(project == before);
}

TEST_F(OnPanels, TooManyPointsForAllPanelsChangeNothing) {
    makePanels(32'767);
    const Project before = project;
    Points many = section();
    while (many.size() < 200)
        many.insert(many.begin() + 1, {0.9 + 0.0001 * double(many.size()), -0.01});
    EXPECT_THROW(putOnWing(project, many, true), ReadFailure);
    EXPECT_TRUE(project == before);
    putOnWing(project, many, false);
    EXPECT_THROW(copyToEveryPanel(project), ReadFailure);
}

}  // namespace
}  // namespace velna::AirfoilOutline
