#include "Projects.h"
#include "persistence/AirfoilFiles.h"
#include "support/ModelJson.h"

namespace velna::test {

/// A test with an airfoil file of its own.
class AirfoilFile : public ProjectTest {
protected:
    /// Puts `bytes` on the current wing, from a file.
    void load(const std::string& bytes) {
        writeBytes(folder / "foil.xy", bytes);
        Plane::loadAirfoil(project, folder / "foil.xy");
    }

    /// The same as the Open command does it.
    void open(const std::string& bytes) {
        writeBytes(folder / "foil.xy", bytes);
        openAirfoil(project, folder / "foil.xy");
    }
};

namespace {

/// A title and `points` points on a parabola, lines ending in `end`.
std::string foil(int points, const std::string& end = "\r\n") {
    std::string bytes = "A title, 1 2 3" + end;
    for (int i = 0; i < points; ++i) {
        const double x = 1 - static_cast<double>(i % 50) / 50;
        bytes += std::to_string(x) + " " + std::to_string(i < points / 2 ? -0.1 : 0.1) + end;
    }
    return bytes;
}

}  // namespace

TEST_F(AirfoilFile, PutsItsPointsOnTheCurrentWingAlone) {
    nbWings = 2;
    MainWing::addWing(project);
    currentWing = 2;
    const auto before = modelJson();
    load("title\r\n1 0\r\n0.5 -0.05\r\n0 0\r\n0.5 0.05\r\n1 0\r\n");
    EXPECT_EQ(Wings(2).nb, 5);
    EXPECT_EQ(Wings(2).airfoilSize(), 5);
    EXPECT_EQ(Wings(2).airfoilPoint(2).x, 0.5);
    EXPECT_EQ(Wings(2).airfoilPoint(2).y, 0);
    EXPECT_DOUBLE_EQ(Wings(2).airfoilPoint(2).z, -0.5);
    EXPECT_EQ(Wings(2).thickness1, 0.1);
    EXPECT_EQ(Wings(2).thickness2, 0.1);
    solids.createAll(project);
    EXPECT_EQ(solids.wings(2).Left.pointCount(), 5);
    const auto after = modelJson();
    EXPECT_EQ(after["Wings"][0], before["Wings"][0]);
    EXPECT_EQ(after["Stabilizer"], before["Stabilizer"]);
}

TEST_F(AirfoilFile, TheLastLineNeedsNoEnd) {
    auto bytes = foil(10);
    bytes.resize(bytes.size() - 2);
    load(bytes);
    EXPECT_EQ(Wings(1).nb, 10);
}

TEST_F(AirfoilFile, CarriageReturnsAloneEndLines) {
    load(foil(12, "\r"));
    EXPECT_EQ(Wings(1).nb, 12);
    EXPECT_NE(Wings(1).airfoilPoint(12).x, 0);
}

TEST_F(AirfoilFile, LineFeedsAloneEndNoLine) {
    load(foil(12, "\n"));
    EXPECT_EQ(Wings(1).nb, 0);
    EXPECT_EQ(Wings(1).airfoilSize(), 0);
    // No points have no thickness, which the panel then shows.
    EXPECT_EQ(Wings(1).thickness1, 0);
}

TEST_F(AirfoilFile, TheOpenCommandTakesLineFeeds) {
    open(foil(12, "\n") + "\n\n \n");
    EXPECT_EQ(Wings(1).nb, 12);
    const auto points = modelJson()["Wings"][0]["airfoil"];
    resetModel();
    load(foil(12));
    EXPECT_EQ(modelJson()["Wings"][0]["airfoil"], points);
}

TEST_F(AirfoilFile, PreparingLeavesOtherLineEndsAlone) {
    EXPECT_EQ(prepareAirfoilBytes("t\r\n1 0\r\n\r\n"), "t\r\n1 0\r\n\r\n");
    EXPECT_EQ(prepareAirfoilBytes("t\r1 0\r"), "t\r1 0\r");
    EXPECT_EQ(prepareAirfoilBytes("t\r\n1 0\n"), "t\r\n1 0\n");
    EXPECT_EQ(prepareAirfoilBytes("one line"), "one line");
    EXPECT_EQ(prepareAirfoilBytes(""), "");
    EXPECT_EQ(prepareAirfoilBytes("t\n1 0\n0 0"), "t\r\n1 0\r\n0 0\r\n");
    EXPECT_EQ(prepareAirfoilBytes("t\n1 0\n\n0 0\n\n\n"), "t\r\n1 0\r\n\r\n0 0\r\n");
    EXPECT_EQ(prepareAirfoilBytes("\n\n"), "\r\n");
}

TEST_F(AirfoilFile, EveryLineBehindTheTitleCounts) {
    EXPECT_EQ(countAirfoilPoints(""), 0u);
    EXPECT_EQ(countAirfoilPoints("title"), 0u);
    EXPECT_EQ(countAirfoilPoints("title\r\n"), 0u);
    EXPECT_EQ(countAirfoilPoints("title\r\n1 0"), 1u);
    EXPECT_EQ(countAirfoilPoints("title\r\n1 0\r\n"), 1u);
    EXPECT_EQ(countAirfoilPoints("title\r\n1 0\r\n\r\n"), 2u);
    EXPECT_EQ(countAirfoilPoints("title\r\n\r\n\r\n1 0"), 3u);
    EXPECT_EQ(countAirfoilPoints("title\r1 0\r0 0\r"), 2u);
    EXPECT_EQ(countAirfoilPoints("title\r\n1 0\n0 0\r\n"), 1u);
}

TEST_F(AirfoilFile, AnEmptyLineAtTheEndStopsTheImportBehindThePoints) {
    const double thickness = Wings(1).thickness1;
    solids.createAll(project);
    load("title\r\n1 0\r\n0 0.25\r\n1 0\r\n\r\n");
    EXPECT_EQ(Wings(1).nb, 4);
    EXPECT_EQ(Wings(1).airfoilPoint(2).z, 0.25);
    EXPECT_EQ(Wings(1).airfoilPoint(4), Point3D{});
    EXPECT_EQ(Wings(1).thickness1, thickness);
    EXPECT_EQ(solids.wings(1).Left.builtCount(), 16);  // the solid is that of before
    // A later import works.
    load(foil(10));
    EXPECT_EQ(Wings(1).nb, 10);
}

TEST_F(AirfoilFile, ATitleAloneGivesNoPoints) {
    load("title\r\n");
    EXPECT_EQ(Wings(1).nb, 0);
    EXPECT_EQ(Wings(1).airfoilSize(), 0);
    solids.createAll(project);
}

TEST_F(AirfoilFile, NumbersEndAtABlankACommaOrALineEnd) {
    load("t\r\n1,0\r\n0.5, -0.05\r\n\t0\t0\r\n.5 , 5E-2\r\n1.\r\n0\r\n1 0");
    EXPECT_EQ(Wings(1).nb, 7);
    EXPECT_EQ(Wings(1).airfoilPoint(2).x, 0.5);
    EXPECT_EQ(Wings(1).airfoilPoint(2).z, -0.05);
    EXPECT_EQ(Wings(1).airfoilPoint(4).x, 0.5);
    EXPECT_EQ(Wings(1).airfoilPoint(5).x, 1);
    EXPECT_EQ(Wings(1).airfoilPoint(5).z, 0);
}

TEST_F(AirfoilFile, WhatIsNoNumberStopsTheImport) {
    for (const std::string bad :
         {"text", "1", "nan 0", "0 inf", "1E308x 0", ",0 0", "1,,0", "0x1 0", "1e999 0"}) {
        SCOPED_TRACE(bad);
        resetModel();
        const double thickness = Wings(1).thickness1;
        load("t\r\n1 0.5\r\n" + bad + "\r\n1 0\r\n");
        EXPECT_EQ(Wings(1).nb, 3);
        EXPECT_EQ(Wings(1).airfoilPoint(1).z, 0.5);
        EXPECT_EQ(Wings(1).thickness1, thickness);
        EXPECT_EQ(Wings(1).airfoilPoint(3).x, 0);
        solids.createAll(project);
    }
}

TEST_F(AirfoilFile, EveryLineReplacedLeavesAUsableWing) {
    const auto lines = linesOf(foil(12));
    for (std::size_t k = 0; k < lines.size(); ++k)
        for (const std::string& replacement :
             {std::string("text"), std::string(), std::string(400, '9'), std::string("-1"),
              std::string("32768 1E308"), std::string("1E308 -1E308"), std::string("nan")}) {
            SCOPED_TRACE(std::to_string(k) + ": " + replacement);
            resetModel();
            auto changed = lines;
            changed[k] = replacement;
            load(joinedLines(changed));
            EXPECT_EQ(Wings(1).nb, 12);
            EXPECT_EQ(Wings(1).airfoilSize(), 12);
            solids.createAll(project);
            const std::string saved = savedBytes();
            EXPECT_TRUE(readBytes(saved));
        }
}

TEST_F(AirfoilFile, EveryCutLeavesAUsableWing) {
    const std::string bytes = foil(12);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        load(bytes.substr(0, size));
        EXPECT_EQ(Wings(1).airfoilSize(), Wings(1).nb);
        solids.createAll(project);
    }
}

TEST_F(AirfoilFile, OneOrTwoPointsAreTaken) {
    load("t\r\n1 0.25\r\n");
    EXPECT_EQ(Wings(1).nb, 1);
    EXPECT_EQ(Wings(1).airfoilPoint(1).x, 1);
    resetModel();
    load("t\r\n0 0.25\r\n1 -0.5\r\n");
    EXPECT_EQ(Wings(1).nb, 2);
    // With no pair to compare, the profile is as thick as its farthest point is from the chord.
    EXPECT_EQ(Wings(1).thickness1, 0.5);
    EXPECT_EQ(Wings(1).airfoilPoint(2).z, -1);
    solids.createAll(project);
}

TEST_F(AirfoilFile, AFlatProfileKeepsItsHeights) {
    load("t\r\n1 0\r\n0.5 0\r\n0 0\r\n");
    EXPECT_EQ(Wings(1).thickness1, 0);
    EXPECT_EQ(Wings(1).airfoilPoint(2).z, 0);
    resetModel();
    const double thickness = Wings(1).thickness1;
    load("t\r\n1 0.1\r\n1 -0.1\r\n1 0.1\r\n");
    EXPECT_EQ(Wings(1).thickness1, thickness);
}

TEST_F(AirfoilFile, AnXRangeOfAHundredIsTakenAsItStands) {
    load("t\r\n100 0\r\n50 -5\r\n0 0\r\n50 5\r\n100 0\r\n");
    EXPECT_EQ(Wings(1).airfoilPoint(1).x, 100);
    EXPECT_EQ(Wings(1).thickness1, 0.1);
}

TEST_F(AirfoilFile, AsManyPointsAsAWingCanHoldAreTaken) {
    load(foil(32767));
    EXPECT_EQ(Wings(1).nb, 32767);
    EXPECT_EQ(Wings(1).airfoilSize(), 32767);
}

TEST_F(AirfoilFile, FortyThousandPointsChangeNothing) {
    const auto before = modelJson();
    load(foil(40000));
    expectModelEquals(before);
    load(foil(32768));
    expectModelEquals(before);
}

TEST_F(AirfoilFile, WhatCannotBeOpenedChangesNothing) {
    const auto before = modelJson();
    for (const std::string& path : {folder / "missing.xy", folder.path(), std::string{}}) {
        Plane::loadAirfoil(project, path);
        openAirfoil(project, path);
        expectModelEquals(before);
    }
    load("");
    expectModelEquals(before);
}

TEST_F(AirfoilFile, BytesThatAreNoTextChangeNoMoreThanTheirLinesTell) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(i * 37 % 256);
    load(bytes);
    open(bytes);
    EXPECT_EQ(Wings(1).nb, countAirfoilPoints(bytes));
    EXPECT_EQ(Wings(1).airfoilSize(), Wings(1).nb);
    EXPECT_EQ(Wings(1).airfoilPoint(1), Point3D{});
    EXPECT_EQ(Wings(1).thickness1, 0.13) << "not computed anew";
    load(foil(10));
    EXPECT_EQ(Wings(1).nb, 10) << "and the next file is read";
}

TEST_F(AirfoilFile, TheProjectKeepsThePointsWithoutNormalisingThemAgain) {
    load("t\r\n1 0\r\n0.5 -0.05\r\n0 0\r\n0.5 0.08\r\n1 0\r\n");
    Wings(1).thickness1 = 0.2;
    const auto points = modelJson()["Wings"][0]["airfoil"];
    const std::string saved = savedBytes();
    ASSERT_TRUE(readBytes(saved));
    EXPECT_EQ(Wings(1).nb, 5);
    EXPECT_EQ(Wings(1).thickness1, 0.2);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(modelJson()["Wings"][0]["airfoil"][i][1].get<double>(),
                    points[i][1].get<double>(), 1e-14);
}

}  // namespace velna::test
