#include <set>

#include <nlohmann/json.hpp>

#include "output/OutputTest.h"
#include "output/SolidExport.h"
#include "output/SolidFiles.h"
#include "support/StruckCalls.h"
#include "support/Unzip.h"

namespace velna::test {
namespace {

struct FormatRow {
    SolidFormat format;
    const char* name;
    const char* extension;
    bool electronics;
};

/// A body of many round sections.
void shapeBody(MeshSections& body, std::int16_t sections, std::int16_t cross) {
    body.nb_sections = sections;
    body.nb_cross = cross;
    body.initArrays();
    for (int i = 1; i <= sections; ++i) {
        body.pos(i) = 3.7 * i;
        body.width(i) = 40 + i % 7;
        body.height(i) = 50 + i % 5;
        body.elevation(i) = i % 3;
        body.curvature(i) = body.curvature2(i) = 1;
        body.bias_curve(i) = 0.5;
        body.sectionOrder(i) = static_cast<std::int16_t>(i);
    }
}

class SolidExport : public OutputTest, public ::testing::WithParamInterface<FormatRow> {
protected:
    Outcome write(const SolidOptions& options = {}) {
        return Plane::exportSolids(project, GetParam().format, options, file, store, progress);
    }
    std::set<std::string> names() const {
        std::set<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            found.insert(entry.path().filename());
        return found;
    }
    bool isObj() const { return GetParam().format == SolidFormat::Obj; }

    std::string file = folder / (std::string("m") + GetParam().extension);
};

TEST_P(SolidExport, EachBodyIsClosed) {
    for (const char* name : {"default", "wings3", "inches", "twin_fuselage", "cross7", "tex_all"}) {
        SCOPED_TRACE(name);
        load(name);
        ASSERT_EQ(write(), Outcome());
        const auto bodies = readSolids(file);
        EXPECT_FALSE(bodies.empty());
        for (const FileBody& body : bodies) EXPECT_EQ(flawOf(body), "") << body.name;
    }
}

/// A file of many buffers is as whole as a small one.
TEST_P(SolidExport, ABodyOfThousandsOfTrianglesIsClosed) {
    shapeBody(Fuselages(1), 60, 100);
    ASSERT_EQ(write(), Outcome());
    std::size_t most = 0;
    for (const FileBody& body : readSolids(file)) {
        EXPECT_EQ(flawOf(body), "") << body.name;
        most = std::max(most, body.faces.size());
    }
    EXPECT_GT(most, 11000u);
}

TEST_P(SolidExport, LengthsAreMillimetres) {
    load("inches");
    ASSERT_EQ(write({false, true}), Outcome());
    double sum = 0;
    for (const FileBody& body : readSolids(file)) {
        if (GetParam().format == SolidFormat::Stl || body.name.starts_with("fuselage"))
            sum += volumeOf(body) / 1000;
    }
    constexpr double hulls = 2 * 2266.537779303987;
    constexpr double others = 2 * (2373.6110416666647 + 281.59114543269254 + 32.49198474879808 +
                                   259.94635416666654 + 145.3129807692307);
    const double expected = GetParam().format == SolidFormat::Stl ? hulls + others : hulls;
    EXPECT_NEAR(sum, expected, expected * 1e-6);
}

TEST_P(SolidExport, GivesTheSameBytesEachTime) {
    load("tex_all");
    ASSERT_EQ(write(), Outcome());
    const std::string before = bytesOf(file);
    ASSERT_EQ(write(), Outcome());
    EXPECT_EQ(bytesOf(file), before);
}

TEST_P(SolidExport, AFileForEachPartAndNoOther) {
    ASSERT_EQ(write({true, false}), Outcome());
    std::set<std::string> expected;
    for (const char* part : {"wing-1-left", "wing-1-right", "stabilizer-left", "stabilizer-right",
                             "fin", "fuselage-1"})
        expected.insert(std::string("m-") + part + GetParam().extension);
    if (GetParam().electronics) expected.insert(std::string("m-servo-1") + GetParam().extension);
    const auto files = Plane::solidFiles(project, GetParam().format, {true, false}, file);
    EXPECT_EQ(files.size(), expected.size());
    for (const std::string& part : files) {
        const auto bodies = readSolids(part);
        ASSERT_EQ(bodies.size(), 1u) << part;
        EXPECT_EQ(flawOf(bodies.front()), "") << part;
    }
    if (isObj()) expected.insert("m.mtl");
    EXPECT_EQ(names(), expected);
}

TEST_P(SolidExport, ElectronicsAreInWhatIsLookedAt) {
    ASSERT_EQ(write(), Outcome());
    if (GetParam().format == SolidFormat::Stl) return;
    bool found = false;
    for (const FileBody& body : readSolids(file)) found = found || body.name.starts_with("servo");
    EXPECT_EQ(found, GetParam().electronics);
}

TEST_P(SolidExport, WhatGivesNoSolidIsToldAndLeftOut) {
    Wings(1).span = 0;
    Fuselages(1).nb_cross = 2;
    EXPECT_EQ(write().reason(),
              "Left out: wing 1 left (no length), wing 1 right (no length), fuselage 1 (fewer than "
              "3 outline points). All else has been exported.");
    for (const FileBody& body : readSolids(file)) EXPECT_EQ(flawOf(body), "") << body.name;
}

TEST_P(SolidExport, WithoutAnyPartNothingIsWritten) {
    writeBytes(file, "old");
    Wings(1).span = Stabilizer.span = Rudder.span = 0;
    Fuselages(1).nb_cross = 0;
    nbEquipments = 0;
    for (const bool each : {false, true}) {
        EXPECT_EQ(
            write({each, false}).reason(),
            "No part of the aircraft gives a solid: wing 1 left (no length), wing 1 right (no "
            "length), stabilizer left (no length), stabilizer right (no length), fin (no "
            "length), fuselage 1 (fewer than 3 outline points).");
        EXPECT_EQ(bytesOf(file), "old");
        EXPECT_EQ(folder.count(), 1);
    }
}

TEST_P(SolidExport, ACancelLeavesWhatWasThere) {
    writeBytes(file, "old");
    ScriptedProgress watcher;
    progress = &watcher;
    shapeBody(Fuselages(1), 200, 100);
    ASSERT_EQ(write(), Outcome());
    const int questions = watcher.questions;
    ASSERT_GT(questions, 3);
    EXPECT_LE(watcher.lastDone, watcher.lastTotal);
    writeBytes(file, "old");
    for (int cancelAt = 1; cancelAt <= questions; ++cancelAt) {
        watcher = {};
        watcher.cancelAt = cancelAt;
        EXPECT_TRUE(write().isCancelled()) << cancelAt;
        EXPECT_EQ(bytesOf(file), "old");
    }
}

/// On a system whose calls fail all files are the old ones or all are the new ones.
TEST_P(SolidExport, LeavesAllOldOrAllNew) {
    load("tex_all");
    const SolidOptions each{true, false};
    ASSERT_EQ(write(each), Outcome());
    const auto newFiles = filesIn(folder.path());
    const auto putOld = [&] {
        for (const auto& [name, bytes] : newFiles)
            writeBytes(folder / name, name.ends_with(".mtl") ? "# Velna old" : "old");
    };
    putOld();
    store.made.clear();
    const auto oldFiles = filesIn(folder.path());
    const int calls = callsOf([&] { (void)write(each); });
    int failures = 0;
    for (int number = 1; number <= calls; number += 3) {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            std::filesystem::remove(entry);
        putOld();
        std::string reason;
        {
            const StruckCalls struck({number});
            reason = write(each).reason();
        }
        const bool isOld = filesIn(folder.path()) == oldFiles;
        EXPECT_TRUE(isOld || !reason.empty() || bytesOf(folder / newFiles.begin()->first) != "old")
            << number;
        EXPECT_FALSE(isOld && reason.empty()) << number;
        failures += isOld;
    }
    EXPECT_GT(failures, 5);
}

INSTANTIATE_TEST_SUITE_P(Formats, SolidExport,
                         ::testing::Values(FormatRow{SolidFormat::Stl, "Stl", ".stl", false},
                                           FormatRow{SolidFormat::ThreeMf, "ThreeMf", ".3mf",
                                                     false},
                                           FormatRow{SolidFormat::Obj, "Obj", ".obj", true},
                                           FormatRow{SolidFormat::Glb, "Glb", ".glb", true}),
                         [](const auto& row) { return row.param.name; });

TEST(SolidFormats, AreToldByTheExtension) {
    EXPECT_EQ(solidFormatOf("a/b.stl"), SolidFormat::Stl);
    EXPECT_EQ(solidFormatOf("B.3MF"), SolidFormat::ThreeMf);
    EXPECT_EQ(solidFormatOf("x.obj"), SolidFormat::Obj);
    EXPECT_EQ(solidFormatOf("x.Glb"), SolidFormat::Glb);
    EXPECT_EQ(solidFormatOf("stl"), std::nullopt);
    EXPECT_EQ(solidFormatOf("x.wrl"), std::nullopt);
    EXPECT_EQ(solidFormatOf(""), std::nullopt);
}

class SolidFile : public OutputTest {
protected:
    Outcome write(SolidFormat format, const std::string& name) {
        return Plane::exportSolids(project, format, {}, folder / name, store, progress);
    }
};

TEST_F(SolidFile, ObjNamesItsMaterialsAndPictures) {
    load("tex_all");
    ASSERT_EQ(write(SolidFormat::Obj, "m.obj"), Outcome());
    const std::string model = bytesOf(folder / "m.obj");
    const std::string materials = bytesOf(folder / "m.mtl");
    EXPECT_NE(model.find("millimetres\nmtllib m.mtl\n"), std::string::npos);
    for (const char* picture : {"tex_wing2.jpg", "tex_stab.jpg", "tex_fus.jpg", "tex_fin.jpg"}) {
        EXPECT_NE(materials.find(picture), std::string::npos) << picture;
        EXPECT_TRUE(std::filesystem::exists(folder / picture)) << picture;
    }
}

TEST_F(SolidFile, ObjLeavesTheMaterialsOfAnotherProgramAlone) {
    writeBytes(folder / "m.mtl", "newmtl somebody");
    ASSERT_EQ(write(SolidFormat::Obj, "m.obj"), Outcome());
    EXPECT_EQ(bytesOf(folder / "m.mtl"), "newmtl somebody");
    EXPECT_NE(bytesOf(folder / "m.obj").find("mtllib m-2.mtl\n"), std::string::npos);
    EXPECT_TRUE(bytesOf(folder / "m-2.mtl").starts_with("# Velna "));
}

TEST_F(SolidFile, APictureThatCannotBeReadIsTold) {
    Rudder.texture_filename = "/pictures/unreadable.bmp";
    Rudder.qualified_texture_filename = "fin.bmp";
    EXPECT_EQ(write(SolidFormat::Glb, "m.glb").reason(),
              "The picture fin.bmp could not be put into the model (no picture). All else has been "
              "exported.");
    EXPECT_EQ(
        write(SolidFormat::Obj, "m.obj").reason(),
        "The picture fin.bmp could not be put beside the model (no picture). All else has been "
        "exported.");
    EXPECT_EQ(write(SolidFormat::Stl, "m.stl"), Outcome());
    for (const char* name : {"m.glb", "m.obj"})
        for (const FileBody& body : readSolids(folder / name)) EXPECT_EQ(flawOf(body), "");
}

TEST_F(SolidFile, GlbHoldsItsPicturesAndTurnsItsRoot) {
    load("tex_all");
    ASSERT_EQ(write(SolidFormat::Glb, "m.glb"), Outcome());
    EXPECT_EQ(folder.count(), 1);
    const std::string bytes = bytesOf(folder / "m.glb");
    const auto json = nlohmann::json::parse(jsonOfGlb(bytes));
    EXPECT_EQ(json.at("nodes").at(0).at("scale"), nlohmann::json({0.001, 0.001, 0.001}));
    EXPECT_EQ(json.at("images").size(), json.at("textures").size());
    EXPECT_GE(json.at("images").size(), 4u);
    for (const char* picture : {"tex_wing2.bmp 256 x 32 turned jpeg", "tex_fus.bmp 64 x 32 jpeg"})
        EXPECT_NE(bytes.find(picture), std::string::npos) << picture;
    for (const auto& accessor : json.at("accessors")) EXPECT_GT(accessor.at("count"), 0);
}

TEST_F(SolidFile, ThreeMfTellsUnitNamesAndColours) {
    Fuselages(1).set_color({255, 0, 127.6});
    ASSERT_EQ(write(SolidFormat::ThreeMf, "m.3mf"), Outcome());
    const std::string bytes = bytesOf(folder / "m.3mf");
    const std::string model = unzipped(bytes).at("3D/3dmodel.model");
    EXPECT_NE(model.find("unit=\"millimeter\""), std::string::npos);
    EXPECT_NE(model.find("<base name=\"fuselage 1\" displaycolor=\"#FF0080\"/>"),
              std::string::npos);
    EXPECT_NE(unzipped(bytes).at("_rels/.rels").find("/3D/3dmodel.model"), std::string::npos);
    EXPECT_NE(unzipped(bytes).at("[Content_Types].xml").find("3dmodel+xml"), std::string::npos);
}

TEST_F(SolidFile, JoinedPanelsKeepTheirColours) {
    load("wings3");
    Wings(2).set_color({1, 2, 3});
    ASSERT_EQ(write(SolidFormat::ThreeMf, "m.3mf"), Outcome());
    const std::string model = unzipped(bytesOf(folder / "m.3mf")).at("3D/3dmodel.model");
    EXPECT_NE(model.find("name=\"wing 1-3 left\""), std::string::npos);
    EXPECT_NE(model.find("#010203"), std::string::npos);
    EXPECT_NE(model.find("p1=\"1\""), std::string::npos);
}

TEST_F(SolidFile, TheStrictModelDiffersInTheBoxesBlankAlone) {
    ASSERT_EQ(Plane::exportVRML(project, solids, folder / "a.wrl", store), Outcome());
    ASSERT_EQ(
        Plane::exportVRML(project, solids, folder / "b.wrl", store, nullptr, VrmlSpelling::Strict),
        Outcome());
    std::string told = bytesOf(folder / "a.wrl");
    const auto size = told.find("          size30");
    ASSERT_NE(size, std::string::npos);
    EXPECT_EQ(bytesOf(folder / "b.wrl"), told.replace(size, 16, "          size 30"));
}

}  // namespace
}  // namespace velna::test
