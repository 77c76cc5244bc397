#include "support/FreshModel.h"

namespace velna {
namespace {

using Panels = FreshModel;

void add() {
    ++nbWings;
    MainWing::addWing(project);
}

TEST_F(Panels, NewPanelContinuesTheDefaultWing) {
    add();
    const SymWingSections& wing = Wings(2);
    EXPECT_EQ(wing.pos1, 190);
    EXPECT_EQ(wing.pos2, 0);
    EXPECT_EQ(wing.span, 210);
    EXPECT_EQ(wing.length1, 150);
    EXPECT_EQ(wing.length2, 105);
    EXPECT_EQ(wing.elevation1, 50);
    EXPECT_EQ(wing.elevation2, 0);
    EXPECT_EQ(wing.shift, 700);
    EXPECT_EQ(wing.nb, 16);
    EXPECT_EQ(wing.airfoilPoint(3).z, -0.5);
}

TEST_F(Panels, NewPanelTakesTheTipThicknessAtBothEnds) {
    Wings(1).thickness2 = 0.09;
    Wings(1).setAirfoilPoint(3, 0.3, -0.7);
    add();
    EXPECT_EQ(Wings(2).thickness1, 0.09);
    EXPECT_EQ(Wings(2).thickness2, 0.09);
    EXPECT_EQ(Wings(2).airfoilPoint(3).z, -0.5);  // the built-in airfoil, not the one before
}

TEST_F(Panels, NewPanelStartsAtTheTipInAllDirections) {
    Wings(1).elevation2 = 12;
    Wings(1).shift = 20;
    add();
    EXPECT_EQ(Wings(2).elevation1, 62);
    EXPECT_EQ(Wings(2).shift, 720);
}

TEST_F(Panels, RemovedPanelStaysUntilAnAddedOneReplacesIt) {
    add();
    Wings(2).span = 1;
    --nbWings;
    EXPECT_EQ(Wings(2).span, 1);
    add();
    EXPECT_EQ(Wings(2).span, 210);
}

TEST_F(Panels, SumsBeyondTheRangeLeaveTheNewPanelsZero) {
    Wings(1).pos1 = 1e308;
    Wings(1).pos2 = 1e308;
    add();
    EXPECT_EQ(Wings(2).pos1, 0);
    EXPECT_EQ(Wings(2).span, 210);
}

TEST_F(Panels, AllocationPutsANewPanelInEverySlot) {
    Wings(1).shift = 9;
    currentWing = 1;
    nbWings = 3;
    MainWing::allocateWings(project);
    EXPECT_EQ(currentWing, 1);
    EXPECT_EQ(Wings.size(), 3);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(Wings(i).span, 0);
        EXPECT_EQ(Wings(i).shift, 0);
        EXPECT_EQ(Wings(i).nb, 16);
        EXPECT_EQ(Wings(i).thickness1, 0.13);
    }
}

TEST_F(Panels, OfAHugeCountCostNothingUntilTheyAreAskedFor) {
    nbWings = 32767;
    MainWing::allocateWings(project);
    EXPECT_EQ(Wings(32767).nb, 16);
}

TEST_F(Panels, BeyondTheCounterAreNotLookedAt) {
    add();
    --nbWings;
    MainWing::rescale(project, 2);
    EXPECT_EQ(Wings(1).span, 1400);
    EXPECT_EQ(Wings(2).span, 210);
}

TEST_F(Panels, AreConvertedTogether) {
    add();
    MainWing::switchToInches(project);
    EXPECT_EQ(Wings(2).shift, 700 / 25.4);
    MainWing::switchToMillimeters(project);
    EXPECT_DOUBLE_EQ(Wings(2).shift, 700);
}

}  // namespace
}  // namespace velna
