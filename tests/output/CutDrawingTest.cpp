#include <gtest/gtest.h>

#include "output/CutDrawing.h"

namespace velna::test {
namespace {

CutPart board(double width, double height) {
    CutPart part;
    part.cut = {{{-5, -5}, {width - 5, -5}, {width - 5, height - 5}, {-5, height - 5}}};
    return part;
}

void expectWithin(const CutDrawing& drawing) {
    for (const CutPart& part : drawing.parts) {
        const PartBox box = part.box();
        EXPECT_GT(box.left, 0);
        EXPECT_GT(box.bottom, 0);
        EXPECT_LT(box.right, drawing.width);
        EXPECT_LT(box.top, drawing.height);
    }
}

TEST(LayOut, ASinglePartHasAsMuchFreeRoomOnEachSide) {
    const CutDrawing drawing = layOut({board(80, 40)}, "one");
    expectWithin(drawing);
    const PartBox box = drawing.parts.at(0).box();
    EXPECT_NEAR(box.left, drawing.width - box.right, 1e-9);
    EXPECT_NEAR(box.bottom, drawing.height - box.top, 1e-9);
    EXPECT_NEAR(box.width(), 80, 1e-9);
    EXPECT_NEAR(box.height(), 40, 1e-9);
    EXPECT_LT(drawing.width, 100) << "no more paper than it needs";
}

TEST(LayOut, AllPartsLieWithinTheDrawing) {
    expectWithin(layOut({board(900, 20), board(30, 200), board(400, 60)}, "three"));
    expectWithin(layOut({board(30, 200), board(30, 20), board(500, 60)}, "three"));
}

}  // namespace
}  // namespace velna::test
