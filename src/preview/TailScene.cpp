#include "preview/TailScene.h"

#include <algorithm>
#include <array>

#include "common/NumberText.h"
#include "model/FinSolid.h"
#include "model/VertWingSection.h"
#include "preview/Normals.h"
#include "preview/Textures.h"
#include "preview/Vertices.h"

namespace velna {
namespace {

/// Point `i` + `step` of the root or the tip.
struct Corner {
    bool atTip;
    int step;
};

constexpr Corner R{false, 0};
constexpr Corner Rnext{false, 1};
constexpr Corner Rlast{false, -1};
constexpr Corner T{true, 0};
constexpr Corner Tnext{true, 1};
constexpr Corner Tlast{true, -1};

/// Points whose normals are found alike: the first and the last of them, rounded half to even, and
/// the faces that give the normals at the root and at the tip.
struct NormalRule {
    double from;
    double to;
    Corner atRoot[3];
    Corner atTip[3];
};

/// The skin runs from the leading edge along the +y side to the trailing edge and back, and the
/// normals beside both edges must not reach round them.
std::array<NormalRule, 6> rulesFor(int n) {
    const double h = n / 2.0;
    return {{
        {1, 1, {R, T, Rnext}, {T, Tnext, R}},
        {2, h - 1, {R, T, Rnext}, {T, R, Tlast}},
        {h, h, {R, Rlast, T}, {T, R, Tlast}},
        {h + 1, h + 1, {R, T, Rnext}, {T, Tnext, R}},
        {h + 2, n - 1.0, {R, Rlast, T}, {T, Tnext, R}},
        {n * 1.0, n * 1.0, {R, Rlast, T}, {T, R, Tlast}},
    }};
}

/// Sets `normal` from the corners of a face at point `i`; a corner outside the section leaves it.
void setNormal(Point3D& normal, const Corner (&corners)[3], int i, const FinArrays& arrays) {
    const int n = static_cast<int>(arrays.root.size()) - 1;
    const Point3D* points[3];
    for (int k = 0; k < 3; ++k) {
        const int index = i + corners[k].step;
        if (index < 0 || index > n) return;
        points[k] = &(corners[k].atTip ? arrays.tip : arrays.root)[static_cast<std::size_t>(index)];
    }
    normal = faceNormal(*points[0], *points[1], *points[2]);
}

void computeNormals(int n, FinArrays& arrays) {
    const auto size = static_cast<std::size_t>(n) + 1;
    arrays.rootNormals.assign(size, {});
    arrays.tipNormals.assign(size, {});
    for (const NormalRule& rule : rulesFor(n)) {
        for (int i = std::max(0, roundToInt(rule.from)); i <= std::min(n, roundToInt(rule.to));
             ++i) {
            const auto k = static_cast<std::size_t>(i);
            setNormal(arrays.rootNormals[k], rule.atRoot, i, arrays);
            setNormal(arrays.tipNormals[k], rule.atTip, i, arrays);
        }
    }
}

void takePoints(const FinSolid& fin, int n, bool mirrored, FinArrays& arrays) {
    arrays.root.resize(static_cast<std::size_t>(n) + 1);
    arrays.tip.resize(static_cast<std::size_t>(n) + 1);
    for (int i = 0; i <= n; ++i) {
        arrays.root[static_cast<std::size_t>(i)] = fin.rootPoint(i, mirrored && i > 0);
        arrays.tip[static_cast<std::size_t>(i)] = fin.tipPoint(i, mirrored && i > 0);
    }
}

/// A normal at the root and one at the tip.
struct NormalPair {
    Point3D root;
    Point3D tip;
};

/// One pair of the skin: point `i` of the root and of the tip. The twin's tip row carries the
/// root's places: its picture is not distorted towards the tip.
struct PairDrawer {
    const FinSolid& fin;
    const FinArrays& arrays;
    bool mirrored;

    /// `place` is the point whose texture places it carries, `tipSide` the tip's second coordinate.
    void draw(int i, const NormalPair& normals, int place, double tipSide) const {
        const auto k = static_cast<std::size_t>(i);
        if (fin.picture.texture_loaded) {
            const double atRoot = fin.rootTexCoord(place);
            const double atTip = mirrored ? atRoot : fin.tipTexCoord(place);
            emitVertex(arrays.root[k], normals.root, atRoot, 1);
            emitVertex(arrays.tip[k], normals.tip, atTip, tipSide);
        } else {
            emitVertex(arrays.root[k], normals.root);
            emitVertex(arrays.tip[k], normals.tip);
        }
    }
};

void drawSkin(const FinSolid& fin, int n, bool mirrored, const FinArrays& arrays) {
    const auto last = static_cast<std::size_t>(n);
    const NormalPair first{averageNormal(arrays.rootNormals[1], arrays.rootNormals[last]),
                           averageNormal(arrays.tipNormals[1], arrays.tipNormals[last])};
    const PairDrawer pair{fin, arrays, mirrored};
    glBegin(GL_TRIANGLE_STRIP);
    pair.draw(1, first, 1, 0);
    for (int i = 2; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        pair.draw(i, {arrays.rootNormals[k], arrays.tipNormals[k]}, i, 0);
    }
    pair.draw(1, first, n, mirrored ? 1 : 0);
    glEnd();
}

void drawTipCap(int n, const FinArrays& arrays) {
    const Point3D up{0, 0, 1};
    glBegin(GL_TRIANGLE_STRIP);
    glNormal3dv(&up.x);
    const int pairs = roundToInt(n / 2.0 - 1);
    for (int i = 1; i <= pairs; ++i) {
        const int opposite = n - i + 1;
        const int next = i + 1;
        glVertex3dv(&arrays.tip[static_cast<std::size_t>(opposite)].x);
        glVertex3dv(&arrays.tip[static_cast<std::size_t>(next)].x);
    }
    glEnd();
}

}  // namespace

void drawRudder(const VertWingSection& rudder, const FinSolid& solid, FinArrays& arrays,
                ListTextures& textures) {
    setMaterialColor(rudder.color());
    const int n = std::min<int>(rudder.nb, solid.pointCount());
    if (n < 1) return;
    textures.textureMap(solid.picture, GL_CLAMP);
    takePoints(solid, n, false, arrays);
    computeNormals(n, arrays);
    drawSkin(solid, n, false, arrays);
    drawTipCap(n, arrays);
    if (rudder.mirrored()) {
        takePoints(solid, n, true, arrays);
        drawSkin(solid, n, true, arrays);
        drawTipCap(n, arrays);
    }
    glDisable(GL_TEXTURE_2D);
}

}  // namespace velna
