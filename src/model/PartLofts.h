#pragma once

#include <vector>

#include "model/ClosedSolid.h"
#include "model/ElectroBox.h"
#include "model/SymWingSections.h"
#include "model/VertWingSection.h"

namespace velna {

class MeshSections;

// What each part of the aircraft is lofted from, in millimetres, `unit` of them to a unit of the
// project. Failed with the reason where the part's numbers give no solid.

/// The left half of a panel: root and tip.
Outcome loftOf(const SymWingSections& panel, double unit, Loft& loft);
/// The fin on the side of its offsets: root and tip.
Outcome loftOf(const VertWingSection& fin, double unit, Loft& loft);
/// A hull on the side of its shift, nose to tail, without the point that an odd number leaves
/// unset.
Outcome loftOf(const MeshSections& body, double unit, Loft& loft);
/// A box from its front to its back.
Outcome loftOf(const ElectroBox& box, double unit, Loft& loft);

// Where the points of these lofts lie in the part's picture of that size.
std::vector<Point2D> placesOf(const SymWingSections& panel, int width, int height);
std::vector<Point2D> placesOf(const VertWingSection& fin, int width, int height);
std::vector<Point2D> placesOf(const MeshSections& body, int width, int height);

}  // namespace velna
