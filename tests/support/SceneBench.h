#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "preview/Rendering.h"
#include "support/FakeImaging.h"
#include "support/FakeRenderContext.h"
#include "support/InHand.h"

namespace velna::test {

/// The picture of the project in hand just started, with a context and every port recorded on the
/// GL tape. What a scene does to the program goes through here. Making it, and its end, reset the
/// project.
class SceneBench {
public:
    SceneBench();
    ~SceneBench();

    SceneBench(const SceneBench&) = delete;
    SceneBench& operator=(const SceneBench&) = delete;

    /// Opens a project; throws std::runtime_error where the file is none.
    static void open(const std::string& file);

    /// Assigns a number to a field ("Wings(1).span"); throws std::runtime_error for an unknown one.
    static void assign(const std::string& field, double value);

    /// `renderScene(true)`; the calls that it makes.
    std::vector<nlohmann::json> rebuild();

    /// What stands in the objects that have a picture, by their names ("Wings(2).Left", "Rudder").
    static nlohmann::json objectPictures();

    FakeRenderContext context;
    FakeImaging pictures;

private:
    Rendering rendering_{project, solids};
};

}  // namespace velna::test
