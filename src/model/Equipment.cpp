#include "model/Equipment.h"

#include <cstddef>

namespace velna::Equipment {

void initEquipments(Project& project) {
    project.nbEquipments = 1;
    project.currentEquipment = 1;
    resizeEquipments(project, 1);
}

void resizeEquipments(Project& project, int n) {
    const ElectroBox box(project.units);
    project.Equipments.resize(n, box);
    // The last slot gets a new box whether the list grew or shrank, so taking the last box away
    // also empties the place before it: the panel then always shows a box to fill in.
    project.Equipments.put(n, box);
}

void rescaleEquipments(Project& project, double k) {
    for (int i = 1; i <= project.nbEquipments; ++i) project.Equipments(i).rescale(k);
}

void equipmentsToInches(Project& project) {
    for (int i = 1; i <= project.nbEquipments; ++i) project.Equipments(i).switchToInches();
}

void equipmentsToMillimeters(Project& project) {
    for (int i = 1; i <= project.nbEquipments; ++i) project.Equipments(i).switchToMillimeters();
}

void applyCatalogueRow(Project& project, int index) {
    ElectroBox& box = current(project);
    const auto rows = catalogue(box.box, project.units);
    if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) return;
    const CatalogueEntry& entry = rows[static_cast<std::size_t>(index)];
    box.width = entry.width;
    box.height = entry.height;
    box.length = entry.length;
    box.weight = entry.weight;
}

}  // namespace velna::Equipment
