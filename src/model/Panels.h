#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/Point.h"
#include "model/SymWingSections.h"

namespace velna {

struct Project;

/// A panel under the name that plans and files give it: "wing 1" and so on, "stabilizer".
struct NamedPanel {
    std::string name;
    const SymWingSections& panel;
};

/// The wing's panels from the root outward, and the stabiliser.
std::vector<NamedPanel> namedPanels(const Project& project);

/// How many millimetres a length unit of the project is.
double millimetresOf(int units);

/// Nothing is drawn or cut that reaches farther from its own origin, in millimetres.
inline constexpr double largestPart = 1'000'000;

/// One half of a panel as it lies flat on the board. Its chords are parallel and it has no twist,
/// so it is flat, and this is its true shape: edges, sheeting and spars have their real lengths.
/// Millimetres, from the root's leading edge: x is the way along the span, y the way backward.
struct Planform {
    double span = 0;  ///< sqrt(span^2 + dihedral^2), never negative
    /// Leading and trailing edge of the root, trailing and leading edge of the tip.
    std::array<Point2D, 4> corners{};

    /// Where an edge is at the share `t` of the span (0 at the root, 1 at the tip).
    Point2D leadingEdge(double t) const;
    Point2D trailingEdge(double t) const;
    /// Whether it can be drawn: no coordinate beyond `largestPart`.
    bool drawable() const;
};

/// The planform of one half of `panel`, whose lengths are in `units`.
Planform developed(const SymWingSections& panel, int units);

}  // namespace velna
