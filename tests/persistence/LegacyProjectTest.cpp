#include "Projects.h"
#include "support/ModelJson.h"
#include "support/SameBytes.h"

namespace velna::test {

using LegacyProject = ProjectTest;

namespace {

const std::string legacy = projectData + "legacy/";

std::vector<std::string> legacyNames() {
    return namesIn(legacy, ".json");
}

/// The lines of a legacy file, its first line exchanged.
std::vector<std::string> withFirstLine(const std::string& name, const std::string& first) {
    auto lines = linesOf(bytesOf(legacy + name + ".vln"));
    lines[0] = first;
    return lines;
}

}  // namespace

TEST_F(LegacyProject, EveryVersionReadsToItsModelAndIsSavedAsCurrent) {
    const auto names = legacyNames();
    ASSERT_EQ(names.size(), 14u);
    for (const auto& name : names) {
        SCOPED_TRACE(name);
        const auto expected = jsonOf(legacy + name + ".json");
        resetModel();
        project.units = expected["initial_units"].get<int>();
        const std::string message = readFile(legacy + name + ".vln");
        EXPECT_EQ(message,
                  expected["message"].is_null() ? "" : expected["message"].get<std::string>());
        expectModelEquals(expected["model"], legacy);
        EXPECT_TRUE(sameBytes(savedBytes(), bytesOf(legacy + name + ".resaved.vln")));
    }
}

TEST_F(LegacyProject, WhatWasSavedReadsBackToTheSameModel) {
    for (const auto& name : legacyNames()) {
        SCOPED_TRACE(name);
        readBytes(bytesOf(legacy + name + ".vln"));
        const std::string saved = savedBytes();
        ASSERT_TRUE(readBytes(saved));
        EXPECT_TRUE(sameBytes(savedBytes(), saved));
    }
}

TEST_F(LegacyProject, TheOneCurvatureOfTheOldestBodyGoesToAllSections) {
    EXPECT_TRUE(readBytes(bytesOf(legacy + "0.2.6_one_wing.vln")));
    const MeshSections& body = Fuselages(1);
    for (int i = 1; i <= body.nb_sections; ++i) {
        EXPECT_EQ(body.curvature(i), 1.5);
        EXPECT_EQ(body.curvature2(i), 1.5);
        EXPECT_EQ(body.bias_curve(i), 0.5);
    }
    EXPECT_EQ(body.curv, 0);
}

TEST_F(LegacyProject, ASecondWingRecordBehindTheCountOneIsReadAndLost) {
    EXPECT_TRUE(readBytes(bytesOf(legacy + "1.5.0_count_1_two_records.vln")));
    EXPECT_EQ(nbWings, 1);
    const auto expected = jsonOf(legacy + "1.5.0_count_1_two_records.json")["model"];
    // The next block started at the right line.
    EXPECT_EQ(Stabilizer.span, expected["Stabilizer"]["span"].get<double>());
}

TEST_F(LegacyProject, ACountAboveTwoGivesDefaultWingsBehindTheFirst) {
    auto lines = linesOf(bytesOf(legacy + "1.5.0_count_1_two_records.vln"));
    ASSERT_TRUE(readBytes(joinedLines(lines)));
    const double span = Wings(1).span;
    const double stabilizerSpan = Stabilizer.span;
    lines[1] = "4";
    ASSERT_TRUE(readBytes(joinedLines(lines)));
    EXPECT_EQ(nbWings, 4);
    EXPECT_EQ(Wings(1).span, span);
    EXPECT_EQ(Stabilizer.span, stabilizerSpan);
    SymWingSections fresh;
    fresh.init(project.defaultColor);
    for (int i = 2; i <= 4; ++i) {
        EXPECT_EQ(Wings(i).span, fresh.span);
        EXPECT_EQ(Wings(i).thickness1, fresh.thickness1);
        EXPECT_EQ(Wings(i).airfoilSize(), 16);
    }
}

TEST_F(LegacyProject, ElevationOffsetsOfOlderFilesAreClearedAndStayClear) {
    auto lines = linesOf(bytesOf(legacy + "1.7.0_two_wings_inches.vln"));
    std::size_t head = 0;
    while (lines[head] != "Fuselage") ++head;
    lines[head + 5] = "12";
    ASSERT_TRUE(readBytes(joinedLines(lines)));
    EXPECT_EQ(Fuselages(1).elevation_offset, 0);
    const std::string saved = savedBytes();
    ASSERT_TRUE(readBytes(saved));
    EXPECT_EQ(Fuselages(1).elevation_offset, 0);
}

TEST_F(LegacyProject, WithoutAUnitFlagTheProgramKeepsItsUnit) {
    for (const int unit : {millimetres, inches}) {
        resetModel();
        project.units = unit;
        readFile(legacy + "1.0.0_two_wings_two_fuselages.vln");
        EXPECT_EQ(project.units, unit);
        const auto expected = jsonOf(legacy + "1.0.0_two_wings_two_fuselages.json")["model"];
        EXPECT_EQ(Wings(1).span, expected["Wings"][0]["span"].get<double>());
    }
}

TEST_F(LegacyProject, AMissingFlagOfTheVersionBehindItKeepsTheUnitToo) {
    const auto expected = jsonOf(legacy + "1.0.1_no_flag.json")["model"];
    for (const int unit : {millimetres, inches}) {
        resetModel();
        project.units = unit;
        readFile(legacy + "1.0.1_no_flag.vln");
        EXPECT_EQ(project.units, unit);
        EXPECT_EQ(Wings(1).span, expected["Wings"][0]["span"].get<double>());
    }
}

TEST_F(LegacyProject, AnInchFlagSwitchesTheProgram) {
    readFile(legacy + "1.1.3_two_wings_inches.vln");
    EXPECT_EQ(project.units, inches);
}

TEST_F(LegacyProject, ColoursAreKeptSinceOneTwoAndDefaultBefore) {
    EXPECT_TRUE(readBytes(bytesOf(legacy + "1.2.0_one_wing.vln")));
    const auto expected = jsonOf(legacy + "1.2.0_one_wing.json")["model"];
    EXPECT_EQ(Wings(1).color().x, expected["Wings"][0]["color"][0].get<double>());
    EXPECT_NE(Wings(1).color(), project.defaultColor);
    EXPECT_NE(Fuselages(1).color(), project.defaultColor);
    EXPECT_TRUE(readBytes(bytesOf(legacy + "1.1.3_two_wings_inches.vln")));
    EXPECT_EQ(Wings(1).color(), (Point3D{200, 200, 200}));
    EXPECT_EQ(Fuselages(1).color(), (Point3D{200, 200, 200}));
}

TEST_F(LegacyProject, ACutOldestBodyHasTheDefaultUnitsAndFittingArrays) {
    const auto lines = linesOf(bytesOf(legacy + "0.2.6_one_wing.vln"));
    for (std::size_t k = 0; k < lines.size(); ++k) {
        SCOPED_TRACE(k);
        readBytes(joinedLines({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(k)}));
        EXPECT_EQ(Fuselages(1).sectionCount(), Fuselages(1).nb_sections);
        EXPECT_EQ(nbFuselages, 1);
    }
}

TEST_F(LegacyProject, ARefusedVersionLeavesTheModelAlone) {
    const auto before = modelJson();
    EXPECT_FALSE(readBytes(joinedLines(withFirstLine("V0.1_refused", "# VELNA File Format V0.1"))));
    expectModelEquals(before);
}

}  // namespace velna::test
