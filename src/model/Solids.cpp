#include "model/Solids.h"

namespace velna {

void Solids::createAll(const Project& project) {
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return project.ObjectList.shown(i); },
        [&](int i, const MeshSections& body) { fuselages(i).create(body); });
    project.Wings.forEachDistinct(
        project.nbWings, [&](int i, const SymWingSections& wing) { wings(i).create(wing); });
    stabilizer.create(project.Stabilizer);
    rudder.create(project.Rudder);
    project.Equipments.forEachDistinct(
        project.nbEquipments, [&](int i, const ElectroBox& box) { equipments(i).create(box); });
}

}  // namespace velna
