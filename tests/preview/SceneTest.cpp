#include <algorithm>
#include <cmath>
#include <limits>

#include "PreviewFixture.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;

class SceneTest : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        openPicture();
    }

    /// The mode and vertex count of every primitive.
    static std::vector<std::pair<std::string, int>> primitives(const std::vector<json>& calls) {
        std::vector<std::pair<std::string, int>> found;
        for (const json& call : calls) {
            const std::string name = call[0];
            if (name == "glBegin") found.emplace_back(call[1].get<std::string>(), 0);
            if (name.starts_with("glVertex")) ++found.back().second;
        }
        return found;
    }

    static void expectFinite(const std::vector<json>& calls) {
        for (const json& call : calls)
            for (const json& value : call)
                if (value.is_number()) {
                    ASSERT_TRUE(std::isfinite(value.get<double>())) << call;
                }
    }

    static json normalBefore(const std::vector<json>& calls, std::size_t vertex) {
        json normal;
        std::size_t seen = 0;
        for (const json& call : calls) {
            if (call[0] == "glNormal3dv") normal = call;
            if (call[0] == "glVertex3dv" && seen++ == vertex) return normal;
        }
        return {};
    }
};

// The comparison itself must see what is wrong, or it shows nothing.
TEST_F(SceneTest, ComparisonFindsWhatDiffers) {
    const std::vector<json> calls = rebuild();
    EXPECT_TRUE(glDifferences(calls, calls).empty());
    const auto changed = [&](const char* name, std::size_t argument, const json& value) {
        std::vector<json> other = calls;
        const auto call = std::find_if(other.rbegin(), other.rend(),
                                       [&](const json& entry) { return entry[0] == name; });
        (*call)[argument] = value;
        return glDifferences(calls, other).size();
    };
    EXPECT_GT(changed("glVertex3dv", 1, 1e3), 0u);
    EXPECT_GT(changed("glNormal3dv", 2, 5), 0u);
    EXPECT_GT(changed("glBegin", 1, "GL_QUADS"), 0u);
    EXPECT_GT(changed("glMaterialfv", 3, json::array({0, 0, 0, 0})), 0u);
    std::vector<json> blended = calls;
    std::erase(blended, json::array({"glDisable", "GL_BLEND"}));
    EXPECT_GT(glDifferences(calls, blended).size(), 0u);
    std::vector<json> shorter = calls;
    shorter.erase(std::find_if(shorter.begin(), shorter.end(),
                               [](const json& call) { return call[0] == "glVertex3dv"; }));
    EXPECT_GT(glDifferences(calls, shorter).size(), 0u);
}

TEST_F(SceneTest, FalseBeforeAnyListBuildsIt) {
    rendering.renderListBuilt = false;
    rendering.renderScene(false);
    EXPECT_EQ(GlTape::count("glNewList"), 1);
    EXPECT_TRUE(rendering.renderListBuilt);
}

TEST_F(SceneTest, HiddenFuselageDropsOutAtTheNextRebuild) {
    const auto before = primitives(rebuild());
    ObjectList.setShown(1, false);
    GlTape::calls().clear();
    rendering.renderScene(false);
    EXPECT_EQ(GlTape::count("glCallList"), 1) << "the old list still shows it";
    const auto after = primitives(rebuild());
    EXPECT_EQ(after.size(), before.size() - 2);
}

TEST_F(SceneTest, OpaquePartsComeFirstAndFuselagesLast) {
    Fuselages(1).transparent = true;
    const std::vector<json> calls = rebuild();
    const auto blend = std::find(calls.begin(), calls.end(), json::array({"glEnable", "GL_BLEND"}));
    ASSERT_NE(blend, calls.end());
    EXPECT_EQ(primitives({blend, calls.end()}).size(), 2u);
    EXPECT_EQ(GlTape::named("glDisable").at(0)[1], "GL_BLEND");
}

TEST_F(SceneTest, MaterialIsTheObjectsColourWithTheAlphaOfAll) {
    Rudder.set_color({255, 0, 51});
    rebuild();
    const json material = GlTape::named("glMaterialfv").at(3);
    EXPECT_FLOAT_EQ(material[3][0].get<float>(), 1);
    EXPECT_FLOAT_EQ(material[3][1].get<float>(), 0);
    EXPECT_FLOAT_EQ(material[3][2].get<float>(), 0.2F);
    EXPECT_FLOAT_EQ(material[3][3].get<float>(), 0.7F);
}

// Without inner points all normals are zeros, and a vector without length becomes (1, 0, 0).
TEST_F(SceneTest, AirfoilOfTwoPointsHasStandInNormals) {
    Wings(1).nb = 2;
    Wings(1).allocate();
    Wings(1).setAirfoilPoint(1, 1, 0);
    Wings(1).setAirfoilPoint(2, 0, 0);
    const std::vector<json> calls = rebuild();
    for (std::size_t vertex = 0; vertex < 6; ++vertex)
        EXPECT_EQ(normalBefore(calls, vertex), json::array({"glNormal3dv", 1.0, 0.0, 0.0}));
    // The skin with its closing pair, and a cap of one pair.
    const auto shown = primitives(calls);
    EXPECT_EQ(shown[3].second, 6);
    EXPECT_EQ(shown[4].second, 2);
}

TEST_F(SceneTest, WingOfOnePointOrNoneIsHarmless) {
    for (const int nb : {1, 0, -3}) {
        Wings(1).nb = static_cast<std::int16_t>(std::max(nb, 0));
        Wings(1).allocate();
        Wings(1).nb = static_cast<std::int16_t>(nb);
        const auto shown = primitives(rebuild());
        EXPECT_EQ(shown[3].second, nb == 1 ? 4 : 34) << "nb " << nb;
    }
}

TEST_F(SceneTest, WingThatPromisesMorePointsThanItsAirfoilHasDrawsThose) {
    Wings(1).nb = 500;
    const auto shown = primitives(rebuild());
    EXPECT_EQ(shown[3].second, 34);
    EXPECT_EQ(shown[4].second, 16);
}

TEST_F(SceneTest, TipCapTakesHalfThePointsRoundedToEven) {
    for (const auto& [nb, pairs] : {std::pair{3, 2}, {5, 2}, {7, 4}, {4, 2}}) {
        Wings(1).nb = static_cast<std::int16_t>(nb);
        Wings(1).allocate();
        const auto shown = primitives(rebuild());
        EXPECT_EQ(shown[4].second, 2 * pairs) << "nb " << nb;
    }
}

TEST_F(SceneTest, NegativeSpanTurnsTheNormalsInward) {
    const std::vector<json> before = rebuild();
    Wings(1).span = -Wings(1).span;
    solids.wings(1).create(Wings(1));
    const std::vector<json> after = rebuild();
    const json up = normalBefore(before, 24);
    const json down = normalBefore(after, 24);
    EXPECT_GT(up[3].get<double>(), 0.5);
    EXPECT_LT(down[3].get<double>(), -0.5);
}

TEST_F(SceneTest, FinOfAnyCountOfPointsStaysWithinIt) {
    for (const int nb : {-5, 0, 1, 2, 3, 4, 5, 6, 7, 9, 15, 17, 18, 40}) {
        for (const double offset : {0.0, 30.0}) {
            Rudder.nb = static_cast<std::int16_t>(nb);
            Rudder.offset1 = offset;
            const std::vector<json> calls = rebuild();
            expectFinite(calls);
            const auto shown = primitives(calls);
            const std::size_t fins = nb < 1 ? 0 : offset != 0 ? 2 : 1;
            // Box 3, wing 4, stabiliser 4, fin, fuselage 2.
            ASSERT_EQ(shown.size(), 13 + 2 * fins) << "nb " << nb;
            if (nb > 1) {
                EXPECT_EQ(shown[11].second, 2 * nb) << "nb " << nb;
            }
        }
    }
}

// With an odd count the rounding leaves a middle point without a normal of its own.
TEST_F(SceneTest, OddFinHasAPointWithoutNormal) {
    Rudder.nb = 5;
    const std::vector<json> calls = rebuild();
    const auto zero = json::array({"glNormal3dv", 0.0, 0.0, 0.0});
    EXPECT_EQ(std::count(calls.begin(), calls.end(), zero), 2);
}

TEST_F(SceneTest, FinIsMirroredForEitherOffset) {
    Rudder.offset2 = 10;
    EXPECT_EQ(primitives(rebuild()).size(), 17u);
    Rudder.offset1 = -10;
    EXPECT_EQ(primitives(rebuild()).size(), 17u);
    Rudder.offset1 = 0;
    Rudder.offset2 = 0;
    EXPECT_EQ(primitives(rebuild()).size(), 15u);
}

TEST_F(SceneTest, FuselageBelowTwoPointsASectionDrawsNothingEvenOverAnOldMesh) {
    for (const int nb_cross : {1, 0, -4}) {
        Fuselages(1).nb_cross = static_cast<std::int16_t>(nb_cross);
        EXPECT_EQ(primitives(rebuild()).size(), 13u) << nb_cross;
    }
}

TEST_F(SceneTest, FuselageOfOneSectionOrNoneDrawsNothing) {
    for (const int nb_sections : {1, 0}) {
        Fuselages(1).nb_sections = static_cast<std::int16_t>(nb_sections);
        EXPECT_EQ(primitives(rebuild()).size(), 13u) << nb_sections;
    }
}

TEST_F(SceneTest, FuselageOfTwoSectionsIsOneStrip) {
    Fuselages(1).nb_sections = 2;
    EXPECT_EQ(primitives(rebuild()).size(), 14u);
}

TEST_F(SceneTest, FuselageWhoseCountsPassItsArraysDrawsWhatThereIs) {
    Fuselages(1).nb_sections = 200;
    EXPECT_EQ(primitives(rebuild()).size(), 15u);
}

TEST_F(SceneTest, ShiftedFuselageHasATwinWithTheSameNormals) {
    const std::vector<json> single = rebuild();
    Fuselages(1).shift = 40;
    const std::vector<json> calls = rebuild();
    const auto shown = primitives(calls);
    ASSERT_EQ(shown.size(), 17u);
    const std::size_t points = 4 * 9;
    const auto vertices = GlTape::named("glVertex3dv");
    const auto normals = GlTape::named("glNormal3dv");
    for (std::size_t i = 0; i < points; ++i) {
        const std::size_t own = vertices.size() - 2 * points + i;
        const std::size_t twin = vertices.size() - points + i;
        EXPECT_EQ(vertices[twin][2].get<double>(), vertices[own][2].get<double>() - 80);
        EXPECT_EQ(normals[normals.size() - points + i], normals[normals.size() - 2 * points + i]);
    }
}

TEST_F(SceneTest, EveryBoxIsAStripAndTwoEnds) {
    const auto shown = primitives(rebuild());
    EXPECT_EQ(shown[0], (std::pair<std::string, int>{"GL_QUAD_STRIP", 10}));
    EXPECT_EQ(shown[1], (std::pair<std::string, int>{"GL_QUADS", 4}));
    EXPECT_EQ(shown[2], (std::pair<std::string, int>{"GL_QUADS", 4}));
}

// What is only promised lies in one place, so that one picture stands for all.
TEST_F(SceneTest, PromisedBoxesAreDrawnOnceBesideTheirOwn) {
    nbEquipments = 3000;
    Equipments.fill(nbEquipments, ElectroBox(project.units));
    Equipments(2).pos = 100;
    const std::size_t own = primitives(rebuild()).size();
    EXPECT_EQ(GlTape::named("glVertex3f")[0][1].get<float>(), 200);
    EXPECT_EQ(GlTape::named("glVertex3f")[18][1].get<float>(), 100);
    EXPECT_EQ(GlTape::count("glVertex3f"), 2 * 18);
    EXPECT_EQ(own, 15u + 3);
}

TEST_F(SceneTest, AircraftWithoutSizeIsDrawn) {
    Plane::rescaleAll(project, 0);
    expectFinite(rebuild());
    rendering.setViewTransform(0, 0, 0, 0, 0);
}

TEST_F(SceneTest, HugeAndTinyAircraftGiveFiniteNormals) {
    for (const double factor : {1e300, 1e-305, 1e150}) {
        resetModel();
        Plane::rescaleAll(project, factor);
        const std::vector<json> calls = rebuild();
        for (const json& call : calls)
            if (call[0] == "glNormal3dv") {
                for (std::size_t k = 1; k < 4; ++k)
                    ASSERT_TRUE(std::isfinite(call[k].get<double>())) << factor << call;
            }
    }
}

TEST_F(SceneTest, ManyWingsAreDrawnInOrder) {
    for (int i = 0; i < 3; ++i) {
        ++nbWings;
        MainWing::addWing(project);
    }
    const auto shown = primitives(rebuild());
    EXPECT_EQ(shown.size(), 15u + 3 * 4);
}

}  // namespace
}  // namespace velna::test
