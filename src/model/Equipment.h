#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/Plane.h"

namespace velna {

/// A row of a catalogue of commercial models, in the project's unit.
struct CatalogueEntry {
    std::string name;
    double height = 0;
    double width = 0;
    double length = 0;
    double weight = 0;
};

namespace Equipment {

/// The box being edited.
inline ElectroBox& current(Project& project) {
    return project.Equipments(project.currentEquipment);
}
inline const ElectroBox& current(const Project& project) {
    return project.Equipments(project.currentEquipment);
}
void initEquipments(Project& project);
/// Resizes the list to `n`, keeping entries, and always puts a new default box in slot `n`.
void resizeEquipments(Project& project, int n);
void rescaleEquipments(Project& project, double k);
void equipmentsToInches(Project& project);
void equipmentsToMillimeters(Project& project);
/// The catalogues of commercial models, in the given unit.
std::vector<CatalogueEntry> servoTypes(int unit);
std::vector<CatalogueEntry> receiverTypes(int unit);
std::vector<CatalogueEntry> accuTypes(int unit);
/// The catalogue of a kind of box; empty for an unknown kind.
std::vector<CatalogueEntry> catalogue(int kind, int unit);
/// Copies row `index` (0-based) of the catalogue of the current box's kind onto it; a row or kind
/// that does not exist does nothing.
void applyCatalogueRow(Project& project, int index);

}  // namespace Equipment
}  // namespace velna
