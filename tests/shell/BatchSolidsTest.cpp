// Files of solids, and the model for strict readers, by the command line.

#include <filesystem>
#include <string>
#include <vector>

#include "BatchExportFixture.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "output/SolidExport.h"
#include "persistence/ProjectFile.h"
#include "persistence/WholeProject.h"

namespace velna::test {
namespace {

using BatchSolids = BatchExport;

TEST_F(BatchSolids, SolidsAreWhatTheWindowsCommandWrites) {
    PictureStore store;
    store.imaging = &tools.pictures;
    for (const char* name : {"default", "wings3", "twin_fuselage"}) {
        Project project;
        ASSERT_TRUE(Plane::openWholeProject(project, current + name + ".vln").isDone());
        for (const std::string kind : {"stl", "3mf", "obj", "glb"}) {
            for (const bool cut : {false, true}) {
                request.solids = {false, cut};
                EXPECT_EQ(run(folder / ("line." + kind), kind, {current + name + ".vln"}), 0);
                EXPECT_EQ(complaint, "");
                const std::string file = folder / ("window." + kind);
                ASSERT_TRUE(
                    Plane::exportSolids(project, *solidFormatOf(file), request.solids, file, store)
                        .isDone());
                std::string line = bytesOf(folder / ("line." + kind));
                // An OBJ names the file of its materials.
                if (const auto at = line.find("line.mtl"); at != std::string::npos)
                    line.replace(at, 4, "window");
                EXPECT_EQ(line, bytesOf(file)) << name << kind << cut;
            }
        }
    }
}

TEST_F(BatchSolids, SolidsOfSeveralProjectsAreFilesOfTheirPartsInAFolder) {
    std::filesystem::create_directory(folder / "out");
    request.solids = {true, true};
    const std::vector<std::string> two{current + "default.vln", current + "wings3.vln"};
    EXPECT_EQ(run(folder / "out", "stl", two), 0) << complaint;
    for (const char* part : {"default-fin", "default-fuselage-1", "wings3-wing-2-left"})
        EXPECT_TRUE(bytesOf(folder / (std::string("out/") + part + ".stl")).starts_with("Velna"));
    EXPECT_FALSE(std::filesystem::exists(folder / "out/default.stl"));
}

TEST_F(BatchSolids, APartThatGivesNoSolidIsToldAndTheRestIsWritten) {
    Project project;
    Plane::setDefaultPlane(project);
    project.Stabilizer.span = 0;
    PictureStore store;
    store.imaging = &tools.pictures;
    ASSERT_TRUE(Plane::saveProject(project, folder / "flat.vln", store).isDone());
    EXPECT_EQ(run(folder / "o.stl", "stl", {folder / "flat.vln"}), 1);
    EXPECT_EQ(complaint, "velna: " + (folder / "o.stl") +
                             ": Left out: stabilizer left (no length), stabilizer right (no "
                             "length). All else has been exported.\n");
    EXPECT_EQ(folder.count(), 2);
}

TEST_F(BatchSolids, OfPartsThatAreNoneTheReasonIsTold) {
    Project project;
    Plane::setDefaultPlane(project);
    project.nbFuselages = 3;
    Fuselage::resizeFuselages(project);
    MeshSections& folded = project.Fuselages(1);
    folded.pos(folded.storageIndex(2)) = -50;
    project.Fuselages(2).nb_cross = 0;
    project.Wings(1).span = -300;
    PictureStore store;
    store.imaging = &tools.pictures;
    ASSERT_TRUE(Plane::saveProject(project, folder / "odd.vln", store).isDone());
    EXPECT_EQ(run(folder / "o.stl", "stl", {folder / "odd.vln"}), 1);
    EXPECT_EQ(complaint, "velna: " + (folder / "o.stl") +
                             ": Left out: fuselage 1 (folded), fuselage 2 (fewer than 3 outline "
                             "points). All else has been exported.\n");
}

TEST_F(BatchSolids, AModelForStrictReadersDiffersInItsBlank) {
    request.spelling = VrmlSpelling::Strict;
    EXPECT_EQ(run(folder / "o.wrl", "wrl", {current + "default.vln"}), 0);
    const std::string strict = bytesOf(folder / "o.wrl");
    const auto at = strict.find("          size 30");
    ASSERT_NE(at, std::string::npos);
    std::string usual = strict;
    usual.erase(at + 14, 1);
    EXPECT_EQ(usual, bytesOf(data + "exports/default.wrl"));
}

}  // namespace
}  // namespace velna::test
