#include <span>
#include <string>

#include "output/AircraftDxf.h"

namespace velna {

namespace {

/// The kind and the list number. A box of an unknown kind goes as a servo, like its picture.
std::string layerOf(int kind, int number) {
    const char* name = kind == BoxKind::receiver      ? "Receiver_"
                       : kind == BoxKind::accumulator ? "Accumulator_"
                                                      : "Servo_";
    return name + std::to_string(number);
}

std::span<const Point2D> corners(const Rectangle& rectangle) {
    return std::span(rectangle).subspan(1);
}

}  // namespace

void saveDXF_side(DxfDrawing& drawing, const ElectroBox& box, int id) {
    drawing.closedPolyline(corners(box.computeSidePoints({})), dxfUpright, layerOf(box.box, id));
}

void saveDXF_htop(DxfDrawing& drawing, const ElectroBox& box, int id) {
    drawing.closedPolyline(corners(box.computeHTopPoints({})), dxfUpright, layerOf(box.box, id));
}

}  // namespace velna
