#include <cmath>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "editor/EditorState.h"
#include "editor/ScenarioSteps.h"
#include "model/Plane.h"

// Scripted gestures on the editor, with the state after every step and, for many, the exact calls
// on the drawing surface, computed apart from this program.

namespace velna::test {
namespace {

using nlohmann::json;

const json& scenarios() {
    static const json all =
        json::parse(std::ifstream(std::string(VELNA_TEST_DATA) + "/views/views.json"));
    return all;
}

bool sameValue(const json& expected, const json& actual) {
    if (!expected.is_number() || !actual.is_number()) return expected == actual;
    const double a = expected;
    const double b = actual;
    return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a));
}

/// Controls whose state before their first change is nobody's concern.
const std::set<std::string> freeAtFirst{"FuselageVTopFrame", "SmoothTopCommand",
                                        "SmoothDownCommand", "SmoothWidthCommand"};

/// The state as a scenario expects it, from step to step.
class ExpectedState {
public:
    explicit ExpectedState(const json& state) : state_(state), free_(freeAtFirst) {}

    void advance(const json& step) {
        for (const auto& [key, value] : step.at("changed").items()) {
            state_[key] = value;
            free_.erase(key);
        }
        for (const json& key : step.value("gone", json::array())) state_.erase(key);
    }

    /// What the actual state has otherwise, a line a key.
    std::string differences(const json& actual) const {
        std::string found;
        for (const auto& [key, value] : state_.items()) {
            if (free_.contains(key)) continue;
            if (!actual.contains(key))
                found += key + " is missing\n";
            else if (!sameValue(value, actual.at(key)))
                found += key + " is " + actual.at(key).dump() + ", expected " + value.dump() + "\n";
        }
        for (const auto& [key, value] : actual.items())
            if (!state_.contains(key)) found += key + " should not be there\n";
        return found;
    }

private:
    json state_;
    std::set<std::string> free_;
};

std::string colourName(Rgb colour) {
    if (colour == black) return "black";
    if (colour == white) return "white";
    if (colour == dimColor) return "dim";
    if (colour == highlightColor) return "highlight";
    return "unknown";
}

json callAsJson(const SurfaceCall& call) {
    switch (call.kind) {
        case SurfaceCall::Kind::Clear:
            return json::array({"clear"});
        case SurfaceCall::Kind::Picture:
            return json::array({"picture", call.x1, call.y1, call.x2, call.y2});
        case SurfaceCall::Kind::Line:
            break;
    }
    return json::array({call.x1, call.y1, call.x2, call.y2, colourName(call.colour)});
}

bool sameCall(const json& expected, const json& actual, double tolerance) {
    if (expected.size() != actual.size()) return false;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const bool numbers = expected[i].is_number() && actual[i].is_number();
        if (numbers ? std::abs(expected[i].get<double>() - actual[i].get<double>()) > tolerance
                    : expected[i] != actual[i])
            return false;
    }
    return true;
}

void compareCalls(const json& expected, const std::vector<SurfaceCall>& calls, double tolerance) {
    for (std::size_t i = 0; i < std::min(expected.size(), calls.size()); ++i) {
        const json actual = callAsJson(calls[i]);
        if (sameCall(expected[i], actual, tolerance)) continue;
        ADD_FAILURE() << "call " << i << " is " << actual << ", expected " << expected[i];
        return;
    }
    EXPECT_EQ(calls.size(), expected.size()) << "number of calls";
}

/// The section editor draws in the foreground colour, which the scenarios call "fore".
void compareSection(const json& expected, const RecordingSurface& surface) {
    const bool cleared = surface.count(SurfaceCall::Kind::Clear) > 0;
    const std::vector<SurfaceCall> drawn =
        cleared ? surface.sinceClear() : std::vector<SurfaceCall>{};
    json lines = expected;
    for (json& line : lines)
        if (line.size() == 5) line[4] = "black";
    compareCalls(lines, drawn, 1e-4);
}

class ViewScenario : public ::testing::TestWithParam<std::size_t> {
protected:
    EditorBench bench;
    const json& scenario = scenarios().at("cases").at(GetParam());
};

TEST_P(ViewScenario, EndsAsComputed) {
    applySetup(bench, scenario.at("setup"));
    ExpectedState expected(editorState(bench));
    const json& steps = scenario.at("steps");
    for (std::size_t i = 0; i < steps.size(); ++i) {
        SCOPED_TRACE("step " + std::to_string(i) + ": " + steps[i].dump());
        const json& result = scenario.at("expected").at("steps").at(i);
        bench.area.calls.clear();
        bench.sectionArea.calls.clear();
        runStep(bench, steps[i]);
        expected.advance(result);
        EXPECT_EQ(expected.differences(editorState(bench)), "");
        if (result.contains("lines")) compareCalls(result.at("lines"), bench.area.calls, 1e-6);
        if (result.contains("section")) compareSection(result.at("section"), bench.sectionArea);
        if (HasFailure()) return;
    }
    for (const char* part : {"end", "handles"})
        for (const auto& [key, value] : scenario.at("expected").at(part).items())
            EXPECT_TRUE(sameValue(value, editorState(bench).at(key))) << key;
}

std::vector<std::size_t> allScenarios() {
    std::vector<std::size_t> indices(scenarios().at("cases").size());
    for (std::size_t i = 0; i < indices.size(); ++i) indices[i] = i;
    return indices;
}

std::string scenarioName(const ::testing::TestParamInfo<std::size_t>& info) {
    std::string name = scenarios().at("cases").at(info.param).at("name");
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return std::to_string(info.param) + "_" + name;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ViewScenario, ::testing::ValuesIn(allScenarios()),
                         scenarioName);

TEST(ViewScenarios, StartFromTheStateOfAFreshStart) {
    EditorBench bench;
    EXPECT_EQ(ExpectedState(scenarios().at("base")).differences(editorState(bench)), "");
}

TEST(ViewScenarios, AreAllThere) {
    EXPECT_EQ(scenarios().at("cases").size(), 231U);
}

}  // namespace
}  // namespace velna::test
