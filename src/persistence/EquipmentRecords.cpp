#include "persistence/EquipmentRecords.h"

#include "model/Project.h"
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

namespace Equipment {

RecordFields<ElectroBox> boxFields() {
    return boxRecord;
}

void saveEquipments(TextSink& file, const Project& project) {
    saveInteger(file, project.nbEquipments);
    for (int i = 1; i <= project.nbEquipments; ++i)
        saveRecord<ElectroBox>(file, boxHead, project.Equipments(i), boxFields());
}

void readEquipments(ValueReader& file, Project& project) {
    project.nbEquipments = file.count(1);
    project.Equipments.fill(project.nbEquipments, ElectroBox(project.units));
    for (int i = 1; i <= project.nbEquipments; ++i)
        readRecord<ElectroBox>(file, project.Equipments(i), boxRecord);
}

}  // namespace Equipment
}  // namespace velna
