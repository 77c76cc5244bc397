#include "model/Equipment.h"

#include <cstddef>
#include <memory>

namespace velna::Equipment {

namespace {

/// The catalogue of a kind of box, none for an unknown kind.
const std::vector<CatalogueEntry>* catalogueOf(int kind) {
    switch (kind) {
        case BoxKind::servo:
            return &servoTypes;
        case BoxKind::receiver:
            return &receiverTypes;
        case BoxKind::accumulator:
            return &accuTypes;
        default:
            return nullptr;
    }
}

}  // namespace

void initEquipments() {
    nbEquipments = 1;
    currentEquipment = 1;
    resizeEquipments(1);
    fillCatalogues();
}

void resizeEquipments(int n) {
    Equipments.resize(n, [] { return std::make_unique<ElectroBox>(); });
    // The last slot gets a new box whether the list grew or shrank, so taking the last box away
    // also empties the place before it: the panel then always shows a box to fill in.
    Equipments.put(n, std::make_unique<ElectroBox>());
}

void rescaleEquipments(double k) {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).rescale(k);
}

void equipmentsToInches() {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).switchToInches();
}

void equipmentsToMillimeters() {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).switchToMillimeters();
}

void fillCatalogues() {
    fillServoCatalogue();
    fillReceiverCatalogue();
    fillAccuCatalogue();
}

void applyCatalogueRow(int index) {
    ElectroBox& box = current();
    const auto* catalogue = catalogueOf(box.box);
    if (!catalogue || index < 0 || static_cast<std::size_t>(index) >= catalogue->size()) return;
    const CatalogueEntry& entry = (*catalogue)[static_cast<std::size_t>(index)];
    box.width = entry.width;
    box.height = entry.height;
    box.length = entry.length;
    box.weight = entry.weight;
}

void createEquipments() {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).create();
}

}  // namespace velna::Equipment
