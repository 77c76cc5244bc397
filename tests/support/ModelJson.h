#pragma once

#include <nlohmann/json.hpp>

namespace velna {

/// Puts the whole model, the unit settings and the manager's list as `model` tells them (the form
/// of `model` in the data of the solids), on top of a default aircraft.
void applyModel(const nlohmann::json& model);

}  // namespace velna
