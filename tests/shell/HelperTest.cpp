#include <algorithm>
#include <cmath>

#include "model/Fuselage.h"
#include "model/Plane.h"
#include "preview/Rendering.h"
#include "shell/Helper.h"
#include "shell/Preferences.h"
#include "shell/Startup.h"
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
            velna::Startup::timer2Tick();
            Main.DrawArea_MouseMove(0, 0, static_cast<float>(desktop.cursor.x - 100),
                                    static_cast<float>(desktop.cursor.y - 400));
            if (stopAfter && --*stopAfter == 0) Helper::stop();
        };
    }

    std::optional<int> stopAfter;
};

TEST_F(Demonstration, RunsWhenTheSettingsAskForItAndNotTheNextTime) {
    // The settings that a fresh installation starts with.
    writeFile(programFile("prefs.txt"), contentOf(VELNA_SOURCE_DIR "/src/shell/prefs.txt"));
    velna::Startup::run();
    EXPECT_EQ(dialogs.story(), "message message message message");
    velna::Startup::unload();
    dialogs.asked.clear();
    Preferences::readAll();
    EXPECT_EQ(Preferences::firstUseState, "Done");
}

TEST_F(Demonstration, ShowsFourBoxesWithTheirTexts) {
    Helper::run();
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
    const double zoom = Main.zoom;
    Helper::run();
    // The glide stops within 3 pixels of its end: 50 down, then 50 towards the body.
    EXPECT_NEAR(Wings(1).pos2, 10 + 50 / zoom, 5 / zoom);
    EXPECT_LT(Wings(1).span, 700);
    EXPECT_EQ(Fuselages(1).nb_sections, 4);
    EXPECT_EQ(Main.mode, ViewMode::Side);
    EXPECT_EQ(Main.tab(), PanelTab::fuselage);
    EXPECT_EQ(desktop.calls.back(), "popup");
    EXPECT_FALSE(Main.controls[Control::ShiftButton].visible);
    EXPECT_FALSE(Main.shiftkey || Main.ctrlkey);
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
    Helper::run();
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
        if (glides.empty() || glides.back().to != Helper::cursorTarget)
            glides.push_back({Helper::cursorPos, Helper::cursorTarget});
        step();
    };
    const Point2D tip{700 * Main.zoom + Main.xoff + 100,
                      (190 + 10 + 130.0 / 2) * Main.zoom + Main.yoff + 400};
    Helper::run();
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
        Helper::run();
        EXPECT_FALSE(Main.anyBusy()) << step;
        EXPECT_FALSE(Main.shiftkey || Main.ctrlkey || Main.altkey) << step;
        EXPECT_FALSE(Main.controls[Control::ShiftButton].visible) << step;
        EXPECT_FALSE(desktop.timer2) << step;
        EXPECT_FALSE(Helper::running) << step;
    }
}

TEST_F(Demonstration, EscapeInABoxStopsIt) {
    dialogs.dismissals = {true, false};
    Helper::run();
    EXPECT_EQ(dialogs.asked.size(), 2u);
    EXPECT_EQ(Wings(1).pos2, 10);
}

TEST_F(Demonstration, AQuitMeanwhileStopsItAndThenAsks) {
    desktop.onPump = [this] {
        velna::Startup::timer2Tick();
        if (desktop.pumped == 20) {
            EXPECT_FALSE(velna::Startup::queryUnload());
        }
    };
    Helper::run();
    EXPECT_EQ(desktop.pumped, 20);
    EXPECT_EQ(desktop.calls.back(), "close main");
}

TEST_F(Demonstration, TheGlideGoesATenthOfTheWayAndStopsShort) {
    Helper::cursorPos = {0, 0};
    Helper::cursorTarget = {100, 50};
    desktop.timer2 = true;
    Helper::glideStep();
    EXPECT_EQ(Helper::cursorPos, (Point2D{10, 5}));
    EXPECT_EQ(desktop.cursorPath, (std::vector<Point2D>{{10, 5}}));
    while (desktop.timer2) Helper::glideStep();
    EXPECT_LT(100 - Helper::cursorPos.x, 3);
    EXPECT_LT(50 - Helper::cursorPos.y, 3);
    EXPECT_NE(desktop.cursorPath.back(), (Point2D{100, 50}));
}

}  // namespace
}  // namespace velna::test
