#include <cstddef>

#include "model/MainWing.h"
#include "model/SymWingSections.h"
#include "output/ClosedOutline.h"
#include "output/PlanLines.h"

namespace velna {

void SymWingSections::printSide(PrinterSurface& printer) {
    const int count = pointCount();
    if (count < 1) return;
    printPolyline(printer, {sidePoints.data() + 1, static_cast<std::size_t>(count)}, black);
    const Point2D& last = sidePoints(count);
    printer.Line(last.x, last.y, sidePoints(1).x, sidePoints(1).y, black);
}

/// The centre line goes with each panel, from the paper's upper edge as far below the wing as above
/// it.
void SymWingSections::printFront(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    computeFrontPoints(zoom, xoff, yoff);
    printPolyline(printer, closedOutline(frontPoints), black);
    printMirrored(printer, closedOutline(frontPoints), xoff, black);
    printer.Line(xoff, 0, xoff, 2 * yoff, dimColor);
}

void SymWingSections::printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    computeVTopPoints(zoom, xoff, yoff);
    printPolyline(printer, closedOutline(vtopPoints), black);
    printMirrored(printer, closedOutline(vtopPoints), xoff, black);
}

void MainWing::printFront(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    for (int i = 1; i <= nbWings; ++i) Wings(i).printFront(printer, zoom, xoff, yoff);
}

void MainWing::printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    for (int i = 1; i <= nbWings; ++i) Wings(i).printVTop(printer, zoom, xoff, yoff);
}

}  // namespace velna
