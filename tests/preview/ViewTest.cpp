#include <cmath>
#include <filesystem>

#include "PreviewFixture.h"
#include "model/Fuselage.h"
#include "persistence/ProjectFile.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;
using ViewTest = PreviewTest;

/// A model whose current fuselage reaches from `start` to `end`.
void layFuselage(int current, double start, double end) {
    while (nbFuselages < current) {
        ++nbFuselages;
        Fuselage::resizeFuselages(project);
        Fuselage::addFuselage(project);
    }
    ObjectList.update(Fuselages, nbFuselages);
    currentFuselage = static_cast<std::int16_t>(current);
    MeshSections& fuselage = Fuselages(current);
    fuselage.pos_offset = 0;
    fuselage.pos(1) = start;
    fuselage.pos(2) = end;
    fuselage.pos(3) = (start + end) / 2;
}

/// The model of a row: its project where there is one, otherwise its fuselage alone.
void standIn(const json& row) {
    resetModel();
    const std::string file = sceneFile(row["model"].get<std::string>() + ".vln");
    if (std::filesystem::exists(file)) {
        EXPECT_TRUE(Plane::readProject(project, file).isDone());
        ObjectList.update(Fuselages, nbFuselages);
        currentFuselage = row["currentFuselage"].get<std::int16_t>();
    } else {
        project.units = row["units"].get<int>();
        layFuselage(row["currentFuselage"].get<int>(), row["startpoint"].get<double>(),
                    row["lengthPoint"].get<double>());
    }
    EXPECT_EQ(project.units, row["units"].get<int>());
}

/// The calls of a view, told with the suffix of single precision.
void expectViewCalls(const json& told, const std::vector<json>& calls) {
    ASSERT_EQ(calls.size(), told.size());
    for (std::size_t i = 0; i < calls.size(); ++i) {
        std::string name = told[i][0];
        const bool inDoubles = name.starts_with("glTranslate") || name.starts_with("glRotate") ||
                               name.starts_with("glScale");
        if (inDoubles) name.back() = 'd';
        EXPECT_EQ(calls[i][0], name);
        ASSERT_EQ(calls[i].size(), told[i].size()) << name;
        for (std::size_t k = 1; k < calls[i].size(); ++k) {
            if (calls[i][k].is_array()) {
                for (std::size_t n = 0; n < calls[i][k].size(); ++n)
                    EXPECT_NEAR(calls[i][k][n].get<double>(), told[i][k][n].get<double>(), 1e-4);
            } else if (calls[i][k].is_number()) {
                EXPECT_NEAR(calls[i][k].get<double>(), told[i][k].get<double>(), 1e-12) << name;
            } else {
                EXPECT_EQ(calls[i][k], told[i][k]);
            }
        }
    }
}

TEST_F(ViewTest, TransformGivesTheCallsTheMatrixAndTheLight) {
    for (const json& row : sceneCases("view_transform")) {
        SCOPED_TRACE(row["model"].get<std::string>() + " " + row["args"].dump());
        standIn(row);
        openPicture();
        const std::vector<double> args = row["args"];
        rendering.setViewTransform(args[0], args[1], args[2], args[3], args[4]);
        expectViewCalls(row["calls"], GlTape::calls());
        const GlView view = runMatrix(GlTape::calls());
        expectMatrix(row["modelview"], view.matrix);
        // The light goes through OpenGL's single precision.
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(view.light[i], row["light_eye"][i].get<double>(), 1e-3);
    }
}

TEST_F(ViewTest, ProjectInInchesIsShownTwentyFiveTimesLarger) {
    openPicture();
    rendering.setViewTransform(0, 0, 0, 0, 0);
    EXPECT_EQ(GlTape::count("glScaled"), 0);
    project.units = inches;
    rendering.reapplyViewTransform();
    EXPECT_EQ(GlTape::named("glScaled"),
              std::vector<json>{json::array({"glScaled", 25.0, 25.0, 25.0})});
}

TEST_F(ViewTest, LastTransformIsAppliedAgainWithTheSameArguments) {
    openPicture();
    rendering.setViewTransform(1, 2, 3, 4, 5);
    const GlMatrix before = runMatrix(GlTape::calls()).matrix;
    GlTape::calls().clear();
    rendering.reapplyViewTransform();
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, before);
}

TEST_F(ViewTest, CurrentFuselageThatDoesNotExistIsNoCentre) {
    openPicture();
    for (const int current : {0, -1, 2, 32767}) {
        currentFuselage = static_cast<std::int16_t>(current);
        GlTape::calls().clear();
        rendering.setViewTransform(0, 0, 0, 0, 0);
        EXPECT_EQ(GlTape::count("glTranslated"), 4);
    }
}

TEST_F(ViewTest, CentreBeyondAllNumbersIsLeftOut) {
    layFuselage(1, 1.7e308, 1.7e308);
    openPicture();
    rendering.setViewTransform(0, 0, 0, 0, 0);
    EXPECT_EQ(GlTape::count("glTranslated"), 4);
}

}  // namespace
}  // namespace velna::test
