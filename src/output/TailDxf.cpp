#include "model/VertWingSection.h"
#include "output/ClosedOutline.h"
#include "output/DxfDrawing.h"

namespace velna {

namespace {
constexpr const char* finLayer = "Fin";
}  // namespace

/// The fin's root. The twin is asked for by the height of the root, as the view from above does it.
void VertWingSection::saveDXF_vtop(DxfDrawing& drawing) {
    computeVTopPoints(1, 0, 0);
    drawing.polyline(closedOutline(vtopPoints), dxfUpright, finLayer);
    if (shift != 0) drawing.polyline(closedOutline(vtopPoints), dxfMirrored, finLayer);
}

void VertWingSection::saveDXF_front(DxfDrawing& drawing) {
    computeFrontPoints(1, 0, 0);
    drawing.polyline(closedOutline(frontPoints), dxfUpright, finLayer);
    if (mirrored()) drawing.polyline(closedOutline(frontPoints), dxfMirrored, finLayer);
}

void VertWingSection::saveDXF_side(DxfDrawing& drawing) {
    computeSidePoints(1, 0, 0);
    drawing.polyline(closedOutline(sidePoints), dxfUpright, finLayer);
}

}  // namespace velna
