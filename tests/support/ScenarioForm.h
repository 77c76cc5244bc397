#pragma once

#include <cstdint>
#include <string>

#include <nlohmann/json.hpp>

namespace velna::test {

/// A number without a fraction that a 16-bit counter holds; throws std::runtime_error for another.
std::int16_t wholeNumber(const nlohmann::json& value);

/// Throws std::runtime_error, which names the entry and what is wrong with it, unless `scenario` is
/// one that can be run: known setup entries and steps, each with what it needs. Whether the objects
/// that it names exist shows only when it runs. `expected` is not looked at.
void checkScenarioForm(const nlohmann::json& scenario);

}  // namespace velna::test
