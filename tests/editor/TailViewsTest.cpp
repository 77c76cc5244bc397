#include <gtest/gtest.h>

#include "model/Plane.h"
#include "support/DrawnLines.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"
#include "support/HandleRows.h"
#include "support/PartsOnSurface.h"

namespace velna {
namespace {

using test::drawnColours;
using test::drawnLines;
using test::joined;
using test::repeated;
using Fin = VertWingSection;
using Row = test::HandleRow<Fin>;

const std::vector<double Fin::*> finFields{
    &Fin::span, &Fin::length1, &Fin::length2, &Fin::thickness1, &Fin::thickness2,
    &Fin::pos1, &Fin::pos2,    &Fin::shift,   &Fin::offset1,    &Fin::offset2};

class TailViews : public test::EditorTest {
protected:
    void SetUp() override {
        Rudder.offset1 = Rudder.offset2 = 0;
        place();
    }
    /// Computes and draws the fin plainly at two pixels a unit and forgets the drawing.
    void place() {
        test::preparePress();
        drawSide(-1, -1, -1, -1, 4);
        fin.computeFrontPoints(Main.view.zoom, Main.view.xoff, Main.view.yoff);
        fin.computeVTopPoints(Main.view.zoom, Main.view.xoff, Main.view.yoff);
        fin.selected = false;
        bench.forget();
    }
    static void drawSide(int s1, int s2, int s3, int s4, int which) {
        Main.views.rudder.drawSide(Main.canvas(), Rudder, {s1, s2, s3, s4}, which == 6);
    }
    /// Colours of segments 2 to 5 with some lit.
    static std::vector<Rgb> lit(const std::vector<int>& segments) {
        auto colours = repeated(4, black);
        for (int segment : segments)
            colours[static_cast<std::size_t>(segment - 2)] = project.highlightColor;
        return colours;
    }
    test::FinOnSurface fin;

    /// The x and y of the four corners of an outline.
    static std::vector<Point2D> corners(const Outline& outline) {
        return {outline.begin() + 1, outline.begin() + 5};
    }
};

const std::vector<Row> sideRows{
    {"tip", 0, false, {{&Fin::pos2, 3}}, {4}},
    {"tip, Shift", 0, true, {{&Fin::span, -5}}, {4}},
    {"root", 4, false, {{&Fin::pos1, 3}}, {2, 3, 4, 5}},
    {"root, Shift", 4, true, {{&Fin::shift, -5}}, {2, 3, 4, 5}},
    {"tip trailing", 2, false, {{&Fin::length2, 3}}, {3, 4}},
    {"tip trailing, Shift", 2, true, {{&Fin::length2, 3}}, {3, 4}},
    {"root trailing", 3, false, {{&Fin::length1, 3}}, {2, 3}},
    {"root trailing, Shift", 3, true, {{&Fin::length1, 3}}, {2, 3}},
    {"tip leading", 7, false, {{&Fin::length2, -3}, {&Fin::pos2, 3}}, {4, 5}},
    {"tip leading, Shift", 7, true, {{&Fin::length2, -3}, {&Fin::pos2, 3}}, {4, 5}},
    {"root leading", 8, false, {{&Fin::length1, -3}, {&Fin::pos1, 3}, {&Fin::pos2, -3}}, {2, 5}},
    {"root leading, Shift",
     8,
     true,
     {{&Fin::length1, -3}, {&Fin::pos1, 3}, {&Fin::pos2, -3}},
     {2, 5}},
};

const std::vector<Row> frontRows{
    {"root", 4, false, {{&Fin::offset1, 3}}, {}},
    {"root, Shift", 4, true, {{&Fin::shift, -5}}, {}},
    {"tip", 0, false, {{&Fin::offset2, 3}}, {}},
    {"tip, Shift", 0, true, {{&Fin::span, -5}}, {}},
    {"corners are none from ahead", 2, false, {}, {}},
};

TEST_F(TailViews, SideDragsChangeTheFieldsOfTheirRowAndComeBack) {
    for (const Row& row : sideRows)
        test::expectDrag(
            fin, Rudder, row, finFields, [&] { fin.initMouseValSide(); },
            [&](float x, float y) { fin.selectsSide(x, y); });
}

TEST_F(TailViews, FrontDragsChangeTheFieldsOfTheirRowAndComeBack) {
    for (const Row& row : frontRows)
        test::expectDrag(
            fin, Rudder, row, finFields, [&] { fin.initMouseValFront(); },
            [&](float x, float y) { fin.selectsFront(x, y); });
}

TEST_F(TailViews, ASideDragLightsTheSegmentsOfItsRow) {
    for (const Row& row : sideRows) {
        SCOPED_TRACE(row.name);
        place();
        fin.paint = row.part;
        fin.initMouseValSide();
        fin.selectsSide(101, 101);
        EXPECT_EQ(drawnColours(area), joined({repeated(4, white), lit(row.lit)}));
        EXPECT_TRUE(fin.selected);
    }
}

TEST_F(TailViews, SideHoverLightsWhatIsUnderThePointer) {
    // Root from x 1700 to 2000 at y -30, tip from 1900 to 2060 at y -330.
    ASSERT_EQ(corners(fin.view.sidePoints),
              (std::vector<Point2D>{{1700, -30}, {2000, -30}, {2060, -330}, {1900, -330}}));
    const struct {
        float x, y;
        int part;
        std::vector<int> segments;
    } rows[] = {
        {1800, -30, 4, {2, 3, 4, 5}}, {2000, -330, 0, {4}},    {2060, -330, 2, {3, 4}},
        {2000, -30, 3, {2, 3}},       {1900, -330, 7, {4, 5}}, {1700, -30, 8, {2, 5}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.part);
        place();
        fin.selectsSide(row.x, row.y);
        EXPECT_EQ(fin.selected_part, row.part);
        EXPECT_TRUE(fin.selected);
        EXPECT_EQ(drawnColours(area), joined({repeated(4, white), lit(row.segments)}));
        fin.selectsSide(0, 0);
        EXPECT_EQ(fin.selected_part, 5);
        EXPECT_FALSE(fin.selected);
    }
}

TEST_F(TailViews, SideHitZonesAreStrictlyLessThanThreePixels) {
    EXPECT_EQ(fin.testPositionSide(1800, -32.9F), 4);
    EXPECT_EQ(fin.testPositionSide(1800, -33), 5);
    EXPECT_EQ(fin.testPositionSide(1697.1F, -30), 8);
    EXPECT_EQ(fin.testPositionSide(1697, -30), 5);
    EXPECT_EQ(fin.testPositionSide(1703, -30), 4);
}

TEST_F(TailViews, AllFourHighlightArgumentsOfTheSideCount) {
    drawSide(2, -1, -1, 5, 4);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), lit({2, 5})}));
    bench.forget();
    drawSide(2, 3, 4, 5, 6);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, project.dimColor)}))
        << "in the background the fin is dim whatever is lit";
}

TEST_F(TailViews, OverAPictureJustPaintedTheSideErasesNothing) {
    Main.view.firstPictureRefresh = true;
    drawSide(-1, -1, -1, -1, 4);
    EXPECT_EQ(drawnColours(area), repeated(4, black));
}

TEST_F(TailViews, RootLeadingCornerKeepsTheTrailingCornerAndTheTip) {
    fin.paint = FinPart::rootLeading;
    fin.initMouseValSide();
    const auto before = corners(fin.view.sidePoints);
    fin.selectsSide(110, 100);
    const auto after = corners(fin.view.sidePoints);
    EXPECT_EQ(after[0].x, before[0].x + 10);
    for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(after[i], before[i]);
}

TEST_F(TailViews, FrontStatesHaveTheirColours) {
    fin.drawFront();
    fin.drawFront(TailView::FrontLook::background);
    fin.drawFront(TailView::FrontLook::erased);
    EXPECT_EQ(drawnColours(area),
              joined({repeated(4, black), repeated(4, project.dimColor), repeated(4, white)}));
    bench.forget();
    Main.view.firstPictureRefresh = true;
    for (const auto look : {TailView::FrontLook::edited, TailView::FrontLook::background,
                            TailView::FrontLook::erased})
        fin.drawFront(look);
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(TailViews, FrontOutlineIsTheSectionAheadWithItsMirrorImageWhenOffset) {
    Rudder.offset1 = 10;
    Rudder.offset2 = -4;
    fin.computeFrontPoints(2, 400, 30);
    fin.drawFront();
    const auto lines = drawnLines(area);
    ASSERT_EQ(lines.size(), 8U);
    // Half the root is 7.5 units thick, half the tip 4.
    EXPECT_EQ(test::penPath(lines, 0, 4),
              (std::vector<Point2D>{{405, -30}, {435, -30}, {420, -330}, {404, -330}, {405, -30}}));
    EXPECT_EQ(test::penPath(lines, 4, 4),
              (std::vector<Point2D>{{395, -30}, {365, -30}, {380, -330}, {396, -330}, {395, -30}}));
}

TEST_F(TailViews, OnlyBothOffsetsAtZeroTakeTheMirrorImageAway) {
    Rudder.offset1 = 0;
    Rudder.offset2 = 5;
    fin.drawFront();
    EXPECT_EQ(area.calls.size(), 8U);
    bench.forget();
    Rudder.offset1 = 5;
    Rudder.offset2 = -5;
    fin.drawFront();
    EXPECT_EQ(area.calls.size(), 8U) << "a tip on the centre line alone is no single fin";
}

TEST_F(TailViews, FrontHitZonesAreItsTwoEdges) {
    // Root from x 385 to 415 at y -30, tip from 392 to 408 at y -330.
    EXPECT_EQ(fin.testPositionFront(400, -30), 4);
    EXPECT_EQ(fin.testPositionFront(400, -27.1F), 4);
    EXPECT_EQ(fin.testPositionFront(400, -27), 5);
    EXPECT_EQ(fin.testPositionFront(385, -30), 5) << "the end itself is outside";
    EXPECT_EQ(fin.testPositionFront(400, -330), 0);
    EXPECT_EQ(fin.testPositionFront(392, -330), 5);
    EXPECT_EQ(fin.testPositionFront(400, -200), 5);
}

TEST_F(TailViews, FrontHoverDrawsWithoutHighlightOnEveryMove) {
    fin.selectsFront(400, -30);
    EXPECT_EQ(fin.selected_part, 4);
    EXPECT_TRUE(fin.selected);
    fin.selectsFront(0, 0);
    EXPECT_EQ(fin.selected_part, 5);
    EXPECT_FALSE(fin.selected);
    EXPECT_EQ(drawnColours(area), repeated(8, black));
}

TEST_F(TailViews, AFrontDragHoversToo) {
    fin.paint = FinPart::rootEdge;
    fin.initMouseValFront();
    fin.selectsFront(110, 100);
    EXPECT_EQ(fin.selected_part, 5) << "the pointer is not on the fin";
    EXPECT_FALSE(fin.selected);
    EXPECT_EQ(Rudder.offset1, 5);
    EXPECT_EQ(drawnColours(area),
              joined({repeated(4, black), repeated(4, white), repeated(8, black)}))
        << "hover, erase without an image, draw with one";
}

TEST_F(TailViews, AMirrorImageVanishesAtOnceWhenADragEndsOnTheCentreLine) {
    Rudder.offset1 = 5;
    fin.paint = FinPart::rootEdge;
    fin.initMouseValFront();
    fin.selectsFront(90, 100);
    EXPECT_EQ(Rudder.offset1, 0);
    EXPECT_EQ(drawnColours(area),
              joined({repeated(8, black), repeated(8, white), repeated(4, black)}));
}

TEST_F(TailViews, VTopDrawsTheRootDimAndNeverErases) {
    Rudder.shift = 0;
    Rudder.offset1 = 3;
    fin.computeVTopPoints(2, 400, 30);
    fin.drawVTop();
    EXPECT_EQ(drawnColours(area), repeated(4, project.dimColor))
        << "one rectangle whatever the offsets";
    EXPECT_EQ(
        test::penPath(drawnLines(area), 0, 4),
        (std::vector<Point2D>{{421, 1330}, {421, 1630}, {391, 1630}, {391, 1330}, {421, 1330}}));
    bench.forget();
    Rudder.shift = 1;
    fin.drawVTop();
    ASSERT_EQ(drawnColours(area), repeated(8, project.dimColor))
        << "a raised root has its mirror image";
    EXPECT_EQ(drawnLines(area)[4].x1, 379);
}

}  // namespace
}  // namespace velna
