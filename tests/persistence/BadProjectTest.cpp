#include <map>

#include <sys/stat.h>
#include <unistd.h>

#include "Projects.h"
#include "support/FileSizeLimit.h"
#include "support/ModelJson.h"
#include "support/SameBytes.h"

namespace velna::test {

using BadProject = ProjectTest;

namespace {

/// The default project, the one with most kinds of records, and every version since 0.2.
std::map<std::string, std::vector<std::string>> everyVersion() {
    std::map<std::string, std::vector<std::string>> projects;
    for (const std::string name : {"default", "twin_fuselage"})
        projects[name] = linesOf(bytesOf(projectData + "current/" + name + ".vln"));
    for (const auto& name : namesIn(projectData + "legacy/", ".json"))
        projects[name] = linesOf(bytesOf(projectData + "legacy/" + name + ".vln"));
    return projects;
}

bool allFinite(const nlohmann::json& value) {
    if (value.is_number_float()) return std::isfinite(value.get<double>());
    if (!value.is_structured()) return true;
    return std::ranges::all_of(value, allFinite);
}

/// What must hold whatever was read. Large promised lists are looked at by their counts alone.
void expectSoundModel() {
    EXPECT_GE(nbWings, 1);
    EXPECT_GE(nbFuselages, 1);
    EXPECT_GE(nbEquipments, 1);
    EXPECT_EQ(Wings.size(), nbWings);
    EXPECT_EQ(Fuselages.size(), nbFuselages);
    EXPECT_EQ(Equipments.size(), nbEquipments);
    if (nbWings > 100 || nbFuselages > 100 || nbEquipments > 100) return;
    long long mesh = 0;
    for (int i = 1; i <= nbFuselages; ++i) {
        const MeshSections& body = Fuselages(i);
        EXPECT_GE(body.nb_sections, 0);
        EXPECT_GE(body.nb_cross, 0);
        EXPECT_EQ(body.sectionCount(), body.nb_sections);
        mesh += static_cast<long long>(body.nb_sections) * body.nb_cross;
    }
    EXPECT_LE(mesh, Plane::largestMesh);
    for (int i = 1; i <= nbWings; ++i) EXPECT_GE(Wings(i).nb, 0);
}

}  // namespace

TEST_F(BadProject, EveryVersionCutAfterEveryLineLeavesASoundModel) {
    for (const auto& [name, lines] : everyVersion()) {
        SCOPED_TRACE(name);
        for (std::size_t k = 0; k <= lines.size(); ++k) {
            SCOPED_TRACE(k);
            readBytes(joinedLines({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(k)}));
            expectSoundModel();
        }
    }
}

TEST_F(BadProject, EveryVersionWithAnyLineReplacedLeavesASoundModel) {
    const std::string replacements[] = {
        "text", "", std::string(400, '9'), "-1", "32767", "32768", "1E308", "nan", "\"", "0"};
    for (const auto& [name, lines] : everyVersion()) {
        SCOPED_TRACE(name);
        for (std::size_t k = 0; k < lines.size(); ++k)
            for (const auto& replacement : replacements) {
                SCOPED_TRACE(std::to_string(k) + ": " + replacement);
                auto changed = lines;
                changed[k] = replacement;
                readBytes(joinedLines(changed));
                expectSoundModel();
            }
    }
}

TEST_F(BadProject, WhatABadFileLeftCanBeUsedSavedAndReadAgain) {
    const auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    for (std::size_t k = 1; k < lines.size(); ++k)
        for (const std::string replacement : {"text", "1E308"}) {
            SCOPED_TRACE(std::to_string(k) + ": " + replacement);
            auto changed = lines;
            changed[k] = replacement;
            readBytes(joinedLines(changed));
            if (nbWings > 1 || nbFuselages > 1) continue;
            EXPECT_TRUE(allFinite(modelJson()));
            solids.createAll(project);
            const std::string saved = savedBytes();
            ASSERT_TRUE(readBytes(saved));
            EXPECT_TRUE(sameBytes(savedBytes(), saved));
        }
}

TEST_F(BadProject, WhatIsSavedFromExtremeValuesCanBeReadAgain) {
    const auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    const auto isLength = [](const std::string& line) {
        return line.find('.') != std::string::npos || line == "700" || line == "150";
    };
    for (const std::string extreme : {"1.79769313486232E+308", "-1.79769313486232E+308",
                                      "4.94065645841247E-324", "2.2250738585072E-308"}) {
        auto changed = lines;
        for (auto line = changed.begin() + 1; line != changed.end(); ++line)
            if (isLength(*line)) *line = extreme;
        ASSERT_NE(changed, lines);
        ASSERT_TRUE(readBytes(joinedLines(changed))) << extreme;
        EXPECT_TRUE(allFinite(modelJson()));
        const std::string saved = savedBytes();
        EXPECT_NE(saved.find(extreme), std::string::npos);
        ASSERT_TRUE(readBytes(saved)) << extreme;
        EXPECT_TRUE(sameBytes(savedBytes(), saved));
    }
}

TEST_F(BadProject, CountsThatPromiseMoreThanTheFileHoldsAreRead) {
    auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    lines[1] = "32767";
    EXPECT_FALSE(readBytes(joinedLines(lines)));
    EXPECT_EQ(nbWings, 32767);
    EXPECT_EQ(Wings(1).span, 700);
    // The stabiliser's record is taken for the second wing's; the count behind it is no head, and
    // what follows no wing.
    EXPECT_EQ(Wings(2).span, 250);
    EXPECT_EQ(Wings(32767).airfoilSize(), 16);
}

TEST_F(BadProject, ACountBelowOneLeavesTheListAsItWas) {
    for (const std::string count : {"0", "-1", "-32768"}) {
        auto lines = linesOf(bytesOf(projectData + "current/wings3.vln"));
        lines[1] = count;
        EXPECT_FALSE(readBytes(joinedLines(lines)));
        EXPECT_EQ(nbWings, 1);
    }
}

namespace {

/// A file of one wing and `bodies`, each of the given counts of sections and outline points, cut
/// behind the counts of the last.
std::vector<std::string> withBodies(const std::vector<std::pair<int, int>>& bodies) {
    auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    lines.erase(std::ranges::find(lines, "Fuselage"), lines.end());
    lines.back() = std::to_string(bodies.size());
    for (const auto& [sections, cross] : bodies) {
        const std::vector<std::string> fixed{"Fuselage",
                                             std::to_string(sections),
                                             std::to_string(cross),
                                             "0",
                                             "0",
                                             "0",
                                             "#FALSE#",
                                             "#TRUE#",
                                             "#TRUE#",
                                             "1",
                                             "2",
                                             "3"};
        lines.insert(lines.end(), fixed.begin(), fixed.end());
        if (&bodies.back().first != &sections)
            lines.insert(lines.end(), static_cast<std::size_t>(sections) * 7, "1");
    }
    return lines;
}

}  // namespace

TEST_F(BadProject, AMeshUpToTheAllowanceIsTaken) {
    EXPECT_FALSE(readBytes(joinedLines(withBodies({{32000, 125}}))));
    EXPECT_EQ(Fuselages(1).nb_sections, 32000);
    EXPECT_EQ(Fuselages(1).nb_cross, 125);
    EXPECT_EQ(Fuselages(1).sectionCount(), 32000);
    EXPECT_EQ(Fuselages(1).color(), (Point3D{1, 2, 3}));
}

TEST_F(BadProject, ALargerMeshIsAFailedRead) {
    EXPECT_FALSE(readBytes(joinedLines(withBodies({{32000, 126}}))));
    EXPECT_EQ(Fuselages(1).nb_sections, 3);
    EXPECT_EQ(Fuselages(1).nb_cross, 8);
    EXPECT_EQ(Fuselages(1).color(), (Point3D{200, 200, 200}));
}

TEST_F(BadProject, AllFuselagesShareOneAllowance) {
    EXPECT_FALSE(readBytes(joinedLines(withBodies({{200, 15000}, {100, 10000}}))));
    EXPECT_EQ(Fuselages(2).nb_cross, 10000);
    EXPECT_FALSE(readBytes(joinedLines(withBodies({{200, 15000}, {100, 10001}}))));
    EXPECT_EQ(Fuselages(1).nb_cross, 15000);
    EXPECT_EQ(Fuselages(2).nb_cross, 8);
}

TEST_F(BadProject, AFuselageCutBehindItsCountsHasArraysThatFit) {
    auto lines = withBodies({{50, 12}});
    lines.resize(lines.size() - 9);
    EXPECT_FALSE(readBytes(joinedLines(lines)));
    const MeshSections& body = Fuselages(1);
    EXPECT_EQ(body.nb_sections, 50);
    EXPECT_EQ(body.sectionCount(), 50);
    EXPECT_EQ(body.height(2), 100);
    EXPECT_EQ(body.height(50), 0);
    solids.fuselages(1).create(Fuselages(1));
    savedBytes();
}

TEST_F(BadProject, ARowWithoutItsLinesIsUnticked) {
    auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    const auto list = std::ranges::find(lines, "ObjectList");
    lines.erase(list + 2, lines.end());
    EXPECT_FALSE(readBytes(joinedLines(lines)));
    ASSERT_EQ(ObjectList.rows.size(), 1u);
    EXPECT_FALSE(ObjectList.rows[0].checked);
    EXPECT_EQ(ObjectList.rows[0].text, "");
}

TEST_F(BadProject, RowsWithoutAFuselageEndTheReading) {
    auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    const auto list = std::ranges::find(lines, "ObjectList") + 1;
    *list = "2147483647";
    EXPECT_FALSE(readBytes(joinedLines(lines)));
    EXPECT_EQ(ObjectList.rows.size(), 1u);
    lines = linesOf(bytesOf(projectData + "current/default.vln"));
    *(std::ranges::find(lines, "ObjectList") + 1) = "-1";
    EXPECT_FALSE(readBytes(joinedLines(lines)));
}

TEST_F(BadProject, BinaryBytesAndAnEmptyFileLeaveTheDefaultAircraft) {
    const auto fresh = modelJson();
    std::string binary;
    for (int i = 0; i < 4096; ++i) binary += static_cast<char>(i * 7919 >> 3);
    for (const auto& bytes :
         {std::string{}, binary, std::string(5000, '\0'), std::string("\r\n")}) {
        EXPECT_FALSE(readBytes(bytes));
        expectModelEquals(fresh);
    }
}

TEST_F(BadProject, WhatCannotBeOpenedLeavesTheDefaultAircraftAndOnlyTheFolderIsKnown) {
    std::filesystem::create_directory(folder / "dir");
    ::mkfifo((folder / "pipe").c_str(), 0600);
    writeBytes(folder / "closed", "x");
    ::chmod((folder / "closed").c_str(), 0);
    auto expected = modelJson();
    expected["projectDirectory"] = folder.path();
    for (const char* name : {"dir", "missing", "pipe", "closed"}) {
        EXPECT_EQ(readFile(folder / name), "") << name;
        expectModelEquals(expected);
    }
}

TEST_F(BadProject, AFailedSaveLeavesTheOldFileWholeAndTellsTheReason) {
    const std::string path = folder / "old.vln";
    writeBytes(path, "old");
    {
        const FileSizeLimit fullDisk(100);
        EXPECT_EQ(save(path), "File too large");
    }
    EXPECT_EQ(bytesOf(path), "old");
    EXPECT_EQ(folder.count(), 1);
    EXPECT_EQ(save(folder.path()), "Is a directory");
    EXPECT_EQ(save(folder / "missing/x.vln"), "No such file or directory");
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(BadProject, AFolderWithoutPermissionIsTold) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
    std::filesystem::create_directory(folder / "locked");
    writeBytes(folder / "locked/x.vln", "old");
    ::chmod((folder / "locked").c_str(), 0500);
    EXPECT_EQ(save(folder / "locked/x.vln"), "Permission denied");
    EXPECT_EQ(bytesOf(folder / "locked/x.vln"), "old");
    ::chmod((folder / "locked").c_str(), 0700);
}

}  // namespace velna::test
