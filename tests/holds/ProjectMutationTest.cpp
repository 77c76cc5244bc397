#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "common/TextSink.h"
#include "common/ValueReader.h"
#include "model/Fuselage.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "persistence/ProjectFile.h"
#include "support/ProjectMutation.h"
#include "support/SmallModel.h"

namespace velna::fuzz {
namespace {

const std::string seedFile = VELNA_SOURCE_DIR "/tests/fuzz/seeds/fuzz_pipeline/wings3.vln";

/// Whether `bytes` are a project to its very end.
bool isWellFormed(const std::string& bytes, Project& project) {
    Plane::setDefaultPlane(project);
    try {
        return Plane::readProjectBytes(project, bytes);
    } catch (const ReadFailure&) {
        return false;
    }
}

TEST(MutatedProject, IsAProjectStill) {
    std::mt19937 random(7);
    std::string bytes = readWholeFile(seedFile);
    int changed = 0;
    for (int round = 0; round < 2000; ++round) {
        const std::string next = mutatedProject(bytes, random);
        if (next.empty()) bytes = readWholeFile(seedFile);  // it has grown too large
        if (next.empty()) continue;
        Project project;
        ASSERT_TRUE(isWellFormed(next, project)) << next;
        if (next != bytes) ++changed;
        bytes = next;
    }
    EXPECT_GT(changed, 1500);
}

TEST(MutatedProject, ComesToHaveMoreAndFewerOfEverything) {
    std::mt19937 random(8);
    const std::string bytes = readWholeFile(seedFile);
    Project start;
    ASSERT_TRUE(isWellFormed(bytes, start));
    int more = 0, fewer = 0, sections = 0, points = 0;
    for (int round = 0; round < 1000; ++round) {
        Project project;
        ASSERT_TRUE(isWellFormed(mutatedProject(bytes, random), project));
        if (project.nbWings > start.nbWings) ++more;
        if (project.nbWings < start.nbWings) ++fewer;
        if (project.Fuselages(1).nb_sections != start.Fuselages(1).nb_sections) ++sections;
        if (project.Wings(1).nb != start.Wings(1).nb) ++points;
    }
    EXPECT_GT(more, 10);
    EXPECT_GT(fewer, 10);
    EXPECT_GT(sections, 10);
    EXPECT_GT(points, 10);
}

TEST(MutatedProject, IsTheSameForTheSameSeed) {
    const std::string bytes = readWholeFile(seedFile);
    std::mt19937 one(9), other(9);
    EXPECT_EQ(mutatedProject(bytes, one), mutatedProject(bytes, other));
}

TEST(MutatedProject, IsNoneOfWhatIsTooLargeToBeWorkedThrough) {
    std::string bytes = readWholeFile(seedFile);
    const std::string count = "\r\n3\r\n";
    bytes.replace(bytes.find(count), count.size(), "\r\n32767\r\n");
    std::mt19937 random(1);
    EXPECT_EQ(mutatedProject(bytes, random), "");
}

TEST(CrossedProjects, TakeAPartOfTheOther) {
    std::mt19937 random(10);
    const std::string bytes = readWholeFile(seedFile);
    const std::string other =
        readWholeFile(VELNA_SOURCE_DIR "/tests/fuzz/seeds/fuzz_pipeline/cross7.vln");
    int changed = 0;
    for (int round = 0; round < 50; ++round) {
        Project project;
        const std::string crossed = crossedProjects(bytes, other, random);
        ASSERT_TRUE(isWellFormed(crossed, project));
        if (crossed != bytes) ++changed;
    }
    EXPECT_GT(changed, 10);
}

}  // namespace
}  // namespace velna::fuzz
