#pragma once

#include <vector>

#include "common/Point.h"

namespace velna {

class FinSolid;
class ListTextures;
class VertWingSection;

/// Numbers of the fin, from index 0 (which is a zero) to its number of points, kept from one
/// rebuild to the next so that it allocates nothing. Normals start as zeros.
struct FinArrays {
    std::vector<Point3D> root;
    std::vector<Point3D> tip;
    std::vector<Point3D> rootNormals;
    std::vector<Point3D> tipNormals;
};

/// The fin in its colour, and its twin where it has one, between the beginning and the end of a
/// display list.
void drawRudder(const VertWingSection& rudder, const FinSolid& solid, FinArrays& arrays,
                ListTextures& textures);

}  // namespace velna
