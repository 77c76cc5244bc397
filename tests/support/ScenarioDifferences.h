#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "support/ScenarioReplay.h"

namespace velna::test {

/// Equal as far as double precision carries through a drag.
bool sameValue(const nlohmann::json& expected, const nlohmann::json& actual);

/// Whether two lists of calls on a surface are the same to `tolerance` pixels.
inline constexpr double lineTolerance = 1e-6;
inline constexpr double sectionTolerance = 1e-4;  ///< the section editor works in single precision
bool sameCalls(const nlohmann::json& expected, const nlohmann::json& actual, double tolerance);

/// Controls whose state before their first change is nobody's concern.
bool isFreeAtFirst(const std::string& key);

/// What the state has otherwise than that of a fresh start, a line a key; none for the same.
std::vector<std::string> startDifferences(const nlohmann::json& base, const nlohmann::json& state);

/// What a scenario's run has otherwise than it expects, a line a key, each with its place ("step
/// 3: ..."): the state after its setup, after every step and at the end, the drawing, and which
/// fields of the model have changed. Of the first place that differs, or with `all` of each.
/// Throws nlohmann::json::exception where `expected` lacks a part.
std::vector<std::string> scenarioDifferences(const nlohmann::json& base,
                                             const nlohmann::json& scenario,
                                             const ReplayedScenario& replayed, bool all = false);

}  // namespace velna::test
