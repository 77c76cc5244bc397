#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "support/EditorBench.h"

namespace velna::test {

/// Brings the aircraft into the state that a scenario starts from, and shows it.
void applySetup(EditorBench& bench, const nlohmann::json& setup);

/// Clicks the toolbar key of that name. The toolbar stands above the editor, so each test brings
/// its own.
using ToolbarClick = void (*)(EditorBench& bench, const std::string& key);

/// Does one step of a scenario as the user, or the window, would.
void runStep(EditorBench& bench, const nlohmann::json& step, ToolbarClick click);

}  // namespace velna::test
