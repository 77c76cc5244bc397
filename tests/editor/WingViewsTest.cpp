#include <limits>

#include <gtest/gtest.h>

#include "model/Plane.h"
#include "support/Drag.h"
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
using Wing = SymWingSections;
using Row = test::HandleRow<Wing>;

const std::vector<double Wing::*> wingFields{
    &Wing::span, &Wing::length1, &Wing::length2,    &Wing::thickness1, &Wing::thickness2,
    &Wing::pos1, &Wing::pos2,    &Wing::elevation1, &Wing::elevation2, &Wing::shift};

class WingViews : public test::EditorTest {
protected:
    /// Draws the wing plainly in both views at two pixels a unit and forgets the drawing.
    void place() {
        test::preparePress();
        part.drawFront(Main.view.zoom, Main.view.xoff, Main.view.yoff);
        part.drawVTop(Main.view.zoom, Main.view.xoff, Main.view.yoff);
        part.selected = false;
        bench.forget();
    }
    /// Colours of the four segments of the wing half in a drawing that has erased first.
    std::vector<Rgb> halfColours() const {
        const auto all = drawnColours(area);
        return {all.at(8), all.at(9), all.at(10), all.at(11)};
    }
    static std::vector<Rgb> lit(const std::vector<int>& segments, Rgb plain = black) {
        auto colours = repeated(4, plain);
        for (int segment : segments)
            colours[static_cast<std::size_t>(segment - 2)] = project.highlightColor;
        return colours;
    }

    Wing& wing = Wings(1);
    test::WingOnSurface part{1};
};

const std::vector<Row> frontRows{
    {"root", 4, false, {{&Wing::elevation1, -5}}, {2, 3, 4}},
    {"root, Shift", 4, true, {{&Wing::shift, 3}}, {2, 3, 4}},
    {"tip", 0, false, {{&Wing::elevation2, -5}}, {3}},
    {"tip, Shift", 0, true, {{&Wing::span, 3}}, {3}},
    {"codes of the plan are none here", 2, false, {}, {}},
    {"nor with Shift", 7, true, {}, {}},
};

const std::vector<Row> vtopRows{
    {"tip", 0, false, {{&Wing::pos2, 5}}, {3}},
    {"tip, Shift", 0, true, {{&Wing::span, 3}}, {3}},
    {"root", 4, false, {{&Wing::pos1, 5}}, {2, 3, 4}},
    {"root, Shift", 4, true, {{&Wing::shift, 3}}, {2, 3, 4}},
    {"tip trailing", 2, false, {{&Wing::length2, 5}}, {3, 4}},
    {"tip trailing, Shift", 2, true, {{&Wing::length2, 5}}, {3, 4}},
    {"root trailing", 3, false, {{&Wing::length1, 5}}, {4, 5}},
    {"root trailing, Shift", 3, true, {{&Wing::length1, 5}}, {4, 5}},
    {"tip leading", 6, false, {{&Wing::length2, -5}, {&Wing::pos2, 5}}, {2, 3}},
    {"tip leading, Shift", 6, true, {{&Wing::length2, -5}, {&Wing::pos2, 5}}, {2, 3}},
    {"root leading", 7, false, {{&Wing::length1, -5}, {&Wing::pos1, 5}, {&Wing::pos2, -5}}, {2, 5}},
    {"root leading, Shift",
     7,
     true,
     {{&Wing::length1, -5}, {&Wing::pos1, 5}, {&Wing::pos2, -5}},
     {2, 5}},
};

TEST_F(WingViews, FrontDragsChangeTheFieldsOfTheirRowAndComeBack) {
    for (const Row& row : frontRows)
        test::expectDrag(
            part, wing, row, wingFields, [&] { part.initMouseValFront(); },
            [&](float x, float y) { part.selectsFront(x, y); });
}

TEST_F(WingViews, VTopDragsChangeTheFieldsOfTheirRowAndComeBack) {
    for (const Row& row : vtopRows)
        test::expectDrag(
            part, wing, row, wingFields, [&] { part.initMouseValVTop(); },
            [&](float x, float y) { part.selectsVTop(x, y); });
}

TEST_F(WingViews, ADragLightsTheSegmentsOfItsRow) {
    for (const Row& row : vtopRows) {
        SCOPED_TRACE(row.name);
        place();
        part.paint = row.part;
        part.initMouseValVTop();
        part.selectsVTop(101, 101);
        EXPECT_EQ(drawnColours(area),
                  joined({repeated(8, white), lit(row.lit), repeated(4, black)}));
        EXPECT_TRUE(part.selected);
    }
    for (const Row& row : frontRows) {
        SCOPED_TRACE(row.name);
        place();
        part.paint = row.part;
        part.initMouseValFront();
        part.selectsFront(101, 101);
        if (row.changes.empty())
            EXPECT_TRUE(area.calls.empty());
        else
            EXPECT_EQ(halfColours(), lit(row.lit));
    }
}

TEST_F(WingViews, HoverLightsWhatIsUnderThePointer) {
    place();
    // Root at x 400, leading edge at y 390, trailing edge at 850; tip at x 1800, y 410 to 710.
    const struct {
        float x, y;
        int part;
        std::vector<int> segments;
    } rows[] = {
        {400, 600, 4, {2, 3, 4}}, {1800, 500, 0, {3}},    {1800, 710, 2, {3, 4}},
        {400, 850, 3, {4, 5}},    {1800, 410, 6, {2, 3}}, {400, 390, 7, {2, 5}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.part);
        place();
        part.selectsVTop(row.x, row.y);
        EXPECT_EQ(part.selected_part, row.part);
        EXPECT_TRUE(part.selected);
        EXPECT_EQ(halfColours(), lit(row.segments));
        part.selectsVTop(1000, 100);
        EXPECT_EQ(part.selected_part, 5);
        EXPECT_FALSE(part.selected);
        EXPECT_EQ(wing.span, 700) << "a hover edits nothing";
    }
}

TEST_F(WingViews, TheRootEdgeItselfIsNotLitByItsOwnHover) {
    place();
    part.selectsFront(400, static_cast<float>(part.view.frontPoints[1].y) - 5);
    ASSERT_EQ(part.selected_part, WingPart::rootEdge);
    EXPECT_EQ(halfColours(), lit({2, 3, 4}));
}

TEST_F(WingViews, TheFourthHighlightArgumentIsNotLookedAt) {
    place();
    part.drawVTop(Main.view.zoom, Main.view.xoff, Main.view.yoff, {-1, -1, -1, 3});
    EXPECT_EQ(halfColours(), lit({}));
    EXPECT_FALSE(part.selected) << "only the first argument selects";
    place();
    part.drawVTop(Main.view.zoom, Main.view.xoff, Main.view.yoff, {2, 3, 4, 5});
    EXPECT_EQ(halfColours(), lit({2, 3, 4}));
    EXPECT_TRUE(part.selected);
    part.drawVTop(Main.view.zoom, Main.view.xoff, Main.view.yoff);
    EXPECT_TRUE(part.selected) << "a plain drawing does not unselect";
}

TEST_F(WingViews, StateEightDimsThePlanBothHalves) {
    place();
    part.drawVTop(Main.view.zoom, Main.view.xoff, Main.view.yoff, {3, -1, -1, -1}, true);
    EXPECT_EQ(drawnColours(area), joined({repeated(8, white), lit({3}, project.dimColor),
                                          repeated(4, project.dimColor)}));
}

TEST_F(WingViews, TheOutlinesStandWhereTheTransformPutsThem) {
    place();
    part.drawVTop(2, 400, 30);
    const auto plan = drawnLines(area);
    EXPECT_EQ(test::penPath(plan, 8, 4),
              (std::vector<Point2D>{{400, 390}, {1800, 410}, {1800, 710}, {400, 850}, {400, 390}}));
    EXPECT_EQ(
        test::penPath(plan, 12, 4),
        (std::vector<Point2D>{{400, 390}, {-1000, 410}, {-1000, 710}, {400, 850}, {400, 390}}));
    wing.thickness1 = 0.2;
    wing.thickness2 = 0.1;
    wing.elevation2 = 10;
    bench.forget();
    part.drawFront(2, 400, 30);
    const auto front = test::penPath(drawnLines(area), 8, 4);
    ASSERT_EQ(front.size(), 5U);
    EXPECT_EQ(front[0], (Point2D{400, -(50 - 23.0) * 2 + 30}));
    EXPECT_EQ(front[1], (Point2D{1800, -(60 - 7.5) * 2 + 30}));
    EXPECT_EQ(front[2], (Point2D{1800, -(60 + 7.5) * 2 + 30}));
    EXPECT_EQ(front[3], (Point2D{400, -(50 + 23.0) * 2 + 30}));
    EXPECT_EQ(front[4], front[0]);
}

TEST_F(WingViews, ErasesWithTheOldPointsAndDrawsWithTheNew) {
    place();
    part.drawVTop(2, 400, 30);
    const auto first = drawnLines(area);
    bench.forget();
    wing.pos1 += 10;
    part.drawVTop(2, 400, 30);
    const auto second = drawnLines(area);
    ASSERT_EQ(second.size(), 16U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(second[i].y1, first[8 + i].y1);
        EXPECT_EQ(second[i].colour, white);
        EXPECT_EQ(second[8 + i].y1, first[8 + i].y1 + 20);
    }
}

TEST_F(WingViews, PanelsThatAFileOnlyPromisesAreErasedWhereTheFirstOfThemWasDrawn) {
    project.nbWings = 3;
    const Wing pattern = wing;
    Wings.fill(3, pattern);
    Main.refreshDrawingArea();
    const Point2D tip = Main.views.wings(1).vtopPoints[3];
    bench.forget();
    const auto x = static_cast<float>(tip.x);
    const auto y = static_cast<float>(tip.y);
    test::drag(Main).press(x, y).move(x, y + 10);
    for (int i = 1; i <= 3; ++i) EXPECT_FALSE(Wings.promised(i)) << i;
    std::size_t erased = 0;
    for (const auto& drawn : drawnLines(area))
        if (drawn.colour == white && (drawn.y1 == tip.y || drawn.y2 == tip.y)) ++erased;
    EXPECT_EQ(erased % 3, 0U);
    EXPECT_GE(erased, 6U) << "two lines of each panel meet at the tip's corner";
}

TEST_F(WingViews, OverAPictureJustPaintedNothingIsErased) {
    place();
    Main.view.firstPictureRefresh = true;
    part.drawVTop(2, 400, 30);
    part.drawFront(2, 400, 30);
    EXPECT_EQ(area.lines(white), 0);
    EXPECT_EQ(area.lines(black), 16);
}

TEST_F(WingViews, HitZonesAreStrictlyLessThanThreePixelsAndBetweenTheEnds) {
    place();
    EXPECT_EQ(part.testPositionVTop(402.9F, 600), 4);
    EXPECT_EQ(part.testPositionVTop(397.1F, 600), 4);
    EXPECT_EQ(part.testPositionVTop(403, 600), 5);
    EXPECT_EQ(part.testPositionVTop(397, 600), 5);
    EXPECT_EQ(part.testPositionVTop(403, 852), 5);
    EXPECT_EQ(part.testPositionVTop(402, 852.9F), 3) << "a corner reaches past the edge";
    EXPECT_EQ(part.testPositionVTop(402, 853), 5);
    EXPECT_EQ(part.testPositionVTop(402, 393), 4) << "the edge begins where the corner ends";
    EXPECT_EQ(part.testPositionVTop(402, 387), 5);

    const auto lower = static_cast<float>(part.view.frontPoints[1].y);
    const auto upper = static_cast<float>(part.view.frontPoints[4].y);
    EXPECT_EQ(part.testPositionFront(400, lower), 5) << "the end's own row is outside";
    EXPECT_EQ(part.testPositionFront(400, upper), 5);
    EXPECT_EQ(part.testPositionFront(400, (lower + upper) / 2), 4);
    EXPECT_EQ(part.testPositionFront(403, (lower + upper) / 2), 5);
    EXPECT_EQ(part.testPositionFront(1800, (lower + upper) / 2), 0);
}

TEST_F(WingViews, AWingWithoutThicknessCannotBeHitFromAhead) {
    wing.thickness1 = wing.thickness2 = 0;
    place();
    for (float y = -200; y < 200; y += 0.5F) {
        EXPECT_EQ(part.testPositionFront(400, y), 5);
        EXPECT_EQ(part.testPositionFront(1800, y), 5);
    }
}

TEST_F(WingViews, ANegativeSpanIsHitWhereItsTipIsDrawn) {
    wing.span = -100;
    place();
    EXPECT_EQ(part.testPositionVTop(202.9F, 500), 0);
    EXPECT_EQ(part.testPositionVTop(203, 500), 5);
}

TEST_F(WingViews, ShiftPressedInMidDragGoesOnWithTheOtherField) {
    place();
    part.paint = WingPart::tipEdge;
    part.initMouseValVTop();
    ASSERT_EQ(part.initval, 10) << "pos2";
    Main.pointer.shiftkey = true;
    part.selectsVTop(104, 100);
    EXPECT_EQ(wing.span, 12) << "pos2's start value on the span";
    EXPECT_EQ(wing.pos2, 10);
}

TEST_F(WingViews, AResultThatIsNoNumberLeavesTheField) {
    place();
    part.paint = WingPart::tipEdge;
    part.initMouseValVTop();
    Main.view.zoom = 0;
    part.selectsVTop(100, 100);
    EXPECT_EQ(wing.pos2, 10) << "0 / 0";
    part.selectsVTop(100, 200);
    EXPECT_EQ(wing.pos2, 10) << "beyond all numbers";
    Main.view.zoom = 2;
    part.selectsVTop(100, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(wing.pos2, 10);
}

TEST_F(WingViews, AHalfPixelPressKeepsItsHalf) {
    test::preparePress();
    part.paint = WingPart::tipTrailing;
    part.initMouseValVTop();
    part.selectsVTop(100, 100.5F);
    EXPECT_EQ(wing.length2, 150.25);
}

TEST_F(WingViews, SideShowsTheClosedRootSectionDim) {
    part.view.sidePoints = wing.computeSidePoints({2, 400, 30});
    bench.forget();
    part.view.drawSide(Main.canvas(), wing);
    EXPECT_EQ(drawnColours(area), repeated(16, project.dimColor));
    const auto path = test::penPath(drawnLines(area), 0, 16);
    for (int i = 1; i <= 16; ++i)
        EXPECT_EQ(path[static_cast<std::size_t>(i - 1)], part.view.sidePoints(i));
    EXPECT_EQ(path.back(), path.front());
}

TEST_F(WingViews, HTopShowsBothHalvesDim) {
    part.view.htopPoints = wing.computeHTopPoints({2, 400, 30});
    bench.forget();
    part.view.drawHTop(Main.canvas());
    EXPECT_EQ(drawnColours(area), repeated(8, project.dimColor));
    const auto lines = drawnLines(area);
    EXPECT_EQ(lines[0].x1, 2 * 180.0 + 400);
    EXPECT_EQ(lines[2].y1, 30 - 2 * 700.0);
    EXPECT_EQ(lines[6].y1, 30 + 2 * 700.0);
}

TEST_F(WingViews, AWingThatPromisesMorePointsThanItsAirfoilHoldsDrawsThoseThereAre) {
    wing.nb = 40;
    part.view.sidePoints = wing.computeSidePoints({2, 400, 30});
    bench.forget();
    part.view.drawSide(Main.canvas(), wing);
    EXPECT_EQ(area.calls.size(), 16U);
}

TEST_F(WingViews, AnyNumberInTheModelIsDrawnOrSkipped) {
    for (double value : {0.0, -1.0, 1e308, -1e308, 5e-324}) {
        for (auto field : wingFields) wing.*field = value;
        part.drawFront(2, 400, 30);
        part.drawVTop(2, 400, 30);
        part.selectsVTop(100, 100);
        part.selectsFront(100, 100);
        EXPECT_EQ(part.paint, 5);
    }
}

}  // namespace
}  // namespace velna
