#pragma once

#include <cstdint>

#include "common/List.h"
#include "common/Point.h"
#include "model/BuiltFrom.h"
#include "model/SolidPicture.h"

namespace velna {

class MeshSections;

/// The solid of a fuselage: the mesh of its sections, nose to tail, and the straight surface
/// between them.
class BodySolid {
public:
    BodySolid();
    BodySolid(const BodySolid& other);
    BodySolid(BodySolid&& other) noexcept;
    BodySolid& operator=(const BodySolid& other);
    BodySolid& operator=(BodySolid&& other) noexcept;
    ~BodySolid();

    SolidPicture picture;
    BuiltFrom<MeshSections> builtFrom;
    Array2<Point3D> points;  ///< surface mesh, (section, outline point)

    /// Builds `points` and the texture coordinates; below 2 outline points it leaves them as they
    /// are.
    void create(const MeshSections& body);
    /// How far the mesh is to be drawn: the counts of the last rebuild, as far as `points` go.
    int sections() const;
    int cross() const;
    /// Sideways offset; not 0 means a twin on the other side.
    double shift() const { return shift_; }
    /// Point j of section i of the mesh; `mirrored` gives the twin's (y less 2 * `shift`). The
    /// origin where the mesh has no such point.
    Point3D meshPoint(int j, int i, bool mirrored) const;
    /// (u, v) of that point, v once round the section.
    Point2D texCoordAt(int j, int i) const;

private:
    void buildMesh(const MeshSections& body);
    void createTexCoords(double length);

    // the owner's, of the last rebuild
    std::int16_t nb_sections = 0;
    std::int16_t nb_cross = 0;
    double shift_ = 0;
    Array2<Point2D> texCoords_;
};

}  // namespace velna
