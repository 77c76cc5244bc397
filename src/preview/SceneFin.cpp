#include <algorithm>
#include <array>
#include <vector>

#include "common/NumberText.h"
#include "model/VertWingSection.h"
#include "preview/Normals.h"
#include "preview/Scene.h"

namespace velna::Rendering {
namespace {

/// Numbers of the fin, from index 0 (which is a zero) to its number of points, kept from one
/// rebuild to the next. Normals start as zeros.
std::vector<Point3D> root;
std::vector<Point3D> tip;
std::vector<Point3D> rootNormals;
std::vector<Point3D> tipNormals;

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
void setNormal(Point3D& normal, const Corner (&corners)[3], int i, int n) {
    const Point3D* points[3];
    for (int k = 0; k < 3; ++k) {
        const int index = i + corners[k].step;
        if (index < 0 || index > n) return;
        points[k] = &(corners[k].atTip ? tip : root)[static_cast<std::size_t>(index)];
    }
    normal = faceNormal(*points[0], *points[1], *points[2]);
}

void computeNormals(int n) {
    const auto size = static_cast<std::size_t>(n) + 1;
    rootNormals.assign(size, {});
    tipNormals.assign(size, {});
    for (const NormalRule& rule : rulesFor(n)) {
        for (int i = std::max(0, roundToInt(rule.from)); i <= std::min(n, roundToInt(rule.to));
             ++i) {
            const auto k = static_cast<std::size_t>(i);
            setNormal(rootNormals[k], rule.atRoot, i, n);
            setNormal(tipNormals[k], rule.atTip, i, n);
        }
    }
}

void takePoints(const VertWingSection& rudder, int n, bool mirrored) {
    root.resize(static_cast<std::size_t>(n) + 1);
    tip.resize(static_cast<std::size_t>(n) + 1);
    for (int i = 0; i <= n; ++i) {
        root[static_cast<std::size_t>(i)] = rudder.rootPoint(i, mirrored && i > 0);
        tip[static_cast<std::size_t>(i)] = rudder.tipPoint(i, mirrored && i > 0);
    }
}

/// A point of the root and one of the tip. The twin's tip row carries the root's places: its
/// picture is not distorted towards the tip.
void drawPair(const VertWingSection& rudder, int i, int place, const Point3D& rootNormal,
              const Point3D& tipNormal, bool mirrored, double tipSide) {
    const auto k = static_cast<std::size_t>(i);
    if (rudder.texture_loaded) {
        const double atRoot = rudder.rootTexCoord(place);
        emitVertex(root[k], rootNormal, atRoot, 1);
        emitVertex(tip[k], tipNormal, mirrored ? atRoot : rudder.tipTexCoord(place), tipSide);
    } else {
        emitVertex(root[k], rootNormal);
        emitVertex(tip[k], tipNormal);
    }
}

void drawSkin(const VertWingSection& rudder, int n, bool mirrored) {
    const auto last = static_cast<std::size_t>(n);
    const Point3D firstRoot = averageNormal(rootNormals[1], rootNormals[last]);
    const Point3D firstTip = averageNormal(tipNormals[1], tipNormals[last]);
    glBegin(GL_TRIANGLE_STRIP);
    drawPair(rudder, 1, 1, firstRoot, firstTip, mirrored, 0);
    for (int i = 2; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        drawPair(rudder, i, i, rootNormals[k], tipNormals[k], mirrored, 0);
    }
    drawPair(rudder, 1, n, firstRoot, firstTip, mirrored, mirrored ? 1 : 0);
    glEnd();
}

void drawTipCap(int n) {
    const Point3D up{0, 0, 1};
    glBegin(GL_TRIANGLE_STRIP);
    glNormal3dv(&up.x);
    const int pairs = roundToInt(n / 2.0 - 1);
    for (int i = 1; i <= pairs; ++i) {
        const int opposite = n - i + 1;
        const int next = i + 1;
        glVertex3dv(&tip[static_cast<std::size_t>(opposite)].x);
        glVertex3dv(&tip[static_cast<std::size_t>(next)].x);
    }
    glEnd();
}

}  // namespace

void drawRudder(VertWingSection& rudder) {
    const int n = std::min<int>(rudder.nb, rudder.pointCount());
    if (n < 1) return;
    rudder.textureMap();
    takePoints(rudder, n, false);
    computeNormals(n);
    drawSkin(rudder, n, false);
    drawTipCap(n);
    if (rudder.mirrored()) {
        takePoints(rudder, n, true);
        drawSkin(rudder, n, true);
        drawTipCap(n);
    }
    glDisable(GL_TEXTURE_2D);
}

}  // namespace velna::Rendering
