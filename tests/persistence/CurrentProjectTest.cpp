#include "Projects.h"
#include "common/NumberText.h"
#include "support/ModelJson.h"
#include "support/SameBytes.h"

namespace velna::test {

using CurrentProject = ProjectTest;

namespace {

const std::string current = projectData + "current/";
const std::string reading = projectData + "reading/";
const std::string truncated = projectData + "truncated/";

}  // namespace

TEST_F(CurrentProject, AManagerWithoutRowsIsRead) {
    ObjectList.rows.clear();
    EXPECT_TRUE(readBytes(savedBytes()));
}

TEST_F(CurrentProject, EveryCaseReadsToItsModelAndSavesToItsBytes) {
    const auto names = namesIn(current, ".vln");
    ASSERT_EQ(names.size(), 14u);
    for (const auto& name : names) {
        SCOPED_TRACE(name);
        resetModel();
        EXPECT_EQ(readFile(current + name + ".vln"), "");
        expectModelEquals(jsonOf(current + name + ".json")["model"], current);
        EXPECT_TRUE(sameBytes(savedBytes(), bytesOf(current + name + ".vln")));
    }
}

TEST_F(CurrentProject, SavingWritesTheSectionsInTheirOrderWhateverTheirStorage) {
    for (const auto& name : namesIn(current, ".before.json")) {
        SCOPED_TRACE(name);
        resetModel();
        applyModel(jsonOf(current + name + ".before.json")["model"]);
        EXPECT_TRUE(sameBytes(savedBytes(), bytesOf(current + name + ".vln")));
    }
}

TEST_F(CurrentProject, AnInsertedSectionIsInOrderAfterReloadAndNothingElseChanges) {
    Fuselage::current(project).sel_sec = 2;
    Fuselage::current(project).insertSection(100);
    auto before = modelJson();
    ASSERT_NE(before["Fuselages"][0]["sectionOrder"], nlohmann::json({1, 2, 3, 4}));
    const MeshSections& body = Fuselages(1);
    std::vector<double> heights;
    for (int i = 1; i <= 4; ++i) heights.push_back(body.height(body.sectionOrder(i)));

    const std::string bytes = savedBytes();
    ASSERT_TRUE(readBytes(bytes));
    for (std::int16_t i = 1; i <= 4; ++i) {
        EXPECT_EQ(Fuselages(1).sectionOrder(i), i);
        EXPECT_EQ(Fuselages(1).height(i), heights[static_cast<std::size_t>(i) - 1]);
    }
    EXPECT_TRUE(sameBytes(savedBytes(), bytes));
}

TEST_F(CurrentProject, EverySpellingGivesOneModel) {
    const auto names = namesIn(reading, ".vln");
    const auto model = jsonOf(reading + "model.json")["model"];
    int spellings = 0;
    for (const auto& name : names) {
        if (name == "resaved") continue;
        SCOPED_TRACE(name);
        ++spellings;
        resetModel();
        EXPECT_EQ(readFile(reading + name + ".vln"), "");
        expectModelEquals(model, reading);
        EXPECT_TRUE(sameBytes(savedBytes(), bytesOf(reading + "resaved.vln")));
    }
    EXPECT_EQ(spellings, 7);
}

TEST_F(CurrentProject, AFileCutAfterAnyLineLeavesWhatWasRead) {
    const auto lines = linesOf(bytesOf(truncated + "default.vln"));
    ASSERT_EQ(lines.size(), 135u);
    for (std::size_t k = 0; k <= lines.size(); ++k) {
        SCOPED_TRACE(k);
        readBytes(joinedLines({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(k)}));
        char name[32];
        std::snprintf(name, sizeof name, "k%03zu.resaved.vln", k);
        ASSERT_TRUE(std::filesystem::exists(truncated + name));
        EXPECT_TRUE(sameBytes(savedBytes(), bytesOf(truncated + name)));
    }
}

TEST_F(CurrentProject, LineEndsOfAnySystemAreTaken) {
    const auto lines = linesOf(bytesOf(current + "twin_fuselage.vln"));
    for (const std::string end : {"\n", "\r", "\r\n"}) {
        std::string bytes;
        for (const auto& line : lines) bytes += line + end;
        ASSERT_TRUE(readBytes(bytes));
        EXPECT_TRUE(sameBytes(savedBytes(), bytesOf(current + "twin_fuselage.vln")));
    }
}

TEST_F(CurrentProject, TheDefaultAircraftComesBackWithItsFolder) {
    auto expected = modelJson();
    // A file keeps 15 digits, of which the points of the airfoil fill more.
    for (auto& point : expected["Wings"][0]["airfoil"])
        point[1] = std::stod(numberText(point[1].get<double>()));
    expected["projectDirectory"] = folder.path();
    const std::string path = folder / "default.vln";
    ASSERT_EQ(save(path), "");
    resetModel();
    ASSERT_EQ(readFile(path), "");
    expectModelEquals(expected);
    EXPECT_EQ(project.units, millimetres);
}

TEST_F(CurrentProject, AFileNameWithoutFolderHasAnEmptyFolder) {
    project.projectDirectory = "/somewhere/";
    readFile("no-such-file.vln");
    EXPECT_EQ(project.projectDirectory, "");
}

TEST_F(CurrentProject, AnInchProjectSwitchesTheUnitAndKeepsTheNumbers) {
    project.units = inches;
    Wings(1).span = 27.5;
    const std::string bytes = savedBytes();
    ASSERT_TRUE(readBytes(bytes));
    EXPECT_EQ(project.units, inches);
    EXPECT_EQ(Wings(1).span, 27.5);
}

// A model chosen after the read must have its size in the project's unit.
TEST_F(CurrentProject, TheCataloguesFollowTheUnitOfTheFile) {
    project.units = inches;
    const std::string inchProject = savedBytes();
    project.units = millimetres;
    const std::string millimetreProject = savedBytes();
    ASSERT_TRUE(readBytes(inchProject));
    EXPECT_EQ(Equipment::servoTypes(project.units)[7].length, 40.4 / 25.4);
    project.units = inches;
    Plane::setDefaultPlane(project);
    ASSERT_TRUE(Plane::readProjectBytes(project, millimetreProject));
    EXPECT_EQ(Equipment::servoTypes(project.units)[7].length, 40.4);
}

TEST_F(CurrentProject, TheUnitIsWrittenAsAFlag) {
    EXPECT_EQ(linesOf(savedBytes())[92], "#FALSE#");
    project.units = inches;
    EXPECT_EQ(linesOf(savedBytes())[92], "#TRUE#");
}

TEST_F(CurrentProject, ElevationOffsetsAreKept) {
    Fuselages(1).elevation_offset = 12;
    const std::string bytes = savedBytes();
    ASSERT_TRUE(readBytes(bytes));
    EXPECT_EQ(Fuselages(1).elevation_offset, 12);
}

TEST_F(CurrentProject, AQuoteInATitleComesBack) {
    Wings(1).qualified_texture_filename = "3\" wing, grey.bmp";
    const std::string bytes = savedBytes();
    ASSERT_TRUE(readBytes(bytes));
    EXPECT_EQ(Wings(1).qualified_texture_filename, "3\" wing, grey.bmp");
}

TEST_F(CurrentProject, TheStabiliserTakesItsPointCountWithoutItsPoints) {
    Stabilizer.nb = 20;
    const std::string bytes = savedBytes();
    ASSERT_TRUE(readBytes(bytes));
    EXPECT_EQ(Stabilizer.nb, 20);
    EXPECT_EQ(Stabilizer.airfoilSize(), 16);
    EXPECT_EQ(Stabilizer.pointCount(), 16);
}

TEST_F(CurrentProject, ObjectsPromisedByACutFileAreOfTheUnitAtTheTimeOfReading) {
    project.units = inches;
    const auto lines = linesOf(bytesOf(current + "default.vln"));
    // Cut behind the count of fuselages, which promises three.
    std::vector<std::string> cut(lines.begin(), std::ranges::find(lines, "Fuselage"));
    ASSERT_EQ(cut.back(), "1");
    cut.back() = "3";
    resetModel();
    project.units = inches;
    EXPECT_THROW(Plane::readProjectBytes(project, joinedLines(cut)), ReadFailure);
    project.units = millimetres;
    EXPECT_EQ(nbFuselages, 3);
    EXPECT_DOUBLE_EQ(Fuselages(3).height(2), 100 / 25.4);
}

}  // namespace velna::test
