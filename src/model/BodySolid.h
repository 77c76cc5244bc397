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

    /// Builds `points`; below 2 outline points it leaves them as they are.
    void create(const MeshSections& body);
    /// The same in steps, for large ones: `prepare` does all but the points, and gives how many
    /// sections there are to build; `buildSections` builds those from `first` to `last`, and may
    /// run at the same time on others.
    int prepare(const MeshSections& body);
    void buildSections(const MeshSections& body, int first, int last);
    /// How far the mesh is to be drawn: the counts of the last rebuild, as far as `points` go.
    int sections() const;
    int cross() const;
    /// Sideways offset; not 0 means a twin on the other side.
    double shift() const { return shift_; }
    /// Point j of section i of the mesh; `mirrored` gives the twin's (y less 2 * `shift`). The
    /// origin where the mesh has no such point.
    Point3D meshPoint(int j, int i, bool mirrored) const;
    /// (u, v) of that point, v once round the section: computed here, for few bodies carry a
    /// picture, and kept they would take two thirds of the mesh's memory.
    Point2D texCoordAt(int j, int i) const;

private:
    // the owner's, of the last rebuild
    std::int16_t nb_sections = 0;
    std::int16_t nb_cross = 0;
    double shift_ = 0;
    double length_ = 0;  ///< of the body when `points` were built
};

}  // namespace velna
