#pragma once

#include <GL/gl.h>

#include "common/Point.h"

namespace velna {

// OpenGL takes the three numbers of a point as they lie.
static_assert(sizeof(Point3D) == 3 * sizeof(GLdouble));

/// `color` from 0 to 255 as the material of what follows, with an alpha that shows only while
/// blending is on.
inline void setMaterialColor(const Point3D& color) {
    const GLfloat material[] = {static_cast<GLfloat>(color.x / 255),
                                static_cast<GLfloat>(color.y / 255),
                                static_cast<GLfloat>(color.z / 255), 0.7F};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, material);
}

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

}  // namespace velna
