#include <algorithm>
#include <fstream>

#include <nlohmann/json.hpp>

#include "support/ShellFixture.h"

namespace velna::test {
namespace {

class Startup : public ShellFixture {};

TEST_F(Startup, OpensInTheTopViewInMillimetresWithoutPrefs) {
    velna::program.run();
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
    EXPECT_EQ(project.units, millimetres);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1400");
    EXPECT_EQ(ObjectList.rows.size(), 1u);
}

TEST_F(Startup, TheFirstViewHasNoPictureAndTheEntriesThatWorkOnOneWait) {
    Main.pictures[ViewMode::VTop].shown = true;
    Main.pictures[ViewMode::VTop].scale = 50;
    velna::program.run();
    EXPECT_FALSE(Main.pictureHere().shown);
    EXPECT_EQ(Main.pictureHere().scale, 100);
    for (const Control entry : {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap})
        EXPECT_FALSE(Main.controls[entry].enabled);
}

TEST_F(Startup, ShowsSplashLayoutAndWindowInOrder) {
    velna::program.run();
    const std::vector<std::string> expected{"splash Version 2.2.1",
                                            "help file " + desktop.program + "Velna.HLP",
                                            "caption Velna V2.2.1",
                                            "layout",
                                            "help at 100 400 900 500",
                                            "show main",
                                            "hide splash"};
    EXPECT_EQ(desktop.calls, expected);
}

TEST_F(Startup, DeletesTheLogBesideTheProgramOnly) {
    velna::program.startup.monitorLoad("a line");
    EXPECT_EQ(contentOf(programFile("log.txt")), "a line\r\n");
    velna::program.run();
    EXPECT_FALSE(std::filesystem::exists(programFile("log.txt")));
}

TEST_F(Startup, AnInstallationsFolderHasNoLog) {
    desktop.program = folder.string() + "/libexec/velna/";
    std::filesystem::create_directories(desktop.program);
    velna::program.startup.monitorLoad("a line");
    EXPECT_FALSE(std::filesystem::exists(programFile("log.txt")));
    writeFile(programFile("log.txt"), "somebody else's");
    velna::program.startup.run();
    EXPECT_EQ(contentOf(programFile("log.txt")), "somebody else's");
}

TEST_F(Startup, SmallFontsNeedASettingsFile) {
    desktop.textHeight = 16;
    EXPECT_FALSE(velna::program.startup.smallFontsMode());
    writeFile(programFile("prefs.txt"), "");
    EXPECT_TRUE(velna::program.startup.smallFontsMode());
    desktop.textHeight = 17;
    EXPECT_FALSE(velna::program.startup.smallFontsMode());
    desktop.textHeight.reset();
    EXPECT_TRUE(velna::program.startup.smallFontsMode());
}

TEST_F(Startup, TheOneTickGivesTheFirstViewAndStops) {
    velna::program.run();
    ASSERT_TRUE(desktop.timer1);
    EXPECT_EQ(program.rendering.renderDistance, 100);
    velna::program.startup.timer1Tick();
    EXPECT_FALSE(desktop.timer1);
    EXPECT_EQ(program.rendering.renderDistance, 0);
    EXPECT_EQ(program.rendering.renderSpin, 900);
    EXPECT_EQ(program.rendering.renderTilt, 450);
    EXPECT_EQ(project.units, millimetres);
}

TEST_F(Startup, AStoredInchSettingConvertsAtTheFirstTick) {
    writeFile(programFile("prefs.txt"), "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n");
    velna::program.run();
    EXPECT_EQ(project.units, millimetres);
    EXPECT_DOUBLE_EQ(Wings(1).span, 700);
    velna::program.startup.timer1Tick();
    EXPECT_EQ(project.units, inches);
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_DOUBLE_EQ(Equipment::servoTypes(project.units).front().length, 25 / 25.4);
    // All five tabs show the new unit, not only the wing's.
    EXPECT_EQ(Main.controls[Control::LengthBStabText].text, "5.12");
    EXPECT_EQ(Main.controls[Control::PosServoText].text, "7.87");
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(Startup, TheGlideTimerStopsAtItsFirstTickWithoutAGlide) {
    velna::program.run();
    ASSERT_TRUE(desktop.timer2);
    velna::program.startup.timer2Tick();
    EXPECT_FALSE(desktop.timer2);
    EXPECT_TRUE(desktop.cursorPath.empty());
}

TEST_F(Startup, QuittingAsksWithNoAsTheDefault) {
    velna::program.run();
    dialogs.yesNo = {false, true};
    EXPECT_FALSE(velna::program.quit.queryUnload());
    EXPECT_TRUE(velna::program.quit.queryUnload());
    EXPECT_EQ(dialogs.asked[0].text, "Do you really want to quit Velna ?");
    EXPECT_EQ(dialogs.asked[0].icon, BoxIcon::Exclamation);
    EXPECT_FALSE(dialogs.asked[0].defaultYes);
}

TEST_F(Startup, TheFirstProperQuitWritesTheSettings) {
    velna::program.run();
    velna::program.quit.unload();
    EXPECT_EQ(contentOf(programFile("prefs.txt")), "\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n");
    EXPECT_EQ(Wings.size(), 0);
    EXPECT_EQ(Fuselages.size(), 0);
    EXPECT_FALSE(program.rendering.contextCreated);
    EXPECT_FALSE(desktop.timer1 || desktop.timer2);
    EXPECT_EQ(desktop.calls.back(), "close help");
}

TEST_F(Startup, TheKeyExitEndsAtOnceAndWritesNothing) {
    velna::program.run();
    program.toolbar.click(Toolbar::Key::Exit);
    EXPECT_EQ(desktop.calls.back(), "end");
    EXPECT_FALSE(std::filesystem::exists(programFile("prefs.txt")));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(Startup, AQuitDuringAFlightEndsItFirstAndThenAsks) {
    velna::program.run();
    int questions = 0;
    context.events = [&] {
        ++questions;
        EXPECT_FALSE(velna::program.quit.queryUnload());
        EXPECT_FALSE(program.flying.flying);
        EXPECT_TRUE(dialogs.asked.empty());
        EXPECT_NE(desktop.calls.back(), "close main");
    };
    program.toolbar.click(Toolbar::Key::FlyingPreview);
    EXPECT_GE(questions, 1);
    EXPECT_EQ(desktop.calls.back(), "close main");
    desktop.calls.clear();
    velna::program.quit.closeIfAsked();
    EXPECT_TRUE(desktop.calls.empty());
}

TEST_F(Startup, AQuitDuringACommandWaitsForItsEnd) {
    velna::program.run();
    dialogs.inPreferences = [&] {
        EXPECT_FALSE(velna::program.quit.queryUnload());
        velna::program.quit.closeIfAsked();
        EXPECT_NE(desktop.calls.back(), "close main");
    };
    program.toolbar.click(Toolbar::Key::Prefs);
    EXPECT_EQ(desktop.calls.back(), "close main");
    dialogs.yesNo = {true};
    EXPECT_TRUE(velna::program.quit.queryUnload()) << "and is asked then";
    EXPECT_EQ(dialogs.asked.back().text, "Do you really want to quit Velna ?");
}

TEST_F(Startup, ALogOutIsAskedOnceAndAPressWithdrawsTheAnswer) {
    velna::program.run();
    dialogs.yesNo = {false, true, true, false};
    EXPECT_FALSE(velna::program.quit.querySessionEnd());
    EXPECT_TRUE(velna::program.quit.queryUnload()) << "a No is no agreement: the next close asks";
    EXPECT_TRUE(velna::program.quit.querySessionEnd());
    const auto questions = dialogs.asked.size();
    EXPECT_TRUE(velna::program.quit.queryUnload());
    EXPECT_EQ(dialogs.asked.size(), questions) << "a Yes is not asked for twice";
    velna::program.quit.sessionGoesOn();
    EXPECT_FALSE(velna::program.quit.queryUnload());
}

TEST_F(Startup, AnEndBeforeTheSettingsAreReadLeavesThemAlone) {
    const std::string content = "\"DoIt\"\r\n#TRUE#\r\n#FALSE#\r\n";
    writeFile(programFile("prefs.txt"), content);
    program.preferences.known = false;
    velna::program.startup.initMain();
    velna::program.quit.unload();
    EXPECT_EQ(contentOf(programFile("prefs.txt")), content);
}

nlohmann::json shownNow() {
    const View& view = program.rendering.shownView;
    return {"setViewTransform", view.panX, view.panY, view.distance, view.spin, view.tilt};
}

void expectViewState(const nlohmann::json& state, const std::string& step) {
    EXPECT_EQ(program.rendering.renderSpin, state["renderSpin"].get<double>()) << step;
    EXPECT_EQ(program.rendering.renderTilt, state["renderTilt"].get<double>()) << step;
    EXPECT_EQ(program.rendering.renderDistance, state["renderDistance"].get<double>()) << step;
    EXPECT_EQ(program.rendering.renderPanX, state["renderPanX"].get<double>()) << step;
    EXPECT_EQ(program.rendering.renderPanY, state["renderPanY"].get<double>()) << step;
    EXPECT_EQ(program.rendering.rotating, state["rotating"].get<bool>()) << step;
    EXPECT_EQ(program.rendering.zooming, state["zooming"].get<bool>()) << step;
    EXPECT_EQ(program.rendering.panning, state["panning"].get<bool>()) << step;
}

/// Contexts made, lists built and frames shown of a step. A new context shows a first picture, and
/// builds it; the list of an unchanged model is replayed, and of several frames of one step the
/// last is enough.
void expectRenderCalls(const nlohmann::json& told, const std::string& step) {
    int contexts = 0;
    int built = 0;
    int replayed = 0;
    for (const auto& call : told) {
        if (call[0] == "createRenderContext") ++contexts;
        if (call[0] == "renderScene") ++(call[1].get<bool>() ? built : replayed);
    }
    EXPECT_EQ(GlTape::count("create"), contexts) << step;
    const int lists = GlTape::count("glNewList") - contexts;
    EXPECT_LE(lists, built) << step;
    const int frames = GlTape::count("SwapBuffers") - contexts;
    EXPECT_EQ(frames > 0, built + replayed > 0) << step;
    EXPECT_LE(frames, built + replayed) << step;
}

/// The picture's state at the end of the start, after the timer's first interval and after its
/// second, and under the first drag, with and without a stored inch setting, as computed by other
/// means.
TEST_F(Startup, ThePictureStartsAsComputedByOtherMeans) {
    std::ifstream in(VELNA_TEST_DATA "/scene/cases.json");
    const auto cases = nlohmann::json::parse(in);
    for (const auto& scenario : cases["startup"]) {
        SetUp();
        GlTape::calls().clear();
        velna::program.run();
        Main.Prefs.selectUnit(scenario["InchesOption"].get<bool>() ? inches : millimetres);
        nlohmann::json expected;
        for (const auto& step : scenario["steps"]) {
            const auto name = step["step"].get<std::string>();
            if (name.starts_with("press")) {
                program.renderPointer.mouseDown(Rendering::leftButton, 0, 300, 100);
                program.renderPointer.mouseMove(301, 100);
            }
            if (name == "release") program.renderPointer.mouseUp(Rendering::leftButton, 301, 100);
            if (name.starts_with("Timer1") && desktop.timer1) velna::program.startup.timer1Tick();
            for (const auto& call : step["calls"])
                if (call[0] == "setViewTransform") expected = call;
            if (!expected.empty()) {
                EXPECT_EQ(shownNow(), expected) << name;
            }
            expectViewState(step["state"], name);
            expectRenderCalls(step["calls"], name);
            GlTape::calls().clear();
            if (step.contains("timer1")) {
                EXPECT_EQ(desktop.timer1, step["timer1"].get<bool>()) << name;
            }
        }
        TearDown();
    }
    SetUp();
}

TEST_F(Startup, TheWayBackShowsThePictureAsTheStartDid) {
    for (const int unit : {millimetres, inches}) {
        SetUp();
        velna::program.run();
        Main.Prefs.selectUnit(unit);
        while (desktop.timer1) velna::program.startup.timer1Tick();
        const nlohmann::json start = shownNow();
        program.renderPointer.zoomBy(300);
        ASSERT_NE(shownNow(), start);
        program.renderPointer.showStartView();
        EXPECT_EQ(shownNow(), start);
        TearDown();
    }
}

}  // namespace
}  // namespace velna::test
