#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace velna {

/// Puts the whole project in hand, and what its solids carry of pictures, as `model` tells them
/// (the form of `model` in the data of the solids), on top of a default aircraft.
void applyModel(const nlohmann::json& model);

/// The whole model in the same form.
nlohmann::json modelJson();

/// Expects the model to be `model`, number for number; each difference is reported by its place.
/// `{DIR}` in a text of `model` stands for `folder`.
void expectModelEquals(const nlohmann::json& model, const std::string& folder = "{DIR}");

}  // namespace velna
