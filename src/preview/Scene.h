#pragma once

#include <GL/gl.h>

#include "common/Point.h"

namespace velna {
class MeshSections;
class VertWingSection;
class WingSection;
}  // namespace velna

namespace velna::Rendering {

// The parts of the scene, each called between the beginning and the end of display list 1. They
// read solids that stand and pictures that are converted, and change nothing of the model.

void drawWingLeft(WingSection& section);
void drawWingRight(WingSection& section);
void drawRudder(VertWingSection& rudder);
void drawFuselage(MeshSections& mesh);
void drawEquipments();

/// `color` from 0 to 255 as the material of what follows, with an alpha that shows only while
/// blending is on.
void setMaterialColor(const Point3D& color);

// OpenGL takes the three numbers of a point as they lie.
static_assert(sizeof(Point3D) == 3 * sizeof(GLdouble));

/// A vertex at `p` with normal `n`.
inline void emitVertex(const Point3D& p, const Point3D& n) {
    glNormal3dv(&n.x);
    glVertex3dv(&p.x);
}

/// The same with a texture place. A coordinate of exactly -1 means that there is none: the vertex
/// then keeps the place of the one before it.
inline void emitVertex(const Point3D& p, const Point3D& n, double s, double t) {
    const GLdouble place[] = {s, t};
    glNormal3dv(&n.x);
    if (s != -1 && t != -1) glTexCoord2dv(place);
    glVertex3dv(&p.x);
}

}  // namespace velna::Rendering
