#pragma once

#include <nlohmann/json.hpp>

#include "support/EditorBench.h"

namespace velna::test {

/// Everything that a step of a scenario may change, flat and by name ("Wings(1).span",
/// "text.SpanText", "cursor"). Fields of sections go by storage index.
nlohmann::json editorState(const EditorBench& bench);

/// Assigns a model field by such a name. Throws std::exception for a name that is none, and for a
/// value that the field cannot have.
void setModelField(const std::string& path, const nlohmann::json& value);

}  // namespace velna::test
