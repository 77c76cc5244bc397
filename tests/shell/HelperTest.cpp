#include <algorithm>
#include <cmath>

#include "support/ShellFixture.h"

namespace velna::test {
namespace {

/// The demonstration with a desktop that behaves like a real one: while events are pumped the
/// glide's timer ticks, and the moved cursor reaches the drawing area as a move without a button.
class Demonstration : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
        desktop.onPump = [this] {
            velna::program.startup.timer2Tick();
            Main.DrawArea_MouseMove(0, 0, static_cast<float>(desktop.cursor.x - 100),
                                    static_cast<float>(desktop.cursor.y - 400));
            if (stopAfter && --*stopAfter == 0) program.helper.stop();
        };
    }

    std::optional<int> stopAfter;
};

TEST_F(Demonstration, RunsWhenTheSettingsAskForItAndNotTheNextTime) {
    // The settings that a fresh installation starts with.
    writeFile(programFile("prefs.txt"), contentOf(VELNA_SOURCE_DIR "/src/shell/prefs.txt"));
    velna::program.run();
    EXPECT_EQ(dialogs.story(), "message message message message");
    velna::program.quit.unload();
    dialogs.asked.clear();
    program.preferences.readAll();
    EXPECT_EQ(program.preferences.firstUseState, "Done");
}

TEST_F(Demonstration, ShowsFourBoxesWithTheirTexts) {
    program.helper.run();
    ASSERT_EQ(dialogs.asked.size(), 4u);
    const char* texts[] = {
        "The following demonstration shows how to use\nthe Mouse, the Shift and the Control key\n"
        "The cursor will move AUTOMATICALLY",
        "MOUSE edits ...", "SHIFT button for horizontal moves ...",
        "CTRL key for insert/remove sections ..."};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(dialogs.asked[i].text, texts[i]);
        EXPECT_EQ(dialogs.asked[i].title, "First use Help");
        EXPECT_EQ(dialogs.asked[i].icon, BoxIcon::Information);
    }
}

TEST_F(Demonstration, DragsTheWingTipBackAndInwardAndInsertsASection) {
    const double zoom = Main.view.zoom;
    program.helper.run();
    // The glide stops within 3 pixels of its end: 50 down, then 50 towards the body.
    EXPECT_NEAR(Wings(1).pos2, 10 + 50 / zoom, 5 / zoom);
    EXPECT_LT(Wings(1).span, 700);
    EXPECT_EQ(Fuselages(1).nb_sections, 4);
    EXPECT_EQ(Main.view.mode, ViewMode::Side);
    EXPECT_EQ(Main.tab(), PanelTab::fuselage);
    EXPECT_EQ(desktop.calls.back(), "popup");
    EXPECT_FALSE(Main.controls[Control::ShiftButton].visible);
    EXPECT_FALSE(Main.pointer.shiftkey || Main.pointer.ctrlkey);
    EXPECT_FALSE(Main.anyBusy());
}

TEST_F(Demonstration, TheSignStandsBesideTheCursor) {
    std::vector<std::string> captions;
    desktop.onPump = [&, step = desktop.onPump] {
        const auto& sign = Main.controls[Control::ShiftButton];
        if (sign.visible && (captions.empty() || captions.back() != sign.text))
            captions.push_back(sign.text);
        step();
    };
    program.helper.run();
    EXPECT_EQ(captions, (std::vector<std::string>{"Shift key", "Ctrl key"}));
}

/// Where the glides begin and end: each step comes from the middle of the screen to its place, the
/// tip's middle and then the second section, and leaves it again.
TEST_F(Demonstration, TheGlidesGoToTheirPlacesFromTheMiddleOfTheScreen) {
    struct Glide {
        Point2D from;
        Point2D to;
    };
    std::vector<Glide> glides;
    desktop.onPump = [&, step = desktop.onPump] {
        if (glides.empty() || glides.back().to != program.helper.cursorTarget)
            glides.push_back({program.helper.cursorPos, program.helper.cursorTarget});
        step();
    };
    const Point2D tip{700 * Main.view.zoom + Main.view.xoff + 100,
                      (190 + 10 + 130.0 / 2) * Main.view.zoom + Main.view.yoff + 400};
    program.helper.run();
    ASSERT_EQ(glides.size(), 9u);
    EXPECT_EQ(glides[0].to, tip);
    for (const std::size_t i : {0u, 3u, 6u}) EXPECT_EQ(glides[i].from, (Point2D{500, 400})) << i;
    const Point2D ways[] = {{0, 50}, {10, 0}, {-50, 0}, {60, 10}, {0, 20}, {60, 0}};
    for (std::size_t i = 0; i < 6; ++i) {
        const std::size_t glide = i + 1 + i / 2;
        const Point2D place = glides[glide - glide % 3].to;
        EXPECT_EQ(glides[glide].from, glides[glide - 1].to) << glide;
        EXPECT_EQ(glides[glide].to, (Point2D{place.x + ways[i].x, place.y + ways[i].y})) << glide;
    }
    // The sign of the Shift drag hangs at the middle of the screen, that of the insertion at its
    // place.
    std::vector<std::string> signs;
    for (const std::string& call : desktop.calls)
        if (call.starts_with("sign")) signs.push_back(call);
    const auto sign = [](double left, double top) {
        return "sign " + std::to_string(std::lrint(left)) + " " + std::to_string(std::lrint(top));
    };
    EXPECT_EQ(signs, (std::vector<std::string>{sign(500, glides[3].to.y),
                                               sign(glides[6].to.x, glides[6].to.y)}));
}

TEST_F(Demonstration, StopsAtAnyStepWithNothingLeftBehind) {
    for (const int step : {1, 5, 40, 90, 130, 170, 220}) {
        SetUp();
        stopAfter = step;
        program.helper.run();
        EXPECT_FALSE(Main.anyBusy()) << step;
        EXPECT_FALSE(Main.pointer.shiftkey || Main.pointer.ctrlkey || Main.pointer.altkey) << step;
        EXPECT_FALSE(Main.controls[Control::ShiftButton].visible) << step;
        EXPECT_FALSE(desktop.timer2) << step;
        EXPECT_FALSE(program.helper.running) << step;
    }
}

TEST_F(Demonstration, EscapeInABoxStopsIt) {
    dialogs.dismissals = {true, false};
    program.helper.run();
    EXPECT_EQ(dialogs.asked.size(), 2u);
    EXPECT_EQ(Wings(1).pos2, 10);
}

TEST_F(Demonstration, AQuitMeanwhileStopsItAndThenAsks) {
    writeFile(programFile("prefs.txt"), contentOf(VELNA_SOURCE_DIR "/src/shell/prefs.txt"));
    desktop.onPump = [this] {
        program.startup.timer2Tick();
        if (desktop.pumped == 20) {
            EXPECT_FALSE(program.quit.queryUnload());
        }
    };
    program.run();
    EXPECT_EQ(desktop.pumped, 20);
    EXPECT_EQ(desktop.calls.back(), "close main");
}

TEST_F(Demonstration, TheGlideGoesATenthOfTheWayAndStopsShort) {
    program.helper.cursorPos = {0, 0};
    program.helper.cursorTarget = {100, 50};
    desktop.timer2 = true;
    program.helper.glideStep();
    EXPECT_EQ(program.helper.cursorPos, (Point2D{10, 5}));
    EXPECT_EQ(desktop.cursorPath, (std::vector<Point2D>{{10, 5}}));
    while (desktop.timer2) program.helper.glideStep();
    EXPECT_LT(100 - program.helper.cursorPos.x, 3);
    EXPECT_LT(50 - program.helper.cursorPos.y, 3);
    EXPECT_NE(desktop.cursorPath.back(), (Point2D{100, 50}));
}

}  // namespace
}  // namespace velna::test
