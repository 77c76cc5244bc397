#include "model/Equipment.h"
#include "persistence/PromisedEntries.h"
#include "persistence/RecordFields.h"

namespace velna {

namespace {

using BoxField = RecordField<ElectroBox>;

constexpr std::array<BoxField, 9> boxRecord{
    &ElectroBox::length, &ElectroBox::width,       &ElectroBox::height,
    &ElectroBox::weight, &ElectroBox::pos,         &ElectroBox::elevation,
    &ElectroBox::shift,  &ElectroBox::orientation, &ElectroBox::box};

constexpr const char* boxHead = "ElectroBox";

}  // namespace

void ElectroBox::save(ReplacedFile& file) const {
    saveRecord<ElectroBox>(file, boxHead, *this, boxRecord);
}

void ElectroBox::read(ValueReader& file) {
    readRecord<ElectroBox>(file, *this, boxRecord);
}

namespace Equipment {

void saveEquipments(ReplacedFile& file) {
    saveInteger(file, nbEquipments);
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).save(file);
}

void readEquipments(ValueReader& file) {
    nbEquipments = file.count(1);
    promiseEntries(Equipments, nbEquipments);
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).read(file);
}

}  // namespace Equipment
}  // namespace velna
