#pragma once

#include <array>
#include <vector>

#include "common/Point.h"

namespace velna {

class BodySolid;
class ListTextures;
class MeshSections;

/// Numbers of one fuselage, kept from one to the next so that a rebuild allocates nothing.
struct FuselageArrays {
    std::vector<Point3D> faceNormals;   ///< of one section's faces, from index 1
    std::vector<Point3D> pointNormals;  ///< of all points, section after section
    std::array<std::vector<Point3D>, 2> mirroredRows;
};

/// A fuselage in its colour, transparent or not, and its twin where it has one, between the
/// beginning and the end of a display list. The ends are not capped.
void drawFuselage(const MeshSections& body, const BodySolid& mesh, FuselageArrays& arrays,
                  ListTextures& textures);

}  // namespace velna
