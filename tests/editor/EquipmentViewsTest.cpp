#include <gtest/gtest.h>

#include "editor/Main.h"
#include "model/Equipment.h"
#include "support/DrawnLines.h"
#include "support/EditorBench.h"
#include "support/HandleRows.h"

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
            Equipments(i).drawSide(Main.zoom, Main.xoff, Main.yoff, 1);
            Equipments(i).drawHTop(Main.zoom, Main.xoff, Main.yoff, 1);
        }
        bench.forget();
    }
    static Box& addBox() {
        Plane::increment(nbEquipments);
        Equipment::resizeEquipments(nbEquipments);
        return Equipments(nbEquipments);
    }
    static std::vector<Point2D> corners(const Rectangle& outline) {
        return {outline.begin() + 1, outline.end()};
    }

    Box& box = Equipments(1);
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
            box, row, boxFields, [&] { box.initMouseValSide(); },
            [&](float x, float y) { box.selectsSide(x, y); });
}

TEST_F(EquipmentViews, HTopDragsMoveAlongOrAcrossNeverBoth) {
    for (const Row& row : htopRows)
        test::expectDrag(
            box, row, boxFields, [&] { box.initMouseValHTop(); },
            [&](float x, float y) { box.selectsHTop(x, y); });
}

TEST_F(EquipmentViews, TheDefaultBoxStandsWhereItsTableSays) {
    EXPECT_EQ(corners(box.sideOutline), (std::vector<Point2D>{{200 * 2 + 400, -50 * 2 + 30},
                                                              {230 * 2 + 400, -50 * 2 + 30},
                                                              {230 * 2 + 400, -75 * 2 + 30},
                                                              {200 * 2 + 400, -75 * 2 + 30}}));
    EXPECT_EQ(corners(box.htopOutline), (std::vector<Point2D>{{800, -12.5 * 2 + 30},
                                                              {860, -12.5 * 2 + 30},
                                                              {860, 2.5 * 2 + 30},
                                                              {800, 2.5 * 2 + 30}}));
    box.orientation = 1;
    place();
    EXPECT_EQ(corners(box.sideOutline)[2].y, -(50 + 15.0) * 2 + 30) << "width upright";
    EXPECT_EQ(corners(box.htopOutline)[0].y, -(5 + 12.5) * 2 + 30) << "height across";
}

TEST_F(EquipmentViews, ADrawingErasesTheOldRectangleAndDrawsTheNew) {
    box.pos = 210;
    box.drawSide(2, 400, 30, 1);
    const auto lines = drawnLines(area);
    ASSERT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, black)}));
    EXPECT_EQ(test::penPath(lines, 0, 4),
              (std::vector<Point2D>{{800, -70}, {860, -70}, {860, -120}, {800, -120}, {800, -70}}));
    EXPECT_EQ(lines[4].x1, 820);
    bench.forget();
    Main.firstPictureRefresh = true;
    box.drawSide(2, 400, 30, 1);
    box.drawHTop(2, 400, 30, 1);
    EXPECT_EQ(area.lines(white), 0);
}

TEST_F(EquipmentViews, StatesOtherThanOneSelectAndOnlyZeroLights) {
    const struct {
        int which;
        Rgb colour;
        bool selected;
    } rows[] = {{1, black, false}, {0, highlightColor, true}, {7, black, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.which);
        box.selected = false;
        bench.forget();
        box.drawSide(2, 400, 30, row.which);
        EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, row.colour)}));
        EXPECT_EQ(box.selected, row.selected);
        box.selected = false;
        bench.forget();
        box.drawHTop(2, 400, 30, row.which);
        EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, row.colour)}));
        EXPECT_EQ(box.selected, row.selected);
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
        EXPECT_EQ(box.testPositionSide(row.x, row.y), row.code) << row.x << " " << row.y;
}

TEST_F(EquipmentViews, OnlyTheEdgeOfTheSmallerShiftCatchesInHTop) {
    EXPECT_EQ(box.testPositionHTop(830, 35), 0);
    EXPECT_EQ(box.testPositionHTop(830, 37.9F), 0);
    EXPECT_EQ(box.testPositionHTop(830, 38), 1);
    EXPECT_EQ(box.testPositionHTop(830, 5), 1) << "the other edge";
    EXPECT_EQ(box.testPositionHTop(830, 20), 1) << "inside";
    EXPECT_EQ(box.testPositionHTop(800, 35), 1);
}

TEST_F(EquipmentViews, HoverLightsAndUnlights) {
    box.selectsSide(830, -70);
    EXPECT_TRUE(box.selected);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, highlightColor)}));
    bench.forget();
    box.selectsSide(830, 0);
    EXPECT_FALSE(box.selected);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, black)}));
    bench.forget();
    box.selectsHTop(830, 35);
    EXPECT_TRUE(box.selected);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, highlightColor)}));
}

TEST_F(EquipmentViews, AHoverThatMovesAStaleOutlineAwayIsTestedAgain) {
    // The outline is that of an older drawing; the lit drawing places it afresh, away from the
    // pointer.
    box.pos = 400;
    box.selectsSide(830, -70);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, highlightColor),
                                          repeated(4, white), repeated(4, black)}));
    EXPECT_FALSE(box.selected);
}

TEST_F(EquipmentViews, ADragIsLit) {
    box.paint = 0;
    box.initMouseValSide();
    box.selectsSide(110, 100);
    EXPECT_EQ(drawnColours(area), joined({repeated(4, white), repeated(4, highlightColor)}));
    EXPECT_EQ(box.pos, 205);
}

TEST_F(EquipmentViews, AMissedBoxKeepsItsStartValue) {
    box.initval = 77;
    box.paint = 1;
    box.initMouseValSide();
    box.initMouseValHTop();
    EXPECT_EQ(box.initval, 77);
}

TEST_F(EquipmentViews, ShiftInHTopLeavesTheElevation) {
    box.paint = 0;
    Main.shiftkey = true;
    box.initMouseValHTop();
    box.selectsHTop(100, 90);
    EXPECT_EQ(box.shift, 10);
    EXPECT_EQ(box.elevation, 50);
    EXPECT_EQ(box.pos, 200);
}

TEST_F(EquipmentViews, TheCurrentBoxHasPriorityOverOneBeneathIt) {
    addBox();
    addBox();
    currentEquipment = 2;
    place();
    Equipments(3).paint = 0;
    Equipment::testEquipmentsSide(830, -70);
    EXPECT_EQ(Equipments(2).paint, 0);
    EXPECT_EQ(Equipments(1).paint, 1) << "not asked";
    EXPECT_EQ(Equipments(3).paint, 0) << "keeps what it had";
}

TEST_F(EquipmentViews, APressThatMissesTheCurrentBoxTakesAllOthersUnderIt) {
    Box& second = addBox();
    Box& third = addBox();
    second.pos = third.pos = 600;
    currentEquipment = 1;
    place();
    const auto x = static_cast<float>(second.htopOutline[1].x) + 10;
    Equipment::testEquipmentsHTop(x, 35);
    EXPECT_EQ(box.paint, 1);
    EXPECT_EQ(second.paint, 0);
    EXPECT_EQ(third.paint, 0);
    Equipment::initMouseValEquipmentsHTop();
    Equipment::selectsEquipmentsHTop(110, 100);
    EXPECT_EQ(box.pos, 200);
    EXPECT_EQ(second.pos, 605);
    EXPECT_EQ(third.pos, 605);
    Equipment::unpaintEquipments();
    Equipment::testEquipmentsSide(x, -70);
    Equipment::initMouseValEquipmentsSide();
    Equipment::selectsEquipmentsSide(90, 100);
    EXPECT_EQ(second.pos, 600);
}

TEST_F(EquipmentViews, ListDrawingsDrawEveryBoxPlainlyInListOrder) {
    addBox().pos = 300;
    place();
    Equipment::drawEquipmentsSide(2, 400, 30);
    auto lines = drawnLines(area);
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[4].x1, 800);
    EXPECT_EQ(lines[12].x1, 1000);
    EXPECT_EQ(area.lines(highlightColor), 0);
    bench.forget();
    Equipment::drawEquipmentsHTop(2, 400, 30);
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
    EXPECT_FALSE(Equipment::equipmentHit());

    // Where the box would be caught in the side view.
    Main.initSideView();
    const Point2D one = Equipments(1).sideOutline[1];
    const Point2D two = Equipments(1).sideOutline[2];
    const auto x = static_cast<float>((one.x + two.x) / 2);
    const auto y = static_cast<float>(one.y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    ASSERT_TRUE(Equipment::equipmentHit());
    Main.DrawArea_MouseUp(1, 0, x, y);
    for (const auto& enter : {&MainForm::initFrontView, &MainForm::initVTopView}) {
        (Main.*enter)();
        Main.DrawArea_MouseDown(1, 0, x, y);
        EXPECT_FALSE(Equipment::equipmentHit());
        Main.DrawArea_MouseUp(1, 0, x, y);
    }
}

}  // namespace
}  // namespace velna
