#include "model/Panels.h"

#include <algorithm>
#include <cmath>

#include "model/Project.h"

namespace velna {

namespace {

Point2D between(const Point2D& root, const Point2D& tip, double t) {
    return {(1 - t) * root.x + t * tip.x, (1 - t) * root.y + t * tip.y};
}

}  // namespace

std::vector<NamedPanel> namedPanels(const Project& project) {
    std::vector<NamedPanel> panels;
    for (int i = 1; i <= project.nbWings; ++i)
        panels.push_back({"wing " + std::to_string(i), project.Wings(i)});
    panels.push_back({"stabilizer", project.Stabilizer});
    return panels;
}

double millimetresOf(int units) {
    return units == inches ? Plane::millimetresPerInch : 1;
}

Point2D Planform::leadingEdge(double t) const {
    return between(corners[0], corners[3], t);
}

Point2D Planform::trailingEdge(double t) const {
    return between(corners[1], corners[2], t);
}

bool Planform::drawable() const {
    return std::all_of(corners.begin(), corners.end(), [](const Point2D& corner) {
        return std::abs(corner.x) <= largestPart && std::abs(corner.y) <= largestPart;
    });
}

Planform developed(const SymWingSections& panel, int units) {
    const double mm = millimetresOf(units);
    Planform plan;
    plan.span = std::hypot(panel.span, panel.elevation2) * mm;
    plan.corners = {{{0, 0},
                     {0, panel.length1 * mm},
                     {plan.span, (panel.pos2 + panel.length2) * mm},
                     {plan.span, panel.pos2 * mm}}};
    return plan;
}

}  // namespace velna
