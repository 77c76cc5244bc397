#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "support/ScenarioSteps.h"

namespace velna::test {

/// What one step of a scenario left behind.
struct ReplayedStep {
    nlohmann::json state;                 ///< every state key, after the step
    nlohmann::json lines;                 ///< the calls on the drawing surface, in order
    nlohmann::json section;               ///< those on the section editor since its last clear
    std::vector<std::string> unanswered;  ///< questions for which the step holds no answer
};

struct ReplayedScenario {
    nlohmann::json start;  ///< every state key, after the setup
    std::vector<ReplayedStep> steps;

    /// The state after the last step.
    const nlohmann::json& end() const { return steps.empty() ? start : steps.back().state; }
};

/// Runs a scenario on a bench just made. What it expects is not looked at. Throws
/// std::runtime_error, which names the entry, where the scenario cannot be run.
ReplayedScenario replayScenario(EditorBench& bench, const nlohmann::json& scenario,
                                ToolbarClick click);

}  // namespace velna::test
