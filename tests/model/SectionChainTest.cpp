#include <cmath>

#include "ShapingFixture.h"

namespace velna {
namespace {

/// Insertion, removal and smoothing of the chain of sections.
class SectionChain : public ShapingFixture {};

TEST_F(SectionChain, InsertedSectionLiesOnTheSurface) {
    setWidths({100, 20, 60});
    body().pos_offset = 11;
    body().sel_sec = 2;
    body().insertSection(25);
    EXPECT_EQ(body().nb_sections, 4);
    EXPECT_EQ(body().sel_sec, 2);
    EXPECT_EQ(order(4), (std::vector<double>{1, 4, 2, 3}));
    EXPECT_EQ(body().posGet(), 25);
    EXPECT_EQ(body().widthGet(), 80);
    EXPECT_EQ(body().heightGet(), 160);
    EXPECT_EQ(body().elevationGet(), 1.25);
    EXPECT_EQ(body().curvatureGet(), 0.625);
    EXPECT_EQ(body().curvature2Get(), 1.25);
    EXPECT_DOUBLE_EQ(body().bias_curveGet(), 0.125);
}

TEST_F(SectionChain, InsertionBetweenSectionsAtOnePlaceGivesZeros) {
    setWidths({100, 20});
    body().pos(2) = 0;
    body().sel_sec = 2;
    body().insertSection(5);
    EXPECT_EQ(body().posGet(), 5);
    EXPECT_EQ(body().widthGet(), 0);
}

TEST_F(SectionChain, InsertionDoesNothingWithoutAShapeOrBeyondTheCounter) {
    body().nb_cross = 0;
    body().sel_sec = 2;
    body().insertSection(5);
    EXPECT_EQ(body().nb_sections, 3);
    body().nb_cross = 8;
    body().nb_sections = 32767;
    body().insertSection(5);
    EXPECT_EQ(body().nb_sections, 32767);
    EXPECT_EQ(body().height.upper(), 3);
}

TEST_F(SectionChain, RemovedSectionClosesOrderAndStorage) {
    setWidths({10, 20, 30, 40});
    body().sel_sec = 2;
    body().insertSection(50);  // storage 5 in place 2
    body().sel_sec = 3;        // storage 2
    body().removeSection();
    EXPECT_EQ(body().nb_sections, 4);
    EXPECT_EQ(order(4), (std::vector<double>{1, 4, 2, 3}));
    EXPECT_EQ(body().width(1), 10);
    EXPECT_EQ(body().width(2), 30);
    EXPECT_EQ(body().width(3), 40);
    EXPECT_EQ(body().width(4), 15);
    EXPECT_EQ(body().pos(4), 50);
    EXPECT_EQ(body().width.upper(), 5);  // the last entry is left over
}

TEST_F(SectionChain, RemovingWhatWasInsertedGivesTheChainBack) {
    setWidths({10, 20, 30, 40});
    body().sel_sec = 2;
    body().insertSection(50);
    body().removeSection();
    EXPECT_EQ(order(4), (std::vector<double>{1, 2, 3, 4}));
    for (int k = 1; k <= 4; ++k) EXPECT_EQ(body().width(k), 10 * k);
}

TEST_F(SectionChain, RemovingTheNoseMovesEveryPlaceAndEntryUp) {
    setWidths({10, 20, 30, 40});
    body().sel_sec = 2;
    body().insertSection(50);
    body().sel_sec = 1;
    body().removeSection();
    EXPECT_EQ(order(4), (std::vector<double>{4, 1, 2, 3}));
    for (int k = 1; k <= 3; ++k) EXPECT_EQ(body().width(k), 10 * (k + 1));
    EXPECT_EQ(body().width(4), 15);
}

TEST_F(SectionChain, InsertionAfterARemovalTakesTheLeftOverEntry) {
    setWidths({10, 20, 30, 40});
    body().sel_sec = 2;
    body().removeSection();
    body().insertSection(100);
    EXPECT_EQ(body().height.upper(), 4);
    EXPECT_EQ(order(4), (std::vector<double>{1, 4, 2, 3}));
    EXPECT_EQ(body().posGet(), 100);
    EXPECT_EQ(body().widthGet(), 20);
    EXPECT_EQ(body().curvatureGet(), 1);
}

TEST_F(SectionChain, RemovingTheLastSectionLeavesTheSelectionOneTooHigh) {
    body().sel_sec = 3;
    body().removeSection();
    EXPECT_EQ(body().nb_sections, 2);
    EXPECT_EQ(body().sel_sec, 3);
    EXPECT_EQ(body().widthGet(), 0);
}

TEST_F(SectionChain, ABodyKeepsTwoSections) {
    setWidths({10, 20});
    body().sel_sec = 1;
    body().removeSection();
    EXPECT_EQ(body().nb_sections, 2);
    setWidths({10, 20, 30});
    body().nb_cross = 0;
    body().removeSection();
    EXPECT_EQ(body().nb_sections, 3);
}

TEST_F(SectionChain, RemovalWithAnySelectionStaysInsideTheArrays) {
    for (int selected : {-32768, -1, 0, 5, 32767}) {
        setWidths({10, 20, 30, 40});
        body().sel_sec = static_cast<std::int16_t>(selected);
        body().removeSection();
        EXPECT_EQ(body().nb_sections, 4);
    }
}

TEST_F(SectionChain, SmoothedWidthIsThreeQuartersItself) {
    setWidths({10, 50, 30, 70});
    body().SmoothWidth();
    EXPECT_EQ(body().width(1), 10);
    EXPECT_EQ(body().width(2), 0.75 * 50 + 0.25 * 20);
    EXPECT_EQ(body().width(3), 0.75 * 30 + 0.25 * 60);  // no section sees a neighbour moved
    EXPECT_EQ(body().width(4), 70);
}

TEST_F(SectionChain, SmoothingWeighsByTheSpacing) {
    setWidths({10, 50, 30});
    body().pos(2) = 150;
    body().SmoothWidth();
    EXPECT_DOUBLE_EQ(body().width(2), 0.75 * 50 + 0.25 * (10 + 20 * 0.75));
}

TEST_F(SectionChain, SmoothTopHoldsTheBottomLine) {
    setWidths({10, 50, 30});
    body().elevation_offset = 4;
    const Array1<double> bottom = body().elevation;
    // top line with the offset: 25, 106, 67
    body().smoothTop();
    EXPECT_EQ(body().elevation, bottom);
    EXPECT_DOUBLE_EQ(body().height(2), 0.75 * 106 + 0.25 * 46 - 2 - 4);
}

// The smoothed bottom line holds the offset and is stored with it: the inner sections rise by it.
TEST_F(SectionChain, SmoothDownRaisesTheInnerSectionsByTheOffset) {
    setWidths({10, 50, 30});
    body().elevation(2) = 9;
    body().elevation_offset = 4;
    body().smoothDown();
    EXPECT_EQ(body().elevation(1), 1);
    EXPECT_EQ(body().elevation(2), 0.75 * 13 + 0.25 * 6);
    EXPECT_EQ(body().height(2), (100 + 9 + 4) - body().elevation(2) - 4);
    body().elevation_offset = 0;
    const double top = body().elevation(2) + body().height(2);
    body().smoothDown();
    EXPECT_DOUBLE_EQ(body().elevation(2) + body().height(2), top);
}

TEST_F(SectionChain, SectionBetweenNeighboursAtOnePlaceKeepsItsValue) {
    setWidths({10, 50, 30, 70});
    body().pos(3) = body().pos(1);
    body().SmoothWidth();
    EXPECT_EQ(body().width(2), 50);
    EXPECT_NE(body().width(3), 30);
    setWidths({10, 50, 30, 70});
    body().pos(3) = body().pos(1);
    body().smoothDown();
    EXPECT_EQ(body().elevation(2), 2);
    setWidths({10, 50, 30, 70});
    body().pos(3) = body().pos(1);
    body().smoothTop();
    EXPECT_EQ(body().height(2), 100);
}

TEST_F(SectionChain, SmoothingLeavesTwoSections) {
    setWidths({10, 50});
    body().smoothTop();
    body().smoothDown();
    body().SmoothWidth();
    EXPECT_EQ(body().width(2), 50);
    EXPECT_EQ(body().height(1), 20);
    EXPECT_EQ(body().elevation(2), 2);
}

}  // namespace
}  // namespace velna
