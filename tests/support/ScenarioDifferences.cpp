#include "support/ScenarioDifferences.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "support/SetupState.h"

namespace velna::test {
namespace {

using nlohmann::json;
using Lines = std::vector<std::string>;

const std::set<std::string>& freeKeys() {
    static const std::set<std::string> keys{"FuselageVTopFrame", "SmoothTopCommand",
                                            "SmoothDownCommand", "SmoothWidthCommand"};
    return keys;
}

std::string isInstead(const std::string& what, const json& actual, const json& expected) {
    return what + " is " + actual.dump() + ", expected " + expected.dump();
}

/// The state as a scenario expects it, from step to step.
class ExpectedState {
public:
    explicit ExpectedState(const json& state) : state_(state), free_(freeKeys()) {}

    /// What a step's entry tells; a key that had its new value before is told, a line each.
    Lines advance(const json& step) {
        Lines unchanged;
        for (const auto& [key, value] : step.at("changed").items()) {
            if (!free_.contains(key) && state_.contains(key) && state_.at(key) == value)
                unchanged.push_back(key + " was " + value.dump() + " before");
            state_[key] = value;
            free_.erase(key);
        }
        for (const json& key : step.value("gone", json::array())) {
            if (!state_.contains(key))
                unchanged.push_back(key.get<std::string>() + " was not there");
            state_.erase(key);
        }
        return unchanged;
    }

    /// What the actual state has otherwise, a line a key.
    Lines differences(const json& actual) const {
        Lines found;
        for (const auto& [key, value] : state_.items()) {
            if (free_.contains(key)) continue;
            if (!actual.contains(key))
                found.push_back(key + " is missing, expected " + value.dump());
            else if (!sameValue(value, actual.at(key)))
                found.push_back(isInstead(key, actual.at(key), value));
        }
        for (const auto& [key, value] : actual.items())
            if (!state_.contains(key))
                found.push_back(key + " is " + value.dump() + ", expected not to be there");
        return found;
    }

    /// Goes on from the state that is.
    void follow(const json& actual) { state_ = actual; }

private:
    json state_;
    std::set<std::string> free_;
};

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

/// The first call that differs, and the number of calls.
Lines callDifferences(const std::string& list, const json& expected, const json& actual,
                      double tolerance) {
    Lines found;
    const std::size_t both = std::min(expected.size(), actual.size());
    for (std::size_t i = 0; i < both && found.empty(); ++i)
        if (!sameCall(expected[i], actual[i], tolerance))
            found.push_back(
                isInstead(list + ", call " + std::to_string(i), actual[i], expected[i]));
    if (expected.size() != actual.size())
        found.push_back(isInstead(list + ", number of calls", actual.size(), expected.size()));
    return found;
}

void add(Lines& lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

Lines setupDifferences(const json& base, const json& setup, const json& actual) {
    Lines found;
    const SetupState after = stateAfterSetup(base, setup);
    for (const auto& [key, value] : after.known.items()) {
        if (isFreeAtFirst(key)) continue;
        if (!actual.contains(key))
            found.push_back(key + " is missing, expected " + value.dump());
        else if (!sameValue(value, actual.at(key)))
            found.push_back(isInstead(key, actual.at(key), value));
    }
    for (const auto& [key, value] : actual.items())
        if (!after.known.contains(key) && !after.depends(key))
            found.push_back(key + " is " + value.dump() + ", expected not to be there");
    return found;
}

Lines stepDifferences(const ReplayedStep& step, const json& result, ExpectedState& expected) {
    Lines found = expected.advance(result);
    add(found, expected.differences(step.state));
    if (result.contains("lines"))
        add(found, callDifferences("lines", result.at("lines"), step.lines, lineTolerance));
    if (result.contains("section"))
        add(found,
            callDifferences("section", result.at("section"), step.section, sectionTolerance));
    for (const std::string& question : step.unanswered)
        found.push_back("a question without an answer: " + question);
    return found;
}

/// `changed` names every field of the model that differs at the end, with its value, and no other.
Lines modelDifferences(const json& before, const json& after, const json& changed) {
    Lines found;
    for (const auto& [key, value] : changed.items()) {
        if (!after.contains(key))
            found.push_back(key + " is missing, expected " + value.dump());
        else if (!sameValue(value, after.at(key)))
            found.push_back(isInstead(key, after.at(key), value));
        else if (before.contains(key) && sameValue(value, before.at(key)))
            found.push_back(key + " is as before");
    }
    for (const auto& [key, value] : after.items()) {
        const bool toStay = isModelField(key) && before.contains(key) && !changed.contains(key);
        if (toStay && !sameValue(before.at(key), value))
            found.push_back(isInstead(key, value, before.at(key)) + " as before");
    }
    return found;
}

Lines endDifferences(const json& expected, const ReplayedScenario& replayed) {
    Lines found;
    for (const char* part : {"end", "handles"})
        for (const auto& [key, value] : expected.at(part).items()) {
            const json actual = replayed.end().value(key, json("missing"));
            if (!sameValue(value, actual)) found.push_back(isInstead(key, actual, value));
        }
    add(found, modelDifferences(replayed.start, replayed.end(), expected.at("model_changed")));
    return found;
}

}  // namespace

bool sameValue(const json& expected, const json& actual) {
    if (!expected.is_number() || !actual.is_number()) return expected == actual;
    const double a = expected;
    const double b = actual;
    return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a));
}

bool sameCalls(const json& expected, const json& actual, double tolerance) {
    return callDifferences("", expected, actual, tolerance).empty();
}

bool isFreeAtFirst(const std::string& key) {
    return freeKeys().contains(key);
}

Lines startDifferences(const json& base, const json& state) {
    return ExpectedState(base).differences(state);
}

Lines scenarioDifferences(const json& base, const json& scenario, const ReplayedScenario& replayed,
                          bool all) {
    Lines found;
    const auto tell = [&](const std::string& place, const Lines& lines) {
        if (!all && !found.empty()) return;
        for (const std::string& line : lines) found.push_back(place + ": " + line);
    };
    tell("after the setup", setupDifferences(base, scenario.at("setup"), replayed.start));
    const json& expected = scenario.at("expected");
    ExpectedState state(replayed.start);
    for (std::size_t i = 0; i < replayed.steps.size(); ++i) {
        const bool told = i < expected.at("steps").size();
        const Lines lines = told
                                ? stepDifferences(replayed.steps[i], expected.at("steps")[i], state)
                                : Lines{"nothing is expected"};
        tell("step " + std::to_string(i), lines);
        if (!lines.empty()) state.follow(replayed.steps[i].state);
    }
    if (expected.at("steps").size() > replayed.steps.size())
        tell("steps",
             {isInstead("their number", replayed.steps.size(), expected.at("steps").size())});
    tell("end", endDifferences(expected, replayed));
    return found;
}

}  // namespace velna::test
