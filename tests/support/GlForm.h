#pragma once

#include <nlohmann/json.hpp>

namespace velna::test {

/// Throws std::runtime_error, which names the call, unless `calls` is a list of calls that
/// `glDifferences` can look at: each with its arguments, and vertices between glBegin and glEnd.
void checkGlCalls(const nlohmann::json& calls);

}  // namespace velna::test
