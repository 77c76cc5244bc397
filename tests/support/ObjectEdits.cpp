#include "support/ObjectEdits.h"

#include <initializer_list>
#include <utility>

#include "model/Equipment.h"
#include "support/InHand.h"

namespace velna::test {
namespace {

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

}  // namespace

std::vector<Edit> objectEdits() {
    std::vector<Edit> edits;
    addPanel(edits, "wing", Wings(1));
    addPanel(edits, "stabiliser", Stabilizer);
    addFin(edits);
    addFuselage(edits);
    addBox(edits);
    addObjects(edits);
    return edits;
}

}  // namespace velna::test
