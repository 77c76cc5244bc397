#pragma once

#include <set>
#include <string>

#include <nlohmann/json.hpp>

namespace velna::test {

/// The state that a scenario's setup leads to, as far as the setup itself tells it.
struct SetupState {
    nlohmann::json known;             ///< keys with the value that they must have
    std::set<std::string> touched;    ///< objects whose derived numbers the setup changes
    std::set<std::string> unchecked;  ///< single keys that the setup leaves to the program

    /// Whether the key's value is computed from what the setup touches.
    bool depends(const std::string& key) const;
};

/// From the state of a fresh start: what the entries set, and everything that they cannot touch.
SetupState stateAfterSetup(const nlohmann::json& base, const nlohmann::json& setup);

/// Whether the key is a field of the model, as opposed to the pointer's or the window's state.
bool isModelField(const std::string& key);

/// Whether it tells the pointer's hold on an object: hover, hit and selection, which a setup that
/// does not name them leaves.
bool isPointerField(const std::string& key);

}  // namespace velna::test
