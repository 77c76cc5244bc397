// One rebuild of whole models, held against calls computed by other means.

#include "PreviewFixture.h"
#include "support/SceneReplay.h"

namespace velna::test {
namespace {

using nlohmann::json;

class SceneCase : public ::testing::TestWithParam<const char*> {};

TEST_P(SceneCase, PutsTheSameOnTheScreen) {
    const json scene = sceneJson(std::string(GetParam()) + ".json");
    const ReplayedScene replayed = replayScene(scene, sceneFile(""));
    EXPECT_EQ(sceneDifferences(scene, replayed), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(All, SceneCase,
                         ::testing::Values("boxes", "cross1", "cross2", "cross7", "default",
                                           "fin_offsets", "foil_nb3", "hidden", "inches",
                                           "tex_after_edit", "tex_all", "transparent", "wings3"),
                         [](const auto& instance) { return std::string(instance.param); });

}  // namespace
}  // namespace velna::test
