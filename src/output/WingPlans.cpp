#include "output/WingPlans.h"

#include <cstddef>

#include "common/Polyline.h"

namespace velna {

namespace {

void bothHalves(PrinterSurface& printer, const Outline& outline, double xoff) {
    polyline(printer, pointsOf(outline), black);
    mirroredPolyline(printer, pointsOf(outline), xoff, black);
}

}  // namespace

void printSide(PrinterSurface& printer, const SymWingSections& wing, const Transform& at) {
    const auto points = wing.computeSidePoints(at);
    closedPolyline(printer, pointsOf(points, wing.pointCount()), black);
}

void printFront(PrinterSurface& printer, const SymWingSections& wing, const Transform& at,
                Rgb centreLine) {
    bothHalves(printer, wing.computeFrontPoints(at), at.xoff);
    printer.Line(at.xoff, 0, at.xoff, 2 * at.yoff, centreLine);
}

void printVTop(PrinterSurface& printer, const SymWingSections& wing, const Transform& at) {
    bothHalves(printer, wing.computeVTopPoints(at), at.xoff);
}

}  // namespace velna
