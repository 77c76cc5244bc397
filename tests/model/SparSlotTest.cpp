#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "model/Region.h"
#include "model/SparSlot.h"

namespace velna {
namespace {

/// A rib 100 long whose upper edge falls from 10 to 5 and whose lower one lies at -4.
const Loop wedge{{0, -4}, {100, -4}, {100, 5}, {0, 10}};

struct Cut {
    std::vector<SlotCut> slots;
    double area = 0;  ///< what has gone
};

Cut cut(const Loop& outline, const std::vector<SparSlot>& slots) {
    Region region(outline);
    const double before = areaInside(region.loops());
    Cut result;
    result.slots = cutSlots(region, 100, slots);
    result.area = before - areaInside(region.loops());
    return result;
}

std::string why(const SparSlot& slot) {
    const Cut result = cut(wedge, {slot});
    EXPECT_EQ(result.area, 0) << "a refused slot leaves the rib whole";
    return result.slots.at(0).why;
}

TEST(SparSlots, FloorLiesBelowTheLowestPointBetweenTheSides) {
    const Cut result = cut(wedge, {{30, 10, 4, SlotSide::top}});
    const SlotCut& slot = result.slots.at(0);
    EXPECT_EQ(slot.why, "");
    EXPECT_EQ(slot.left, 25);
    EXPECT_EQ(slot.right, 35);
    EXPECT_NEAR(slot.floor, 10 - 0.05 * 35 - 4, 1e-9);
    EXPECT_NEAR(result.area, 4 * 10 + 0.5 * 0.5 * 10, 1e-5);
}

TEST(SparSlots, BottomOnesAreTheSameUpsideDown) {
    const Cut result = cut(wedge, {{30, 10, 4, SlotSide::bottom}});
    EXPECT_NEAR(result.slots.at(0).floor, 0, 1e-9);
    EXPECT_NEAR(result.area, 40, 1e-5);
}

TEST(SparSlots, DipBetweenTheSidesCounts) {
    const Loop dipped{{0, 0}, {100, 0}, {100, 10}, {51, 10}, {50, 7}, {49, 10}, {0, 10}};
    EXPECT_NEAR(cut(dipped, {{50, 20, 2, SlotSide::top}}).slots.at(0).floor, 5, 1e-9);
}

TEST(SparSlots, CliffBetweenTheSidesCounts) {
    const Loop stepped{{0, 0}, {100, 0}, {100, 6}, {50, 6}, {50, 10}, {0, 10}};
    EXPECT_NEAR(cut(stepped, {{50, 20, 2, SlotSide::top}}).slots.at(0).floor, 4, 1e-9);
}

TEST(SparSlots, WithoutWidthOrDepthAreRefused) {
    for (const double none : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_NE(why({30, none, 4, SlotSide::top}), "");
        EXPECT_NE(why({30, 6, none, SlotSide::top}), "");
    }
}

TEST(SparSlots, OutsideTheBorderAreRefused) {
    for (const double percent : {-10.0, 1.0, 99.0, 130.0, 1e300, -1e300})
        EXPECT_EQ(why({percent, 6, 1, SlotSide::top}), "it lies outside the rib") << percent;
    EXPECT_EQ(why({30, 1e300, 1, SlotSide::bottom}), "it lies outside the rib");
}

TEST(SparSlots, ThatReachTheOtherEdgeAreRefused) {
    EXPECT_EQ(why({30, 10, 13, SlotSide::top}), "it reaches the other edge");
    EXPECT_EQ(why({30, 10, 1e300, SlotSide::bottom}), "it reaches the other edge");
    EXPECT_EQ(cut(wedge, {{30, 10, 12, SlotSide::top}}).slots.at(0).why, "");
}

TEST(SparSlots, ThatMeetFromBothEdgesAreRefused) {
    const Cut result = cut(wedge, {{30, 10, 7, SlotSide::top}, {32, 10, 6, SlotSide::bottom}});
    EXPECT_EQ(result.slots.at(0).why, "");
    EXPECT_EQ(result.slots.at(1).why, "it reaches slot 1");
    // Beside each other they may be as deep as they like.
    EXPECT_EQ(cut(wedge, {{30, 10, 7, SlotSide::top}, {50, 10, 6, SlotSide::bottom}}).slots[1].why,
              "");
    // What is refused is in nobody's way.
    EXPECT_EQ(cut(wedge, {{30, 10, 70, SlotSide::top}, {32, 10, 6, SlotSide::bottom}}).slots[1].why,
              "");
}

TEST(SparSlots, TwoFromOneEdgeMayOverlap) {
    const Cut result = cut(wedge, {{30, 10, 2, SlotSide::bottom}, {35, 10, 4, SlotSide::bottom}});
    EXPECT_EQ(result.slots.at(1).why, "");
    EXPECT_NEAR(result.area, 2 * 10 + 4 * 10 - 2 * 5, 1e-5);
}

TEST(SparSlots, AreMeasuredInsideTheSkin) {
    Region region({{0, 0}, {100, 0}, {100, 20}, {0, 20}});
    region.erode(2);
    const std::vector<SparSlot> slots{{30, 6, 4, SlotSide::top}, {30, 6, 4, SlotSide::bottom}};
    const std::vector<SlotCut> cuts = cutSlots(region, 100, slots);
    EXPECT_NEAR(cuts.at(0).floor, 14, 1e-5);
    EXPECT_NEAR(cuts.at(1).floor, 6, 1e-5);
    EXPECT_EQ(region.pieces(), 1);
}

TEST(SparSlots, GapBetweenTwoPiecesIsOutside) {
    const std::vector<Loop> two{{{0, 0}, {40, 0}, {40, 10}, {0, 10}},
                                {{60, 0}, {100, 0}, {100, 10}, {60, 10}}};
    EXPECT_FALSE(clearanceOf(two, 30, 70));
    EXPECT_TRUE(clearanceOf(two, 10, 20));
    EXPECT_FALSE(clearanceOf(two, 45, 55));
    EXPECT_FALSE(clearanceOf({}, 0, 1));
    EXPECT_FALSE(clearanceOf(two, 20, 10));
}

}  // namespace
}  // namespace velna
