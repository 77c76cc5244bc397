#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include "common/NumberText.h"
#include "output/DxfDrawing.h"
#include "output/OutputTest.h"

namespace velna::test {
namespace {

struct Entity {
    std::string layer;
    std::array<double, 6> at{};
};

class DxfExport : public OutputTest {
protected:
    /// Exports and takes the drawing apart; anything but lines between the frame's ends is a
    /// failure.
    std::vector<Entity> write(Export exportView) {
        EXPECT_EQ(exportView(project, file, progress), Outcome());
        text = bytesOf(file);
        std::istringstream stream(text);
        std::vector<std::string> lines;
        for (std::string line; std::getline(stream, line);) {
            EXPECT_TRUE(line.ends_with('\r'));
            lines.push_back(line.substr(0, line.size() - 1));
        }
        EXPECT_GE(lines.size(), 8U);
        EXPECT_EQ((lines.size() - 8) % 16, 0U);
        std::vector<Entity> entities;
        for (std::size_t at = 4; at + 16 <= lines.size(); at += 16) {
            EXPECT_EQ(lines[at + 1], "LINE");
            Entity entity{lines[at + 3], {}};
            for (std::size_t n = 0; n < 6; ++n) entity.at[n] = leadingNumber(lines[at + 5 + 2 * n]);
            entities.push_back(entity);
        }
        return entities;
    }

    static std::map<std::string, int> layers(const std::vector<Entity>& entities) {
        std::map<std::string, int> counts;
        for (const Entity& entity : entities) ++counts[entity.layer];
        return counts;
    }

    std::string file = folder / "drawing.dxf";
    std::string text;
};

TEST_F(DxfExport, FrameIsOneSectionOfEntities) {
    DxfDrawing drawing(file, 1);
    drawing.dxfBegin();
    drawing.dxfLine({1, -2.5, 0}, {-0.0, 1E-05, 3}, "Layer");
    EXPECT_EQ(drawing.dxfEnd(), Outcome());
    EXPECT_EQ(bytesOf(file),
              " 0 \r\nSECTION\r\n 2 \r\nENTITIES\r\n"
              " 0 \r\nLINE\r\n 8 \r\nLayer\r\n 10 \r\n 1 \r\n 20 \r\n-2.5 \r\n 30 \r\n 0 \r\n"
              " 11 \r\n 0 \r\n 21 \r\n 1E-05 \r\n 31 \r\n 3 \r\n"
              " 0 \r\nENDSEC\r\n 0 \r\nEOF\r\n");
}

TEST_F(DxfExport, PenMovesWithoutDrawing) {
    DxfDrawing drawing(file, 1);
    drawing.dxfLineTo({1, 2, 3}, false, "NoName");
    EXPECT_EQ(drawing.dxfPen(), (Point3D{1, 2, 3}));
    drawing.dxfLineTo({4, 5, 6}, true, "A");
    EXPECT_EQ(drawing.dxfPen(), (Point3D{4, 5, 6}));
    EXPECT_EQ(drawing.dxfEnd(), Outcome());
    EXPECT_EQ(bytesOf(file).find("NoName"), std::string::npos);
}

TEST_F(DxfExport, SingleBoxIsARectangleOfFourLines) {
    const auto entities = write(Plane::exportDXFSide);
    EXPECT_EQ(layers(entities)["Servo_1"], 4);
}

TEST_F(DxfExport, PolylinesMoveToTheirStartUnseen) {
    for (Export exportView : {Plane::exportDXFVTop, Plane::exportDXFFront, Plane::exportDXFSide,
                              Plane::exportDXFHTop}) {
        write(exportView);
        EXPECT_EQ(text.find("NoName"), std::string::npos);
    }
}

TEST_F(DxfExport, LayersNameWingsFinFuselageAndBoxByNumber) {
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    for (std::int16_t n = 2; n <= 4; ++n) {
        nbEquipments = n;
        Equipment::resizeEquipments(project, n);
        Equipments(n).box = n - 1;  // receiver, accumulator, and a kind that nobody knows
    }
    const auto counts = layers(write(Plane::exportDXFSide));
    const std::map<std::string, int> expected{
        {"Wing", 32},   {"Fin", 4},        {"Fuselage_1", 7},    {"Fuselage_2", 7},
        {"Servo_1", 4}, {"Receiver_2", 4}, {"Accumulator_3", 4}, {"Servo_4", 4}};
    EXPECT_EQ(counts, expected);
}

TEST_F(DxfExport, HTopHasTheCurrentFuselageAndTheBoxesOnly) {
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    currentFuselage = 2;
    Fuselages(2).pos(3) = 555;
    const auto entities = write(Plane::exportDXFHTop);
    const auto counts = layers(entities);
    EXPECT_EQ(counts, (std::map<std::string, int>{{"Fuselage", 4 + 3 + 24}, {"Servo_1", 4}}));
    EXPECT_EQ(entities[1].at[3], 555);
}

TEST_F(DxfExport, HTopSectionsStandAboveThePlanHeadsDown) {
    Fuselages(1).shift = 5;
    const auto entities = write(Plane::exportDXFHTop);
    double lowest = 1E9;
    for (std::size_t i = 7; i < 7 + 24; ++i)
        lowest = std::min({lowest, entities[i].at[1], entities[i].at[4]});
    EXPECT_EQ(lowest, 100);
    // The first section is 20 wide and moved by 0 + 10 + 10, and by the shift; its right end:
    EXPECT_DOUBLE_EQ(entities[7].at[0], 10 + 5 + 20);
    // The second, 100 wide, stands 10 beside it.
    EXPECT_DOUBLE_EQ(entities[7 + 8].at[0], 50 + 5 + 20 + 10 + 50 + 10);
    // The plan lies on the centre line all the same.
    EXPECT_EQ(entities[0].at[1], 10);
}

TEST_F(DxfExport, HTopOfAFuselageWithoutAShapeIsItsPlanAlone) {
    for (std::int16_t outlinePoints : {std::int16_t{0}, std::int16_t{1}}) {
        Fuselages(1).nb_cross = outlinePoints;
        EXPECT_EQ(layers(write(Plane::exportDXFHTop))["Fuselage"], 7);
    }
}

TEST_F(DxfExport, UnshiftedFuselageHasNoMirroredCopy) {
    const auto vtop = layers(write(Plane::exportDXFVTop));
    EXPECT_EQ(vtop.at("Fuselage_1"), 6);
    EXPECT_EQ(layers(write(Plane::exportDXFFront)).at("Fuselage_1"), 24);
    Fuselages(1).shift = 1;
    EXPECT_EQ(layers(write(Plane::exportDXFVTop)).at("Fuselage_1"), 12);
    EXPECT_EQ(layers(write(Plane::exportDXFFront)).at("Fuselage_1"), 48);
}

TEST_F(DxfExport, AllSectionsComeBeforeTheMirroredOnes) {
    Fuselages(1).shift = 200;
    const auto entities = write(Plane::exportDXFFront);
    std::vector<double> x;
    for (const Entity& entity : entities)
        if (entity.layer == "Fuselage_1") x.push_back(entity.at[0]);
    ASSERT_EQ(x.size(), 48U);
    for (std::size_t i = 0; i < 24; ++i) {
        EXPECT_GT(x[i], 0) << i;
        EXPECT_DOUBLE_EQ(x[i + 24], -x[i]) << i;
    }
}

TEST_F(DxfExport, VTopPutsTheNoseAtTheTop) {
    const auto entities = write(Plane::exportDXFVTop);
    for (const Entity& entity : entities) {
        EXPECT_LE(entity.at[1], 0);
        EXPECT_EQ(entity.at[2], 0);
        EXPECT_EQ(entity.at[5], 0);
    }
}

TEST_F(DxfExport, FrontAndSideKeepUpUp) {
    Rudder.shift = 40;  // its tip stands at 190, high above the body's bottom at 10
    for (Export exportView : {Plane::exportDXFFront, Plane::exportDXFSide}) {
        const auto entities = write(exportView);
        double top = -1E9;
        double bottom = 1E9;
        for (const Entity& entity : entities) {
            top = std::max({top, entity.at[1], entity.at[4]});
            bottom = std::min({bottom, entity.at[1], entity.at[4]});
        }
        EXPECT_EQ(top, 190);
        EXPECT_EQ(bottom, 10);
    }
}

TEST_F(DxfExport, SideStandsAtItsPositionAndHeight) {
    Fuselages(1).pos_offset = 7;
    Fuselages(1).elevation_offset = 3;
    std::vector<std::array<double, 6>> body;
    std::vector<std::array<double, 6>> fin;
    for (const Entity& entity : write(Plane::exportDXFSide)) {
        if (entity.layer == "Fuselage_1") body.push_back(entity.at);
        if (entity.layer == "Fin") fin.push_back(entity.at);
    }
    const std::vector<std::array<double, 6>> lines{
        {7, 33, 0, 207, 113, 0}, {207, 113, 0, 807, 43, 0},                            // top
        {7, 13, 0, 207, 13, 0},  {207, 13, 0, 807, 33, 0},                             // bottom
        {7, 13, 0, 7, 33, 0},    {207, 13, 0, 207, 113, 0}, {807, 33, 0, 807, 43, 0},  // bars
    };
    EXPECT_EQ(body, lines);
    ASSERT_EQ(fin.size(), 4U);
    EXPECT_EQ(fin[0][1], Rudder.shift);
    EXPECT_EQ(std::ranges::max(fin, {}, [](const auto& at) { return at[4]; })[4],
              Rudder.shift + Rudder.span);
}

TEST_F(DxfExport, FinInVTopHasItsTwinByTheHeightOfItsRoot) {
    Rudder.offset1 = 30;
    Rudder.shift = 0;
    EXPECT_EQ(layers(write(Plane::exportDXFVTop)).at("Fin"), 4);
    Rudder.offset1 = 0;
    Rudder.shift = 30;
    EXPECT_EQ(layers(write(Plane::exportDXFVTop)).at("Fin"), 8);
}

TEST_F(DxfExport, FinInFrontHasItsTwinByItsOffsets) {
    EXPECT_EQ(layers(write(Plane::exportDXFFront)).at("Fin"), 4);
    Rudder.offset2 = 1;
    EXPECT_EQ(layers(write(Plane::exportDXFFront)).at("Fin"), 8);
}

TEST_F(DxfExport, SideHasTheFirstWingOnly) {
    const int alone = layers(write(Plane::exportDXFSide)).at("Wing");
    nbWings = 2;
    MainWing::addWing(project);
    EXPECT_EQ(layers(write(Plane::exportDXFSide)).at("Wing"), alone);
    EXPECT_EQ(layers(write(Plane::exportDXFVTop)).at("Wing"), 3 * 8);
}

TEST_F(DxfExport, SideOutlineOfAWingEndsInALineOfNoLength) {
    const auto entities = write(Plane::exportDXFSide);
    const auto& last = entities[15].at;
    EXPECT_EQ(last[0], last[3]);
    EXPECT_EQ(last[1], last[4]);
}

TEST_F(DxfExport, FuselageWithoutOutlinePointsIsLeftOut) {
    Fuselages(1).nb_cross = 0;
    for (Export exportView : {Plane::exportDXFVTop, Plane::exportDXFFront, Plane::exportDXFSide})
        EXPECT_FALSE(layers(write(exportView)).contains("Fuselage_1"));
}

TEST_F(DxfExport, SingleOutlinePointIsNoSection) {
    Fuselages(1).nb_cross = 1;
    EXPECT_FALSE(layers(write(Plane::exportDXFFront)).contains("Fuselage_1"));
    EXPECT_TRUE(layers(write(Plane::exportDXFSide)).contains("Fuselage_1"));
}

TEST_F(DxfExport, HiddenFuselagesAreDrawn) {
    ObjectList.setShown(1, false);
    EXPECT_EQ(layers(write(Plane::exportDXFSide)).at("Fuselage_1"), 7);
    EXPECT_FALSE(ObjectList.shown(1));
}

TEST_F(DxfExport, OddOutlineHasNoLineToTheOrigin) {
    load("cross7");
    int toOrigin = 0;
    for (const Entity& entity : write(Plane::exportDXFFront))
        toOrigin += entity.layer == "Fuselage_1" && entity.at[3] == 0 && entity.at[4] == 0 ? 1 : 0;
    EXPECT_EQ(toOrigin, 0);
}

TEST_F(DxfExport, NegativeSizesAndZeroAreDrawn) {
    Fuselages(1).width(2) = -100;
    Fuselages(1).height(1) = 0;
    Wings(1).span = -700;
    EXPECT_EQ(write(Plane::exportDXFFront).size(), 8U + 8 + 4 + 24);
}

TEST_F(DxfExport, HugeAndTinyNumbersStayNumbers) {
    Fuselages(1).pos(3) = 1E+300;
    Fuselages(1).height(2) = 1E-300;
    Fuselages(1).elevation(2) = 0;
    Wings(1).length1 = 1.7E+308;
    Wings(1).pos1 = 1.7E+308;
    for (Export exportView : {Plane::exportDXFVTop, Plane::exportDXFFront, Plane::exportDXFSide,
                              Plane::exportDXFHTop}) {
        write(exportView);
        EXPECT_EQ(text.find("inf"), std::string::npos);
        EXPECT_EQ(text.find("nan"), std::string::npos);
    }
    EXPECT_NE(text.find(" 1E+300 "), std::string::npos);
}

TEST_F(DxfExport, CancelLeavesTheOldDrawingWhole) {
    writeBytes(file, "the old drawing");
    Fuselages(1).nb_cross = 9000;
    Fuselages(1).initArrays();
    ScriptedProgress watcher;
    watcher.cancelAt = 1;
    progress = &watcher;
    EXPECT_EQ(Plane::exportDXFFront(project, file, progress), Outcome::cancelled());
    EXPECT_EQ(watcher.questions, 1);
    EXPECT_LT(watcher.lastDone, watcher.lastTotal);
    EXPECT_EQ(bytesOf(file), "the old drawing");
    EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace velna::test
