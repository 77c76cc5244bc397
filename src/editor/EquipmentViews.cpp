#include "editor/AircraftViews.h"
#include "model/Equipment.h"

namespace velna {
namespace {

template <class PartAt, class Remember>
void press(const ViewList<EquipmentView>& views, PartAt partAt, Remember remember) {
    std::int32_t& current = views(currentEquipment).grip.paint;
    current = partAt(views(currentEquipment));
    if (current != BoxPart::hit) {
        for (int i = 1; i <= nbEquipments; ++i)
            if (i != currentEquipment) views(i).grip.paint = partAt(views(i));
    }
    for (int i = 1; i <= nbEquipments; ++i) remember(views(i), Equipments(i));
}

}  // namespace

void AircraftViews::drawEquipmentsSide(const Canvas& canvas) {
    for (int i = 1; i <= nbEquipments; ++i) boxes(i).drawSide(canvas, Equipments(i));
}

void AircraftViews::drawEquipmentsHTop(const Canvas& canvas) {
    for (int i = 1; i <= nbEquipments; ++i) boxes(i).drawHTop(canvas, Equipments(i));
}

void AircraftViews::testEquipmentsSide(const Pointer& pointer) {
    press(
        boxes,
        [&](const EquipmentView& view) { return view.testPositionSide(pointer.x, pointer.y); },
        [&](EquipmentView& view, ElectroBox& box) {
            view.initMouseValSide(box, pointer.shiftkey);
        });
}

void AircraftViews::testEquipmentsHTop(const Pointer& pointer) {
    press(
        boxes,
        [&](const EquipmentView& view) { return view.testPositionHTop(pointer.x, pointer.y); },
        [&](EquipmentView& view, ElectroBox& box) {
            view.initMouseValHTop(box, pointer.shiftkey);
        });
}

void AircraftViews::selectsEquipmentsSide(const Canvas& canvas, const Pointer& pointer) {
    for (int i = 1; i <= nbEquipments; ++i) boxes(i).selectsSide(canvas, Equipments(i), pointer);
}

void AircraftViews::selectsEquipmentsHTop(const Canvas& canvas, const Pointer& pointer) {
    for (int i = 1; i <= nbEquipments; ++i) boxes(i).selectsHTop(canvas, Equipments(i), pointer);
}

}  // namespace velna
