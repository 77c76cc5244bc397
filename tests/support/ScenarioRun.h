#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/ScenarioSteps.h"

namespace velna::test {

/// Scripted gestures on the editor, with the state after every step and, for many, the exact calls
/// on the drawing surface, computed apart from this program. `base` is the state of a fresh start,
/// `cases` the scenarios.
const nlohmann::json& scenarios();

/// The places in `cases` of those that click a key of the toolbar, or of those that do not.
std::vector<std::size_t> scenariosThatClickTheToolbar(bool click);

/// Number and name of a scenario, as a test's name.
std::string scenarioName(const ::testing::TestParamInfo<std::size_t>& info);

/// What the state has otherwise than that of a fresh start, a line a key.
std::vector<std::string> differencesFromAFreshStart(const EditorBench& bench);

/// Runs a scenario on a bench just made: the state after its setup, after every step and at the
/// end, the drawing, and which fields of the model have changed. What is otherwise fails the test.
void runScenario(EditorBench& bench, const nlohmann::json& scenario, ToolbarClick click);

}  // namespace velna::test
