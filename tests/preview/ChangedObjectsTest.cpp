// Only what has changed is made anew, and what is shown then is what a whole rebuild would show.

#include "PreviewFixture.h"
#include "model/Equipment.h"
#include "support/GlCompare.h"
#include "support/ObjectEdits.h"

namespace velna::test {
namespace {

using nlohmann::json;

class ChangedObjects : public PreviewTest {
protected:
    void SetUp() override {
        PreviewTest::SetUp();
        pictures.pictures["p"] = pictures.pictures["q"] = plainPicture(4, 4);
        Equipment::resizeEquipments(project, ++nbEquipments);
        openPicture();
        rendering.renderScene(true);
    }

    /// What is shown after a change.
    std::vector<json> shown() {
        GlTape::calls().clear();
        rendering.renderScene(true);
        return GlTape::calls();
    }
};

TEST_F(ChangedObjects, EachEditShowsWhatAWholeRebuildShows) {
    for (const Edit& edit : objectEdits()) {
        edit.make();
        const std::vector<json> changed = shown();
        EXPECT_TRUE(GlTape::faults().empty()) << edit.name << GlTape::faults().front();
        EXPECT_EQ(GlTape::count("glNewList"), 1) << edit.name;
        const std::vector<json> whole = rebuild();
        const std::vector<std::string> differences = glDifferences(whole, changed);
        EXPECT_TRUE(differences.empty()) << edit.name << ": " << differences.front();
    }
}

/// Lists of objects that are gone are given back, and a new context begins with none.
TEST_F(ChangedObjects, AsManyListsAsObjects) {
    const int before = GlTape::objectListCount();
    const std::int16_t boxes = nbEquipments;
    for (int n = 0; n < 5; ++n) {
        Equipment::resizeEquipments(project, ++nbEquipments);
        shown();
    }
    EXPECT_EQ(GlTape::objectListCount(), before + 5);
    nbEquipments = boxes;
    shown();
    EXPECT_EQ(GlTape::objectListCount(), before);
    for (int n = 0; n < 100; ++n) {
        Rudder.span += 1;
        shown();
    }
    EXPECT_EQ(GlTape::objectListCount(), before);
}

/// A large picture takes long on its way to OpenGL: it goes once, whatever changes beside it.
TEST_F(ChangedObjects, APictureIsHandedOverAgainOnlyWithAChangeOfItsOwn) {
    Wings(1).set_texture_filename("p");
    GlTape::pictures().clear();
    shown();
    EXPECT_EQ(GlTape::pictures().size(), 1u);
    Rudder.span += 1;
    shown();
    Fuselages(1).shift += 1;
    shown();
    EXPECT_EQ(GlTape::pictures().size(), 1u);
    Rudder.texture_filename = "q";
    shown();
    EXPECT_EQ(GlTape::pictures().size(), 3u) << "those of a list are made together";
}

/// Of twenty bodies the one that is dragged is built.
TEST_F(ChangedObjects, OneOfManyIsBuiltAlone) {
    nbFuselages = 20;
    Fuselage::resizeFuselages(project);
    ObjectList.update(Fuselages, nbFuselages);
    for (int i = 1; i <= 20; ++i) Fuselages(i).shift = i;
    shown();
    for (int i = 1; i <= 20; ++i) EXPECT_TRUE(solids.fuselages(i).builtFrom.drawn);
    Fuselages(7).width(2) += 1;
    solids.update(project);
    for (int i = 1; i <= 20; ++i) EXPECT_EQ(solids.fuselages(i).builtFrom.drawn, i != 7) << i;
}

}  // namespace
}  // namespace velna::test
