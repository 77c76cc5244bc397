#include "model/Lengths.h"
#include "model/VertWingSection.h"

namespace velna {

Outline VertWingSection::computeSidePoints(const Transform& at, Outline points) const {
    const auto& [zoom, xoff, yoff] = at;
    assignFinite(points[1], pos1 * zoom + xoff, -shift * zoom + yoff);
    assignFinite(points[2], (pos1 + length1) * zoom + xoff, -shift * zoom + yoff);
    assignFinite(points[3], (pos1 + pos2 + length2) * zoom + xoff, -(span + shift) * zoom + yoff);
    assignFinite(points[4], (pos1 + pos2) * zoom + xoff, -(span + shift) * zoom + yoff);
    points[5] = points[1];
    return points;
}

Outline VertWingSection::computeFrontPoints(const Transform& at, Outline points) const {
    const auto& [zoom, xoff, yoff] = at;
    const double root = (thickness1 * length1) / 2;
    const double tip = (thickness2 * length2) / 2;
    const double rootY = -shift * zoom + yoff;
    const double tipY = -(shift + span) * zoom + yoff;
    assignFinite(points[1], (offset1 - root) * zoom + xoff, rootY);
    assignFinite(points[2], (root + offset1) * zoom + xoff, rootY);
    assignFinite(points[3], (offset1 + offset2 + tip) * zoom + xoff, tipY);
    assignFinite(points[4], (offset1 + offset2 - tip) * zoom + xoff, tipY);
    points[5] = points[1];
    return points;
}

Outline VertWingSection::computeVTopPoints(const Transform& at, Outline points) const {
    const auto& [zoom, xoff, yoff] = at;
    const double root = (thickness1 * length1) / 2;
    const double plusX = (root + offset1) * zoom + xoff;
    const double minusX = (offset1 - root) * zoom + xoff;
    const double leadingY = pos1 * zoom + yoff;
    const double trailingY = (pos1 + length1) * zoom + yoff;
    assignFinite(points[1], plusX, leadingY);
    assignFinite(points[2], plusX, trailingY);
    assignFinite(points[3], minusX, trailingY);
    assignFinite(points[4], minusX, leadingY);
    points[5] = points[1];
    return points;
}

}  // namespace velna
