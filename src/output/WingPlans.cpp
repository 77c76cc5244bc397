#include <cstddef>

#include "model/Plane.h"
#include "output/AircraftPlans.h"
#include "output/ClosedOutline.h"
#include "output/PlanLines.h"

namespace velna {

namespace {

void bothHalves(PrinterSurface& printer, const Outline& outline, double xoff) {
    printPolyline(printer, closedOutline(outline), black);
    printMirrored(printer, closedOutline(outline), xoff, black);
}

}  // namespace

void printSide(PrinterSurface& printer, const SymWingSections& wing, const Transform& at) {
    const int count = wing.pointCount();
    if (count < 1) return;
    const auto points = wing.computeSidePoints(at);
    printPolyline(printer, {points.data() + 1, static_cast<std::size_t>(count)}, black);
    const Point2D& last = points(count);
    printer.Line(last.x, last.y, points(1).x, points(1).y, black);
}

void printFront(PrinterSurface& printer, const SymWingSections& wing, const Transform& at) {
    bothHalves(printer, wing.computeFrontPoints(at), at.xoff);
    printer.Line(at.xoff, 0, at.xoff, 2 * at.yoff, dimColor);
}

void printVTop(PrinterSurface& printer, const SymWingSections& wing, const Transform& at) {
    bothHalves(printer, wing.computeVTopPoints(at), at.xoff);
}

}  // namespace velna
