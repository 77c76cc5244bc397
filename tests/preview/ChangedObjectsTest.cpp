// Only what has changed is made anew, and what is shown then is what a whole rebuild would show.

#include <functional>

#include "PreviewFixture.h"
#include "model/Equipment.h"
#include "support/GlCompare.h"

namespace velna::test {
namespace {

using nlohmann::json;

struct Edit {
    std::string name;
    std::function<void()> make;
};

template <class Part>
void addNumbers(std::vector<Edit>& edits, const std::string& part, Part& object,
                std::initializer_list<std::pair<const char*, double Part::*>> fields) {
    for (const auto& [name, field] : fields)
        edits.push_back({part + " " + name, [&object, field = field] { object.*field += 0.25; }});
}

void addPanel(std::vector<Edit>& edits, const std::string& part, SymWingSections& panel) {
    using P = SymWingSections;
    addNumbers(edits, part, panel,
               {{"span", &P::span},
                {"length1", &P::length1},
                {"length2", &P::length2},
                {"thickness1", &P::thickness1},
                {"thickness2", &P::thickness2},
                {"pos1", &P::pos1},
                {"pos2", &P::pos2},
                {"elevation1", &P::elevation1},
                {"elevation2", &P::elevation2},
                {"shift", &P::shift}});
    edits.push_back({part + " airfoil", [&panel] { panel.setAirfoilPoint(3, 0.3, 0.2); }});
    edits.push_back({part + " colour", [&panel] { panel.set_color({10, 20, 30}); }});
}

void addFin(std::vector<Edit>& edits) {
    using F = VertWingSection;
    addNumbers(edits, "fin", Rudder,
               {{"span", &F::span},
                {"thickness1", &F::thickness1},
                {"thickness2", &F::thickness2},
                {"length1", &F::length1},
                {"length2", &F::length2},
                {"pos1", &F::pos1},
                {"pos2", &F::pos2},
                {"shift", &F::shift},
                {"offset1", &F::offset1},
                {"offset2", &F::offset2}});
    edits.push_back({"fin colour", [] { Rudder.set_color({10, 20, 30}); }});
}

void addFuselage(std::vector<Edit>& edits) {
    using B = MeshSections;
    MeshSections& body = Fuselages(1);
    addNumbers(edits, "fuselage", body,
               {{"shift", &B::shift},
                {"pos_offset", &B::pos_offset},
                {"elevation_offset", &B::elevation_offset}});
    for (auto lengths : {&B::pos, &B::width, &B::height, &B::elevation, &B::curvature,
                         &B::curvature2, &B::bias_curve})
        edits.push_back({"fuselage section", [&body, lengths] { (body.*lengths)(2) += 0.25; }});
    edits.push_back({"fuselage transparent", [&body] { body.transparent = !body.transparent; }});
    edits.push_back({"fuselage outline points", [&body] { body.nb_cross = 16; }});
    edits.push_back({"fuselage section removed", [&body] {
                         body.sel_sec = 2;
                         body.removeSection();
                     }});
    edits.push_back({"fuselage colour", [&body] { body.set_color({10, 20, 30}); }});
}

void addBox(std::vector<Edit>& edits) {
    using E = ElectroBox;
    addNumbers(edits, "box", Equipments(1),
               {{"length", &E::length},
                {"width", &E::width},
                {"height", &E::height},
                {"pos", &E::pos},
                {"elevation", &E::elevation},
                {"shift", &E::shift}});
    edits.push_back({"box kind", [] { Equipments(1).box = BoxKind::receiver; }});
    edits.push_back({"box orientation", [] { Equipments(1).orientation = 1; }});
}

/// Adding, removing, hiding, and pictures.
void addObjects(std::vector<Edit>& edits) {
    edits.push_back({"fuselage hidden", [] { ObjectList.setShown(1, false); }});
    edits.push_back({"fuselage changed while hidden and shown", [] {
                         Fuselages(1).width(2) += 4;
                         ObjectList.setShown(1, true);
                     }});
    edits.push_back({"fuselage added", [] {
                         ++nbFuselages;
                         Fuselage::resizeFuselages(project);
                         Fuselage::addFuselage(project, true);
                         ObjectList.update(Fuselages, nbFuselages);
                     }});
    edits.push_back({"fuselage removed", [] {
                         --nbFuselages;
                         ObjectList.update(Fuselages, nbFuselages);
                     }});
    edits.push_back({"box added", [] { Equipment::resizeEquipments(project, ++nbEquipments); }});
    edits.push_back({"box removed", [] { --nbEquipments; }});
    edits.push_back({"fin's picture", [] { Rudder.texture_filename = "p"; }});
    edits.push_back({"fuselage's picture, the same", [] { Fuselages(1).texture_filename = "p"; }});
    edits.push_back({"wing's picture", [] { Wings(1).set_texture_filename("q"); }});
    edits.push_back({"fin under its picture", [] { Rudder.length1 += 1; }});
    edits.push_back({"the first carrier lets go", [] { Rudder.texture_filename.clear(); }});
    edits.push_back({"no picture left", [] {
                         Fuselages(1).texture_filename.clear();
                         Wings(1).set_texture_filename("");
                     }});
}

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
    std::vector<Edit> edits;
    addPanel(edits, "wing", Wings(1));
    addPanel(edits, "stabiliser", Stabilizer);
    addFin(edits);
    addFuselage(edits);
    addBox(edits);
    addObjects(edits);
    for (const Edit& edit : edits) {
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
