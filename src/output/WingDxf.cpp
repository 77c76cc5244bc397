#include "output/WingDxf.h"

#include <cstddef>

#include "common/Polyline.h"

namespace velna {

namespace {

constexpr const char* wingLayer = "Wing";

void bothHalves(DxfDrawing& drawing, const Outline& outline) {
    drawing.polyline(pointsOf(outline), dxfUpright, wingLayer);
    drawing.polyline(pointsOf(outline), dxfMirrored, wingLayer);
}

}  // namespace

void saveDXF_vtop(DxfDrawing& drawing, const SymWingSections& wing) {
    bothHalves(drawing, wing.computeVTopPoints({}));
}

void saveDXF_front(DxfDrawing& drawing, const SymWingSections& wing) {
    bothHalves(drawing, wing.computeFrontPoints({}));
}

void saveDXF_side(DxfDrawing& drawing, const SymWingSections& wing) {
    const auto points = wing.computeSidePoints({});
    drawing.closedPolyline(pointsOf(points, wing.pointCount()), dxfUpright, wingLayer);
}

}  // namespace velna
