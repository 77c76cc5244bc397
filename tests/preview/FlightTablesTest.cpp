// The flight, frame by frame, held against tables computed by other means.

#include <cmath>
#include <optional>

#include "Lengths.h"
#include "PreviewFixture.h"

namespace velna::test {
namespace {

using nlohmann::json;

using FlightTablesTest = PreviewTest;

json valuesNow() {
    return {{"flying", Flying::flying},           {"joystickEnabled", Flying::joystickEnabled},
            {"flightSpeed", Flying::flightSpeed}, {"flightRoll", Flying::flightRoll},
            {"flightPitch", Flying::flightPitch}, {"flightYaw", Flying::flightYaw}};
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

TEST_F(FlightTablesTest, FollowsTheTables) {
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
        int turn = 0;
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

}  // namespace
}  // namespace velna::test
