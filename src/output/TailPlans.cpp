#include "output/TailPlans.h"

#include "common/Polyline.h"

namespace velna {

void printSide(PrinterSurface& printer, const VertWingSection& fin, const Transform& at) {
    const Outline outline = fin.computeSidePoints(at);
    polyline(printer, pointsOf(outline), black);
}

void printFront(PrinterSurface& printer, const VertWingSection& fin, const Transform& at) {
    const Outline outline = fin.computeFrontPoints(at);
    polyline(printer, pointsOf(outline), black);
    if (fin.mirrored()) mirroredPolyline(printer, pointsOf(outline), at.xoff, black);
}

void printVTop(PrinterSurface& printer, const VertWingSection& fin, const Transform& at) {
    const Outline outline = fin.computeVTopPoints(at);
    polyline(printer, pointsOf(outline), black);
    if (fin.shift != 0) mirroredPolyline(printer, pointsOf(outline), at.xoff, black);
}

}  // namespace velna
