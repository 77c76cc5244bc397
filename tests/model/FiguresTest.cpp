// The rules of the figures: cuts, mirror images, what is not there, and sizes at the ends of what
// a number holds.

#include <cmath>
#include <limits>
#include <numbers>

#include "model/Figures.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

constexpr double huge = std::numeric_limits<double>::max();

class WingFigures : public FreshModel {
protected:
    struct Plan {
        double span = 0;
        double root = 0;
        double tip = 0;
        double x = 180;
        double sweep = 10;
        double shift = 0;
        double z = 0;
        double rise = 0;
    };

    void setPanel(int i, const Plan& plan) {
        if (i > nbWings) {
            nbWings = static_cast<std::int16_t>(i);
            MainWing::addWing(project);
        }
        SymWingSections& panel = Wings(i);
        panel.span = plan.span;
        panel.length1 = plan.root;
        panel.length2 = plan.tip;
        panel.pos1 = plan.x;
        panel.pos2 = plan.sweep;
        panel.shift = plan.shift;
        panel.elevation1 = plan.z;
        panel.elevation2 = plan.rise;
    }

    SurfaceFigures wing() const { return figuresOf(project).wing; }

    /// Expects the figures of both to be the same, but for the number of panels.
    static void expectSame(const SurfaceFigures& one, const SurfaceFigures& other) {
        constexpr Figure SurfaceFigures::*all[] = {
            &SurfaceFigures::areaProjected, &SurfaceFigures::areaDeveloped,
            &SurfaceFigures::span,          &SurfaceFigures::aspectRatio,
            &SurfaceFigures::rootChord,     &SurfaceFigures::tipChord,
            &SurfaceFigures::taper,         &SurfaceFigures::rootX,
            &SurfaceFigures::meanChord,     &SurfaceFigures::meanChordX,
            &SurfaceFigures::meanChordY,    &SurfaceFigures::quarterX,
            &SurfaceFigures::dihedral};
        int n = 0;
        for (auto place : all) {
            const Figure& a = one.*place;
            const Figure& b = other.*place;
            ASSERT_EQ(a.has_value(), b.has_value()) << "figure " << n;
            if (a) {
                EXPECT_NEAR(*a, *b, 1e-12 * std::max(1.0, std::abs(*b))) << "figure " << n;
            }
            ++n;
        }
    }
};

TEST_F(WingFigures, ARectangleHasThoseOfItsSides) {
    setPanel(1, {500, 200, 200, 100, 0});
    const SurfaceFigures figures = wing();
    EXPECT_EQ(figures.panels, 1);
    EXPECT_EQ(figures.areaProjected, 20);
    EXPECT_EQ(figures.areaDeveloped, 20);
    EXPECT_EQ(figures.span, 1000);
    EXPECT_EQ(figures.aspectRatio, 5);
    EXPECT_EQ(figures.taper, 1);
    EXPECT_EQ(figures.meanChord, 200);
    EXPECT_EQ(figures.meanChordX, 100);
    EXPECT_EQ(figures.meanChordY, 250);
    EXPECT_EQ(figures.quarterX, 150);
    EXPECT_EQ(figures.dihedral, 0);
}

TEST_F(WingFigures, ACutOfAStraightPanelLeavesEveryFigure) {
    for (const double cut : {1e-6, 0.01, 0.3, 0.5, 0.999}) {
        const Plan whole{700, 230, 150, 180, 35, 25, 10, 60};
        nbWings = 1;
        setPanel(1, whole);
        const SurfaceFigures before = wing();
        const double chord = whole.root + (whole.tip - whole.root) * cut;
        setPanel(1, {whole.span * cut, whole.root, chord, whole.x, whole.sweep * cut, whole.shift,
                     whole.z, whole.rise * cut});
        setPanel(2, {whole.span * (1 - cut), chord, whole.tip, whole.x + whole.sweep * cut,
                     whole.sweep * (1 - cut), whole.shift + whole.span * cut,
                     whole.z + whole.rise * cut, whole.rise * (1 - cut)});
        const SurfaceFigures after = wing();
        EXPECT_EQ(after.panels, 2);
        expectSame(after, before);
    }
}

TEST_F(WingFigures, ANegativeSpanIsTheSameWing) {
    setPanel(1, {700, 230, 150, 180, 35, 25, 10, 60});
    const SurfaceFigures before = wing();
    setPanel(1, {-700, 230, 150, 180, 35, -25, 10, 60});
    expectSame(wing(), before);
    setPanel(1, {-700, 150, 230, 215, -35, 725, 70, -60});
    expectSame(wing(), before);
}

TEST_F(WingFigures, ANegativeChordIsTheSamePlate) {
    setPanel(1, {700, 230, 150, 180, 35});
    const SurfaceFigures before = wing();
    setPanel(1, {700, -230, -150, 180 + 230, 35 + 150 - 230});
    expectSame(wing(), before);
}

TEST_F(WingFigures, AChordThatChangesItsSignMakesTwoTriangles) {
    setPanel(1, {300, 200, -100, 0, 0});
    const SurfaceFigures figures = wing();
    EXPECT_DOUBLE_EQ(*figures.areaProjected, 2 * (200 * 200 / 2.0 + 100 * 100 / 2.0) / 1e4);
    EXPECT_EQ(figures.rootChord, 200);
    EXPECT_EQ(figures.tipChord, 100);
    EXPECT_DOUBLE_EQ(*figures.meanChord, 2 * (200 * 200 * 200 / 3.0 + 100 * 100 * 100 / 3.0) / 5e4);
    // The inner triangle reaches from 0 backward, the outer one from 0 forward.
    const double moment = 200 * (200 * 200 / 6.0) * 0 + 100 * (-100.0) * 2 * 100 / 6.0;
    EXPECT_DOUBLE_EQ(*figures.meanChordX, 2 * moment / 5e4);
}

TEST_F(WingFigures, APanelAcrossTheMiddleLiesOnBothHalvesTwice) {
    setPanel(1, {300, 100, 100, 0, 0, -100, 0, 30});
    const SurfaceFigures figures = wing();
    EXPECT_DOUBLE_EQ(*figures.areaProjected, 6);
    EXPECT_DOUBLE_EQ(*figures.span, 400);
    // The part beyond the middle falls toward its outer end.
    EXPECT_NEAR(*figures.dihedral, std::atan2(0.1, 1) * 180 / std::numbers::pi / 3, 1e-12);
}

TEST_F(WingFigures, PanelAndChordMayTurnAtTheSamePlace) {
    setPanel(1, {200, 100, -100, 0, 0, -100});
    const SurfaceFigures figures = wing();
    EXPECT_DOUBLE_EQ(*figures.areaProjected, 2);
    EXPECT_EQ(figures.rootChord, 0);
    EXPECT_EQ(figures.tipChord, 100);
    EXPECT_EQ(figures.taper, std::nullopt);
}

TEST_F(WingFigures, AnUprightPanelCountsAsCoveredAreaAlone) {
    setPanel(2, {0, 150, 100, 190, 20, 700, 0, 80});
    const SurfaceFigures figures = wing();
    EXPECT_DOUBLE_EQ(*figures.areaProjected, 26.6);
    EXPECT_DOUBLE_EQ(*figures.areaDeveloped, 26.6 + 2 * 80 * 125 / 1e4);
    EXPECT_EQ(figures.tipChord, 150);
    EXPECT_EQ(figures.span, 1400);
}

TEST_F(WingFigures, AGapIsNoAreaAndTheSpanReachesOverIt) {
    setPanel(1, {500, 200, 200, 0, 0, 100});
    EXPECT_DOUBLE_EQ(*wing().areaProjected, 20);
    EXPECT_EQ(wing().span, 1200);
}

TEST_F(WingFigures, OnEqualPlacesTheFirstPanelGivesTheChord) {
    setPanel(1, {500, 200, 180, 0, 0});
    setPanel(2, {500, 300, 280, 50, 0, 0, 200});
    EXPECT_EQ(wing().rootChord, 200);
    EXPECT_EQ(wing().tipChord, 180);
    EXPECT_EQ(wing().rootX, 0);
}

TEST_F(WingFigures, WithoutAreaNoFigureThatDividesByIt) {
    for (const Plan& plan : {Plan{0, 230, 150}, Plan{700, 0, 0}, Plan{}}) {
        setPanel(1, plan);
        const SurfaceFigures figures = wing();
        EXPECT_EQ(figures.areaProjected, 0);
        EXPECT_EQ(figures.span, 0);
        for (const Figure& figure :
             {figures.aspectRatio, figures.rootChord, figures.tipChord, figures.taper,
              figures.rootX, figures.meanChord, figures.meanChordX, figures.meanChordY,
              figures.quarterX, figures.dihedral})
            EXPECT_EQ(figure, std::nullopt);
    }
}

TEST_F(WingFigures, WhatNoNumberHoldsIsNotThereAndTheRestStands) {
    setPanel(1, {huge, huge, huge, 180, 0});
    const SurfaceFigures figures = wing();
    EXPECT_EQ(figures.areaProjected, std::nullopt);
    EXPECT_EQ(figures.span, std::nullopt);
    EXPECT_EQ(figures.aspectRatio, std::nullopt);
    EXPECT_EQ(figures.meanChord, std::nullopt);
    EXPECT_EQ(figures.rootChord, huge);
    EXPECT_EQ(figures.taper, 1);
}

TEST_F(WingFigures, SquaresBeyondEveryNumberAreDividedAwayAgain) {
    setPanel(1, {5e199, 1e100, 1e100, 0, 0});
    EXPECT_DOUBLE_EQ(*wing().aspectRatio, 1e100);
    EXPECT_DOUBLE_EQ(*wing().meanChord, 1e100);
    setPanel(1, {1e-200, 1e-200, 1e-200, 0, 0});
    EXPECT_DOUBLE_EQ(*wing().aspectRatio, 2);
    EXPECT_DOUBLE_EQ(*wing().meanChord, 1e-200);
}

TEST_F(WingFigures, AWingFarOutKeepsItsDigits) {
    setPanel(1, {0.5, 0.25, 0.25, 1e12, 0, 1e12});
    EXPECT_DOUBLE_EQ(*wing().areaProjected, 2 * 0.125 / 1e4);
    EXPECT_DOUBLE_EQ(*wing().meanChord, 0.25);
    // Both ends round to the same place, and still one lies inside.
    setPanel(1, {-100, 40, 80, 0, 0, 1e80});
    EXPECT_EQ(wing().rootChord, 80);
    EXPECT_EQ(wing().tipChord, 40);
    setPanel(1, {-100, 40, 80, 0, 0, -1e80});
    EXPECT_EQ(wing().rootChord, 40);
}

TEST_F(WingFigures, InchesGiveTheSameFigures) {
    setPanel(2, {200, 150, 90, 190, 40, 700, 0, 60});
    const SurfaceFigures before = wing();
    MainWing::switchToInches(project);
    project.units = inches;
    expectSame(wing(), before);
}

using TailFiguresTest = WingFigures;

TEST_F(TailFiguresTest, TheFinIsCountedTwiceWhereItIsDrawnTwice) {
    const FinFigures one = figuresOf(project).fin;
    EXPECT_EQ(one.count, 1);
    EXPECT_DOUBLE_EQ(*one.areaProjected, 1.725);
    Rudder.offset2 = -80;
    const FinFigures twin = figuresOf(project).fin;
    EXPECT_EQ(twin.count, 2);
    EXPECT_DOUBLE_EQ(*twin.areaProjected, 3.45);
    EXPECT_DOUBLE_EQ(*twin.areaDeveloped, 2 * 1.725 * std::hypot(150, 80) / 150);
    EXPECT_EQ(twin.meanChord, one.meanChord);
    EXPECT_EQ(twin.height, 150);
}

TEST_F(TailFiguresTest, AFinThatHangsDownIsTheSame) {
    const FinFigures before = figuresOf(project).fin;
    Rudder.span = -150;
    const FinFigures after = figuresOf(project).fin;
    EXPECT_EQ(after.height, 150);
    EXPECT_DOUBLE_EQ(*after.areaProjected, *before.areaProjected);
    EXPECT_DOUBLE_EQ(*after.quarterX, *before.quarterX);
}

TEST_F(TailFiguresTest, WithoutTailNoArmAndNoVolume) {
    Stabilizer.span = 0;
    Rudder.length1 = Rudder.length2 = 0;
    const TailFigures tail = figuresOf(project).tail;
    EXPECT_EQ(tail.horizontalArm, std::nullopt);
    EXPECT_EQ(tail.horizontalVolume, std::nullopt);
    EXPECT_EQ(tail.verticalArm, std::nullopt);
    EXPECT_EQ(tail.verticalVolume, std::nullopt);
}

TEST_F(TailFiguresTest, AFlyingWingBalancesAboutItsQuarterPoint) {
    Stabilizer.span = 0;
    const Figures figures = figuresOf(project);
    EXPECT_EQ(figures.balance.neutralPointX, figures.wing.quarterX);
    EXPECT_EQ(figures.balance.neutralPointPercent, 25);
    EXPECT_EQ(figures.balance.liftSlopeStabilizer, std::nullopt);
    EXPECT_EQ(figures.balance.downwashGradient, std::nullopt);
    EXPECT_TRUE(figures.balance.liftSlopeWing.has_value());
    EXPECT_DOUBLE_EQ(*figures.balance.margin5Percent, 20);
}

TEST_F(TailFiguresTest, AStabiliserAheadLeavesTheNeutralPointOpen) {
    Stabilizer.pos1 = -400;
    const Figures figures = figuresOf(project);
    EXPECT_LT(*figures.tail.horizontalArm, 0);
    EXPECT_LT(*figures.tail.horizontalVolume, 0);
    EXPECT_EQ(figures.balance.neutralPointX, std::nullopt);
    EXPECT_EQ(figures.balance.margin15X, std::nullopt);
    EXPECT_EQ(figures.balance.margin5Percent, std::nullopt);
    EXPECT_EQ(figures.balance.downwashGradient, std::nullopt);
    EXPECT_TRUE(figures.balance.liftSlopeWing.has_value());
    EXPECT_TRUE(figures.balance.liftSlopeStabilizer.has_value());
}

TEST_F(TailFiguresTest, WithoutAWingNothingBalances) {
    Wings(1).span = 0;
    const Figures figures = figuresOf(project);
    EXPECT_EQ(figures.balance.liftSlopeWing, std::nullopt);
    EXPECT_EQ(figures.balance.liftSlopeStabilizer, std::nullopt);
    EXPECT_EQ(figures.balance.neutralPointX, std::nullopt);
    EXPECT_EQ(figures.tail.horizontalArm, std::nullopt);
}

TEST_F(TailFiguresTest, TheMarginIsAShareOfTheMeanChord) {
    const Figures figures = figuresOf(project);
    const BalanceFigures& balance = figures.balance;
    EXPECT_NEAR(*balance.neutralPointX - *balance.margin15X, 0.15 * *figures.wing.meanChord, 1e-10);
    EXPECT_NEAR(*balance.margin5Percent - *balance.margin15Percent, 10, 1e-12);
}

TEST_F(TailFiguresTest, FarFromTheOriginTheArmsKeepTheirDigits) {
    const TailFigures near = figuresOf(project).tail;
    for (double* x : {&Wings(1).pos1, &Stabilizer.pos1, &Rudder.pos1}) *x += 0x1p52;
    const TailFigures far = figuresOf(project).tail;
    EXPECT_NEAR(*far.horizontalArm, *near.horizontalArm, 1e-9);
    EXPECT_NEAR(*far.verticalVolume, *near.verticalVolume, 1e-9);
}

TEST_F(TailFiguresTest, MassAndSpeedCountEachByItself) {
    const SurfaceFigures surface = wing();
    const FlightFigures mass = flightFigures(surface, {1330, std::nullopt});
    EXPECT_DOUBLE_EQ(*mass.wingLoading, 50);
    EXPECT_EQ(mass.reynoldsRoot, std::nullopt);
    const FlightFigures speed = flightFigures(surface, {std::nullopt, 0});
    EXPECT_EQ(speed.wingLoading, std::nullopt);
    EXPECT_EQ(speed.reynoldsTip, 0);
    EXPECT_EQ(flightFigures(surface, {huge, huge}).reynoldsRoot, std::nullopt);
    Wings(1).span = 0;
    EXPECT_EQ(figuresOf(project, {1000, 50}).flight.wingLoading, std::nullopt);
}

}  // namespace
}  // namespace velna
