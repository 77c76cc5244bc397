#include "editor/AircraftViews.h"
#include "model/Project.h"

namespace velna {
namespace {

void press(Project& project, NumberedList<EquipmentView>& views, const Pointer& pointer,
           std::int32_t (EquipmentView::*partAt)(float x, float y) const,
           void (EquipmentView::*remember)(ElectroBox& box, bool shiftkey)) {
    const auto test = [&](int i) {
        return views(i).grip.paint = (views(i).*partAt)(pointer.x, pointer.y);
    };
    if (test(project.currentEquipment) != BoxPart::hit) {
        for (int i = 1; i <= project.nbEquipments; ++i)
            if (i != project.currentEquipment) test(i);
    }
    for (int i = 1; i <= project.nbEquipments; ++i)
        (views(i).*remember)(project.Equipments(i), pointer.shiftkey);
}

}  // namespace

void AircraftViews::drawEquipmentsSide(const Canvas& canvas) {
    for (int i = 1; i <= project.nbEquipments; ++i)
        boxes(i).drawSide(canvas, project.Equipments(i));
}

void AircraftViews::drawEquipmentsHTop(const Canvas& canvas) {
    for (int i = 1; i <= project.nbEquipments; ++i)
        boxes(i).drawHTop(canvas, project.Equipments(i));
}

void AircraftViews::testEquipmentsSide(const Pointer& pointer) {
    press(project, boxes, pointer, &EquipmentView::testPositionSide,
          &EquipmentView::initMouseValSide);
}

void AircraftViews::testEquipmentsHTop(const Pointer& pointer) {
    press(project, boxes, pointer, &EquipmentView::testPositionHTop,
          &EquipmentView::initMouseValHTop);
}

void AircraftViews::selectsEquipmentsSide(const Canvas& canvas, const Pointer& pointer) {
    for (int i = 1; i <= project.nbEquipments; ++i)
        boxes(i).selectsSide(canvas, project.Equipments(i), pointer);
}

void AircraftViews::selectsEquipmentsHTop(const Canvas& canvas, const Pointer& pointer) {
    for (int i = 1; i <= project.nbEquipments; ++i)
        boxes(i).selectsHTop(canvas, project.Equipments(i), pointer);
}

}  // namespace velna
