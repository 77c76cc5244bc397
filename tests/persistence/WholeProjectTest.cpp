#include "Projects.h"
#include "persistence/WholeProject.h"

namespace velna::test {
namespace {

TEST(WholeProject, GivesWhatAWindowOpens) {
    for (const std::string& name : namesIn(projectData + "current/", ".json")) {
        if (name.ends_with(".before")) continue;
        const std::string file = projectData + "current/" + name + ".vln";
        Project opened;
        opened.units = inches;  // nothing of what stood there stays
        ASSERT_TRUE(Plane::openWholeProject(opened, file).isDone()) << name;
        Project read;
        Plane::setDefaultPlane(read);
        ASSERT_TRUE(Plane::readProject(read, file).isDone());
        read.ObjectList.update(read.Fuselages, read.nbFuselages);
        EXPECT_TRUE(opened == read) << name;
    }
}

TEST(WholeProject, TheFolderOfItsPicturesIsNamedFromTheRoot) {
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(projectData + "current");
    Project opened;
    const Outcome outcome = Plane::openWholeProject(opened, "default.vln");
    std::filesystem::current_path(here);
    EXPECT_TRUE(outcome.isDone());
    EXPECT_EQ(opened.projectDirectory, projectData + "current/");
}

TEST(WholeProject, AnOldUnitThatNobodyWroteIsMillimetres) {
    Project opened;
    EXPECT_TRUE(Plane::openWholeProject(opened, projectData + "legacy/1.0.1_no_flag.vln").isDone());
    EXPECT_EQ(opened.units, millimetres);
    // What lacks more is not whole.
    TemporaryFolder folder;
    const std::string bytes = bytesOf(projectData + "legacy/1.0.1_no_flag.vln");
    writeBytes(folder / "cut.vln", bytes.substr(0, bytes.size() - 40));
    EXPECT_TRUE(Plane::openWholeProject(opened, folder / "cut.vln").hasFailed());
}

}  // namespace
}  // namespace velna::test
