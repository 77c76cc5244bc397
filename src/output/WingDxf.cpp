#include <cstddef>

#include "output/AircraftDxf.h"
#include "output/ClosedOutline.h"

namespace velna {

namespace {

constexpr const char* wingLayer = "Wing";

void bothHalves(DxfDrawing& drawing, const Outline& outline) {
    drawing.polyline(closedOutline(outline), dxfUpright, wingLayer);
    drawing.polyline(closedOutline(outline), dxfMirrored, wingLayer);
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
    const auto count = static_cast<std::size_t>(wing.pointCount());
    drawing.closedPolyline({points.data() + 1, count}, dxfUpright, wingLayer);
}

}  // namespace velna
