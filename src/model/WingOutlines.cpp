#include "common/NumberText.h"
#include "model/Lengths.h"
#include "model/SymWingSections.h"

namespace velna {

namespace {

/// The largest of the outline's coordinates, rounded as it is taken over, so that a later one is
/// compared with a whole number; never below 0.
std::int16_t largest(const Outline& outline, double Point2D::*coordinate) {
    std::int16_t value = 0;
    for (std::size_t i = 1; i <= 4; ++i)
        if (outline[i].*coordinate > value) value = roundToInt16(outline[i].*coordinate);
    return value;
}

}  // namespace

void SymWingSections::computeSidePoints(double zoom, double xoff, double yoff) {
    const int count = pointCount();
    if (sidePoints.upper() < count) sidePoints.resize(count);
    for (int i = 1; i <= count; ++i) {
        const double x = airfoil(i).x * length1;
        const double z = (airfoil(i).z * length1) * thickness1;
        assignFinite(sidePoints(i), (x + pos1) * zoom + xoff, -(z + elevation1) * zoom + yoff);
    }
}

void SymWingSections::computeHTopPoints(double zoom, double xoff, double yoff) {
    assignFinite(htopPoints[1], pos1 * zoom + xoff, -shift * zoom + yoff);
    assignFinite(htopPoints[2], (pos1 + length1) * zoom + xoff, -shift * zoom + yoff);
    assignFinite(htopPoints[3], (pos1 + pos2 + length2) * zoom + xoff,
                 -(shift + span) * zoom + yoff);
    assignFinite(htopPoints[4], (pos1 + pos2) * zoom + xoff, -(shift + span) * zoom + yoff);
    htopPoints[5] = htopPoints[1];
    for (std::size_t i = 1; i <= 5; ++i)
        assignFinite(htopMirrorPoints[i], htopPoints[i].x, 2 * yoff - htopPoints[i].y);
}

void SymWingSections::computeFrontPoints(double zoom, double xoff, double yoff) {
    const double rootX = shift * zoom + xoff;
    const double tipX = (span + shift) * zoom + xoff;
    const double root = (thickness1 * length1) / 2;
    const double tip = (thickness2 * length2) / 2;
    assignFinite(frontPoints[1], rootX, -(elevation1 - root) * zoom + yoff);
    assignFinite(frontPoints[2], tipX, -(elevation1 + elevation2 - tip) * zoom + yoff);
    assignFinite(frontPoints[3], tipX, -(elevation1 + elevation2 + tip) * zoom + yoff);
    assignFinite(frontPoints[4], rootX, -(root + elevation1) * zoom + yoff);
    frontPoints[5] = frontPoints[1];
}

void SymWingSections::computeVTopPoints(double zoom, double xoff, double yoff) {
    const double rootX = shift * zoom + xoff;
    const double tipX = (span + shift) * zoom + xoff;
    assignFinite(vtopPoints[1], rootX, pos1 * zoom + yoff);
    assignFinite(vtopPoints[2], tipX, (pos1 + pos2) * zoom + yoff);
    assignFinite(vtopPoints[3], tipX, (pos1 + pos2 + length2) * zoom + yoff);
    assignFinite(vtopPoints[4], rootX, (pos1 + length1) * zoom + yoff);
    vtopPoints[5] = vtopPoints[1];
}

std::int16_t SymWingSections::xMaxVtopGet() const {
    return largest(vtopPoints, &Point2D::x);
}

std::int16_t SymWingSections::yMaxVtopGet() const {
    return largest(vtopPoints, &Point2D::y);
}

}  // namespace velna
