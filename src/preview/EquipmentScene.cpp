#include "preview/EquipmentScene.h"

#include "model/ElectroBox.h"
#include "preview/Vertices.h"

namespace velna {
namespace {

/// An edge along the aircraft: its normal, and whether it lies at the far side in y and in z.
struct LongEdge {
    GLfloat normalY;
    GLfloat normalZ;
    bool farY;
    bool farZ;
};

/// Round the four long faces, back to the first edge.
constexpr LongEdge edges[] = {
    {-1, -1, false, false}, {-1, 1, false, true},   {1, 1, true, true},
    {1, -1, true, false},   {-1, -1, false, false},
};

/// A box in single precision: that is finer than any servo.
struct SingleBox {
    GLfloat x, y, z, dx, dy, dz;

    explicit SingleBox(const BoxSolid& box)
        : x(static_cast<GLfloat>(box.solidOrigin().x)),
          y(static_cast<GLfloat>(box.solidOrigin().y)),
          z(static_cast<GLfloat>(box.solidOrigin().z)),
          dx(static_cast<GLfloat>(box.solidSize().x)),
          dy(static_cast<GLfloat>(box.solidSize().y)),
          dz(static_cast<GLfloat>(box.solidSize().z)) {}

    void vertex(bool farX, const LongEdge& edge) const {
        glVertex3f(farX ? x + dx : x, edge.farY ? y + dy : y, edge.farZ ? z + dz : z);
    }
};

}  // namespace

void drawEquipment(const ElectroBox& equipment, const BoxSolid& solid) {
    setMaterialColor(equipment.kindColor());
    const SingleBox box(solid);
    glBegin(GL_QUAD_STRIP);
    for (const LongEdge& edge : edges) {
        glNormal3f(0, edge.normalY, edge.normalZ);
        box.vertex(false, edge);
        box.vertex(true, edge);
    }
    glEnd();
    for (const bool farEnd : {false, true}) {
        glBegin(GL_QUADS);
        glNormal3f(farEnd ? 1.0F : -1.0F, 0, 0);
        for (int i = 0; i < 4; ++i) box.vertex(farEnd, edges[i]);
        glEnd();
    }
}

}  // namespace velna
