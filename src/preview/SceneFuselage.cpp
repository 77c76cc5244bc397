#include <algorithm>
#include <vector>

#include "model/MeshSections.h"
#include "preview/Normals.h"
#include "preview/Scene.h"

namespace velna::Rendering {
namespace {

/// Numbers of one fuselage, kept from one to the next so that a rebuild allocates nothing.
std::vector<Point3D> faceNormals;   ///< of one section's faces, from index 1
std::vector<Point3D> pointNormals;  ///< of all points, section after section
std::vector<Point3D> mirroredRows[2];

/// The part of a mesh that can be drawn: the counts, or what the arrays hold of them.
struct Extent {
    int sections;
    int cross;
};

Extent extentOf(const MeshSections& mesh) {
    return {std::min<int>(mesh.nb_sections, mesh.points.rows()),
            std::min<int>(mesh.nb_cross, mesh.points.columns())};
}

void computeFaceNormals(const Point3D* row, const Point3D* next, int cross) {
    for (int i = 1; i < cross; ++i)
        faceNormals[static_cast<std::size_t>(i)] = faceNormal(row[i], row[i + 1], next[i]);
    faceNormals[static_cast<std::size_t>(cross)] = faceNormal(row[cross], row[1], next[cross]);
}

/// A point's normal lies half-way between the faces on both sides of it along its section. Each is
/// computed once, though two strips and the twin's two use it.
void computePointNormals(const MeshSections& mesh, const Extent& extent) {
    const auto cross = static_cast<std::size_t>(extent.cross);
    faceNormals.assign(cross + 1, {});
    pointNormals.resize(cross * static_cast<std::size_t>(extent.sections));
    Point3D* normal = pointNormals.data();
    for (int j = 1; j < extent.sections; ++j) {
        computeFaceNormals(mesh.points.row(j), mesh.points.row(j + 1), extent.cross);
        *normal++ = averageNormal(faceNormals[1], faceNormals[cross]);
        for (std::size_t i = 2; i <= cross; ++i)
            *normal++ = averageNormal(faceNormals[i], faceNormals[i - 1]);
    }
    // The last section has no faces behind it: it takes those before.
    std::copy_n(normal - cross, cross, normal);
}

/// Section `j` of the mesh, or of its twin on the other side.
const Point3D* sectionRow(const MeshSections& mesh, const Extent& extent, int j, bool mirrored) {
    if (!mirrored) return mesh.points.row(j);
    auto& row = mirroredRows[j % 2];
    row.assign(mesh.points.row(j), mesh.points.row(j) + extent.cross + 1);
    for (Point3D& point : row) point.y -= 2 * mesh.shift;
    return row.data();
}

/// One pair of a strip: point `i` of sections `j` and `j` + 1, with the texture places of point
/// `place`.
struct PairDrawer {
    const MeshSections& mesh;
    const Point3D* row;
    const Point3D* next;
    const Point3D* normals;
    const Point3D* nextNormals;
    int j;

    void draw(int i, int place) const {
        if (mesh.texture_loaded) {
            const Point2D here = mesh.texCoordAt(place, j);
            const Point2D there = mesh.texCoordAt(place, j + 1);
            emitVertex(row[i], normals[i - 1], here.x, here.y);
            emitVertex(next[i], nextNormals[i - 1], there.x, there.y);
        } else {
            emitVertex(row[i], normals[i - 1]);
            emitVertex(next[i], nextNormals[i - 1]);
        }
    }
};

/// A strip from each section to the next. The closing pair lies on the first point and carries the
/// last one's texture places: from there to the first the picture has no width left.
void drawStrips(const MeshSections& mesh, const Extent& extent, bool mirrored) {
    const Point3D* normals = pointNormals.data();
    const Point3D* row = sectionRow(mesh, extent, 1, mirrored);
    for (int j = 1; j < extent.sections; ++j) {
        const Point3D* next = sectionRow(mesh, extent, j + 1, mirrored);
        const PairDrawer pair{mesh, row, next, normals, normals + extent.cross, j};
        glBegin(GL_TRIANGLE_STRIP);
        for (int i = 1; i <= extent.cross; ++i) pair.draw(i, i);
        pair.draw(1, extent.cross);
        glEnd();
        row = next;
        normals += extent.cross;
    }
}

}  // namespace

// The ends are not capped.
void drawFuselage(MeshSections& mesh) {
    const Extent extent = extentOf(mesh);
    if (extent.cross < 2 || extent.sections < 2) return;
    mesh.textureMap();
    computePointNormals(mesh, extent);
    drawStrips(mesh, extent, false);
    if (mesh.shift != 0) drawStrips(mesh, extent, true);
    glDisable(GL_TEXTURE_2D);
}

}  // namespace velna::Rendering
