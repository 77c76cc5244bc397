#pragma once

#include <string>
#include <utility>
#include <vector>

#include "PreviewFixture.h"

namespace velna::test {

inline constexpr const char* wingMessage = "Error in wingSection texture mapping";

class TexturesTest : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        openPicture();
    }

    static void putOnWing(const std::string& file) {
        Wings(1).set_texture_filename(file);
        for (auto* half : {&solids.wings(1).Left, &solids.wings(1).Right})
            half->picture.texture_loaded = false;
    }
    static void putOnFuselage(const std::string& file) {
        solids.fuselages(1).picture.texture_loaded = false;
        Fuselages(1).texture_filename = file;
    }
    static void putOnFin(const std::string& file) {
        solids.rudder.picture.texture_loaded = false;
        Rudder.texture_filename = file;
    }

    /// The pictures handed over in one rebuild, as [width, height].
    std::vector<std::pair<int, int>> uploads() {
        rebuild();
        std::vector<std::pair<int, int>> sizes;
        for (const nlohmann::json& call : GlTape::named("glTexImage2D"))
            sizes.emplace_back(call[4].get<int>(), call[5].get<int>());
        return sizes;
    }

    static PictureBytes pictureOf(const nlohmann::json& size, const nlohmann::json& bytes) {
        return {size[0].get<int>(), size[1].get<int>(), bytes.get<std::vector<unsigned char>>()};
    }
};

using Sizes = std::vector<std::pair<int, int>>;

}  // namespace velna::test
