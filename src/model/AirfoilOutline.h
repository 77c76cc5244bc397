#pragma once

#include <cstddef>
#include <vector>

#include "common/Point.h"
#include "model/Project.h"

namespace velna::AirfoilOutline {

/// Points of a section: x from the nose backward, y the height, in chords.
using Points = std::vector<Point2D>;

/// The points of a section as somebody has written them down: in any of the usual orders, in
/// chords, in percent of the chord, or in lengths.
struct Written {
    Points points;
    std::size_t firstSide = 0;  ///< how many of them are the first side, where that is told; else 0
};

/// The points as a wing panel has them: from the trailing edge along the lower side to the nose and
/// back along the upper one, in chords. They may come as one run round the section, begun at the
/// trailing edge or at the nose, in either direction, or side by side. Points of unit chord stay as
/// they stand, bit for bit; percent become what the same decimals with the point moved would be;
/// any other chord is made 1, with the nose at the origin. A point that comes twice in a row is
/// taken once. Throws ReadFailure, with a reason to be told, where that gives no section: no chord
/// or height, one side only, sides that run back and forth or cross, more points than a panel
/// holds.
Points arranged(Written written);

/// The outline of a panel's root, in chords, as far as the panel has points.
Points ofRoot(const SymWingSections& wing);

/// Puts `outline` (in the order of `arranged`) on a panel, with its thickness at root and tip.
/// Throws ReadFailure, with the panel as it was, where it is thinner than half a percent.
void put(SymWingSections& wing, const Points& outline);

/// Puts `outline` on the current wing panel, or on `everyPanel`. Throws ReadFailure, with all
/// panels as they were, where `put` does, or where all panels together would have too many points.
void putOnWing(Project& project, const Points& outline, bool everyPanel);

/// Gives every wing panel the outline and the two thicknesses of the current one. Throws
/// ReadFailure, with all panels as they were, where they would have too many points together.
void copyToEveryPanel(Project& project);

}  // namespace velna::AirfoilOutline
