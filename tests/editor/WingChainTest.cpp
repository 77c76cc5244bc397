#include <gtest/gtest.h>

#include "model/MainWing.h"
#include "support/DrawnLines.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"
#include "support/HandleRows.h"

namespace velna {
namespace {

// A chain of three panels, each with its root at the tip of the one before.
class WingChain : public test::EditorTest {
protected:
    void SetUp() override {
        for (int i = 0; i < 2; ++i) {
            Plane::increment(nbWings);
            MainWing::addWing(project);
        }
        test::preparePress();
        Main.views.drawWingsVTop(Main.canvas());
        Main.views.drawWingsFront(Main.canvas());
        bench.forget();
    }
    static std::vector<int> paints() {
        return {Main.views.wings(1).grip.paint, Main.views.wings(2).grip.paint,
                Main.views.wings(3).grip.paint};
    }
    static float middle(const Outline& outline, std::size_t a, std::size_t b) {
        return static_cast<float>((outline[a].y + outline[b].y) / 2);
    }
};

TEST_F(WingChain, ARootEdgeTakesAllPanelsBehindAlong) {
    Main.views.testWingsVTop(Main.pointer.at(400, 600));
    EXPECT_EQ(paints(), (std::vector<int>{4, 4, 4}));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(Main.views.wings(i).grip.initval, Wings(i).pos1);
    const double before[] = {Wings(1).pos1, Wings(2).pos1, Wings(3).pos1};
    Main.views.selectsWingsVTop(Main.canvas(), Main.pointer.at(100, 110));
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(Wings(i).pos1, before[i - 1] + 5);
    EXPECT_EQ(area.calls.size(), 3U * 16);
}

TEST_F(WingChain, TipDragMovesAllOuterPanels) {
    const float y = middle(Main.views.wings(2).vtopPoints, 1, 4);
    Main.views.testWingsVTop(Main.pointer.at(1800, y));
    EXPECT_EQ(paints(), (std::vector<int>{0, 4, 4}));
    Main.views.selectsWingsVTop(Main.canvas(), Main.pointer.at(100, 110));
    EXPECT_EQ(Wings(1).pos2, 15);
    EXPECT_EQ(Wings(2).pos1, 195);
    EXPECT_EQ(Wings(3).pos1, 195);
}

TEST_F(WingChain, FromAheadTheChainHoldsToo) {
    const auto x = static_cast<float>(Main.views.wings(3).frontPoints[1].x);
    Main.views.testWingsFront(Main.pointer.at(x, middle(Main.views.wings(3).frontPoints, 1, 4)));
    EXPECT_EQ(paints(), (std::vector<int>{5, 0, 4}));
    Main.pointer.shiftkey = true;
    Main.views.testWingsFront(Main.pointer.at(400, middle(Main.views.wings(1).frontPoints, 1, 4)));
    EXPECT_EQ(paints(), (std::vector<int>{4, 4, 4}));
    Main.views.selectsWingsFront(Main.canvas(), Main.pointer.at(110, 100));
    EXPECT_EQ(Wings(1).shift, 5);
    EXPECT_EQ(Wings(2).shift, 705);
}

TEST_F(WingChain, APressAtAnEmptyPlaceLeavesAllIdle) {
    Main.views.wings(2).grip.paint = 4;
    Main.views.testWingsVTop(Main.pointer.at(1000, 0));
    EXPECT_EQ(paints(), (std::vector<int>{5, 5, 5}));
    Main.views.selectsWingsVTop(Main.canvas(), Main.pointer.at(1001, 0));
    EXPECT_EQ(Wings(2).pos1, 190);
}

TEST_F(WingChain, WholeDrawingsAreUnlit) {
    Main.views.wings(2).grip.selected = true;
    Main.views.drawWingsFront(Main.canvas());
    Main.views.drawWingsVTop(Main.canvas());
    EXPECT_EQ(area.lines(project.highlightColor), 0);
    EXPECT_EQ(area.lines(black), 3 * 16);
    EXPECT_TRUE(Main.views.wings(2).grip.selected);
    EXPECT_FALSE(Main.views.wings(1).grip.selected);
}

}  // namespace
}  // namespace velna
