#include <span>
#include <string>

#include "model/ElectroBox.h"
#include "output/DxfDrawing.h"

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

void ElectroBox::saveDXF_side(DxfDrawing& drawing, int servoId) {
    computeSidePoints(1, 0, 0);
    drawing.closedPolyline(corners(sideOutline), dxfUpright, layerOf(box, servoId));
}

void ElectroBox::saveDXF_htop(DxfDrawing& drawing, int servoId) {
    computeHTopPoints(1, 0, 0);
    drawing.closedPolyline(corners(htopOutline), dxfUpright, layerOf(box, servoId));
}

}  // namespace velna
