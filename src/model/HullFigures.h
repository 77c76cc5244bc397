#pragma once

#include "model/FigureReal.h"

namespace velna {

class MeshSections;

/// The figures of a fuselage that is `number` in the list; a length of it has `millimetre` mm. They
/// are those of the surface that `BodySolid` builds, cut into triangles as the VRML model has them,
/// without the outline point that no formula sets when their number is odd.
HullFigures hullFigures(const MeshSections& body, int number, Real millimetre);

}  // namespace velna
