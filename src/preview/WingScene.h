#pragma once

#include <vector>

#include "common/Point.h"

namespace velna {

class ListTextures;
class SymWingSections;
class WingSection;
struct PanelSolid;

/// Numbers of one wing half, 1-based, kept from one to the next so that a rebuild allocates
/// nothing. Normals start as zeros, which an airfoil without inner points leaves them at.
struct WingArrays {
    std::vector<Point3D> root;
    std::vector<Point3D> tip;
    std::vector<Point3D> ahead;   ///< normal of the face towards the next point
    std::vector<Point3D> behind;  ///< normal of the face towards the one before
};

/// A wing panel or the stabiliser in its colour, both halves, between the beginning and the end of
/// a display list.
void drawPanel(const SymWingSections& panel, const PanelSolid& solid, WingArrays& arrays,
               ListTextures& textures);
void drawWingLeft(const WingSection& section, WingArrays& arrays, ListTextures& textures);
void drawWingRight(const WingSection& section, WingArrays& arrays, ListTextures& textures);

}  // namespace velna
