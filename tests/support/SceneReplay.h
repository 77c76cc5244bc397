#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "support/GlCompare.h"

namespace velna::test {

/// What the program makes of a scene: the members of its file that tell what is expected.
struct ReplayedScene {
    std::vector<std::string> messages;  ///< message boxes shown, in order
    nlohmann::json pictures;            ///< what stands in the objects that have one
    GlCalls calls;                    ///< of the recorded rebuild; a picture with its file's title
    std::vector<std::string> faults;  ///< calls that no GL would take

    /// How many primitives have vertices, and all their vertices together.
    std::size_t primitives() const;
    std::size_t vertices() const;
};

/// Opens the scene's project, which lies in `folder` (ends in "/"), takes the scene's steps and
/// records the last. What it expects is not looked at. Throws std::runtime_error where the scene
/// cannot be run.
ReplayedScene replayScene(const nlohmann::json& scene, const std::string& folder);

/// Throws std::runtime_error unless the scene holds all that it can be compared by.
void checkSceneExpectations(const nlohmann::json& scene);

/// Whether two members of an object's picture say the same: its places to 1e-12.
bool samePlaces(const nlohmann::json& expected, const nlohmann::json& actual);

/// What the run has otherwise than the scene expects, a line each.
std::vector<std::string> sceneDifferences(const nlohmann::json& scene,
                                          const ReplayedScene& replayed);

}  // namespace velna::test
