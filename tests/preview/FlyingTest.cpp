#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <optional>

#include "PreviewFixture.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "preview/Flying.h"
#include "preview/KeptLengths.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;

/// A length by its name in the tables: "Wings(1).span", "Fuselages(1).pos(2)".
double lengthOf(const std::string& name) {
    static const std::map<std::string, std::function<double()>> lengths = [] {
        std::map<std::string, std::function<double()>> all;
        const std::map<std::string, double SymWingSections::*> panel{
            {"span", &SymWingSections::span},
            {"length1", &SymWingSections::length1},
            {"length2", &SymWingSections::length2},
            {"pos1", &SymWingSections::pos1},
            {"pos2", &SymWingSections::pos2},
            {"elevation1", &SymWingSections::elevation1},
            {"elevation2", &SymWingSections::elevation2},
            {"shift", &SymWingSections::shift}};
        for (const auto& [field, member] : panel) {
            all["Wings(1)." + field] = [member] { return Wings(1).*member; };
            all["Stabilizer." + field] = [member] { return Stabilizer.*member; };
        }
        const std::map<std::string, double VertWingSection::*> fin{
            {"span", &VertWingSection::span},       {"length1", &VertWingSection::length1},
            {"length2", &VertWingSection::length2}, {"pos1", &VertWingSection::pos1},
            {"pos2", &VertWingSection::pos2},       {"offset1", &VertWingSection::offset1},
            {"offset2", &VertWingSection::offset2}, {"shift", &VertWingSection::shift}};
        for (const auto& [field, member] : fin)
            all["Rudder." + field] = [member] { return Rudder.*member; };
        const std::map<std::string, double MeshSections::*> body{
            {"shift", &MeshSections::shift},
            {"pos_offset", &MeshSections::pos_offset},
            {"elevation_offset", &MeshSections::elevation_offset}};
        for (const auto& [field, member] : body)
            all["Fuselages(1)." + field] = [member] { return Fuselages(1).*member; };
        const std::map<std::string, Array1<double> MeshSections::*> sections{
            {"height", &MeshSections::height},
            {"width", &MeshSections::width},
            {"pos", &MeshSections::pos},
            {"elevation", &MeshSections::elevation}};
        for (const auto& [field, member] : sections)
            for (int i = 1; i <= 3; ++i)
                all["Fuselages(1)." + field + "(" + std::to_string(i) + ")"] = [member, i] {
                    return (Fuselages(1).*member)(i);
                };
        const std::map<std::string, double ElectroBox::*> box{
            {"length", &ElectroBox::length},       {"width", &ElectroBox::width},
            {"height", &ElectroBox::height},       {"pos", &ElectroBox::pos},
            {"elevation", &ElectroBox::elevation}, {"shift", &ElectroBox::shift}};
        for (const auto& [field, member] : box)
            all["Equipments(1)." + field] = [member] { return Equipments(1).*member; };
        return all;
    }();
    return lengths.at(name)();
}

/// Every length of the project, to be compared bit for bit.
std::vector<double> allLengths() {
    std::vector<double> values;
    const auto panel = [&](const SymWingSections& w) {
        for (const double v : {w.span, w.length1, w.length2, w.pos1, w.pos2, w.elevation1,
                               w.elevation2, w.shift, w.thickness1, w.thickness2})
            values.push_back(v);
    };
    for (int i = 1; i <= nbWings; ++i) panel(Wings(i));
    panel(Stabilizer);
    for (const double v : {Rudder.span, Rudder.length1, Rudder.length2, Rudder.pos1, Rudder.pos2,
                           Rudder.offset1, Rudder.offset2, Rudder.shift})
        values.push_back(v);
    for (int i = 1; i <= nbFuselages; ++i) {
        const MeshSections& f = Fuselages(i);
        for (const double v : {f.shift, f.pos_offset, f.elevation_offset, f.szoom})
            values.push_back(v);
        for (const auto* array : {&f.height, &f.width, &f.pos, &f.elevation, &f.curvature,
                                  &f.curvature2, &f.bias_curve})
            for (int k = 1; k <= f.nb_sections; ++k) values.push_back((*array)(k));
    }
    for (int i = 1; i <= nbEquipments; ++i) {
        const ElectroBox& b = Equipments(i);
        for (const double v : {b.length, b.width, b.height, b.pos, b.elevation, b.shift, b.weight})
            values.push_back(v);
    }
    return values;
}

class FlyingTest : public PreviewTest {
protected:
    int turn = 0;

    void SetUp() override {
        PreviewTest::SetUp();
        openPicture();
        // A test that forgets the end does not hang.
        context.events = [this] {
            if (++turn > 1000) Flying::flying = false;
        };
    }

    /// Flies, with `events` called at the end of each frame (from 1); the flight ends after
    /// `frames`.
    void fly(
        int frames, const std::function<void(int)>& events = [](int) {}) {
        turn = 0;
        context.events = [this, frames, events] {
            events(++turn);
            if (turn >= frames) Flying::flying = false;
        };
        GlTape::calls().clear();
        Flying::flyPreview();
    }

    static json valuesNow() {
        return {{"flying", Flying::flying},           {"joystickEnabled", Flying::joystickEnabled},
                {"flightSpeed", Flying::flightSpeed}, {"flightRoll", Flying::flightRoll},
                {"flightPitch", Flying::flightPitch}, {"flightYaw", Flying::flightYaw}};
    }
};

void expectMatrix(const json& expected, const GlMatrix& actual) {
    double largest = 0;
    for (const json& value : expected) largest = std::max(largest, std::abs(value.get<double>()));
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(actual[i], expected[i].get<double>(), 1e-9 * largest) << "entry " << i;
}

void expectValues(const json& expected, const json& actual) {
    for (const auto& [name, value] : expected.items()) {
        if (value.is_boolean())
            EXPECT_EQ(actual[name], value) << name;
        else
            EXPECT_NEAR(actual[name].get<double>(), value.get<double>(), 1e-12) << name;
    }
}

std::optional<JoystickReading> readingOf(const json& told) {
    if (told.is_null() || told["ret"] != 0) return std::nullopt;
    return JoystickReading{told["x"], told["y"], told["buttons"]};
}

/// The calls of a frame up to the end of the tape, without the matrix ones' exact numbers.
void expectFrameCalls(const json& expected, const std::vector<json>& actual) {
    std::vector<json> wanted;
    for (json call : expected) {
        if (call[0] == "joyGetPosEx") continue;
        std::string name = call[0];
        if (name == "glRotatef" || name == "glTranslatef") name.back() = 'd';
        call[0] = name;
        wanted.push_back(call);
    }
    ASSERT_EQ(wanted.size(), actual.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        ASSERT_EQ(wanted[i].size(), actual[i].size()) << actual[i];
        for (std::size_t k = 0; k < wanted[i].size(); ++k) {
            if (wanted[i][k].is_number())
                EXPECT_NEAR(actual[i][k].get<double>(), wanted[i][k].get<double>(), 1e-12);
            else
                EXPECT_EQ(actual[i][k], wanted[i][k]);
        }
    }
}

/// What a pointer does over the picture in a flight.
void playEvent(const json& event) {
    if (event[0] == "button") Flying::flying = false;
    if (event[0] == "move") Rendering::mouseMove(event[1], event[2]);
    if (event[0] == "press") Rendering::mouseDown(event[1], event[2], event[3], event[4]);
}

/// The calls from the start position of the flight to its first frame's end, behind the last
/// rebuild.
std::size_t lastOf(const std::vector<json>& calls, const std::string& name) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < calls.size(); ++i)
        if (calls[i][0] == name) found = i;
    return found;
}

TEST_F(FlyingTest, FollowsTheTables) {
    for (const json& row : sceneCases("flight")) {
        SCOPED_TRACE(row["name"].get<std::string>());
        resetModel();
        Rendering::reset();
        Flying::reset();
        Prefs.selectUnit(row["units"].get<int>());
        Prefs.units = row["units"].get<int>();
        if (Prefs.units == inches) Plane::switchAllToInches();
        openPicture();
        context.screenAreaWidth = row["screen"][0];
        context.screenAreaHeight = row["screen"][1];
        stick.readings.clear();
        stick.readings.push_back(readingOf(row["first_joystick"]));
        for (const json& frame : row["frames"])
            stick.readings.push_back(readingOf(frame["joystick"]));

        GlTape::calls().clear();
        turn = 0;
        std::size_t seen = 0;
        GlView view;
        context.events = [&] {
            const json& frame = row["frames"].at(static_cast<std::size_t>(turn++));
            const std::vector<json>& calls = GlTape::calls();
            if (seen == 0) {
                const std::size_t start = lastOf(calls, "glLoadIdentity");
                view = runMatrix({calls.begin() + static_cast<std::ptrdiff_t>(start), calls.end()});
                seen = lastOf(calls, "glRotated") - 2;
                if (row.contains("lengths_in_flight")) {
                    for (const auto& [name, value] : row["lengths_in_flight"].items())
                        EXPECT_NEAR(lengthOf(name), value.get<double>(), 1e-12) << name;
                }
            } else {
                view = runMatrix({calls.begin() + static_cast<std::ptrdiff_t>(seen), calls.end()},
                                 view);
            }
            expectFrameCalls(frame["calls"],
                             {calls.begin() + static_cast<std::ptrdiff_t>(seen), calls.end()});
            expectMatrix(frame["modelview"], view.matrix);
            for (const json& event : frame["events"]) playEvent(event);
            seen = calls.size();
            expectValues(frame["values_after"], valuesNow());
        };
        const std::vector<double> before = allLengths();
        Flying::flyPreview();
        EXPECT_EQ(turn, static_cast<int>(row["frames"].size()));
        expectValues(row["values_at_end"], valuesNow());
        EXPECT_EQ(allLengths(), before);
    }
}

TEST_F(FlyingTest, BeginsAndEndsInOrder) {
    fly(1);
    std::vector<json> events;
    for (const json& call : GlTape::calls()) {
        const std::string name = call[0];
        if (!name.starts_with("gl") || name == "glCallList" || name == "glNewList" ||
            name == "glFrustum")
            events.push_back(name == "glFrustum" ? json::array({name, call[2]}) : call);
    }
    const auto build = json::array({"glNewList", 1, "GL_COMPILE_AND_EXECUTE"});
    const std::vector<json> expected{
        json::array({"FlyingInfo", true, "Mouse enabled"}),
        json::array({"fullScreen", true}),
        json::array({"chooseFormat"}),
        json::array({"create"}),
        json::array({"glFrustum", 50.0}),
        build,
        json::array({"SwapBuffers"}),
        build,
        json::array({"SwapBuffers"}),
        json::array({"glCallList", 1}),
        json::array({"SwapBuffers"}),
        json::array({"fullScreen", false}),
        json::array({"chooseFormat"}),
        json::array({"create"}),
        json::array({"glFrustum", 100.0}),
        build,
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
    Flying::joystick = nullptr;
    fly(2);
    EXPECT_EQ(GlTape::named("FlyingInfo").at(0)[2], "Mouse enabled");
}

TEST_F(FlyingTest, JoystickIsToldAndTheMouseThenSteersNothing) {
    stick.readings.assign(10, JoystickReading{100, 200, 0});
    fly(3, [](int) { Rendering::mouseMove(0, 0); });
    EXPECT_EQ(GlTape::named("FlyingInfo").at(0)[2], "Joystick enabled");
    EXPECT_EQ(Flying::flightRoll, 0);
    EXPECT_EQ(Flying::flightPitch, 0);
    EXPECT_EQ(stick.reads, 4);
}

TEST_F(FlyingTest, HeldStickButtonYawsAndKeepsTheRoll) {
    stick.readings = {JoystickReading{32767, 32767, 0}, JoystickReading{36767, 32767, 0},
                      JoystickReading{28767, 32767, 4}, JoystickReading{32767, 32767, 0}};
    std::vector<std::pair<double, double>> seen;
    fly(3, [&](int) { seen.emplace_back(Flying::flightRoll, Flying::flightYaw); });
    EXPECT_EQ(seen, (std::vector<std::pair<double, double>>{{-1, 0}, {-1, 1}, {0, 0}}));
}

TEST_F(FlyingTest, UnpluggedStickKeepsItsLastValues) {
    stick.readings = {JoystickReading{0, 0, 0}, JoystickReading{4000, 8000, 0}};
    fly(6);
    EXPECT_EQ(Flying::flightRoll, -1);
    EXPECT_EQ(Flying::flightPitch, 2);
}

TEST_F(FlyingTest, StickOutOfItsRangeIsOnlyANumber) {
    const auto low = std::numeric_limits<std::int32_t>::min();
    const auto high = std::numeric_limits<std::int32_t>::max();
    stick.readings = {JoystickReading{low, low, 0}, JoystickReading{high, high, 0}};
    fly(1);
    EXPECT_LT(Flying::flightRoll, -1e6);
}

TEST_F(FlyingTest, LeftHalvesTheSpeedWithoutEndAndRightRaisesIt) {
    fly(2, [](int frame) {
        if (frame == 1) {
            for (int i = 0; i < 60; ++i) Rendering::mouseDown(Rendering::leftButton, 0, 0, 0);
            EXPECT_GT(Flying::flightSpeed, 0);
            EXPECT_LT(Flying::flightSpeed, 1e-10);
        } else {
            Flying::flightSpeed = 10;
            Rendering::mouseDown(Rendering::rightButton, 0, 0, 0);
            EXPECT_EQ(Flying::flightSpeed, 15);
            Rendering::mouseDown(4, 0, 0, 0);
            EXPECT_EQ(Flying::flightSpeed, 15);
            for (int i = 0; i < 3000; ++i) Rendering::mouseDown(Rendering::rightButton, 0, 0, 0);
            EXPECT_TRUE(std::isfinite(Flying::flightSpeed));
        }
    });
}

TEST_F(FlyingTest, PointerInTheMiddleOfTheScreenMeansStraightOn) {
    fly(1, [](int) {
        Rendering::mouseMove(0, 0);
        EXPECT_EQ(Flying::flightRoll, 960 / 500.0);
        EXPECT_EQ(Flying::flightPitch, -540 / 500.0);
        Rendering::mouseMove(960, 540);
        EXPECT_EQ(Flying::flightRoll, 0);
        EXPECT_EQ(Flying::flightPitch, 0);
        EXPECT_EQ(Flying::flightYaw, 0);
    });
}

TEST_F(FlyingTest, MouseTurnsAndZoomsNothingMeanwhile) {
    Rendering::mouseDown(Rendering::leftButton, 0, 10, 10);
    fly(2, [](int) {
        GlTape::calls().clear();
        Rendering::mouseDown(Rendering::leftButton, 0, 0, 0);
        Rendering::mouseMove(50, 50);
        Rendering::mouseUp(Rendering::leftButton, 50, 50);
        Rendering::zoomBy(20);
        EXPECT_TRUE(GlTape::calls().empty());
        EXPECT_FALSE(Rendering::rotating);
    });
    EXPECT_EQ(Rendering::renderSpin, 900);
    EXPECT_EQ(Rendering::renderDistance, 0);
    EXPECT_FALSE(Rendering::rotating);
}

TEST_F(FlyingTest, SecondStartDoesNothing) {
    fly(3, [this](int frame) {
        const auto before = GlTape::calls().size();
        if (frame == 1) Flying::flyPreview();
        if (frame == 3) {
            // The end of this flight and a start of another in one turn.
            Flying::flying = false;
            Flying::flyPreview();
            EXPECT_FALSE(Flying::flying);
        }
        EXPECT_EQ(GlTape::calls().size(), before);
    });
    EXPECT_EQ(turn, 3);
    EXPECT_EQ(stick.opened, 1);
}

TEST_F(FlyingTest, OthersCanSeeThatTheProjectIsScaled) {
    EXPECT_FALSE(Flying::running());
    fly(2, [](int frame) {
        if (frame == 2) Flying::flying = false;
        EXPECT_TRUE(Flying::running());
    });
    EXPECT_FALSE(Flying::running());
    EXPECT_FALSE(Flying::flying);
}

// Multiplying by 0.1 and by 10 would give 13.700000000000001 for 13.7.
TEST_F(FlyingTest, LengthsComeBackExactly) {
    for (const json& row : sceneCases("flight_rounding")) {
        Wings(1).span = row["value"].get<double>();
        Rudder.offset1 = row["value"].get<double>();
        Fuselages(1).pos(2) = row["value"].get<double>();
        Equipments(1).shift = row["value"].get<double>();
        const std::vector<double> before = allLengths();
        fly(1, [&](int) {
            EXPECT_DOUBLE_EQ(Wings(1).span, row["mm_in_flight"].get<double>());
            EXPECT_NE(allLengths(), before);
        });
        EXPECT_EQ(allLengths(), before);
    }
}

TEST_F(FlyingTest, LengthsOfEveryObjectComeBack) {
    ++nbWings;
    MainWing::addWing();
    ++nbFuselages;
    Fuselage::resizeFuselages();
    Fuselage::addFuselage();
    ObjectList.update();
    ObjectList.setShown(2, false);
    ++nbEquipments;
    Equipment::resizeEquipments(nbEquipments);
    Plane::rescaleAll(1 / 3.0);
    const std::vector<double> before = allLengths();
    fly(1);
    EXPECT_EQ(allLengths(), before);
    EXPECT_EQ(Wings(1).Left->tipPoint(1).y, Wings(1).span) << "the solids follow";
}

// A factor of 2 takes such lengths beyond all numbers, where they stop: they come back all the
// same.
TEST_F(FlyingTest, LengthsAtTheEdgeOfNumbersComeBack) {
    Prefs.units = inches;
    Wings(1).span = 1.5e308;
    const std::vector<double> before = allLengths();
    fly(1);
    EXPECT_EQ(allLengths(), before);
}

TEST_F(FlyingTest, AircraftWithoutSizeCanBeFlownRound) {
    Plane::rescaleAll(0);
    fly(3);
    EXPECT_EQ(turn, 3);
}

TEST_F(FlyingTest, WithoutAPictureNothingStarts) {
    Rendering::destroyRenderContext();
    const std::vector<double> before = allLengths();
    fly(1);
    EXPECT_EQ(turn, 0);
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_EQ(allLengths(), before);
}

TEST_F(FlyingTest, ContextThatFailsAtTheStartEndsTheFlight) {
    context.creationWorks = false;
    const std::vector<double> before = allLengths();
    fly(1);
    EXPECT_EQ(turn, 0);
    EXPECT_EQ(allLengths(), before);
    EXPECT_FALSE(Flying::running());
    EXPECT_EQ(Wings(1).Left->tipPoint(1).y, 700);
    EXPECT_EQ(GlTape::named("fullScreen").size(), 2u);
}

TEST_F(FlyingTest, ContextLostOnTheWayEndsTheFlight) {
    fly(10, [this](int frame) {
        if (frame == 2) {
            context.creationWorks = false;
            Rendering::recreateRenderContext();
            context.creationWorks = true;
        }
    });
    EXPECT_EQ(turn, 2);
    EXPECT_TRUE(Rendering::contextCreated);
}

TEST_F(FlyingTest, EndsInTheViewOfANewContext) {
    Rendering::renderDistance = 120;
    fly(1);
    EXPECT_EQ(Rendering::renderSpin, 900);
    EXPECT_EQ(Rendering::renderTilt, 450);
    EXPECT_EQ(Rendering::renderDistance, 120);
    const GlMatrix shown = runMatrix(GlTape::calls()).matrix;
    GlTape::calls().clear();
    Rendering::setViewTransform(0, 0, 0, 0, 0);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
}

}  // namespace
}  // namespace velna::test
