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

extern std::vector<CatalogueEntry> servoTypes;
extern std::vector<CatalogueEntry> receiverTypes;
extern std::vector<CatalogueEntry> accuTypes;

/// The box being edited.
inline ElectroBox& current() {
    return Equipments(currentEquipment);
}

// model/
void initEquipments();
/// Resizes the list to `n`, keeping entries, and always puts a new default box in slot `n`.
void resizeEquipments(int n);
void rescaleEquipments(double k);
void equipmentsToInches();
void equipmentsToMillimeters();
void fillServoCatalogue();
void fillReceiverCatalogue();
void fillAccuCatalogue();
void fillCatalogues();
/// Copies row `index` (0-based) of the catalogue of the current box's kind onto it; a row or kind
/// that does not exist does nothing.
void applyCatalogueRow(int index);
void createEquipments();

// persistence/
void saveEquipments(ReplacedFile& file);
void readEquipments(ValueReader& file);

}  // namespace Equipment
}  // namespace velna
