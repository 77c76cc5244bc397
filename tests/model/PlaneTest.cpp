#include "support/FreshModel.h"

namespace velna {
namespace {

using Aircraft = FreshModel;

void expectPanel(const SymWingSections& panel, const std::array<double, 8>& lengths) {
    EXPECT_EQ(panel.pos1, lengths[0]);
    EXPECT_EQ(panel.pos2, lengths[1]);
    EXPECT_EQ(panel.span, lengths[2]);
    EXPECT_EQ(panel.length1, lengths[3]);
    EXPECT_EQ(panel.length2, lengths[4]);
    EXPECT_EQ(panel.elevation1, lengths[5]);
    EXPECT_EQ(panel.elevation2, lengths[6]);
    EXPECT_EQ(panel.shift, lengths[7]);
    EXPECT_EQ(panel.nb, 16);
    EXPECT_EQ(panel.thickness1, 0.13);
    EXPECT_EQ(panel.thickness2, 0.13);
    EXPECT_EQ(panel.texture_filename(), "");
    EXPECT_EQ(panel.color(), (Point3D{200, 200, 200}));
}

TEST_F(Aircraft, DefaultAircraftHasOneOfEachList) {
    EXPECT_EQ(nbWings, 1);
    EXPECT_EQ(currentWing, 1);
    EXPECT_EQ(nbFuselages, 1);
    EXPECT_EQ(currentFuselage, 1);
    EXPECT_EQ(nbEquipments, 1);
    EXPECT_EQ(currentEquipment, 1);
    EXPECT_EQ(project.units, millimetres);
    EXPECT_EQ(project.dimColor, (Rgb{0, 0, 255}));
    EXPECT_EQ(project.highlightColor, (Rgb{255, 255, 0}));
    EXPECT_EQ(project.projectDirectory, "");
}

TEST_F(Aircraft, DefaultPanelsHaveTheirLengths) {
    expectPanel(Wings(1), {180, 10, 700, 230, 150, 50, 0, 0});
    expectPanel(Stabilizer, {650, 40, 250, 130, 80, 50, 0, 0});
}

TEST_F(Aircraft, DefaultFinHasItsLengths) {
    EXPECT_EQ(Rudder.span, 150);
    EXPECT_EQ(Rudder.length1, 150);
    EXPECT_EQ(Rudder.length2, 80);
    EXPECT_EQ(Rudder.thickness1, 0.1);
    EXPECT_EQ(Rudder.thickness2, 0.1);
    EXPECT_EQ(Rudder.pos1, 650);
    EXPECT_EQ(Rudder.pos2, 100);
    EXPECT_EQ(Rudder.shift, 30);
    EXPECT_EQ(Rudder.nb, 16);
    EXPECT_EQ(Rudder.color(), (Point3D{200, 200, 200}));
}

TEST_F(Aircraft, ResetTakesBackEveryChange) {
    nbWings = 3;
    MainWing::allocateWings(project);
    currentWing = 3;
    Wings(1).span = 5;
    Stabilizer.span = 6;
    Stabilizer.set_texture_filename("tail.bmp");
    Rudder.span = 7;
    Fuselages(1).width(2) = 8;
    Equipments(1).length = 9;
    project.defaultColor = {1, 2, 3};
    project.dimColor = black;
    project.projectDirectory = "somewhere/";
    Plane::setDefaultPlane(project);
    EXPECT_EQ(nbWings, 1);
    EXPECT_EQ(currentWing, 1);
    expectPanel(Wings(1), {180, 10, 700, 230, 150, 50, 0, 0});
    expectPanel(Stabilizer, {650, 40, 250, 130, 80, 50, 0, 0});
    EXPECT_EQ(Rudder.span, 150);
    EXPECT_EQ(Fuselages(1).width(2), 100);
    EXPECT_EQ(Equipments(1).length, 30);
    EXPECT_EQ(project.defaultColor, (Point3D{200, 200, 200}));
    EXPECT_EQ(Rudder.color(), project.defaultColor);
    EXPECT_EQ(Fuselages(1).color(), project.defaultColor);
    EXPECT_EQ(project.dimColor, palette[9]);
    EXPECT_EQ(project.projectDirectory, "");
}

// `init` alone keeps the offsets: a twin fin must not come back on the next aircraft.
TEST_F(Aircraft, ResetPutsTheFinBackOnTheCentreLine) {
    Rudder.offset1 = 40;
    Rudder.offset2 = -3;
    Plane::setDefaultPlane(project);
    EXPECT_EQ(Rudder.offset1, 0);
    EXPECT_EQ(Rudder.offset2, 0);
}

// Panels are given in millimetres; bodies and boxes convert themselves when they are made.
TEST_F(Aircraft, ResetInInchesConvertsBodiesAndBoxesAlone) {
    project.units = inches;
    Plane::setDefaultPlane(project);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Stabilizer.span, 250);
    EXPECT_EQ(Rudder.span, 150);
    EXPECT_EQ(Fuselages(1).width(2), 100 / 25.4);
    EXPECT_EQ(Equipments(1).length, 30 / 25.4);
    EXPECT_EQ(Equipment::servoTypes(project.units)[0].length, 25 / 25.4);
}

TEST_F(Aircraft, RescaleMultipliesTheLengthsOfAllObjects) {
    nbWings = 2;
    MainWing::addWing(project);
    nbEquipments = 2;
    Equipment::resizeEquipments(project, 2);
    Plane::rescaleAll(project, 2);
    EXPECT_EQ(Wings(1).span, 1400);
    EXPECT_EQ(Wings(2).span, 420);
    EXPECT_EQ(Stabilizer.pos1, 1300);
    EXPECT_EQ(Rudder.length1, 300);
    EXPECT_EQ(Fuselages(1).pos(3), 1600);
    EXPECT_EQ(Equipments(1).pos, 400);
    EXPECT_EQ(Equipments(2).shift, 10);
    EXPECT_EQ(Wings(1).thickness1, 0.13);
    EXPECT_EQ(Rudder.thickness1, 0.1);
    EXPECT_EQ(Fuselages(1).bias_curve(1), 0.5);
}

TEST_F(Aircraft, InchesAndBackReturnTheLengths) {
    Equipments(1).weight = 37.2;
    Plane::switchAllToInches(project);
    EXPECT_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_EQ(Stabilizer.pos1, 650 / 25.4);
    EXPECT_EQ(Rudder.span, 150 / 25.4);
    EXPECT_EQ(Fuselages(1).pos(3), 800 / 25.4);
    EXPECT_EQ(Equipments(1).pos, 200 / 25.4);
    EXPECT_EQ(Equipments(1).weight, 37.2);
    EXPECT_EQ(Wings(1).thickness1, 0.13);
    Plane::switchAllToMillimeters(project);
    EXPECT_DOUBLE_EQ(Wings(1).span, 700);
    EXPECT_DOUBLE_EQ(Stabilizer.pos1, 650);
    EXPECT_DOUBLE_EQ(Rudder.span, 150);
    EXPECT_DOUBLE_EQ(Fuselages(1).pos(3), 800);
    EXPECT_DOUBLE_EQ(Equipments(1).pos, 200);
    EXPECT_EQ(Equipments(1).weight, 37.2);
    EXPECT_EQ(Wings(1).thickness1, 0.13);
}

TEST_F(Aircraft, HiddenFuselagesAndAllBoxesAreConvertedAndScaledToo) {
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(2, false);
    nbEquipments = 2;
    Equipment::resizeEquipments(project, 2);
    Plane::switchAllToInches(project);
    EXPECT_EQ(Fuselages(2).pos(3), 800 / 25.4);
    EXPECT_EQ(Equipments(2).length, 30 / 25.4);
    Plane::switchAllToMillimeters(project);
    EXPECT_DOUBLE_EQ(Fuselages(2).pos(3), 800);
    EXPECT_DOUBLE_EQ(Equipments(2).length, 30);
    Plane::rescaleAll(project, 2);
    EXPECT_DOUBLE_EQ(Fuselages(2).pos(3), 1600);
    EXPECT_DOUBLE_EQ(Equipments(2).length, 60);
}

TEST_F(Aircraft, CounterStopsAtItsLargestValue) {
    std::int16_t counter = 32766;
    EXPECT_TRUE(Plane::increment(counter));
    EXPECT_EQ(counter, 32767);
    EXPECT_FALSE(Plane::increment(counter));
    EXPECT_EQ(counter, 32767);
}

TEST_F(Aircraft, SolidsOfHiddenFuselagesStayAsTheyWere) {
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(1, false);
    solids.createAll(project);
    EXPECT_EQ(solids.fuselages(1).points.rows(), -1);
    EXPECT_EQ(solids.fuselages(2).points.rows(), 3);
    EXPECT_EQ(solids.wings(1).Left.pointCount(), 16);
    EXPECT_EQ(solids.stabilizer.Right.rootPoint(1).x, 780);
    EXPECT_EQ(solids.rudder.pointCount(), 16);
    EXPECT_EQ(solids.equipments(1).solidSize().x, 30);
}

TEST_F(Aircraft, ElevationOffsetsOfAllFuselagesAreZeroed) {
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    Fuselages(1).elevation_offset = 4;
    Fuselages(2).elevation_offset = 5;
    Fuselage::zeroElevationOffsets(project);
    EXPECT_EQ(Fuselages(1).elevation_offset, 0);
    EXPECT_EQ(Fuselages(2).elevation_offset, 0);
}

TEST_F(Aircraft, AddedFuselageIsADefaultOneOrACopyOfTheCurrentOne) {
    Fuselages(1).width(2) = 77;
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    EXPECT_EQ(Fuselages(2).width(2), 100);
    nbFuselages = 3;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project, true);
    EXPECT_EQ(Fuselages(3).width(2), 77);
    EXPECT_EQ(Fuselages(1).width(2), 77);
}

}  // namespace
}  // namespace velna
