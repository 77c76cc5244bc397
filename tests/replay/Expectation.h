#pragma once

#include "StoredFile.h"
#include "support/ScenarioReplay.h"

namespace velna::test {

/// What a scenario's file tells as expected, as its run has given it. What `stored` (an `expected`,
/// or null) tells alike stays as it stands there; without it every number is the program's own.
/// Steps have their lines where they or `stored` ask for them, or all with `allLines`.
Document expectationOf(const ReplayedScenario& replayed, const nlohmann::json& scenario,
                       const Document& stored, bool allLines);

/// The state of a fresh start, told like that.
Document baseOf(const nlohmann::json& state, const Document& stored);

}  // namespace velna::test
