#include <utility>

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

Array1<Point2D> SymWingSections::computeSidePoints(const Transform& at,
                                                   Array1<Point2D> points) const {
    const auto& [zoom, xoff, yoff] = at;
    const int count = pointCount();
    if (points.upper() < count) points.resize(count);
    for (int i = 1; i <= count; ++i) {
        const double x = airfoil(i).x * length1;
        const double z = (airfoil(i).z * length1) * thickness1;
        assignFinite(points(i), (x + pos1) * zoom + xoff, -(z + elevation1) * zoom + yoff);
    }
    return points;
}

HTopOutlines SymWingSections::computeHTopPoints(const Transform& at, HTopOutlines outlines) const {
    const auto& [zoom, xoff, yoff] = at;
    Outline& points = outlines.points;
    assignFinite(points[1], pos1 * zoom + xoff, -shift * zoom + yoff);
    assignFinite(points[2], (pos1 + length1) * zoom + xoff, -shift * zoom + yoff);
    assignFinite(points[3], (pos1 + pos2 + length2) * zoom + xoff, -(shift + span) * zoom + yoff);
    assignFinite(points[4], (pos1 + pos2) * zoom + xoff, -(shift + span) * zoom + yoff);
    points[5] = points[1];
    for (std::size_t i = 1; i <= 5; ++i)
        assignFinite(outlines.mirrored[i], points[i].x, 2 * yoff - points[i].y);
    return outlines;
}

Outline SymWingSections::computeFrontPoints(const Transform& at, Outline points) const {
    const auto& [zoom, xoff, yoff] = at;
    const double rootX = shift * zoom + xoff;
    const double tipX = (span + shift) * zoom + xoff;
    const double root = (thickness1 * length1) / 2;
    const double tip = (thickness2 * length2) / 2;
    assignFinite(points[1], rootX, -(elevation1 - root) * zoom + yoff);
    assignFinite(points[2], tipX, -(elevation1 + elevation2 - tip) * zoom + yoff);
    assignFinite(points[3], tipX, -(elevation1 + elevation2 + tip) * zoom + yoff);
    assignFinite(points[4], rootX, -(root + elevation1) * zoom + yoff);
    points[5] = points[1];
    return points;
}

Outline SymWingSections::computeVTopPoints(const Transform& at, Outline points) const {
    const auto& [zoom, xoff, yoff] = at;
    const double rootX = shift * zoom + xoff;
    const double tipX = (span + shift) * zoom + xoff;
    assignFinite(points[1], rootX, pos1 * zoom + yoff);
    assignFinite(points[2], tipX, (pos1 + pos2) * zoom + yoff);
    assignFinite(points[3], tipX, (pos1 + pos2 + length2) * zoom + yoff);
    assignFinite(points[4], rootX, (pos1 + length1) * zoom + yoff);
    points[5] = points[1];
    return points;
}

std::int16_t SymWingSections::xMaxVtopGet(const Outline& vtopPoints) {
    return largest(vtopPoints, &Point2D::x);
}

std::int16_t SymWingSections::yMaxVtopGet(const Outline& vtopPoints) {
    return largest(vtopPoints, &Point2D::y);
}

}  // namespace velna
