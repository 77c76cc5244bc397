#include "output/EquipmentDxf.h"

#include <span>
#include <string>

#include "common/Polyline.h"

namespace velna {

namespace {

/// The kind and the list number. A box of an unknown kind goes as a servo, like its picture.
std::string layerOf(int kind, int number) {
    const char* name = kind == BoxKind::receiver      ? "Receiver_"
                       : kind == BoxKind::accumulator ? "Accumulator_"
                                                      : "Servo_";
    return name + std::to_string(number);
}

}  // namespace

void saveDXF_side(DxfDrawing& drawing, const ElectroBox& box, int id) {
    drawing.closedPolyline(pointsOf(box.computeSidePoints({})), dxfUpright, layerOf(box.box, id));
}

void saveDXF_htop(DxfDrawing& drawing, const ElectroBox& box, int id) {
    drawing.closedPolyline(pointsOf(box.computeHTopPoints({})), dxfUpright, layerOf(box.box, id));
}

}  // namespace velna
