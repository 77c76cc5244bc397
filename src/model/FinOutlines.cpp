#include "model/Lengths.h"
#include "model/VertWingSection.h"

namespace velna {

void VertWingSection::computeSidePoints(double zoom, double xoff, double yoff) {
    assignFinite(sidePoints[1], pos1 * zoom + xoff, -shift * zoom + yoff);
    assignFinite(sidePoints[2], (pos1 + length1) * zoom + xoff, -shift * zoom + yoff);
    assignFinite(sidePoints[3], (pos1 + pos2 + length2) * zoom + xoff,
                 -(span + shift) * zoom + yoff);
    assignFinite(sidePoints[4], (pos1 + pos2) * zoom + xoff, -(span + shift) * zoom + yoff);
    sidePoints[5] = sidePoints[1];
}

void VertWingSection::computeFrontPoints(double zoom, double xoff, double yoff) {
    const double root = (thickness1 * length1) / 2;
    const double tip = (thickness2 * length2) / 2;
    const double rootY = -shift * zoom + yoff;
    const double tipY = -(shift + span) * zoom + yoff;
    assignFinite(frontPoints[1], (offset1 - root) * zoom + xoff, rootY);
    assignFinite(frontPoints[2], (root + offset1) * zoom + xoff, rootY);
    assignFinite(frontPoints[3], (offset1 + offset2 + tip) * zoom + xoff, tipY);
    assignFinite(frontPoints[4], (offset1 + offset2 - tip) * zoom + xoff, tipY);
    frontPoints[5] = frontPoints[1];
}

void VertWingSection::computeVTopPoints(double zoom, double xoff, double yoff) {
    const double root = (thickness1 * length1) / 2;
    const double plusX = (root + offset1) * zoom + xoff;
    const double minusX = (offset1 - root) * zoom + xoff;
    const double leadingY = pos1 * zoom + yoff;
    const double trailingY = (pos1 + length1) * zoom + yoff;
    assignFinite(vtopPoints[1], plusX, leadingY);
    assignFinite(vtopPoints[2], plusX, trailingY);
    assignFinite(vtopPoints[3], minusX, trailingY);
    assignFinite(vtopPoints[4], minusX, leadingY);
    vtopPoints[5] = vtopPoints[1];
}

}  // namespace velna
