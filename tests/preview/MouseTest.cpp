#include "PreviewFixture.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;

class MouseTest : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        openPicture();
    }

    void start(const json& state) {
        rendering.renderSpin = state["renderSpin"];
        rendering.renderTilt = state["renderTilt"];
        rendering.renderDistance = state["renderDistance"];
        rendering.renderPanX = state["renderPanX"];
        rendering.renderPanY = state["renderPanY"];
        rendering.rotating = state["rotating"];
        rendering.zooming = state["zooming"];
        rendering.panning = state["panning"];
    }

    json state() const {
        return {{"renderSpin", rendering.renderSpin},
                {"renderTilt", rendering.renderTilt},
                {"renderDistance", rendering.renderDistance},
                {"renderPanX", rendering.renderPanX},
                {"renderPanY", rendering.renderPanY},
                {"rotating", rendering.rotating},
                {"zooming", rendering.zooming},
                {"panning", rendering.panning}};
    }

    void play(const json& event) {
        if (event[0] == "press")
            pointer.mouseDown(event[1], event[2], event[3], event[4]);
        else if (event[0] == "move")
            pointer.mouseMove(event[1], event[2]);
        else
            pointer.mouseUp(Rendering::leftButton, event[1], event[2]);
    }

    /// The calls that a view of these arguments makes.
    std::vector<json> callsOfView(const json& args) {
        GlTape::calls().clear();
        rendering.setViewTransform(args[1], args[2], args[3], args[4], args[5]);
        return GlTape::calls();
    }

    /// The OpenGL calls of a list of views and replays.
    std::vector<json> glCallsOf(const json& told) {
        std::vector<json> calls;
        for (const json& call : told) {
            if (call[0] == "setViewTransform") {
                const std::vector<json> view = callsOfView(call);
                calls.insert(calls.end(), view.begin(), view.end());
            } else {
                GlTape::calls().clear();
                rendering.renderScene(call[1].get<bool>());
                calls.insert(calls.end(), GlTape::calls().begin(), GlTape::calls().end());
            }
        }
        return calls;
    }
};

TEST_F(MouseTest, DragsShowAtEachMoveAndStoreAtTheRelease) {
    for (const json& row : sceneCases("mouse")) {
        SCOPED_TRACE(row["name"].get<std::string>());
        start(row["start"]);
        for (const json& step : row["steps"]) {
            GlTape::calls().clear();
            play(step["event"]);
            const std::vector<json> made = GlTape::calls();
            EXPECT_EQ(state(), step["state"]) << step["event"];
            EXPECT_EQ(made, glCallsOf(step["calls"])) << step["event"];
        }
    }
}

TEST_F(MouseTest, FirstDragStartsFromTheStoredTurnNotFromTheOneShown) {
    rendering.setViewTransform(0, 0, 0, 900, 200);
    pointer.mouseDown(Rendering::leftButton, 0, 300, 100);
    GlTape::calls().clear();
    pointer.mouseMove(301, 100);
    const GlMatrix shown = runMatrix(GlTape::calls()).matrix;
    GlTape::calls().clear();
    rendering.setViewTransform(0, 0, 0, 901, 450);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
}

TEST_F(MouseTest, SecondButtonDoesNotMakeTheFirstJump) {
    pointer.mouseDown(Rendering::leftButton, 0, 100, 100);
    pointer.mouseMove(110, 120);
    pointer.mouseDown(Rendering::rightButton, 0, 110, 120);
    pointer.mouseMove(111, 120);
    pointer.mouseUp(Rendering::rightButton, 111, 120);
    EXPECT_EQ(rendering.renderSpin, 911);
    EXPECT_EQ(rendering.renderTilt, 470);
    EXPECT_EQ(rendering.renderPanX, 1);
    EXPECT_EQ(rendering.renderPanY, 0);
}

TEST_F(MouseTest, ZoomLimitsThemselvesAreOutside) {
    for (const double distance : {-200.0, 1800.0}) {
        rendering.renderDistance = 7;
        pointer.mouseDown(Rendering::leftButton, 1, 0, 7);
        pointer.mouseMove(0, distance);
        pointer.mouseUp(Rendering::leftButton, 0, distance);
        EXPECT_EQ(rendering.renderDistance, 7);
    }
}

TEST_F(MouseTest, RefusedZoomStaysOnTheScreenUntilTheNextDrag) {
    pointer.mouseDown(Rendering::leftButton, 1, 0, 0);
    pointer.mouseMove(0, 5000);
    GlTape::calls().clear();
    pointer.mouseUp(Rendering::leftButton, 0, 5000);
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_EQ(rendering.renderDistance, 0);
}

TEST_F(MouseTest, ViewChangeNeverRebuilds) {
    pointer.mouseDown(Rendering::leftButton, 0, 0, 0);
    for (int i = 0; i < 20; ++i) pointer.mouseMove(i, i);
    pointer.zoomBy(5);
    EXPECT_EQ(GlTape::count("glNewList"), 0);
    EXPECT_EQ(GlTape::count("glCallList"), 21);
}

TEST_F(MouseTest, WheelChangesTheDistanceAndLeavesTurnAndPan) {
    rendering.setViewTransform(3, 4, 0, 900, 200);
    GlTape::calls().clear();
    pointer.zoomBy(15);
    EXPECT_EQ(rendering.renderDistance, 15);
    EXPECT_EQ(rendering.renderTilt, 450);
    const GlMatrix shown = runMatrix(GlTape::calls()).matrix;
    EXPECT_EQ(GlTape::count("glCallList"), 1);
    GlTape::calls().clear();
    rendering.setViewTransform(3, 4, 15, 900, 200);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
}

TEST_F(MouseTest, WheelStopsAtTheLimitsOfADrag) {
    const auto start = [this](double distance) {
        rendering.renderDistance = distance;
        rendering.setViewTransform(0, 0, distance, 900, 200);
    };
    start(1799);
    pointer.zoomBy(1);
    EXPECT_EQ(rendering.renderDistance, 1799);
    pointer.zoomBy(0.5);
    EXPECT_EQ(rendering.renderDistance, 1799.5);
    start(-199);
    pointer.zoomBy(-1);
    EXPECT_EQ(rendering.renderDistance, -199);
    pointer.zoomBy(std::numeric_limits<double>::quiet_NaN());
    pointer.zoomBy(std::numeric_limits<double>::infinity());
    EXPECT_EQ(rendering.renderDistance, -199);
}

TEST_F(MouseTest, WheelGoesOnFromWhatIsShown) {
    rendering.renderDistance = 0;
    rendering.setViewTransform(0, 0, 200, 900, 200);
    pointer.zoomBy(-20);
    EXPECT_EQ(rendering.renderDistance, 180);
    EXPECT_EQ(rendering.shownView.distance, 180);

    // A refused zoom shows a distance beyond the limits until the next event.
    rendering.setViewTransform(0, 0, 4000, 900, 200);
    pointer.zoomBy(20);
    EXPECT_EQ(rendering.renderDistance, 200);

    rendering.setViewTransform(0, 0, 50, 900, 200);
    GlTape::calls().clear();
    pointer.zoomBy(0);
    EXPECT_TRUE(GlTape::calls().empty()) << "a wheel turned sideways";
    EXPECT_EQ(rendering.renderDistance, 200);
}

TEST_F(MouseTest, MoveWithoutAPressShowsNothing) {
    pointer.mouseMove(10, 10);
    pointer.mouseUp(Rendering::leftButton, 20, 20);
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_EQ(rendering.renderSpin, 900);
}

TEST_F(MouseTest, TheStartViewIsShownAndTheNextDragGoesOnFromIt) {
    rendering.setViewTransform(30, -40, 700, 1200, -300);
    rendering.renderPanX = 30;
    rendering.renderDistance = 700;
    pointer.showStartView();
    const View& shown = rendering.shownView;
    EXPECT_EQ(shown.panX, 0);
    EXPECT_EQ(shown.panY, 0);
    EXPECT_EQ(shown.distance, 0);
    EXPECT_EQ(shown.spin, 900);
    EXPECT_EQ(shown.tilt, 200);
    pointer.mouseDown(Rendering::leftButton, 0, 100, 100);
    pointer.mouseMove(100, 101);
    EXPECT_EQ(rendering.shownView.spin, 900);
    EXPECT_EQ(rendering.shownView.tilt, 201);
    EXPECT_EQ(rendering.shownView.distance, 0);
    pointer.mouseUp(Rendering::leftButton, 100, 101);
}

TEST_F(MouseTest, TheStartViewWaitsForTheEndOfADrag) {
    rendering.setViewTransform(30, -40, 700, 1200, -300);
    for (bool Rendering::*drag : {&Rendering::rotating, &Rendering::zooming, &Rendering::panning}) {
        rendering.*drag = true;
        GlTape::calls().clear();
        pointer.showStartView();
        EXPECT_EQ(rendering.shownView.distance, 700);
        EXPECT_TRUE(GlTape::calls().empty());
        rendering.*drag = false;
    }
}

}  // namespace
}  // namespace velna::test
