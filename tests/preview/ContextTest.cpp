#include <algorithm>
#include <set>

#include "PreviewFixture.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;
using ContextTest = PreviewTest;

/// Equal up to the single precision of OpenGL's `f` procedures.
void expectAlike(const json& expected, const json& actual, const std::string& where) {
    ASSERT_EQ(expected.size(), actual.size()) << where << actual;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (expected[i].is_array())
            expectAlike(expected[i], actual[i], where);
        else if (expected[i].is_number())
            EXPECT_NEAR(expected[i].get<double>(), actual[i].get<double>(), 1e-6) << where;
        else
            EXPECT_EQ(expected[i], actual[i]) << where;
    }
}

/// The calls of a context's set-up that are OpenGL's, up to the view.
std::vector<json> setUpCalls(const std::vector<json>& calls) {
    std::vector<json> wanted;
    for (const json& call : calls) {
        if (call[0] == "setViewTransform") break;
        if (call[0].get<std::string>().starts_with("gl")) wanted.push_back(call);
    }
    return wanted;
}

/// How many of the told calls are those of a windowing platform, which each toolkit has its own of.
std::size_t platformCalls(const std::vector<json>& calls) {
    return static_cast<std::size_t>(std::count_if(calls.begin(), calls.end(), [](const json& call) {
        const std::string name = call[0];
        return !name.starts_with("gl") && name != "setViewTransform" && name != "renderScene";
    }));
}

TEST_F(ContextTest, IsSetUpStepByStep) {
    for (const json& row : sceneCases("context")) {
        context.areaWidth = row["width"].get<double>();
        context.areaHeight = row["height"].get<double>();
        GlTape::clear();
        rendering.renderSpin = 1;
        rendering.renderTilt = 2;
        rendering.createRenderContextWide(row["h"].get<double>());
        const std::vector<json> expected = setUpCalls(row["calls"]);
        const std::vector<json> actual = GlTape::calls();
        ASSERT_GT(actual.size(), expected.size() + 3);
        EXPECT_EQ(actual[0], json::array({"chooseFormat"}));
        EXPECT_EQ(actual[1], json::array({"create"}));
        for (std::size_t i = 0; i < expected.size(); ++i)
            expectAlike(expected[i], actual[i + 2], expected[i].dump());
        // Then the view of five zeros and the first picture.
        ASSERT_EQ(row["calls"].size(), expected.size() + platformCalls(row["calls"]) + 2);
        EXPECT_EQ(row["calls"][row["calls"].size() - 1], json::array({"renderScene", false}));
        const json view = row["calls"][row["calls"].size() - 2];
        const GlMatrix shown = runMatrix(actual).matrix;
        GlTape::calls().clear();
        rendering.setViewTransform(view[1], view[2], view[3], view[4], view[5]);
        EXPECT_EQ(runMatrix(GlTape::calls()).matrix, shown);
        EXPECT_EQ(std::count_if(actual.begin(), actual.end(),
                                [](const json& call) { return call[0] == "glNewList"; }),
                  1);
        EXPECT_EQ(actual.back()[0], "SwapBuffers");
        EXPECT_EQ(rendering.renderSpin, row["after"]["renderSpin"].get<double>());
        EXPECT_EQ(rendering.renderTilt, row["after"]["renderTilt"].get<double>());
    }
}

TEST_F(ContextTest, UsualFrustumIsAHundredWide) {
    rendering.createRenderContext();
    const json frustum = GlTape::named("glFrustum").at(0);
    EXPECT_EQ(frustum[1].get<double>(), -100);
    EXPECT_EQ(frustum[2].get<double>(), 100);
}

TEST_F(ContextTest, ViewportIsInDevicePixels) {
    context.areaWidth = 823.5;
    context.areaHeight = 400.25;
    context.pixelRatio = 2;
    rendering.createRenderContext();
    EXPECT_EQ(GlTape::named("glViewport").at(0), json::array({"glViewport", 0, 0, 1647, 800}));
}

TEST_F(ContextTest, WithoutAFormatTheProgramSaysSoAndCallsNoGl) {
    context.formatFound = false;
    rendering.createRenderContext();
    EXPECT_EQ(GlTape::calls(),
              (std::vector<json>{
                  json::array({"chooseFormat"}),
                  json::array({"fatal", "Fatal Error: Could not retrieve pixel format!"})}));
    EXPECT_FALSE(rendering.contextCreated);
}

TEST_F(ContextTest, ThatCannotBeCreatedLeavesThePictureDarkAndTheRestAtWork) {
    context.creationWorks = false;
    rendering.createRenderContext();
    EXPECT_EQ(rendering.renderSpin, 900);
    EXPECT_EQ(rendering.renderTilt, 450);
    GlTape::calls().clear();
    Wings(1).span = 500;
    rendering.renderScene(true);
    rendering.renderScene(false);
    rendering.setViewTransform(1, 2, 3, 4, 5);
    pointer.mouseDown(Rendering::leftButton, 0, 0, 0);
    pointer.mouseMove(5, 5);
    pointer.mouseUp(Rendering::leftButton, 5, 5);
    pointer.zoomBy(10);
    rendering.resized();
    rendering.destroyRenderContext();
    EXPECT_TRUE(GlTape::calls().empty());
    EXPECT_EQ(rendering.renderSpin, 905);
    // The solids stand all the same: the exports read them.
    EXPECT_EQ(solids.wings(1).Left.tipPoint(1).y, 500);
}

TEST_F(ContextTest, NothingIsCalledBeforeThereIsAContext) {
    rendering.renderScene(true);
    rendering.setViewTransform(0, 0, 0, 0, 0);
    rendering.resized();
    rendering.destroyRenderContext();
    EXPECT_TRUE(GlTape::calls().empty());
    rendering.context = nullptr;
    rendering.createRenderContext();
    EXPECT_FALSE(rendering.contextCreated);
}

TEST_F(ContextTest, EndsOnce) {
    openPicture();
    rendering.destroyRenderContext();
    rendering.destroyRenderContext();
    EXPECT_EQ(GlTape::count("destroy"), 1);
    EXPECT_FALSE(rendering.contextCreated);
    EXPECT_FALSE(rendering.renderListBuilt);
}

TEST_F(ContextTest, NewSizeMovesViewportAndFrustumAndReplaysTheList) {
    rendering.createRenderContextWide(50);
    GlTape::calls().clear();
    context.areaWidth = 400;
    context.areaHeight = 200;
    rendering.resized();
    EXPECT_EQ(GlTape::named("glFrustum").at(0),
              json::array({"glFrustum", -50.0, 50.0, -25.0, 25.0, 100.0, 10000.0}));
    EXPECT_EQ(GlTape::named("glViewport").at(0), json::array({"glViewport", 0, 0, 400, 200}));
    EXPECT_EQ(GlTape::named("glMatrixMode").at(1), json::array({"glMatrixMode", "GL_MODELVIEW"}));
    EXPECT_EQ(GlTape::count("glCallList"), 1);
    EXPECT_EQ(GlTape::count("glNewList"), 0);
}

TEST_F(ContextTest, AreaWithoutExtentMakesNoFrustum) {
    for (const auto& [width, height] : {std::pair{0.0, 300.0}, {300.0, 0.0}, {0.0, 0.0}}) {
        context.areaWidth = width;
        context.areaHeight = height;
        GlTape::clear();
        rendering.createRenderContext();
        EXPECT_EQ(GlTape::count("glFrustum"), 0);
        EXPECT_EQ(GlTape::count("glNewList"), 1);
    }
}

TEST_F(ContextTest, LostOneComesBackWithTheSameView) {
    rendering.createRenderContextWide(60);
    rendering.setViewTransform(1, 2, 3, 40, 50);
    const GlView before = runMatrix(GlTape::calls());
    rendering.renderSpin = 77;
    GlTape::calls().clear();
    rendering.recreateRenderContext();
    EXPECT_EQ(GlTape::count("create"), 1);
    EXPECT_EQ(GlTape::count("glNewList"), 1);
    EXPECT_EQ(GlTape::named("glFrustum").at(0)[2].get<double>(), 60);
    EXPECT_EQ(runMatrix(GlTape::calls()).matrix, before.matrix);
    EXPECT_EQ(rendering.renderSpin, 77);
    context.creationWorks = false;
    GlTape::calls().clear();
    rendering.recreateRenderContext();
    EXPECT_EQ(GlTape::calls().size(), 2u);
}

/// The frame calls of a tape, as the table tells them.
std::vector<json> frameCalls(const std::vector<json>& calls) {
    const std::set<std::string> frame{"glClear", "glNewList", "glEndList", "glCallList",
                                      "SwapBuffers"};
    std::vector<json> wanted;
    for (const json& call : calls)
        if (frame.contains(call[0].get<std::string>())) wanted.push_back(call);
    return wanted;
}

/// The table's list draws while it is made; this program's is called when it is complete. Nothing
/// else differs.
std::vector<json> calledWhenComplete(const json& told) {
    std::vector<json> calls;
    for (const json& call : told) {
        if (call[0] == "glNewList") {
            calls.push_back(json::array({"glNewList", call[1], "GL_COMPILE"}));
        } else {
            calls.push_back(call);
            if (call[0] == "glEndList") calls.push_back(json::array({"glCallList", 1}));
        }
    }
    return calls;
}

TEST_F(ContextTest, WhatIsHeldIsShownOnceAtTheEnd) {
    openPicture();
    rendering.renderScene(true);
    GlTape::calls().clear();
    rendering.hold(true);
    Rudder.length1 += 1;
    rendering.renderScene(true);
    rendering.hold(true);
    Rudder.length2 += 1;
    rendering.renderScene(true);
    rendering.renderScene(false);
    rendering.hold(false);
    EXPECT_TRUE(GlTape::calls().empty());
    rendering.hold(false);
    EXPECT_EQ(GlTape::count("glNewList"), 1);
    EXPECT_EQ(GlTape::count("SwapBuffers"), 1);
    rendering.hold(true);
    rendering.hold(false);
    EXPECT_EQ(GlTape::count("SwapBuffers"), 1) << "nothing was asked for";
}

TEST_F(ContextTest, ListOfAnUnchangedModelIsReplayed) {
    openPicture();
    rendering.renderScene(true);
    rendering.renderScene(true);
    EXPECT_EQ(GlTape::count("glNewList"), 0);
    EXPECT_EQ(GlTape::count("glCallList"), 2);
    project.Rudder.length1 += 1;
    rendering.renderScene(true);
    EXPECT_EQ(GlTape::count("glNewList"), 1);
}

/// The list of a model that changes before each rendering.
TEST_F(ContextTest, ListIsBuiltWhenItMustAndReplayedOtherwise) {
    for (const json& row : sceneCases("list")) {
        GlTape::clear();
        Rendering anew(project, solids);
        anew.context = &context;
        // A context without its own first picture, for the rows that begin with a call.
        anew.createRenderContext();
        if (row["sequence"][0] != "context") {
            anew.renderListBuilt = false;
            GlTape::calls().clear();
        }
        bool first = true;
        for (const json& step : row["sequence"]) {
            if (step == "context" && !first) anew.createRenderContext();
            // The list of a model that has not changed would be replayed.
            project.Rudder.length1 += 1;
            if (step.is_boolean()) anew.renderScene(step.get<bool>());
            first = false;
        }
        std::vector<json> expected;
        for (const json& told : row["calls"]) {
            const std::vector<json> calls = calledWhenComplete(told);
            expected.insert(expected.end(), calls.begin(), calls.end());
        }
        EXPECT_EQ(frameCalls(GlTape::calls()), expected) << row["name"];
    }
}

}  // namespace
}  // namespace velna::test
