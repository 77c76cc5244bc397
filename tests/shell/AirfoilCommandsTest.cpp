// Airfoils beside the Open command's own import: files in any order, NACA sections, all panels.

#include <algorithm>

#include "FileCommandsFixture.h"
#include "model/MainWing.h"
#include "model/NacaSection.h"

namespace velna::test {
namespace {

using Toolbar::Key;

const std::string airfoils = std::string(VELNA_SOURCE_DIR) + "/examples/airfoils/";
constexpr int ownOrder = 2;
constexpr int anyOrder = 4;

class AirfoilCommandsTest : public FileCommandsFixture {
protected:
    void open(const std::string& path, int kind) {
        answerFile(path, kind);
        program.toolbar.click(Key::Open);
    }
    void makePanels(int count) {
        while (nbWings < count) {
            ++nbWings;
            MainWing::addWing(project);
        }
        currentWing = static_cast<std::int16_t>(count);
        Main.refreshPanels();
        Main.beginHistory();
    }
    std::string undoText() const { return Main.controls[Control::UndoButton].text; }
    std::size_t steps() const { return Main.history.stepCount(); }
};

TEST_F(AirfoilCommandsTest, FilesOfEveryOrderGiveTheWingOfTheOwnBitForBit) {
    open(airfoils + "naca2412.xy", ownOrder);
    const SymWingSections wanted = Wings(1);
    for (const char* name : {"naca2412-selig.dat", "naca2412-lednicer.dat", "naca2412.xy"}) {
        Wings(1).init(project.defaultColor);
        Main.savedProject = true;
        open(airfoils + name, anyOrder);
        EXPECT_TRUE(Wings(1) == wanted) << name;
        EXPECT_FALSE(Main.savedProject);
        EXPECT_EQ(undoText(), "Airfoil");
    }
    // From outside they are known by what they hold, whatever their name.
    std::filesystem::copy(airfoils + "naca2412-lednicer.dat", folder / "section");
    std::filesystem::copy(airfoils + "naca2412-selig.dat", folder / "SECTION.TXT");
    for (const std::string& path :
         {airfoils + "naca2412-selig.dat", file("section"), file("SECTION.TXT")}) {
        Wings(1).init(project.defaultColor);
        program.toolbar.openFile(path);
        EXPECT_TRUE(Wings(1) == wanted) << path;
    }
    EXPECT_EQ(dialogs.story().find("message"), std::string::npos);
}

TEST_F(AirfoilCommandsTest, WhatIsNoAirfoilIsToldInOneMessageAndTheWingStays) {
    writeFile(file("letter.dat"), "Dear Sir,\n");
    writeFile(file("one.dat"), "title\n1 0\n");
    writeFile(file("binary.dat"), std::string(400, '\0'));
    writeFile(file("plate.dat"), "plate\n1 0\n0.5 0.001\n0 0\n0.5 -0.001\n1 0\n");
    const std::pair<const char*, const char*> rows[] = {
        {"letter.dat", "it has no lines of two numbers with decimal points"},
        {"one.dat", "too few points"},
        {"binary.dat", "it is no text"},
        {"plate.dat", "it is thinner than half a percent"}};
    for (const auto& [name, reason] : rows)
        for (const bool fromOutside : {false, true}) {
            SCOPED_TRACE(name);
            dialogs.asked.clear();
            const Project before = project;
            Main.savedProject = true;
            fromOutside ? program.toolbar.openFile(file(name)) : open(file(name), anyOrder);
            const std::size_t messages = fromOutside ? 1 : 2;
            ASSERT_EQ(dialogs.asked.size(), messages);
            EXPECT_EQ(dialogs.asked.back().text,
                      std::string(name) + " could not be opened. The aircraft stays as it is.\n" +
                          file(name) + ": no airfoil (" + reason + ")");
            EXPECT_TRUE(project == before);
            EXPECT_TRUE(Main.savedProject);
        }
    EXPECT_EQ(steps(), 0U);
    dialogs.asked.clear();
    open(file("missing.dat"), anyOrder);
    EXPECT_EQ(dialogs.story(), "open message");
}

TEST_F(AirfoilCommandsTest, TextThatIsNoAirfoilIsStillAskedToBeAProject) {
    writeFile(file("letter.txt"), "Dear Sir,\n");
    program.toolbar.openFile(file("letter.txt"));
    ASSERT_EQ(dialogs.story(), "message");
    EXPECT_NE(dialogs.asked[0].text.find("no Velna project"), std::string::npos);
}

TEST_F(AirfoilCommandsTest, ANacaSectionGoesOnTheCurrentPanelInOneStepAndTheViewStays) {
    makePanels(3);
    currentWing = 2;
    program.toolbar.click(Key::Side);
    const Project before = project;
    Main.savedProject = true;
    dialogs.nacas = {NacaAnswer{"NACA 4415", 35, true, false}};
    program.toolbar.click(Key::NacaSection);
    EXPECT_EQ(dialogs.story(), "naca");
    EXPECT_EQ(Wings(2).nb, 35);
    EXPECT_EQ(Wings(2).thickness1, 0.15);
    EXPECT_EQ(Main.controls[Control::ThicknessBText].text, "0.15");
    EXPECT_EQ(Wings(1), before.Wings(1));
    EXPECT_EQ(Wings(3), before.Wings(3));
    EXPECT_EQ(Stabilizer, before.Stabilizer);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.view.mode, ViewMode::Side);
    EXPECT_EQ(undoText(), "NACA section");
    EXPECT_EQ(steps(), 1U);
    program.toolbar.click(Key::Undo);
    EXPECT_TRUE(project == before);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(AirfoilCommandsTest, ANacaSectionGoesOnAllPanelsInOneStepAndTheDialogIsAsItWasLeft) {
    makePanels(3);
    const Project before = project;
    dialogs.nacas = {NacaAnswer{"23012", 61, false, true}, std::nullopt};
    program.toolbar.click(Key::NacaSection);
    for (int wing = 1; wing <= 3; ++wing) {
        EXPECT_EQ(Wings(wing).nb, 61);
        EXPECT_EQ(Wings(wing).thickness2, 0.12);
        EXPECT_EQ(Wings(wing).span, before.Wings(wing).span);
    }
    EXPECT_EQ(Stabilizer, before.Stabilizer);
    EXPECT_EQ(steps(), 1U);
    const Project after = project;
    program.toolbar.click(Key::NacaSection);
    EXPECT_EQ(dialogs.asked.back().text, "23012");
    EXPECT_TRUE(project == after) << "a cancelled dialog changes nothing";
    program.toolbar.click(Key::Undo);
    EXPECT_TRUE(project == before);
}

TEST_F(AirfoilCommandsTest, ANumberThatNoSectionHasIsToldAndTheWingStays) {
    const Project before = project;
    dialogs.nacas = {NacaAnswer{"2012", 61, true, true}};
    program.toolbar.click(Key::NacaSection);
    EXPECT_EQ(dialogs.story(), "naca message");
    EXPECT_TRUE(project == before);
    EXPECT_EQ(steps(), 0U);
}

TEST_F(AirfoilCommandsTest, TheCurrentPanelsAirfoilGoesOnAllPanelsInOneStep) {
    makePanels(3);
    currentWing = 2;
    open(airfoils + "naca6409.xy", ownOrder);
    const Project before = project;
    program.toolbar.click(Key::AirfoilOnAll);
    for (int wing = 1; wing <= 3; ++wing) {
        EXPECT_EQ(AirfoilOutline::ofRoot(Wings(wing)), AirfoilOutline::ofRoot(Wings(2)));
        EXPECT_EQ(Wings(wing).thickness1, 0.09);
    }
    EXPECT_EQ(Stabilizer, before.Stabilizer);
    EXPECT_EQ(undoText(), "Airfoil on all panels");
    EXPECT_EQ(solids.wings(3).Left.pointCount(), Wings(2).nb) << "the picture is built anew";
    program.toolbar.click(Key::Undo);
    EXPECT_TRUE(project == before);
}

TEST_F(AirfoilCommandsTest, AWingThatIsAllAlikeHasNothingToSaveAfterIt) {
    Main.savedProject = true;
    program.toolbar.click(Key::AirfoilOnAll);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(steps(), 0U);
}

}  // namespace
}  // namespace velna::test
