#include "preview/FuselageScene.h"

#include <algorithm>

#include "model/BodySolid.h"
#include "model/MeshSections.h"
#include "preview/Normals.h"
#include "preview/Textures.h"
#include "preview/Vertices.h"

namespace velna {
namespace {

void computeFaceNormals(const Point3D* row, const Point3D* next, int cross,
                        std::vector<Point3D>& faceNormals) {
    for (int i = 1; i < cross; ++i)
        faceNormals[static_cast<std::size_t>(i)] = faceNormal(row[i], row[i + 1], next[i]);
    faceNormals[static_cast<std::size_t>(cross)] = faceNormal(row[cross], row[1], next[cross]);
}

/// A point's normal lies half-way between the faces on both sides of it along its section. Each is
/// computed once, though two strips and the twin's two use it.
void computePointNormals(const BodySolid& mesh, FuselageArrays& arrays) {
    const auto cross = static_cast<std::size_t>(mesh.cross());
    auto& faceNormals = arrays.faceNormals;
    auto& pointNormals = arrays.pointNormals;
    faceNormals.assign(cross + 1, {});
    pointNormals.resize(cross * static_cast<std::size_t>(mesh.sections()));
    Point3D* normal = pointNormals.data();
    for (int j = 1; j < mesh.sections(); ++j) {
        computeFaceNormals(mesh.points.row(j), mesh.points.row(j + 1), mesh.cross(), faceNormals);
        *normal++ = averageNormal(faceNormals[1], faceNormals[cross]);
        for (std::size_t i = 2; i <= cross; ++i)
            *normal++ = averageNormal(faceNormals[i], faceNormals[i - 1]);
    }
    // The last section has no faces behind it: it takes those before.
    std::copy_n(normal - cross, cross, normal);
}

/// Section `j` of the mesh, or of its twin on the other side.
const Point3D* sectionRow(const BodySolid& mesh, int j, bool mirrored, FuselageArrays& arrays) {
    const Point3D* own = mesh.points.row(j);
    if (!mirrored) return own;
    auto& row = arrays.mirroredRows[static_cast<std::size_t>(j % 2)];
    row.assign(own, own + mesh.cross() + 1);
    for (Point3D& point : row) point.y -= 2 * mesh.shift();
    return row.data();
}

/// One pair of a strip: point `i` of sections `j` and `j` + 1, with the texture places of point
/// `place`.
struct PairDrawer {
    const BodySolid& mesh;
    const Point3D* row;
    const Point3D* next;
    const Point3D* normals;
    const Point3D* nextNormals;
    int j;
    double nextU;  ///< of section `j` + 1; round the section both have the same places

    void draw(int i, int place) const {
        if (mesh.picture.texture_loaded) {
            const Point2D here = mesh.texCoordAt(place, j);
            emitVertex(row[i], normals[i - 1], here.x, here.y);
            emitVertex(next[i], nextNormals[i - 1], nextU, here.y);
        } else {
            emitVertex(row[i], normals[i - 1]);
            emitVertex(next[i], nextNormals[i - 1]);
        }
    }
};

/// A strip from each section to the next. The closing pair lies on the first point and carries the
/// last one's texture places: from there to the first the picture has no width left.
void drawStrips(const BodySolid& mesh, bool mirrored, FuselageArrays& arrays) {
    const int cross = mesh.cross();
    const Point3D* normals = arrays.pointNormals.data();
    const Point3D* row = sectionRow(mesh, 1, mirrored, arrays);
    for (int j = 1; j < mesh.sections(); ++j) {
        const Point3D* next = sectionRow(mesh, j + 1, mirrored, arrays);
        const double nextU = mesh.texCoordAt(1, j + 1).x;
        const PairDrawer pair{mesh, row, next, normals, normals + cross, j, nextU};
        glBegin(GL_TRIANGLE_STRIP);
        for (int i = 1; i <= cross; ++i) pair.draw(i, i);
        pair.draw(1, cross);
        glEnd();
        row = next;
        normals += cross;
    }
}

void setBlending(bool transparent) {
    if (transparent) {
        glEnable(GL_BLEND);
    } else {
        glDisable(GL_BLEND);
        glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    }
}

}  // namespace

void drawFuselage(const MeshSections& body, const BodySolid& mesh, FuselageArrays& arrays,
                  ListTextures& textures) {
    setMaterialColor(body.color());
    setBlending(body.transparent);
    if (mesh.cross() < 2 || mesh.sections() < 2) return;
    // The picture may lie round the body more than once.
    textures.textureMap(mesh.picture, GL_REPEAT);
    computePointNormals(mesh, arrays);
    drawStrips(mesh, false, arrays);
    if (mesh.shift() != 0) drawStrips(mesh, true, arrays);
    glDisable(GL_TEXTURE_2D);
}

}  // namespace velna
