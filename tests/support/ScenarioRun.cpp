#include "support/ScenarioRun.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>

#include "model/Plane.h"
#include "support/EditorState.h"
#include "support/SetupState.h"

namespace velna::test {
namespace {

using nlohmann::json;

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

    /// What a step's entry tells; a key that had its new value before is told, a line each.
    std::string advance(const json& step) {
        std::string unchanged;
        for (const auto& [key, value] : step.at("changed").items()) {
            if (!free_.contains(key) && state_.contains(key) && state_.at(key) == value)
                unchanged += key + " was " + value.dump() + " before\n";
            state_[key] = value;
            free_.erase(key);
        }
        for (const json& key : step.value("gone", json::array())) {
            if (!state_.contains(key)) unchanged += key.get<std::string>() + " was not there\n";
            state_.erase(key);
        }
        return unchanged;
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

void compareSetup(const json& actual, const json& setup) {
    const SetupState after = stateAfterSetup(scenarios().at("base"), setup);
    for (const auto& [key, value] : after.known.items()) {
        if (freeAtFirst.contains(key)) continue;
        if (!actual.contains(key))
            ADD_FAILURE() << key << " is missing after the setup";
        else
            EXPECT_TRUE(sameValue(value, actual.at(key)))
                << key << " is " << actual.at(key) << " after the setup, expected " << value;
    }
    for (const auto& [key, value] : actual.items())
        EXPECT_TRUE(after.known.contains(key) || after.depends(key))
            << key << " should not be there after the setup";
}

/// `changed` names every field of the model that differs at the end, with its value, and no other.
void compareModel(const json& before, const json& after, const json& changed) {
    for (const auto& [key, value] : changed.items()) {
        EXPECT_TRUE(after.contains(key) && sameValue(value, after.at(key))) << key;
        EXPECT_FALSE(before.contains(key) && sameValue(value, before.at(key)))
            << key << " is as before";
    }
    for (const auto& [key, value] : after.items()) {
        const bool toStay = isModelField(key) && before.contains(key) && !changed.contains(key);
        EXPECT_TRUE(!toStay || sameValue(before.at(key), value))
            << key << " has changed to " << value;
    }
}

void compareStep(EditorBench& bench, const json& result, ExpectedState& expected) {
    EXPECT_EQ(expected.advance(result), "");
    EXPECT_EQ(expected.differences(editorState(bench)), "");
    if (result.contains("lines")) compareCalls(result.at("lines"), bench.area.calls, 1e-6);
    if (result.contains("section")) compareSection(result.at("section"), bench.sectionArea);
}

}  // namespace

const json& scenarios() {
    static const json all =
        json::parse(std::ifstream(std::string(VELNA_TEST_DATA) + "/views/views.json"));
    return all;
}

std::vector<std::size_t> scenariosThatClickTheToolbar(bool click) {
    std::vector<std::size_t> places;
    const json& cases = scenarios().at("cases");
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const bool clicks = std::ranges::any_of(
            cases[i].at("steps"), [](const json& step) { return step.at("op") == "toolbar"; });
        if (clicks == click) places.push_back(i);
    }
    return places;
}

std::string scenarioName(const ::testing::TestParamInfo<std::size_t>& info) {
    std::string name = scenarios().at("cases").at(info.param).at("name");
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return std::to_string(info.param) + "_" + name;
}

std::string differencesFromAFreshStart(const EditorBench& bench) {
    return ExpectedState(scenarios().at("base")).differences(editorState(bench));
}

void runScenario(EditorBench& bench, const json& scenario, ToolbarClick click) {
    applySetup(bench, scenario.at("setup"));
    const json before = editorState(bench);
    compareSetup(before, scenario.at("setup"));
    ExpectedState expected(before);
    const json& steps = scenario.at("steps");
    for (std::size_t i = 0; i < steps.size(); ++i) {
        SCOPED_TRACE("step " + std::to_string(i) + ": " + steps[i].dump());
        bench.area.calls.clear();
        bench.sectionArea.calls.clear();
        runStep(bench, steps[i], click);
        compareStep(bench, scenario.at("expected").at("steps").at(i), expected);
        if (::testing::Test::HasFailure()) return;
    }
    const json after = editorState(bench);
    for (const char* part : {"end", "handles"})
        for (const auto& [key, value] : scenario.at("expected").at(part).items())
            EXPECT_TRUE(sameValue(value, after.at(key))) << key;
    compareModel(before, after, scenario.at("expected").at("model_changed"));
}

}  // namespace velna::test
