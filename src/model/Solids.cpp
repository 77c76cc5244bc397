#include "model/Solids.h"

#include "model/MeshSections.h"

namespace velna {
namespace {

/// Calls `visit(solid, part)` for each part that has a solid.
template <class Visit>
void forEachSolid(Solids& solids, const Project& project, Visit visit) {
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return project.ObjectList.shown(i); },
        [&](int i, const MeshSections& body) { visit(solids.fuselages(i), body); });
    project.Wings.forEachDistinct(
        project.nbWings, [&](int i, const SymWingSections& wing) { visit(solids.wings(i), wing); });
    visit(solids.stabilizer, project.Stabilizer);
    visit(solids.rudder, project.Rudder);
    project.Equipments.forEachDistinct(project.nbEquipments, [&](int i, const ElectroBox& box) {
        visit(solids.equipments(i), box);
    });
}

}  // namespace

void Solids::createAll(const Project& project) {
    forEachSolid(*this, project, [](auto& solid, const auto& part) {
        solid.create(part);
        solid.builtFrom.note(part);
    });
}

void Solids::update(const Project& project) {
    forEachSolid(*this, project, [](auto& solid, const auto& part) {
        if (solid.builtFrom.standsFor(part)) return;
        solid.create(part);
        solid.builtFrom.note(part);
    });
}

}  // namespace velna
