#include <cmath>
#include <functional>
#include <limits>
#include <new>

#include "PreviewFixture.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "preview/Flying.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;

class FlyingTest : public PreviewTest {
protected:
    int turn = 0;

    void SetUp() override {
        PreviewTest::SetUp();
        openPicture();
        // A test that forgets the end does not hang.
        context.events = [this] {
            if (++turn > 1000) flight.flying = false;
        };
    }

    /// Flies, with `events` called at the end of each frame (from 1); the flight ends after
    /// `frames`.
    void fly(
        int frames, const std::function<void(int)>& events = [](int) {}) {
        turn = 0;
        context.events = [this, frames, events] {
            events(++turn);
            if (turn >= frames) flight.flying = false;
        };
        GlTape::calls().clear();
        flight.flyPreview();
    }
};

TEST_F(FlyingTest, BeginsAndEndsInOrder) {
    fly(1);
    std::vector<json> events;
    for (const json& call : GlTape::calls()) {
        const std::string name = call[0];
        if (!name.starts_with("gl") || name == "glCallList" || name == "glNewList" ||
            name == "glFrustum")
            events.push_back(name == "glFrustum" ? json::array({name, call[2]}) : call);
    }
    const auto build = json::array({"glNewList", 1, "GL_COMPILE"});
    const auto call = json::array({"glCallList", 1});
    const std::vector<json> expected{
        json::array({"FlyingInfo", true, "Mouse enabled"}),
        json::array({"fullScreen", true}),
        json::array({"chooseFormat"}),
        json::array({"create"}),
        json::array({"glFrustum", 50.0}),
        build,
        call,
        json::array({"SwapBuffers"}),
        call,
        json::array({"SwapBuffers"}),
        call,
        json::array({"SwapBuffers"}),
        json::array({"fullScreen", false}),
        json::array({"chooseFormat"}),
        json::array({"create"}),
        json::array({"glFrustum", 100.0}),
        build,
        call,
        json::array({"SwapBuffers"}),
        json::array({"FlyingInfo", false, ""}),
    };
    EXPECT_EQ(events, expected);
}

TEST_F(FlyingTest, WithoutAJoystickTheMouseSteersAndTheStickIsNeverRead) {
    fly(5);
    EXPECT_EQ(stick.opened, 1);
    EXPECT_EQ(stick.reads, 1);
    EXPECT_EQ(stick.closed, 1);
}

TEST_F(FlyingTest, WithoutAnyJoystickPortTheMouseSteers) {
    flight.joystick = nullptr;
    fly(2);
    EXPECT_EQ(GlTape::named("FlyingInfo").at(0)[2], "Mouse enabled");
}

TEST_F(FlyingTest, JoystickIsToldAndTheMouseThenSteersNothing) {
    stick.readings.assign(10, JoystickReading{100, 200, 0});
    fly(3, [this](int) { pointer.mouseMove(0, 0); });
    EXPECT_EQ(GlTape::named("FlyingInfo").at(0)[2], "Joystick enabled");
    EXPECT_EQ(flight.flightRoll, 0);
    EXPECT_EQ(flight.flightPitch, 0);
    EXPECT_EQ(stick.reads, 4);
}

TEST_F(FlyingTest, HeldStickButtonYawsAndKeepsTheRoll) {
    stick.readings = {JoystickReading{32767, 32767, 0}, JoystickReading{36767, 32767, 0},
                      JoystickReading{28767, 32767, 4}, JoystickReading{32767, 32767, 0}};
    std::vector<std::pair<double, double>> seen;
    fly(3, [&](int) { seen.emplace_back(flight.flightRoll, flight.flightYaw); });
    EXPECT_EQ(seen, (std::vector<std::pair<double, double>>{{-1, 0}, {-1, 1}, {0, 0}}));
}

TEST_F(FlyingTest, UnpluggedStickKeepsItsLastValues) {
    stick.readings = {JoystickReading{0, 0, 0}, JoystickReading{4000, 8000, 0}};
    fly(6);
    EXPECT_EQ(flight.flightRoll, -1);
    EXPECT_EQ(flight.flightPitch, 2);
}

TEST_F(FlyingTest, StickOutOfItsRangeIsOnlyANumber) {
    const auto low = std::numeric_limits<std::int32_t>::min();
    const auto high = std::numeric_limits<std::int32_t>::max();
    stick.readings = {JoystickReading{low, low, 0}, JoystickReading{high, high, 0}};
    fly(1);
    EXPECT_LT(flight.flightRoll, -1e6);
}

TEST_F(FlyingTest, LeftHalvesTheSpeedWithoutEndAndRightRaisesIt) {
    fly(2, [this](int frame) {
        if (frame == 1) {
            for (int i = 0; i < 60; ++i) pointer.mouseDown(Rendering::leftButton, 0, 0, 0);
            EXPECT_GT(flight.flightSpeed, 0);
            EXPECT_LT(flight.flightSpeed, 1e-10);
        } else {
            flight.flightSpeed = 10;
            pointer.mouseDown(Rendering::rightButton, 0, 0, 0);
            EXPECT_EQ(flight.flightSpeed, 15);
            pointer.mouseDown(4, 0, 0, 0);
            EXPECT_EQ(flight.flightSpeed, 15);
            for (int i = 0; i < 3000; ++i) pointer.mouseDown(Rendering::rightButton, 0, 0, 0);
            EXPECT_TRUE(std::isfinite(flight.flightSpeed));
        }
    });
}

TEST_F(FlyingTest, PointerInTheMiddleOfTheScreenMeansStraightOn) {
    fly(1, [this](int) {
        pointer.mouseMove(0, 0);
        EXPECT_EQ(flight.flightRoll, 960 / 500.0);
        EXPECT_EQ(flight.flightPitch, -540 / 500.0);
        pointer.mouseMove(960, 540);
        EXPECT_EQ(flight.flightRoll, 0);
        EXPECT_EQ(flight.flightPitch, 0);
        EXPECT_EQ(flight.flightYaw, 0);
    });
}

TEST_F(FlyingTest, MouseTurnsAndZoomsNothingMeanwhile) {
    pointer.mouseDown(Rendering::leftButton, 0, 10, 10);
    fly(2, [this](int) {
        GlTape::calls().clear();
        pointer.mouseDown(Rendering::leftButton, 0, 0, 0);
        pointer.mouseMove(50, 50);
        pointer.mouseUp(Rendering::leftButton, 50, 50);
        pointer.zoomBy(20);
        EXPECT_TRUE(GlTape::calls().empty());
        EXPECT_FALSE(rendering.rotating);
    });
    EXPECT_EQ(rendering.renderSpin, 900);
    EXPECT_EQ(rendering.renderDistance, 0);
    EXPECT_FALSE(rendering.rotating);
}

TEST_F(FlyingTest, SecondStartDoesNothing) {
    fly(3, [this](int frame) {
        const auto before = GlTape::calls().size();
        if (frame == 1) flight.flyPreview();
        if (frame == 3) {
            // The end of this flight and a start of another in one turn.
            flight.flying = false;
            flight.flyPreview();
            EXPECT_FALSE(flight.flying);
        }
        EXPECT_EQ(GlTape::calls().size(), before);
    });
    EXPECT_EQ(turn, 3);
    EXPECT_EQ(stick.opened, 1);
}

TEST_F(FlyingTest, OthersCanSeeThatTheProjectIsScaled) {
    EXPECT_FALSE(flight.running());
    fly(2, [this](int frame) {
        if (frame == 2) flight.flying = false;
        EXPECT_TRUE(flight.running());
    });
    EXPECT_FALSE(flight.running());
    EXPECT_FALSE(flight.flying);
}

// Multiplying by 0.1 and by 10 would give 13.700000000000001 for 13.7.
TEST_F(FlyingTest, LengthsComeBackExactly) {
    for (const auto& [unit, field] :
         {std::pair{millimetres, "mm_in_flight"}, {inches, "inches_in_flight"}}) {
        project.units = unit;
        for (const json& row : sceneCases("flight_rounding")) {
            Wings(1).span = row["value"].get<double>();
            Rudder.offset1 = row["value"].get<double>();
            Fuselages(1).pos(2) = row["value"].get<double>();
            Equipments(1).shift = row["value"].get<double>();
            const Project before = project;
            fly(1, [&, name = field](int) {
                EXPECT_DOUBLE_EQ(Wings(1).span, row[name].get<double>());
                EXPECT_FALSE(project == before);
            });
            EXPECT_TRUE(project == before);
        }
    }
}

TEST_F(FlyingTest, WhereMemoryEndsTheFlightDoesAndTheAircraftIsAsItWas) {
    const Project before = project;
    EXPECT_THROW(fly(5,
                     [](int frame) {
                         if (frame == 2) throw std::bad_alloc();
                     }),
                 std::bad_alloc);
    EXPECT_EQ(turn, 2);
    EXPECT_EQ(project, before);
    EXPECT_FALSE(flight.running());
    EXPECT_FALSE(flight.flying);
    EXPECT_FALSE(rendering.matrixIsSum);
    fly(1);
    EXPECT_EQ(turn, 1) << "another one can begin";
}

TEST_F(FlyingTest, LengthsOfEveryObjectComeBack) {
    ++nbWings;
    MainWing::addWing(project);
    ++nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(2, false);
    ++nbEquipments;
    Equipment::resizeEquipments(project, nbEquipments);
    Plane::rescaleAll(project, 1 / 3.0);
    const Project before = project;
    fly(1);
    EXPECT_TRUE(project == before);
    EXPECT_EQ(solids.wings(1).Left.tipPoint(1).y, Wings(1).span) << "the solids follow";
}

// A file may promise thousands, which a flight must not turn into objects.
TEST_F(FlyingTest, PromisedObjectsStayPromised) {
    nbEquipments = 3000;
    Equipments.fill(nbEquipments, ElectroBox(project.units));
    Equipments(2).length = 40;
    const Project before = project;
    fly(1, [](int) { EXPECT_EQ(Equipments(2).length, 4); });
    EXPECT_TRUE(project == before);
    EXPECT_TRUE(Equipments.promised(1));
    EXPECT_FALSE(Equipments.promised(2));
    EXPECT_TRUE(Equipments.promised(3000));
}

// A factor of 2 takes such lengths beyond all numbers, where they stop: they come back all the
// same.
TEST_F(FlyingTest, LengthsAtTheEdgeOfNumbersComeBack) {
    project.units = inches;
    Wings(1).span = 1.5e308;
    const Project before = project;
    fly(1);
    EXPECT_TRUE(project == before);
}

TEST_F(FlyingTest, AircraftWithoutSizeCanBeFlownRound) {
    Plane::rescaleAll(project, 0);
    fly(3);
    EXPECT_EQ(turn, 3);
}

TEST_F(FlyingTest, WithoutAPictureNothingStarts) {
    rendering.destroyRenderContext();
    const Project before = project;
    fly(1);
    EXPECT_EQ(turn, 0);
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_TRUE(project == before);
}

TEST_F(FlyingTest, ContextThatFailsAtTheStartEndsTheFlight) {
    context.creationWorks = false;
    const Project before = project;
    fly(1);
    EXPECT_EQ(turn, 0);
    EXPECT_TRUE(project == before);
    EXPECT_FALSE(flight.running());
    EXPECT_EQ(solids.wings(1).Left.tipPoint(1).y, 700);
    EXPECT_EQ(GlTape::named("fullScreen").size(), 2u);
}

TEST_F(FlyingTest, ContextLostOnTheWayEndsTheFlight) {
    fly(10, [this](int frame) {
        if (frame == 2) {
            context.creationWorks = false;
            rendering.recreateRenderContext();
            context.creationWorks = true;
        }
    });
    EXPECT_EQ(turn, 2);
    EXPECT_TRUE(rendering.contextCreated);
}

TEST_F(FlyingTest, GoesOnWhereItWasInANewContext) {
    for (std::size_t i = 0; i < GlTape::modelview.size(); ++i)
        GlTape::modelview[i] = 1.0 + static_cast<double>(i);
    for (const bool destroyed : {true, false}) {
        fly(5, [&](int frame) {
            if (frame != 2) return;
            GlTape::calls().clear();
            if (destroyed) rendering.destroyRenderContext();
            rendering.recreateRenderContext();
        });
        EXPECT_EQ(turn, 5);
        const auto loads = GlTape::named("glLoadMatrixd");
        ASSERT_EQ(loads.size(), 1U) << "once, and not in the window's picture after the flight";
        EXPECT_EQ(loads[0][1], json(GlTape::modelview));
    }
    GlTape::calls().clear();
    rendering.recreateRenderContext();
    EXPECT_EQ(GlTape::count("glLoadMatrixd"), 0);
}

TEST_F(FlyingTest, EndsInTheViewOfANewContext) {
    rendering.renderDistance = 120;
    fly(1);
    EXPECT_EQ(rendering.renderSpin, 900);
    EXPECT_EQ(rendering.renderTilt, 450);
    EXPECT_EQ(rendering.renderDistance, 120);
    const GlMatrix shown = runMatrix(GlTape::calls()).matrix;
    GlTape::calls().clear();
    rendering.setViewTransform(0, 0, 0, 0, 0);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
}

}  // namespace
}  // namespace velna::test
