#include "support/FreshModel.h"

namespace velna {
namespace {

using Boxes = FreshModel;

void setCount(int count) {
    nbEquipments = static_cast<std::int16_t>(count);
    Equipment::resizeEquipments(project, count);
}

TEST_F(Boxes, DefaultBox) {
    const ElectroBox& box = Equipment::current(project);
    EXPECT_EQ(box.length, 30);
    EXPECT_EQ(box.width, 15);
    EXPECT_EQ(box.height, 25);
    EXPECT_EQ(box.weight, 0);
    EXPECT_EQ(box.pos, 200);
    EXPECT_EQ(box.elevation, 50);
    EXPECT_EQ(box.shift, 5);
    EXPECT_EQ(box.orientation, 0);
    EXPECT_EQ(box.box, BoxKind::servo);
}

TEST_F(Boxes, MadeInAProjectInInchesAreConverted) {
    const ElectroBox box(inches);
    EXPECT_EQ(box.length, 30 / 25.4);
    EXPECT_EQ(box.shift, 5 / 25.4);
}

// The place before the removed box gets a new box too: resizing always renews the last place.
TEST_F(Boxes, RemovingTheLastAlsoRenewsTheOneBefore) {
    setCount(2);
    setCount(3);
    for (int i = 1; i <= 3; ++i) Equipments(i).length = 100 + i;
    currentEquipment = 3;
    --nbEquipments;
    currentEquipment = nbEquipments;
    Equipment::resizeEquipments(project, nbEquipments);
    EXPECT_EQ(Equipments.size(), 2);
    EXPECT_EQ(Equipments(1).length, 101);
    EXPECT_EQ(Equipments(2).length, 30);
    EXPECT_EQ(&Equipment::current(project), &Equipments(2));
}

TEST_F(Boxes, AddingKeepsTheOthers) {
    Equipments(1).length = 101;
    setCount(2);
    EXPECT_EQ(Equipments(1).length, 101);
    EXPECT_EQ(Equipments(2).length, 30);
}

TEST_F(Boxes, SolidOfATurnedBox) {
    ElectroBox& box = Equipments(1);
    box.orientation = 1;
    BoxSolid solid;
    solid.create(box);
    EXPECT_EQ(solid.solidSize(), (Point3D{30, 25, 15}));
    EXPECT_EQ(solid.solidOrigin(), (Point3D{200, -7.5, 50}));
    EXPECT_EQ(solid.centre(), (Point3D{215, 5, 57.5}));
    EXPECT_EQ(box.actualWidth(), 15);
    EXPECT_EQ(box.actualHeight(), 25);
    EXPECT_EQ(box.actualLength(), 30);
    box.orientation = 0;
    solid.create(box);
    EXPECT_EQ(solid.solidSize(), (Point3D{30, 15, 25}));
}

TEST_F(Boxes, KindColours) {
    ElectroBox box(millimetres);
    EXPECT_EQ(box.kindColor(), (Point3D{0, 0, 255}));
    box.box = BoxKind::receiver;
    EXPECT_EQ(box.kindColor(), (Point3D{0, 255, 0}));
    box.box = BoxKind::accumulator;
    EXPECT_EQ(box.kindColor(), (Point3D{255, 0, 0}));
    box.box = 77;
    EXPECT_EQ(box.kindColor(), (Point3D{0, 0, 255}));
}

TEST_F(Boxes, OutlinesOfADefaultBox) {
    ElectroBox box(millimetres);
    const Rectangle side = box.computeSidePoints({2, 7, 400});
    EXPECT_EQ(side[1], (Point2D{407, 300}));
    EXPECT_EQ(side[2], (Point2D{467, 300}));
    EXPECT_EQ(side[3], (Point2D{467, 250}));
    EXPECT_EQ(side[4], (Point2D{407, 250}));
    const Rectangle plan = box.computeHTopPoints({2, 7, 400});
    EXPECT_EQ(plan[1], (Point2D{407, 375}));
    EXPECT_EQ(plan[2], (Point2D{467, 375}));
    EXPECT_EQ(plan[3], (Point2D{467, 405}));
    EXPECT_EQ(plan[4], (Point2D{407, 405}));
}

TEST_F(Boxes, OutlinesOfATurnedBoxExchangeWidthAndHeight) {
    ElectroBox box(millimetres);
    box.orientation = 3;
    const Rectangle side = box.computeSidePoints({});
    EXPECT_EQ(side[3], (Point2D{230, -65}));
    const Rectangle plan = box.computeHTopPoints({});
    EXPECT_EQ(plan[1], (Point2D{200, -17.5}));
    EXPECT_EQ(plan[3], (Point2D{230, 7.5}));
}

TEST_F(Boxes, ConversionLeavesTheWeight) {
    ElectroBox& box = Equipments(1);
    box.weight = 45.1;
    Equipment::equipmentsToInches(project);
    EXPECT_EQ(box.length, 30 / 25.4);
    EXPECT_EQ(box.width, 15 / 25.4);
    EXPECT_EQ(box.height, 25 / 25.4);
    EXPECT_EQ(box.pos, 200 / 25.4);
    EXPECT_EQ(box.elevation, 50 / 25.4);
    EXPECT_EQ(box.shift, 5 / 25.4);
    EXPECT_EQ(box.weight, 45.1);
    Equipment::equipmentsToMillimeters(project);
    EXPECT_DOUBLE_EQ(box.length, 30);
    Equipment::rescaleEquipments(project, 2);
    EXPECT_DOUBLE_EQ(box.elevation, 100);
    EXPECT_EQ(box.weight, 45.1);
}

TEST_F(Boxes, CatalogueRowIsCopiedOntoTheCurrentBox) {
    Equipment::applyCatalogueRow(project, 7);
    const ElectroBox& box = Equipment::current(project);
    EXPECT_EQ(Equipment::servoTypes(millimetres)[7].name, "S3003");
    EXPECT_EQ(box.length, 40.4);
    EXPECT_EQ(box.width, 19.8);
    EXPECT_EQ(box.height, 36);
    EXPECT_EQ(box.weight, 37.2);
    project.units = inches;
    Equipment::applyCatalogueRow(project, 7);
    EXPECT_EQ(box.length, 40.4 / 25.4);
    EXPECT_EQ(box.width, 19.8 / 25.4);
    EXPECT_EQ(box.height, 36 / 25.4);
    EXPECT_EQ(box.weight, 37.2);
}

// A list of another kind selects that row number in the box's own catalogue.
TEST_F(Boxes, CatalogueIsThatOfTheBoxsKind) {
    ElectroBox& box = Equipment::current(project);
    box.box = BoxKind::accumulator;
    EXPECT_EQ(box.length, 30);  // a change of kind alone changes no number
    Equipment::applyCatalogueRow(project, 1);
    EXPECT_EQ(box.length, 130);
    EXPECT_EQ(box.weight, 320);
    Equipment::applyCatalogueRow(project, 7);
    EXPECT_EQ(box.length, 130);
    box.box = BoxKind::receiver;
    Equipment::applyCatalogueRow(project, 0);
    EXPECT_EQ(box.height, 15);
    box.box = 5;
    Equipment::applyCatalogueRow(project, 1);
    Equipment::applyCatalogueRow(project, -1);
    EXPECT_EQ(box.height, 15);
}

}  // namespace
}  // namespace velna
