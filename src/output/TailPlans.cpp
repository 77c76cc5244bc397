#include "output/AircraftPlans.h"
#include "output/ClosedOutline.h"
#include "output/PlanLines.h"

namespace velna {

void printSide(PrinterSurface& printer, const VertWingSection& fin, const Transform& at) {
    const Outline outline = fin.computeSidePoints(at);
    printPolyline(printer, closedOutline(outline), black);
}

void printFront(PrinterSurface& printer, const VertWingSection& fin, const Transform& at) {
    const Outline outline = fin.computeFrontPoints(at);
    printPolyline(printer, closedOutline(outline), black);
    if (fin.mirrored()) printMirrored(printer, closedOutline(outline), at.xoff, black);
}

void printVTop(PrinterSurface& printer, const VertWingSection& fin, const Transform& at) {
    const Outline outline = fin.computeVTopPoints(at);
    printPolyline(printer, closedOutline(outline), black);
    if (fin.shift != 0) printMirrored(printer, closedOutline(outline), at.xoff, black);
}

}  // namespace velna
