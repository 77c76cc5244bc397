// Scenes of the largest size that a project may have, shapes that no hand would draw, and objects
// that come and go: what is shown after a change is what a whole rebuild would show, and no list is
// left behind.

#include <random>

#include "PreviewFixture.h"
#include "model/Equipment.h"
#include "model/MainWing.h"

namespace velna::test {
namespace {

using nlohmann::json;

class HugeScenes : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        GlTape::foldsVertices = true;
        GlTape::forgetLists();
        openPicture();
    }
    void TearDown() override {
        GlTape::foldsVertices = false;
        PreviewTest::TearDown();
    }

    /// What list 1 holds after a rebuild of what has changed, empty where it stands as it was.
    std::vector<json> shown() {
        GlTape::calls().clear();
        rendering.renderScene(true);
        return whole();
    }

    /// The same with a new context and new solids, where nothing can stand from before.
    std::vector<json> shownAnew() {
        solids = {};
        GlTape::calls().clear();
        loseContext();
        return whole();
    }

    /// Another context, without the lists of the former.
    void loseContext() {
        GlTape::forgetLists();
        rendering.recreateRenderContext();
    }

    /// After a change: `lists` are there, and show what all of them made anew show.
    void expectShownWith(int lists, const std::string& after) {
        const std::vector<json> changed = shown();
        EXPECT_FALSE(changed.empty()) << after;
        EXPECT_EQ(GlTape::objectListCount(), lists) << after;
        EXPECT_TRUE(shown().empty()) << after << ": nothing has changed since";
        // Compared without printing, which for millions of points has no end.
        EXPECT_TRUE(shownAnew() == changed) << after;
        EXPECT_EQ(GlTape::objectListCount(), lists) << after;
    }

    static int objects() {
        int bodies = 0;
        for (int i = 1; i <= nbFuselages; ++i) bodies += ObjectList.shown(i);
        return bodies + nbWings + nbEquipments + 2;
    }

    /// The number of vertices shown.
    static std::int64_t vertices(const std::vector<json>& calls) {
        std::int64_t sum = 0;
        for (const json& call : calls)
            if (call[0] == "vertices") sum += call[1].get<std::int64_t>();
        return sum;
    }

private:
    static std::vector<json> whole() {
        const auto& calls = GlTape::calls();
        const auto named = [](const char* name) {
            return [name](const json& call) { return call[0] == name; };
        };
        const auto begin = std::find_if(calls.begin(), calls.end(), named("glNewList"));
        return {begin, std::find_if(begin, calls.end(), named("glEndList"))};
    }
};

void shape(MeshSections& body, std::int16_t sections, std::int16_t cross) {
    body.nb_sections = sections;
    body.nb_cross = cross;
    body.initArrays();
    for (int i = 1; i <= sections; ++i) {
        body.sectionOrder(i) = static_cast<std::int16_t>(i);
        body.pos(i) = 0.5 * i;
        body.width(i) = 100 + i % 7;
        body.height(i) = 80 + i % 5;
        body.elevation(i) = i % 3;
        body.curvature(i) = 0.9;
        body.curvature2(i) = 0.8;
        body.bias_curve(i) = 0.4;
    }
}

TEST_F(HugeScenes, OneHullOfFourMillionPoints) {
    shape(Fuselages(1), 32767, 122);
    ASSERT_TRUE(Fuselage::meshFits(project, nullptr, 0, 0));
    ASSERT_FALSE(Fuselage::meshFits(project, nullptr, 100, 100));
    EXPECT_GT(vertices(shown()), 2 * 32766 * 122);
    Fuselages(1).width(20000) += 1;
    expectShownWith(objects(), "a section changed");
    Fuselages(1).nb_cross = 8;
    expectShownWith(objects(), "8 outline points a section");
}

TEST_F(HugeScenes, ThePointerTellsOfAPictureThatTakesLong) {
    const std::vector<bool> onAndOff{true, false};
    shape(Fuselages(1), 5000, 101);
    shown();
    EXPECT_EQ(context.busy, onAndOff) << "505,000 points";
    context.busy.clear();
    rendering.renderScene(false);
    EXPECT_EQ(context.busy, onAndOff) << "shown again";
    context.busy.clear();
    shape(Fuselages(1), 5000, 99);
    shown();
    EXPECT_EQ(context.busy, std::vector<bool>{}) << "495,000 points";
}

TEST_F(HugeScenes, AsManyWingsAsACountCanHold) {
    nbWings = 32767;
    MainWing::allocateWings(project);
    for (int i = 1; i <= nbWings; ++i) Wings(i).pos1 = i % 100;
    shown();
    Wings(20000).span += 1;
    solids.update(project);
    for (const int i : {1, 19999, 20000, 20001, 32767})
        EXPECT_EQ(solids.wings(i).builtFrom.drawn, i != 20000) << i;
    expectShownWith(objects(), "one changed");
    nbWings = 1;
    expectShownWith(objects(), "all but the first removed");
}

TEST_F(HugeScenes, TenThousandBoxes) {
    nbEquipments = 10000;
    Equipment::resizeEquipments(project, nbEquipments);
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).pos = i % 500;
    shown();
    Equipments(5000).pos += 1;
    expectShownWith(objects(), "one moved");
    nbEquipments -= 5000;
    Equipment::resizeEquipments(project, nbEquipments);
    expectShownWith(objects(), "half of them removed");
}

TEST_F(HugeScenes, OneSectionOfAHundredPointsRepeated) {
    MeshSections& body = Fuselages(1);
    shape(body, 300, 100);
    for (int i = 1; i <= 300; ++i) {
        body.pos(i) = 50;
        body.width(i) = body.height(i) = 60;
        body.elevation(i) = 10;
    }
    GlTape::foldsVertices = false;
    const std::vector<json> calls = shown();
    for (const json& call : calls) {
        if (call[0] != "glNormal3dv" && call[0] != "glVertex3dv") continue;
        for (std::size_t n = 1; n <= 3; ++n)
            ASSERT_TRUE(std::isfinite(call[n].get<double>())) << call;
    }
    GlTape::foldsVertices = true;
    body.pos(300) = 51;
    expectShownWith(objects(), "the last moved away");
}

/// Between two rebuilds several objects may take the place of one another.
TEST_F(HugeScenes, ObjectsThatComeAndGoBetweenRebuildsLeaveNoListBehind) {
    std::mt19937 random(7);
    const auto count = [&](std::int16_t most) {
        return static_cast<std::int16_t>(1 + random() % most);
    };
    const auto vary = [&] { return static_cast<double>(random() % 50); };
    shown();
    for (int round = 0; round < 60; ++round) {
        for (int change = 0; change < 3; ++change) {
            nbFuselages = count(6);
            Fuselage::resizeFuselages(project);
            Fuselage::addFuselage(project, random() % 2 == 0);
            ObjectList.update(Fuselages, nbFuselages);
            Fuselages(count(nbFuselages)).width(2) = vary();
            ObjectList.setShown(count(nbFuselages), random() % 3 != 0);
            nbWings = count(5);
            MainWing::addWing(project);
            Wings(count(nbWings)).span = 100 + vary();
            nbEquipments = count(5);
            Equipment::resizeEquipments(project, nbEquipments);
            Equipments(count(nbEquipments)).pos = vary();
        }
        if (round % 5 == 4) loseContext();
        const std::vector<json> changed = shown();
        EXPECT_LE(GlTape::objectListCount(), objects()) << round;
        const int lists = GlTape::objectListCount();
        const std::vector<json> anew = shownAnew();
        EXPECT_EQ(GlTape::objectListCount(), lists) << round;
        EXPECT_TRUE(changed.empty() || anew == changed) << round;
    }
}

/// A context that goes takes its lists along, also while a body is being changed.
TEST_F(HugeScenes, ALostContextDuringAChangeShowsTheSame) {
    shape(Fuselages(1), 50, 20);
    shown();
    Fuselages(1).width(7) += 5;
    loseContext();
    EXPECT_EQ(GlTape::objectListCount(), objects());
    Fuselages(1).width(7) += 5;
    expectShownWith(objects(), "a change after it");
    Fuselages(1).width(7) += 5;
    rendering.destroyRenderContext();
    rendering.renderScene(true);
    loseContext();
    EXPECT_EQ(GlTape::objectListCount(), objects());
    Fuselages(1).nb_cross = 7;
    expectShownWith(objects(), "another number of points after that");
}

}  // namespace
}  // namespace velna::test
