#pragma once

#include <cstdint>
#include <string>

#include "common/List.h"
#include "common/Point.h"
#include "model/BuiltFrom.h"
#include "model/SolidPicture.h"
#include "model/SymWingSections.h"

namespace velna {

/// The solid of one half of one wing panel: a straight loft between a root and a tip section of the
/// same airfoil. All values are copies of its owner's, taken afresh at each rebuild.
class WingSection {
public:
    std::int16_t nb = 0;    ///< number of airfoil points
    double span = 0;        ///< signed distance in y from root to tip; negated on the right
    double shift = 0;       ///< y of the root; negated on the right
    double length1 = 0;     ///< root chord
    double length2 = 0;     ///< tip chord
    double thickness1 = 0;  ///< factor on the airfoil's z at the root
    double thickness2 = 0;  ///< the same at the tip
    double pos1 = 0;        ///< x of the root's leading edge
    double pos2 = 0;        ///< sweep: x of the tip's leading edge relative to the root's
    double elevation1 = 0;  ///< z of the root
    double elevation2 = 0;  ///< dihedral: z of the tip relative to the root's
    std::string airfoil_filename;
    SolidPicture picture;

    /// Copies the owner's numbers, airfoil and picture's name; builds nothing.
    void init(const SymWingSections& wg);
    /// Builds both sections from the fields.
    void create();
    /// Becomes the mirror image of `lwg`, the left solid, and builds it.
    void createSymmetrical(const WingSection& lwg);
    /// Fills the texture coordinates; does nothing while `xtex` is 0. A failing division (`span` 0)
    /// leaves the coordinate at 0.
    void create_texcoords();
    Point3D rootPoint(int i) const { return rootPoints(i); }
    Point3D tipPoint(int i) const { return tipPoints(i); }
    Point3D airfoilPoint(int i) const { return airfoil(i); }
    /// 0 for a point that has no texture place (yet).
    double rootTexCoord(int i) const { return i <= rootTexCoords.upper() ? rootTexCoords(i) : 0; }
    double tipTexCoord(int i) const { return i <= tipTexCoords.upper() ? tipTexCoords(i) : 0; }
    /// How many points there are to draw: `nb`, or fewer where the airfoil holds or `create` has
    /// built fewer.
    int pointCount() const;
    /// How many points of each section `create` has built.
    int builtCount() const { return rootPoints.upper() < 0 ? 0 : rootPoints.upper(); }

private:
    int airfoilCount() const;
    void buildSection(Array1<Point3D>& points, const Point3D& origin, double length,
                      double thickness) const;

    Array1<Point3D> rootPoints;
    Array1<Point3D> tipPoints;
    Array1<Point3D> airfoil;
    Point3D rootOrigin;
    Point3D tipOrigin;
    Array1<double> rootTexCoords;
    Array1<double> tipTexCoords;
};

/// The solid of a wing panel or of the stabiliser.
struct PanelSolid {
    WingSection Left;   ///< on the +y side
    WingSection Right;  ///< its mirror image
    BuiltFrom<SymWingSections> builtFrom;

    /// Rebuilds both halves.
    void create(const SymWingSections& panel);
};

}  // namespace velna
