#include "output/TailDxf.h"

#include "common/Polyline.h"

namespace velna {

namespace {

constexpr const char* finLayer = "Fin";

void outlined(DxfDrawing& drawing, const Outline& outline, bool twin) {
    drawing.polyline(pointsOf(outline), dxfUpright, finLayer);
    if (twin) drawing.polyline(pointsOf(outline), dxfMirrored, finLayer);
}

}  // namespace

void saveDXF_vtop(DxfDrawing& drawing, const VertWingSection& fin) {
    outlined(drawing, fin.computeVTopPoints({}), fin.shift != 0);
}

void saveDXF_front(DxfDrawing& drawing, const VertWingSection& fin) {
    outlined(drawing, fin.computeFrontPoints({}), fin.mirrored());
}

void saveDXF_side(DxfDrawing& drawing, const VertWingSection& fin) {
    outlined(drawing, fin.computeSidePoints({}), false);
}

}  // namespace velna
