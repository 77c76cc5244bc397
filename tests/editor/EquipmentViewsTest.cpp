#include <gtest/gtest.h>

#include "model/Equipment.h"
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
using Box = ElectroBox;
using Row = test::HandleRow<Box>;

const std::vector<double Box::*> boxFields{&Box::length,    &Box::width, &Box::height, &Box::weight,
                                           &Box::elevation, &Box::pos,   &Box::shift};

class EquipmentViews : public test::EditorTest {
protected:
    void SetUp() override { place(); }
    void place() {
        test::preparePress();
        for (int i = 1; i <= nbEquipments; ++i) {
            test::BoxOnSurface(i).drawSide(Main.view.zoom, Main.view.xoff, Main.view.yoff);
            test::BoxOnSurface(i).drawHTop(Main.view.zoom, Main.view.xoff, Main.view.yoff);
        }
        bench.forget();
    }
    static Box& addBox() {
        Plane::increment(nbEquipments);
        Equipment::resizeEquipments(project, nbEquipments);
        return Equipments(nbEquipments);
    }
    static std::vector<Point2D> corners(const Rectangle& outline) {
        return {outline.begin() + 1, outline.end()};
    }

    Box& box = Equipments(1);
    test::BoxOnSurface part{1};
};

const std::vector<Row> sideRows{
    {"along", 0, false, {{&Box::pos, 3}}, {}},
    {"Shift: up", 0, true, {{&Box::elevation, -5}}, {}},
    {"missed", 1, false, {}, {}},
    {"missed, Shift", 1, true, {}, {}},
};

const std::vector<Row> htopRows{
    {"along", 0, false, {{&Box::pos, 3}}, {}},
    {"Shift: across", 0, true, {{&Box::shift, -5}}, {}},
    {"missed", 1, false, {}, {}},
};

TEST_F(EquipmentViews, SideDragsMoveAlongOrUpNeverBoth) {
    for (const Row& row : sideRows)
        test::expectDrag(
            part, box, row, boxFields, [&] { part.initMouseValSide(); },
            [&](float x, float y) { part.selectsSide(x, y); });
}

TEST_F(EquipmentViews, HTopDragsMoveAlongOrAcrossNeverBoth) {
    for (const Row& row : htopRows)
        test::expectDrag(
            part, box, row, boxFields, [&] { part.initMouseValHTop(); },
            [&](float x, float y) { part.selectsHTop(x, y); });
}

TEST_F(EquipmentViews, TheDefaultBoxStandsWhereItsTableSays) {
    EXPECT_EQ(corners(part.view.sideOutline),
              (std::vector<Point2D>{{200 * 2 + 400, -50 * 2 + 30},
                                    {230 * 2 + 400, -50 * 2 + 30},
                                    {230 * 2 + 400, -75 * 2 + 30},
                                    {200 * 2 + 400, -75 * 2 + 30}}));
    EXPECT_EQ(corners(part.view.htopOutline), (std::vector<Point2D>{{800, -12.5 * 2 + 30},
                                                                    {860, -12.5 * 2 + 30},
                                                                    {860, 2.5 * 2 + 30},
                                                                    {800, 2.5 * 2 + 30}}));
    box.orientation = 1;
    place();
    EXPECT_EQ(corners(part.view.sideOutline)[2].y, -(50 + 15.0) * 2 + 30) << "width upright";
    EXPECT_EQ(corners(part.view.htopOutline)[0].y, -(5 + 12.5) * 2 + 30) << "height across";
}

TEST_F(EquipmentViews, ADrawingErasesTheOldRectangleAndDrawsTheNew) {
    box.pos = 210;
    part.drawSide(2, 400, 30);
    const auto lines = drawnLines(area);
    ASSERT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, black)}));
    EXPECT_EQ(test::penPath(lines, 0, 4),
              (std::vector<Point2D>{{800, -70}, {860, -70}, {860, -120}, {800, -120}, {800, -70}}));
    EXPECT_EQ(lines[4].x1, 820);
    bench.forget();
    Main.view.firstPictureRefresh = true;
    part.drawSide(2, 400, 30);
    part.drawHTop(2, 400, 30);
    EXPECT_EQ(area.lines(white), 0);
}

TEST_F(EquipmentViews, ALitBoxIsSelected) {
    const struct {
        bool lit;
        Rgb colour;
    } rows[] = {{false, black}, {true, project.highlightColor}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lit);
        part.selected = false;
        bench.forget();
        part.drawSide(2, 400, 30, row.lit);
        EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, row.colour)}));
        EXPECT_EQ(part.selected, row.lit);
        part.selected = false;
        bench.forget();
        part.drawHTop(2, 400, 30, row.lit);
        EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, row.colour)}));
        EXPECT_EQ(part.selected, row.lit);
    }
}

TEST_F(EquipmentViews, OnlyTheUndersideCatchesInSide) {
    const struct {
        float x, y;
        int code;
    } rows[] = {
        {830, -68, 0},    {830, -67, 1}, {830, -72.9F, 0}, {830, -73, 1}, {800, -70, 1},
        {800.1F, -70, 0}, {860, -70, 1}, {859.9F, -70, 0}, {830, -95, 1},  // inside the rectangle
        {830, -120, 1},                                                    // the upper side
    };
    for (const auto& row : rows)
        EXPECT_EQ(part.testPositionSide(row.x, row.y), row.code) << row.x << " " << row.y;
}

TEST_F(EquipmentViews, OnlyTheEdgeOfTheSmallerShiftCatchesInHTop) {
    EXPECT_EQ(part.testPositionHTop(830, 35), 0);
    EXPECT_EQ(part.testPositionHTop(830, 37.9F), 0);
    EXPECT_EQ(part.testPositionHTop(830, 38), 1);
    EXPECT_EQ(part.testPositionHTop(830, 5), 1) << "the other edge";
    EXPECT_EQ(part.testPositionHTop(830, 20), 1) << "inside";
    EXPECT_EQ(part.testPositionHTop(800, 35), 1);
}

TEST_F(EquipmentViews, HoverLightsAndUnlights) {
    part.selectsSide(830, -70);
    EXPECT_TRUE(part.selected);
    EXPECT_EQ(drawnColours(area),
              joined({repeated(4, white), repeated(4, project.highlightColor)}));
    bench.forget();
    part.selectsSide(830, 0);
    EXPECT_FALSE(part.selected);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, black)}));
    bench.forget();
    part.selectsHTop(830, 35);
    EXPECT_TRUE(part.selected);
    EXPECT_EQ(drawnColours(area),
              joined({repeated(4, white), repeated(4, project.highlightColor)}));
}

TEST_F(EquipmentViews, AHoverThatMovesAStaleOutlineAwayIsTestedAgain) {
    // The outline is that of an older drawing; the lit drawing places it afresh, away from the
    // pointer.
    box.pos = 400;
    part.selectsSide(830, -70);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, project.highlightColor),
                                          repeated(4, white), repeated(4, black)}));
    EXPECT_FALSE(part.selected);
}

TEST_F(EquipmentViews, ADragIsLit) {
    part.paint = 0;
    part.initMouseValSide();
    part.selectsSide(110, 100);
    EXPECT_EQ(drawnColours(area),
              joined({repeated(4, white), repeated(4, project.highlightColor)}));
    EXPECT_EQ(box.pos, 205);
}

TEST_F(EquipmentViews, AMissedBoxKeepsItsStartValue) {
    part.initval = 77;
    part.paint = 1;
    part.initMouseValSide();
    part.initMouseValHTop();
    EXPECT_EQ(part.initval, 77);
}

TEST_F(EquipmentViews, ShiftInHTopLeavesTheElevation) {
    part.paint = 0;
    Main.pointer.shiftkey = true;
    part.initMouseValHTop();
    part.selectsHTop(100, 90);
    EXPECT_EQ(box.shift, 10);
    EXPECT_EQ(box.elevation, 50);
    EXPECT_EQ(box.pos, 200);
}

TEST_F(EquipmentViews, TheCurrentBoxHasPriorityOverOneBeneathIt) {
    addBox();
    addBox();
    currentEquipment = 2;
    place();
    Main.views.boxes(3).grip.paint = 0;
    Main.views.testEquipmentsSide(Main.pointer.at(830, -70));
    EXPECT_EQ(Main.views.boxes(2).grip.paint, 0);
    EXPECT_EQ(Main.views.boxes(1).grip.paint, 1) << "not asked";
    EXPECT_EQ(Main.views.boxes(3).grip.paint, 0) << "keeps what it had";
}

TEST_F(EquipmentViews, APressThatMissesTheCurrentBoxTakesAllOthersUnderIt) {
    Box& second = addBox();
    Box& third = addBox();
    const test::BoxOnSurface secondPart{2};
    const test::BoxOnSurface thirdPart{3};
    second.pos = third.pos = 600;
    currentEquipment = 1;
    place();
    const auto x = static_cast<float>(secondPart.view.htopOutline[1].x) + 10;
    Main.views.testEquipmentsHTop(Main.pointer.at(x, 35));
    EXPECT_EQ(part.paint, 1);
    EXPECT_EQ(secondPart.paint, 0);
    EXPECT_EQ(thirdPart.paint, 0);
    Main.views.selectsEquipmentsHTop(Main.canvas(), Main.pointer.at(110, 100));
    EXPECT_EQ(box.pos, 200);
    EXPECT_EQ(second.pos, 605);
    EXPECT_EQ(third.pos, 605);
    Main.views.letGoOfBoxes();
    Main.views.testEquipmentsSide(Main.pointer.at(x, -70));
    Main.views.selectsEquipmentsSide(Main.canvas(), Main.pointer.at(90, 100));
    EXPECT_EQ(second.pos, 600);
}

TEST_F(EquipmentViews, ListDrawingsDrawEveryBoxPlainlyInListOrder) {
    addBox().pos = 300;
    place();
    Main.views.drawEquipmentsSide(test::canvasAt(2, 400, 30));
    auto lines = drawnLines(area);
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[4].x1, 800);
    EXPECT_EQ(lines[12].x1, 1000);
    EXPECT_EQ(area.lines(project.highlightColor), 0);
    bench.forget();
    Main.views.drawEquipmentsHTop(test::canvasAt(2, 400, 30));
    lines = drawnLines(area);
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[12].x1, 1000);
}

TEST_F(EquipmentViews, BoxesAreNeitherDrawnNorHitFromAboveAndAhead) {
    Main.initVTopView();
    const auto vtop = area.calls.size();
    bench.forget();
    addBox();
    Main.initVTopView();
    EXPECT_EQ(area.calls.size(), vtop);
    Main.selectTab(PanelTab::electronics);
    Main.DrawArea_MouseDown(1, 0, 830, -70);
    EXPECT_FALSE(Main.views.boxHit());

    // Where the box would be caught in the side view.
    Main.initSideView();
    const Point2D one = Main.views.boxes(1).sideOutline[1];
    const Point2D two = Main.views.boxes(1).sideOutline[2];
    const auto x = static_cast<float>((one.x + two.x) / 2);
    const auto y = static_cast<float>(one.y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    ASSERT_TRUE(Main.views.boxHit());
    Main.DrawArea_MouseUp(1, 0, x, y);
    for (const auto& enter : {&MainForm::initFrontView, &MainForm::initVTopView}) {
        (Main.*enter)();
        Main.DrawArea_MouseDown(1, 0, x, y);
        EXPECT_FALSE(Main.views.boxHit());
        Main.DrawArea_MouseUp(1, 0, x, y);
    }
}

}  // namespace
}  // namespace velna
