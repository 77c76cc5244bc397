// What a program without a window needs: a project, its solids, and the pictures' store.

#include <gtest/gtest.h>

#include "model/MeshSections.h"
#include "model/Plane.h"
#include "model/Solids.h"
#include "output/Exports.h"
#include "output/Plans.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"
#include "support/RecordingPrinter.h"
#include "support/SameBytes.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

const std::string data = std::string(VELNA_TEST_DATA) + "/";

/// The project `name` of the test data, as a program reads it.
Project readProject(const std::string& name) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    EXPECT_EQ(Plane::readProject(aircraft, data + "projects/current/" + name + ".vln"), Outcome());
    aircraft.ObjectList.update(aircraft.Fuselages, aircraft.nbFuselages);
    return aircraft;
}

class WithoutWindow : public ::testing::Test {
protected:
    void expectFile(const std::string& name) {
        EXPECT_TRUE(sameBytes(bytesOf(folder / name), bytesOf(data + "exports/" + name))) << name;
    }

    TemporaryFolder folder;
};

TEST_F(WithoutWindow, AProjectIsReadAndExported) {
    Project aircraft = readProject("wings3");
    Solids solids;
    PictureStore pictures;
    solids.createAll(aircraft);
    EXPECT_EQ(Plane::exportDXFVTop(aircraft, folder / "wings3.VTop.dxf"), Outcome());
    EXPECT_EQ(Plane::exportDXFFront(aircraft, folder / "wings3.Front.dxf"), Outcome());
    EXPECT_EQ(Plane::exportDXFSide(aircraft, folder / "wings3.Side.dxf"), Outcome());
    EXPECT_EQ(Plane::exportDXFHTop(aircraft, folder / "wings3.HTop.dxf"), Outcome());
    EXPECT_EQ(Plane::exportVRML(aircraft, solids, folder / "wings3.wrl", pictures), Outcome());
    for (const char* name : {"wings3.VTop.dxf", "wings3.Front.dxf", "wings3.Side.dxf",
                             "wings3.HTop.dxf", "wings3.wrl"})
        expectFile(name);
}

TEST_F(WithoutWindow, APictureIsToldOfWhereNothingReadsPictures) {
    Project aircraft = readProject("default");
    Solids solids;
    PictureStore pictures;
    aircraft.Rudder.texture_filename = "/pictures/fin.bmp";
    aircraft.Rudder.qualified_texture_filename = "fin.bmp";
    solids.createAll(aircraft);
    EXPECT_EQ(Plane::exportVRML(aircraft, solids, folder / "m.wrl", pictures).reason(),
              "The picture fin.bmp could not be put beside the model (no picture reader). All else "
              "has been exported.");
}

TEST_F(WithoutWindow, TwoProjectsDoNotKnowOfEachOther) {
    Project one = readProject("inches");
    Project other = readProject("default");
    const Project before = one;
    Solids solids;
    PictureStore pictures;
    solids.createAll(other);
    other.Fuselages(1).pos(3) = 1200;
    ASSERT_EQ(Plane::exportDXFHTop(one, folder / "inches.HTop.dxf"), Outcome());
    ASSERT_EQ(Plane::exportVRML(other, solids, folder / "default.wrl", pictures), Outcome());
    ASSERT_EQ(Plane::saveProject(other, folder / "other.vln", pictures), Outcome());
    EXPECT_EQ(one, before);
    expectFile("inches.HTop.dxf");
    expectFile("default.wrl");
}

/// What a file promises and does not hold is drawn and saved from what it would be.
TEST_F(WithoutWindow, PromisedEntriesStayPromised) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    aircraft.nbWings = aircraft.nbFuselages = aircraft.nbEquipments = 3;
    aircraft.Wings.fill(3, SymWingSections(aircraft.Wings(1)));
    aircraft.Fuselages.fill(3, MeshSections(aircraft.Fuselages(1)));
    aircraft.Equipments.fill(3, ElectroBox(millimetres));
    aircraft.ObjectList.update(aircraft.Fuselages, 3);
    Solids solids;
    PictureStore pictures;
    RecordingPrinter printer(190, 277);
    solids.createAll(aircraft);
    for (const auto write :
         {Plane::exportDXFVTop, Plane::exportDXFFront, Plane::exportDXFSide, Plane::exportDXFHTop})
        EXPECT_EQ(write(aircraft, folder / "d.dxf", nullptr), Outcome());
    EXPECT_EQ(Plane::exportVRML(aircraft, solids, folder / "m.wrl", pictures), Outcome());
    EXPECT_EQ(Plane::saveProject(aircraft, folder / "p.vln", pictures), Outcome());
    PrintSelectRecord all;
    all.Side = all.htop = all.frontSections = all.vtop = all.front = true;
    EXPECT_EQ(Plans::printPlans(aircraft, all, {printer}), Outcome());
    for (int i = 1; i <= 3; ++i) {
        EXPECT_TRUE(aircraft.Wings.promised(i)) << i;
        EXPECT_TRUE(aircraft.Fuselages.promised(i)) << i;
        EXPECT_TRUE(aircraft.Equipments.promised(i)) << i;
    }
    // Each of the three has the solid that was built for all.
    const std::string model = bytesOf(folder / "m.wrl");
    std::size_t noses = 0;
    for (auto at = model.find("0 10 20,"); at != std::string::npos;
         at = model.find("0 10 20,", at + 1))
        ++noses;
    EXPECT_EQ(noses, 3u);
    EXPECT_EQ(aircraft.currentFuselage, 3);
}

/// A hidden fuselage has no solid; the one of a shown promised one stands for it.
TEST_F(WithoutWindow, OfPromisedFuselagesTheFirstShownStandsForAll) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    aircraft.nbFuselages = 2;
    aircraft.Fuselages.fill(2, MeshSections(aircraft.Fuselages(1)));
    aircraft.ObjectList.update(aircraft.Fuselages, 2);
    aircraft.ObjectList.setShown(1, false);
    Solids solids;
    PictureStore pictures;
    solids.createAll(aircraft);
    ASSERT_EQ(Plane::exportVRML(aircraft, solids, folder / "m.wrl", pictures), Outcome());
    const std::string model = bytesOf(folder / "m.wrl");
    const auto first = model.find("0 10 20,");
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(model.find("0 10 20,", first + 1), std::string::npos);
}

}  // namespace
}  // namespace velna::test
