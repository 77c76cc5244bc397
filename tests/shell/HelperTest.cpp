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
    writeFile(programFile("prefs.txt"), "\"DoIt\"\r\n#FALSE#\r\n#TRUE#\r\n");
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
