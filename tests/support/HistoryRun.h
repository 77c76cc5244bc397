#pragma once

#include <nlohmann/json.hpp>

#include "support/ScenarioSteps.h"

namespace velna::test {

/// Runs a scenario on a bench just made, with the history on: each gesture is one step at most and
/// leaves nothing outside the history; then every step is undone, to the start, and made again, to
/// the end. The project is compared after each. What is otherwise fails the test.
void runHistory(EditorBench& bench, const nlohmann::json& scenario, ToolbarClick click);

}  // namespace velna::test
