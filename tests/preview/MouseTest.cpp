#include "PreviewFixture.h"
#include "preview/View.h"
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

    static void start(const json& state) {
        Rendering::renderSpin = state["renderSpin"];
        Rendering::renderTilt = state["renderTilt"];
        Rendering::renderDistance = state["renderDistance"];
        Rendering::renderPanX = state["renderPanX"];
        Rendering::renderPanY = state["renderPanY"];
        Rendering::rotating = state["rotating"];
        Rendering::zooming = state["zooming"];
        Rendering::panning = state["panning"];
    }

    static json state() {
        return {{"renderSpin", Rendering::renderSpin},
                {"renderTilt", Rendering::renderTilt},
                {"renderDistance", Rendering::renderDistance},
                {"renderPanX", Rendering::renderPanX},
                {"renderPanY", Rendering::renderPanY},
                {"rotating", Rendering::rotating},
                {"zooming", Rendering::zooming},
                {"panning", Rendering::panning}};
    }

    static void play(const json& event) {
        if (event[0] == "press")
            Rendering::mouseDown(event[1], event[2], event[3], event[4]);
        else if (event[0] == "move")
            Rendering::mouseMove(event[1], event[2]);
        else
            Rendering::mouseUp(Rendering::leftButton, event[1], event[2]);
    }

    /// The calls that a view of these arguments makes.
    static std::vector<json> callsOfView(const json& args) {
        GlTape::calls().clear();
        Rendering::setViewTransform(args[1], args[2], args[3], args[4], args[5]);
        return GlTape::calls();
    }

    /// The OpenGL calls of a list of views and replays.
    static std::vector<json> glCallsOf(const json& told) {
        std::vector<json> calls;
        for (const json& call : told) {
            if (call[0] == "setViewTransform") {
                const std::vector<json> view = callsOfView(call);
                calls.insert(calls.end(), view.begin(), view.end());
            } else {
                GlTape::calls().clear();
                Rendering::renderScene(call[1].get<bool>());
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
    Rendering::setViewTransform(0, 0, 0, 900, 200);
    Rendering::mouseDown(Rendering::leftButton, 0, 300, 100);
    GlTape::calls().clear();
    Rendering::mouseMove(301, 100);
    const GlMatrix shown = runMatrix(GlTape::calls()).matrix;
    GlTape::calls().clear();
    Rendering::setViewTransform(0, 0, 0, 901, 450);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
}

TEST_F(MouseTest, SecondButtonDoesNotMakeTheFirstJump) {
    Rendering::mouseDown(Rendering::leftButton, 0, 100, 100);
    Rendering::mouseMove(110, 120);
    Rendering::mouseDown(Rendering::rightButton, 0, 110, 120);
    Rendering::mouseMove(111, 120);
    Rendering::mouseUp(Rendering::rightButton, 111, 120);
    EXPECT_EQ(Rendering::renderSpin, 911);
    EXPECT_EQ(Rendering::renderTilt, 470);
    EXPECT_EQ(Rendering::renderPanX, 1);
    EXPECT_EQ(Rendering::renderPanY, 0);
}

TEST_F(MouseTest, ZoomLimitsThemselvesAreOutside) {
    for (const double distance : {-200.0, 1800.0}) {
        Rendering::renderDistance = 7;
        Rendering::mouseDown(Rendering::leftButton, 1, 0, 7);
        Rendering::mouseMove(0, distance);
        Rendering::mouseUp(Rendering::leftButton, 0, distance);
        EXPECT_EQ(Rendering::renderDistance, 7);
    }
}

TEST_F(MouseTest, RefusedZoomStaysOnTheScreenUntilTheNextDrag) {
    Rendering::mouseDown(Rendering::leftButton, 1, 0, 0);
    Rendering::mouseMove(0, 5000);
    GlTape::calls().clear();
    Rendering::mouseUp(Rendering::leftButton, 0, 5000);
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_EQ(Rendering::renderDistance, 0);
}

TEST_F(MouseTest, ViewChangeNeverRebuilds) {
    Rendering::mouseDown(Rendering::leftButton, 0, 0, 0);
    for (int i = 0; i < 20; ++i) Rendering::mouseMove(i, i);
    Rendering::zoomBy(5);
    EXPECT_EQ(GlTape::count("glNewList"), 0);
    EXPECT_EQ(GlTape::count("glCallList"), 21);
}

TEST_F(MouseTest, WheelChangesTheDistanceAndLeavesTurnAndPan) {
    Rendering::setViewTransform(3, 4, 0, 900, 200);
    GlTape::calls().clear();
    Rendering::zoomBy(15);
    EXPECT_EQ(Rendering::renderDistance, 15);
    EXPECT_EQ(Rendering::renderTilt, 450);
    const GlMatrix shown = runMatrix(GlTape::calls()).matrix;
    EXPECT_EQ(GlTape::count("glCallList"), 1);
    GlTape::calls().clear();
    Rendering::setViewTransform(3, 4, 15, 900, 200);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
}

TEST_F(MouseTest, WheelStopsAtTheLimitsOfADrag) {
    const auto start = [](double distance) {
        Rendering::renderDistance = distance;
        Rendering::setViewTransform(0, 0, distance, 900, 200);
    };
    start(1799);
    Rendering::zoomBy(1);
    EXPECT_EQ(Rendering::renderDistance, 1799);
    Rendering::zoomBy(0.5);
    EXPECT_EQ(Rendering::renderDistance, 1799.5);
    start(-199);
    Rendering::zoomBy(-1);
    EXPECT_EQ(Rendering::renderDistance, -199);
    Rendering::zoomBy(std::numeric_limits<double>::quiet_NaN());
    Rendering::zoomBy(std::numeric_limits<double>::infinity());
    EXPECT_EQ(Rendering::renderDistance, -199);
}

TEST_F(MouseTest, WheelGoesOnFromWhatIsShown) {
    Rendering::renderDistance = 0;
    Rendering::setViewTransform(0, 0, 200, 900, 200);
    Rendering::zoomBy(-20);
    EXPECT_EQ(Rendering::renderDistance, 180);
    EXPECT_EQ(Rendering::shownView.distance, 180);

    // A refused zoom shows a distance beyond the limits until the next event.
    Rendering::setViewTransform(0, 0, 4000, 900, 200);
    Rendering::zoomBy(20);
    EXPECT_EQ(Rendering::renderDistance, 200);

    Rendering::setViewTransform(0, 0, 50, 900, 200);
    GlTape::calls().clear();
    Rendering::zoomBy(0);
    EXPECT_TRUE(GlTape::calls().empty()) << "a wheel turned sideways";
    EXPECT_EQ(Rendering::renderDistance, 200);
}

TEST_F(MouseTest, MoveWithoutAPressShowsNothing) {
    Rendering::mouseMove(10, 10);
    Rendering::mouseUp(Rendering::leftButton, 20, 20);
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_EQ(Rendering::renderSpin, 900);
}

}  // namespace
}  // namespace velna::test
