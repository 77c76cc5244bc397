#pragma once

#include <nlohmann/json.hpp>

#include "support/EditorBench.h"

namespace velna::test {

/// Brings the aircraft into the state that a scenario starts from, and shows it.
void applySetup(EditorBench& bench, const nlohmann::json& setup);

/// Does one step of a scenario as the user, or the window, would.
void runStep(EditorBench& bench, const nlohmann::json& step);

}  // namespace velna::test
