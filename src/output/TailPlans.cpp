#include "model/VertWingSection.h"
#include "output/ClosedOutline.h"
#include "output/PlanLines.h"

namespace velna {

void VertWingSection::printSide(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    computeSidePoints(zoom, xoff, yoff);
    printPolyline(printer, closedOutline(sidePoints), black);
}

void VertWingSection::printFront(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    computeFrontPoints(zoom, xoff, yoff);
    printPolyline(printer, closedOutline(frontPoints), black);
    if (mirrored()) printMirrored(printer, closedOutline(frontPoints), xoff, black);
}

void VertWingSection::printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    computeVTopPoints(zoom, xoff, yoff);
    printPolyline(printer, closedOutline(vtopPoints), black);
    if (shift != 0) printMirrored(printer, closedOutline(vtopPoints), xoff, black);
}

}  // namespace velna
