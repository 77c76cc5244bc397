// One rebuild of whole models, held against calls computed by other means.

#include <map>
#include <numeric>
#include <sstream>

#include "PreviewFixture.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;

/// What the fields are called in the steps of a scene.
double& fieldOf(const std::string& name) {
    static const std::map<std::string, double&> fields{{"Wings(1).span", Wings(1).span},
                                                       {"Wings(1).length1", Wings(1).length1},
                                                       {"Rudder.span", Rudder.span}};
    return fields.at(name);
}

/// "Wings(1): span := 350, length1 := 115", or "Rudder.span := 75".
void assignFields(std::string step) {
    std::string object;
    if (const auto colon = step.find(": "); colon != std::string::npos) {
        object = step.substr(0, colon) + ".";
        step.erase(0, colon + 2);
    }
    std::istringstream words(step);
    std::string name;
    std::string sign;
    double value = 0;
    int count = 0;
    for (char comma = ' '; words >> name >> sign >> value; words >> comma, ++count) {
        ASSERT_EQ(sign, ":=") << step;
        fieldOf(object + name) = value;
    }
    ASSERT_GT(count, 0) << step;
    ASSERT_TRUE(words.eof()) << step;
}

/// Takes the steps of a scene; the calls of the last, the recorded one.
std::vector<json> takeSteps(const json& steps) {
    for (std::size_t i = 0; i + 1 < steps.size(); ++i) {
        const std::string step = steps[i];
        if (step == "renderScene(true)")
            Rendering::renderScene(true);
        else
            assignFields(step);
    }
    EXPECT_EQ(steps.back(), "renderScene(true), recorded");
    GlTape::calls().clear();
    GlTape::pictures().clear();
    Rendering::renderScene(true);
    return GlTape::calls();
}

std::vector<std::size_t> softOf(const json& scene) {
    return scene["soft"].get<std::vector<std::size_t>>();
}

template <class Object>
void expectPicture(const json& expected, const Object& object, const std::string& where) {
    EXPECT_EQ(object.texture_loaded, expected["texture_loaded"].get<bool>()) << where;
    EXPECT_EQ(object.xtex, expected["xtex"].get<int>()) << where;
    EXPECT_EQ(object.ytex, expected["ytex"].get<int>()) << where;
}

template <class Object>
void expectPlaces(const json& expected, const Object& object, const std::string& where) {
    expectPicture(expected, object, where);
    const json& root = expected["rootTexCoords"];
    const json& tip = expected["tipTexCoords"];
    for (std::size_t i = 0; i < root.size(); ++i) {
        EXPECT_NEAR(object.rootTexCoord(static_cast<int>(i) + 1), root[i].get<double>(), 1e-12)
            << where;
        EXPECT_NEAR(object.tipTexCoord(static_cast<int>(i) + 1), tip[i].get<double>(), 1e-12)
            << where;
    }
}

/// `name` is "Wings(2).Left", "Stabilizer.Right", "Rudder", "Fuselages(1)".
void expectPictureOf(const std::string& name, const json& expected) {
    const auto number = [&] { return std::stoi(name.substr(name.find('(') + 1)); };
    const bool left = name.ends_with(".Left");
    if (name.starts_with("Wings("))
        expectPlaces(expected, left ? *Wings(number()).Left : *Wings(number()).Right, name);
    else if (name.starts_with("Stabilizer."))
        expectPlaces(expected, left ? *Stabilizer.Left : *Stabilizer.Right, name);
    else if (name == "Rudder")
        expectPlaces(expected, Rudder, name);
    else if (name.starts_with("Fuselages("))
        expectPicture(expected, Fuselages(number()), name);
    else
        FAIL() << name;
}

/// The pixels of `file` as a texture, as they lie or turned.
std::vector<unsigned char> texelsOf(const std::string& file, bool turned) {
    FakeImaging reader;
    std::string reason;
    EXPECT_TRUE(reader.load(file, reason)) << file;
    if (turned) reader.rotateQuarter();
    reader.resize(Bitmap::roundedSize(reader.width()), Bitmap::roundedSize(reader.height()));
    return reader.pixels().bytes;
}

/// Each object shows the picture of the file that the scene tells for it.
void expectToldFiles(const json& scene, const std::vector<json>& calls) {
    std::vector<json> told;
    for (const json& call : scene["calls"])
        if (call[0] == "glTexImage2D") told.push_back(call);
    std::map<int, std::vector<unsigned char>> textures;
    std::vector<int> shown;
    std::size_t upload = 0;
    for (const json& call : calls) {
        if (call[0] == "glBindTexture") shown.push_back(call[2]);
        if (call[0] == "glTexImage2D") textures[shown.back()] = GlTape::pictures().at(upload++);
    }
    ASSERT_EQ(shown.size(), told.size());
    for (std::size_t i = 0; i < told.size(); ++i) {
        const std::string file = sceneFile(told[i].back());
        const std::vector<unsigned char>& bytes = textures.at(shown[i]);
        EXPECT_TRUE(bytes == texelsOf(file, true) || bytes == texelsOf(file, false)) << file;
    }
}

class SceneCase : public PreviewTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        openPicture();
    }
};

/// The vertex counts of the primitives that have any.
std::vector<int> filledPrimitives(const std::vector<json>& calls) {
    std::vector<int> counts;
    for (const json& call : calls) {
        const std::string name = call[0];
        if (name == "glBegin") counts.push_back(0);
        if (name.starts_with("glVertex")) ++counts.back();
    }
    std::erase(counts, 0);
    return counts;
}

TEST_P(SceneCase, PutsTheSameOnTheScreen) {
    const std::string name = GetParam();
    const json scene = sceneJson(name + ".json");
    Plane::readProject(sceneFile(scene["file"]));
    ObjectList.update();
    ASSERT_EQ(scene["check"], "exact");
    const std::vector<json> calls = takeSteps(scene["steps"]);
    EXPECT_EQ(glDifferences(scene["calls"], calls, softOf(scene)), std::vector<std::string>{});
    const std::vector<int> shown = filledPrimitives(calls);
    EXPECT_EQ(std::accumulate(shown.begin(), shown.end(), 0), scene["vertices"].get<int>());
    EXPECT_EQ(shown.size(), scene["primitives"].get<std::size_t>());
    EXPECT_EQ(pictures.errors, scene["messages"].get<std::vector<std::string>>());
    expectToldFiles(scene, calls);
    for (const auto& [object, picture] : scene["pictures"].items())
        expectPictureOf(object, picture);
}

INSTANTIATE_TEST_SUITE_P(All, SceneCase,
                         ::testing::Values("boxes", "cross1", "cross2", "cross7", "default",
                                           "fin_offsets", "foil_nb3", "hidden", "inches",
                                           "tex_after_edit", "tex_all", "transparent", "wings3"),
                         [](const auto& instance) { return std::string(instance.param); });

}  // namespace
}  // namespace velna::test
