#include <cstddef>

#include "model/SymWingSections.h"
#include "output/ClosedOutline.h"
#include "output/DxfDrawing.h"

namespace velna {

namespace {
constexpr const char* wingLayer = "Wing";
}  // namespace

void SymWingSections::saveDXF_vtop(DxfDrawing& drawing) {
    computeVTopPoints(1, 0, 0);
    drawing.polyline(closedOutline(vtopPoints), dxfUpright, wingLayer);
    drawing.polyline(closedOutline(vtopPoints), dxfMirrored, wingLayer);
}

void SymWingSections::saveDXF_front(DxfDrawing& drawing) {
    computeFrontPoints(1, 0, 0);
    drawing.polyline(closedOutline(frontPoints), dxfUpright, wingLayer);
    drawing.polyline(closedOutline(frontPoints), dxfMirrored, wingLayer);
}

/// The root section alone: seen from the side, the halves cover each other.
void SymWingSections::saveDXF_side(DxfDrawing& drawing) {
    computeSidePoints(1, 0, 0);
    const auto count = static_cast<std::size_t>(pointCount());
    drawing.closedPolyline({sidePoints.data() + 1, count}, dxfUpright, wingLayer);
}

}  // namespace velna
