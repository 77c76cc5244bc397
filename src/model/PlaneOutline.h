#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "common/Point.h"

namespace velna {

/// A closed outline in its plane, from each point to the next and from the last to the first.
using PlaneOutline = std::span<const Point2D>;

/// Whether the outline has three points or more, and no two of its edges have a point in common but
/// neighbours their end. Exact, in n log n steps for n points (n for a convex outline). (M. I.
/// Shamos, D. Hoey, "Geometric intersection problems", 1976.)
bool isSimple(PlaneOutline outline);

/// Three points of an outline by their places, from 0.
using OutlineTriangle = std::array<std::uint32_t, 3>;

/// Triangles that fill a simple outline, all its points their corners, none without area, their
/// corners in the outline's own direction. By clipping ears: n log n steps for what an aircraft
/// has, at most n times the corners that do not bulge. Empty where the outline is not simple.
std::vector<OutlineTriangle> triangulated(PlaneOutline outline);

}  // namespace velna
