#include "preview/WingScene.h"

#include "common/NumberText.h"
#include "model/SymWingSections.h"
#include "model/WingSection.h"
#include "preview/Normals.h"
#include "preview/Textures.h"
#include "preview/Vertices.h"

namespace velna {
namespace {

void take(const WingSection& section, int n, WingArrays& arrays) {
    const auto size = static_cast<std::size_t>(n) + 3;
    arrays.root.resize(size);
    arrays.tip.resize(size);
    arrays.ahead.assign(size, {});
    arrays.behind.assign(size, {});
    for (int i = 1; i <= n; ++i) {
        arrays.root[static_cast<std::size_t>(i)] = section.rootPoint(i);
        arrays.tip[static_cast<std::size_t>(i)] = section.tipPoint(i);
    }
}

/// What is mirrored between the two halves.
struct WingSide {
    bool left;
    double textureSense;  ///< the right half's places are negative, as its span is
    Point3D capNormal;
};

constexpr WingSide leftSide{true, 1, {0, 1, 0}};
constexpr WingSide rightSide{false, -1, {0, -1, 0}};

/// Both halves number their points alike, so the sense of the right one's surface is reversed: root
/// and tip change their roles to keep the normals outward.
void computeNormals(const WingSide& side, std::size_t n, WingArrays& arrays) {
    const Point3D* p = side.left ? arrays.tip.data() : arrays.root.data();
    const Point3D* q = side.left ? arrays.root.data() : arrays.tip.data();
    auto& a = arrays.ahead;
    auto& b = arrays.behind;
    for (std::size_t i = 2; i + 1 <= n; ++i) {
        a[i] = faceNormal(p[i], q[i], p[i + 1]);
        b[i] = faceNormal(q[i], p[i], q[i - 1]);
    }
    a[1] = a[2];
    b[1] = b[2];
    a[n] = a[n - 1];
    b[n] = b[n - 1];
}

void drawSkin(const WingSection& section, const WingSide& side, int n, const WingArrays& arrays) {
    glBegin(GL_TRIANGLE_STRIP);
    for (int i = 1; i <= n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const Point3D normal = averageNormal(arrays.ahead[k], arrays.behind[k]);
        if (section.picture.texture_loaded) {
            emitVertex(arrays.root[k], normal, side.textureSense * section.rootTexCoord(i), 0);
            emitVertex(arrays.tip[k], normal, side.textureSense * section.tipTexCoord(i), 1);
        } else {
            emitVertex(arrays.root[k], normal);
            emitVertex(arrays.tip[k], normal);
        }
    }
    // Closes the trailing edge.
    emitVertex(arrays.root[1], {1, 0, 0});
    emitVertex(arrays.tip[1], {1, 0, 0});
    glEnd();
}

void drawTipCap(const WingSide& side, int n, const WingArrays& arrays) {
    glBegin(GL_TRIANGLE_STRIP);
    glNormal3dv(&side.capNormal.x);
    const int pairs = roundToInt(n / 2.0);
    for (int i = 1; i <= pairs; ++i) {
        const int opposite = n - i + 1;
        glVertex3dv(&arrays.tip[static_cast<std::size_t>(opposite)].x);
        glVertex3dv(&arrays.tip[static_cast<std::size_t>(i)].x);
    }
    glEnd();
}

void drawWing(const WingSection& section, const WingSide& side, WingArrays& arrays,
              ListTextures& textures) {
    const int n = section.builtCount();
    if (n < 1) return;
    textures.textureMap(section.picture, GL_CLAMP);
    take(section, n, arrays);
    computeNormals(side, static_cast<std::size_t>(n), arrays);
    drawSkin(section, side, n, arrays);
    drawTipCap(side, n, arrays);
    glDisable(GL_TEXTURE_2D);
}

}  // namespace

// The root end is left open: it lies against the fuselage or the other half.
void drawWingLeft(const WingSection& section, WingArrays& arrays, ListTextures& textures) {
    drawWing(section, leftSide, arrays, textures);
}

void drawWingRight(const WingSection& section, WingArrays& arrays, ListTextures& textures) {
    drawWing(section, rightSide, arrays, textures);
}

void drawPanel(const SymWingSections& panel, const PanelSolid& solid, WingArrays& arrays,
               ListTextures& textures) {
    setMaterialColor(panel.color());
    drawWingLeft(solid.Left, arrays, textures);
    drawWingRight(solid.Right, arrays, textures);
}

}  // namespace velna
