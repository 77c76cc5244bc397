// The flight, frame by frame, held against tables computed by other means.

#include <cmath>
#include <optional>

#include "Lengths.h"
#include "PreviewFixture.h"

namespace velna::test {
namespace {

using nlohmann::json;

json valuesOf(const Flying& flight) {
    return {{"flying", flight.flying},           {"joystickEnabled", flight.joystickEnabled},
            {"flightSpeed", flight.flightSpeed}, {"flightRoll", flight.flightRoll},
            {"flightPitch", flight.flightPitch}, {"flightYaw", flight.flightYaw}};
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

/// The calls of a frame.
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

/// The calls from the start position of the flight to its first frame's end, behind the last
/// rebuild.
std::size_t lastOf(const std::vector<json>& calls, const std::string& name) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < calls.size(); ++i)
        if (calls[i][0] == name) found = i;
    return found;
}

/// The calls round a flight by what matters of them: the area's size, contexts with their frustum
/// and viewport, the place of the aircraft, frames shown. What a new context shows first is its own
/// affair.
std::vector<json> milestones(const std::vector<json>& calls, std::size_t from, std::size_t to) {
    std::vector<json> found;
    bool newContext = false;
    for (std::size_t i = from; i < to; ++i) {
        const json& call = calls[i];
        const std::string name = call[0];
        const bool places =
            name == "glLoadIdentity" || name == "glTranslated" || name == "glRotated";
        if (name == "create") newContext = true;
        if (name == "glFrustum") found.push_back(json::array({name, call[2]}));
        if (name == "FlyingInfo" || name == "fullScreen" || name == "glViewport" ||
            name == "SwapBuffers" || (places && !newContext))
            found.push_back(call);
        if (name == "SwapBuffers") newContext = false;
    }
    return found;
}

/// The same of what the table tells; the factor of the lengths is looked at elsewhere.
std::vector<json> toldMilestones(const json& told, const json& row) {
    std::vector<json> found;
    json size;
    for (json call : told) {
        std::string name = call[0];
        if (name == "FlyingInfo.text") found.push_back(json::array({"FlyingInfo", true, call[1]}));
        if (name == "FlyingInfo.visible" && call[1] == false)
            found.push_back(json::array({"FlyingInfo", false, ""}));
        if (name == "Render.bounds") {
            size = json::array({call[3], call[4]});
            found.push_back(json::array({"fullScreen", size == row["screen"]}));
        }
        if (name.starts_with("createRenderContext")) {
            found.push_back(json::array({"glFrustum", call.size() > 1 ? call[1] : json(100.0)}));
            found.push_back(json::array({"glViewport", 0, 0, size[0], size[1]}));
            found.push_back(json::array({"SwapBuffers"}));
        }
        if (name == "renderScene") found.push_back(json::array({"SwapBuffers"}));
        if (name.starts_with("gl")) {
            if (name.ends_with('f')) name.back() = 'd';
            call[0] = name;
            found.push_back(call);
        }
    }
    return found;
}

void expectLengths(const json& row, const char* table) {
    if (!row.contains(table)) return;
    for (const auto& [name, value] : row[table].items())
        EXPECT_NEAR(lengthOf(name), value.get<double>(), 1e-12) << name;
}

/// The factor of the lengths among the told calls.
double factorOf(const json& told) {
    for (const json& call : told)
        if (call[0] == "rescaleAll") return call[1];
    ADD_FAILURE() << "no factor";
    return 1;
}

class FlightTables : public PreviewTest, public ::testing::WithParamInterface<std::size_t> {
protected:
    std::size_t turn = 0;
    std::size_t seen = 0;  ///< the calls of the tape that are dealt with
    GlView view;

    void setUp(const json& row);
    void playEvent(const json& event);
    void beforeTheFirstFrame(const json& row);
    void atTheEndOfAFrame(const json& row);
    void fly(const json& row);
};

void FlightTables::setUp(const json& row) {
    context.areaWidth = row["bounds_outside"][2];
    context.areaHeight = row["bounds_outside"][3];
    context.screenAreaWidth = row["screen"][0];
    context.screenAreaHeight = row["screen"][1];
    project.units = row["units"].get<int>();
    if (project.units == inches) Plane::switchAllToInches(project);
    openPicture();
    stick.readings.push_back(readingOf(row["first_joystick"]));
    for (const json& frame : row["frames"]) stick.readings.push_back(readingOf(frame["joystick"]));
    GlTape::calls().clear();
}

/// What a pointer does over the picture in a flight.
void FlightTables::playEvent(const json& event) {
    if (event[0] == "button") flight.flying = false;
    if (event[0] == "move") pointer.mouseMove(event[1], event[2]);
    if (event[0] == "press") pointer.mouseDown(event[1], event[2], event[3], event[4]);
}

void FlightTables::beforeTheFirstFrame(const json& row) {
    const std::vector<json>& calls = GlTape::calls();
    seen = lastOf(calls, "glRotated") - 2;
    const std::size_t start = lastOf(calls, "glLoadIdentity");
    view = runMatrix({calls.begin() + static_cast<std::ptrdiff_t>(start),
                      calls.begin() + static_cast<std::ptrdiff_t>(seen)});
    EXPECT_EQ(milestones(calls, 0, seen), toldMilestones(row["begin"], row));
    expectLengths(row, "lengths_in_flight");
}

void FlightTables::atTheEndOfAFrame(const json& row) {
    const json& frame = row["frames"].at(turn++);
    const std::vector<json>& calls = GlTape::calls();
    const std::vector<json> made{calls.begin() + static_cast<std::ptrdiff_t>(seen), calls.end()};
    view = runMatrix(made, view);
    expectFrameCalls(frame["calls"], made);
    expectMatrix(frame["modelview"], view.matrix);
    for (const json& event : frame["events"]) playEvent(event);
    seen = calls.size();
    expectValues(frame["values_after"], valuesOf(flight));
}

void FlightTables::fly(const json& row) {
    const double span = Wings(1).span;
    int frames = 0;
    // The context's own first picture, then the flight's.
    context.shown = [&] {
        if (++frames == 2) expectValues(row["values_at_begin"], valuesOf(flight));
    };
    context.events = [&] {
        if (turn == 0) {
            EXPECT_DOUBLE_EQ(Wings(1).span, span * factorOf(row["begin"]));
            beforeTheFirstFrame(row);
        }
        atTheEndOfAFrame(row);
    };
    flight.flyPreview();
    context.shown = [] {};
    EXPECT_GT(frames, 2);
    EXPECT_DOUBLE_EQ(factorOf(row["begin"]) * factorOf(row["end"]), 1);
}

TEST_P(FlightTables, AreFollowedFromTheBeginningToTheEnd) {
    const json& row = sceneCases("flight")[GetParam()];
    SCOPED_TRACE(row["name"].get<std::string>());
    setUp(row);
    const Project before = project;
    fly(row);
    EXPECT_EQ(turn, row["frames"].size());
    EXPECT_EQ(milestones(GlTape::calls(), seen, GlTape::calls().size()),
              toldMilestones(row["end"], row));
    expectValues(row["values_at_end"], valuesOf(flight));
    expectLengths(row, "lengths_after");
    // The lengths come back bit for bit, where two factors would round some of them.
    EXPECT_TRUE(project == before);
    EXPECT_TRUE(row.value("changed_by_rounding", json::array()).empty());
}

INSTANTIATE_TEST_SUITE_P(All, FlightTables,
                         ::testing::Range(std::size_t{0}, sceneCases("flight").size()));

}  // namespace
}  // namespace velna::test
