#include "Projects.h"
#include "persistence/FuselageRecords.h"
#include "persistence/ProjectFormats.h"
#include "persistence/TailRecords.h"
#include "persistence/WingRecords.h"

namespace velna::test {

using FormatDispatch = ProjectTest;

namespace {

struct Expectation {
    const char* line;
    const char* sameAs;  ///< a line of the wanted format that is matched plainly
};

/// Plain lines, one for each format, each told apart by how its blocks are read.
const ProjectFormat& plain(const std::string& version) {
    return formatOf("# VELNA File Format V " + version);
}

}  // namespace

TEST_F(FormatDispatch, EachRowOfTheTableIsReached) {
    EXPECT_FALSE(formatOf("# VELNA File Format V0.1").readWings);
    EXPECT_EQ(plain("0.2.12").readFuselages, Fuselage::readFuselageV0212);
    EXPECT_EQ(plain("0.2.6").readFuselages, Fuselage::readFuselageV026);
    EXPECT_EQ(plain("0.3.0").readRudder, readFinV030);
    EXPECT_EQ(plain("0.3.1").readRudder, readFinV101);
    EXPECT_EQ(plain("0.3.1").lastBlock, LastBlock::equipment);
    EXPECT_EQ(plain("1.0.0").lastBlock, LastBlock::equipment);
    EXPECT_EQ(plain("1.0.1").lastBlock, LastBlock::unit);
    EXPECT_EQ(plain("1.1.0").readFuselages, Fuselage::readFuselagesV101);
    EXPECT_EQ(plain("1.2.9").readFuselages, Fuselage::readFuselagesV120);
    for (const char* version : {"1.3.0", "1.4.2", "1.5.9"}) {
        EXPECT_EQ(plain(version).readFuselages, Fuselage::readFuselages);
        EXPECT_EQ(plain(version).readWings, MainWing::readWingsV120);
        EXPECT_EQ(plain(version).lastBlock, LastBlock::unit);
    }
    for (const char* version : {"1.6.0", "1.6.1", "1.6.2"})
        EXPECT_EQ(plain(version).lastBlock, LastBlock::list);
    EXPECT_EQ(plain("1.7.3").lastBlock, LastBlock::airfoils);
    EXPECT_EQ(plain("2.2.1").readWings, MainWing::readWings);
}

TEST_F(FormatDispatch, TheFirstRowThatMatchesDecides) {
    const Expectation lines[] = {
        {"V0.1 and 0.2.12", "V0.1"}, {"# VELNA File Format V 1.7.0 was 0.2.12", "0.2.12"},
        {"V 0.2.12", "0.2.12"},      {"V 0.2", "V 0.2"},
        {"1.7.0 V 0.2", "V 0.2"},    {"1.0.0 0.3.0", "0.3.0"},
        {"1.1.0 1.0.0", "1.0.0"},    {"1.7.1 1.2.", "1.2."},
        {"1.7.1 1.6.2", "1.6.2"},
    };
    for (const auto& [line, sameAs] : lines) EXPECT_EQ(&formatOf(line), &formatOf(sameAs)) << line;
}

TEST_F(FormatDispatch, WhatNoRowKnowsIsCurrent) {
    const ProjectFormat& current = formatOf("# VELNA File Format V 2.2.1");
    const char* const lines[] = {"",
                                 "a file without a version",
                                 "# VELNA File Format V 0.1",
                                 "# VELNA File Format V 1.6.3",
                                 "# VELNA File Format V 1.6.2 ",
                                 "# VELNA File Format V 1.6.20",
                                 "# VELNA File Format v0.1",
                                 "# VELNA File Format V 1x7x0",
                                 "# VELNA File Format V  0.2.6",
                                 "# VELNA File Format V 9.9.9"};
    for (const char* line : lines) EXPECT_EQ(&formatOf(line), &current) << line;
}

TEST_F(FormatDispatch, AFirstLineOfAMegabyteIsRead) {
    const std::string blanks(1'000'000, ' ');
    EXPECT_EQ(&formatOf(blanks + "1.6.1"), &formatOf("1.6.1"));
    EXPECT_EQ(&formatOf("1.6.1" + blanks), &formatOf("2.2.1"));
    EXPECT_EQ(&formatOf(blanks + "0.2.12" + blanks), &formatOf("0.2.12"));
    auto lines = linesOf(bytesOf(projectData + "current/default.vln"));
    lines[0] += blanks;
    EXPECT_TRUE(readBytes(joinedLines(lines)));
}

TEST_F(FormatDispatch, EveryVersionIsKnownByItsFirstWingToo) {
    for (const auto& name : namesIn(projectData + "legacy/", ".json")) {
        SCOPED_TRACE(name);
        const std::string path = projectData + "legacy/" + name + ".vln";
        EXPECT_EQ(Plane::checkProject(path).reason(), "");
        auto lines = linesOf(bytesOf(path));
        if (lines[0].find("V0.1") != std::string::npos) continue;
        // Whatever stands before the version.
        if (lines[0].starts_with("# ")) lines[0].erase(0, 1);
        const auto firstWing = [&](std::ptrdiff_t count) {
            return joinedLines({lines.begin(), lines.begin() + count});
        };
        const auto head = std::ranges::find(lines, "Wing Type") - lines.begin();
        const auto next = std::find(lines.begin() + head + 1, lines.end(), "Wing Type");
        const auto end = next - lines.begin();
        EXPECT_TRUE(holdsFirstWing(firstWing(end)));
        EXPECT_FALSE(holdsFirstWing(firstWing(end - 1)));
        EXPECT_FALSE(holdsFirstWing(firstWing(1)));
    }
}

TEST_F(FormatDispatch, WhatBeginsAsAProjectIsOneHoweverShort) {
    const auto whyNot = [&](const std::string& bytes) {
        writeBytes(folder / "x.vln", bytes);
        return Plane::checkProject(folder / "x.vln").reason();
    };
    EXPECT_EQ(whyNot("# VELNA File Format V"), "");
    EXPECT_EQ(whyNot("# VELNA File Format V0.1\r\n"), "");
    for (const std::string bytes : {"", "# VELNA File Format ", "2.2.1\r\n1\r\n", "V0.1\r\n1\r\n"})
        EXPECT_EQ(whyNot(bytes), folder / "x.vln: no Velna project") << bytes;
    EXPECT_NE(Plane::checkProject(folder / "missing.vln").reason(), "");
    EXPECT_NE(Plane::checkProject(folder.path()).reason(), "");
}

}  // namespace velna::test
