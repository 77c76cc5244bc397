#include <cmath>

#include "PreviewFixture.h"
#include "model/Fuselage.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;
using ViewTest = PreviewTest;

/// A model whose current fuselage reaches from `start` to `end`.
void layFuselage(int current, double start, double end) {
    while (nbFuselages < current) {
        ++nbFuselages;
        Fuselage::resizeFuselages();
        Fuselage::addFuselage();
    }
    ObjectList.update();
    currentFuselage = static_cast<std::int16_t>(current);
    MeshSections& fuselage = Fuselages(current);
    fuselage.pos_offset = 0;
    fuselage.pos(1) = start;
    fuselage.pos(2) = end;
    fuselage.pos(3) = (start + end) / 2;
}

TEST_F(ViewTest, TransformGivesTheMatrixAndTheLight) {
    for (const json& row : sceneCases("view_transform")) {
        SCOPED_TRACE(row["model"].get<std::string>() + " " + row["args"].dump());
        resetModel();
        Prefs.units = row["units"].get<int>();
        layFuselage(row["currentFuselage"].get<int>(), row["startpoint"].get<double>(),
                    row["lengthPoint"].get<double>());
        openPicture();
        const std::vector<double> args = row["args"];
        Rendering::setViewTransform(args[0], args[1], args[2], args[3], args[4]);
        const GlView view = runMatrix(GlTape::calls());
        expectMatrix(row["modelview"], view.matrix);
        // The light goes through OpenGL's single precision.
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(view.light[i], row["light_eye"][i].get<double>(), 1e-3);
    }
}

TEST_F(ViewTest, TransformMakesTheCallsInOrder) {
    const json& row = sceneCases("view_transform")[1];
    openPicture();
    const std::vector<double> args = row["args"];
    Rendering::setViewTransform(args[0], args[1], args[2], args[3], args[4]);
    const auto& calls = GlTape::calls();
    ASSERT_EQ(calls.size(), row["calls"].size());
    for (std::size_t i = 0; i < calls.size(); ++i) {
        std::string name = row["calls"][i][0];
        if (name == "glTranslatef" || name == "glRotatef") name.back() = 'd';
        EXPECT_EQ(calls[i][0], name);
        for (std::size_t k = 1; k < calls[i].size(); ++k)
            if (calls[i][k].is_number()) {
                EXPECT_EQ(calls[i][k], row["calls"][i][k]) << calls[i];
            }
    }
}

TEST_F(ViewTest, ProjectInInchesIsShownTwentyFiveTimesLarger) {
    openPicture();
    Rendering::setViewTransform(0, 0, 0, 0, 0);
    EXPECT_EQ(GlTape::count("glScaled"), 0);
    Prefs.units = inches;
    Rendering::reapplyViewTransform();
    EXPECT_EQ(GlTape::named("glScaled"),
              std::vector<json>{json::array({"glScaled", 25.0, 25.0, 25.0})});
}

TEST_F(ViewTest, LastTransformIsAppliedAgainWithTheSameArguments) {
    openPicture();
    Rendering::setViewTransform(1, 2, 3, 4, 5);
    const GlMatrix before = runMatrix(GlTape::calls()).matrix;
    GlTape::calls().clear();
    Rendering::reapplyViewTransform();
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, before);
}

TEST_F(ViewTest, CurrentFuselageThatDoesNotExistIsNoCentre) {
    openPicture();
    for (const int current : {0, -1, 2, 32767}) {
        currentFuselage = static_cast<std::int16_t>(current);
        GlTape::calls().clear();
        Rendering::setViewTransform(0, 0, 0, 0, 0);
        EXPECT_EQ(GlTape::count("glTranslated"), 4);
    }
}

TEST_F(ViewTest, CentreBeyondAllNumbersIsLeftOut) {
    layFuselage(1, 1.7e308, 1.7e308);
    openPicture();
    Rendering::setViewTransform(0, 0, 0, 0, 0);
    EXPECT_EQ(GlTape::count("glTranslated"), 4);
}

}  // namespace
}  // namespace velna::test
