#pragma once

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "preview/Bitmap.h"
#include "preview/Flying.h"
#include "preview/Imaging.h"
#include "preview/Rendering.h"
#include "preview/ViewMouse.h"
#include "support/FakeImaging.h"
#include "support/FakeJoystick.h"
#include "support/FakeRenderContext.h"
#include "support/FreshModel.h"
#include "support/GlCompare.h"
#include "support/GlTape.h"

namespace velna::test {

/// The default aircraft, every port recorded, and no context yet.
class PreviewTest : public FreshModel {
protected:
    FakeRenderContext context;
    FakeImaging pictures;
    FakeJoystick stick;
    Rendering rendering{project, solids};
    Flying flight{project, rendering};
    RenderPointer pointer{rendering, flight};

    void SetUp() override {
        FreshModel::SetUp();
        GlTape::clear();
        GlTape::hasContext = false;
        GlTape::largestTexture = 4096;
        rendering.context = &context;
        flight.joystick = &stick;
        rendering.imaging = &pictures;
    }

    void TearDown() override {
        EXPECT_EQ(GlTape::faults(), std::vector<std::string>{});
        EXPECT_FALSE(GlTape::insideList());
        resetModel();
    }

    /// A context with an empty tape behind it.
    void openPicture() {
        rendering.createRenderContext();
        GlTape::calls().clear();
    }

    /// The calls of one rebuild.
    std::vector<nlohmann::json> rebuild() {
        GlTape::calls().clear();
        rendering.renderListBuilt = false;
        rendering.renderScene(true);
        return GlTape::calls();
    }
};

/// A file of tests/data/scene.
inline std::string sceneFile(const std::string& name) {
    return std::string(VELNA_TEST_DATA) + "/scene/" + name;
}

inline nlohmann::json sceneJson(const std::string& name) {
    std::ifstream file(sceneFile(name));
    return nlohmann::json::parse(file);
}

/// A table of tests/data/scene/cases.json.
inline const nlohmann::json& sceneCases(const std::string& table) {
    static const nlohmann::json cases = sceneJson("cases.json");
    return cases.at(table);
}

/// Equal as far as double precision carries through a few products.
inline void expectMatrix(const nlohmann::json& expected, const GlMatrix& actual) {
    double largest = 0;
    for (const nlohmann::json& value : expected)
        largest = std::max(largest, std::abs(value.get<double>()));
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(actual[i], expected[i].get<double>(), 1e-9 * largest) << "entry " << i;
}

}  // namespace velna::test
