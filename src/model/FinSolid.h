#pragma once

#include "common/List.h"
#include "common/Point.h"
#include "model/BuiltFrom.h"
#include "model/SolidPicture.h"
#include "model/VertWingSection.h"

namespace velna {

/// The solid of the fin: a straight loft between a root and a tip section of one fixed profile, and
/// its mirror image where the fin is a twin.
class FinSolid {
public:
    SolidPicture picture;
    BuiltFrom<VertWingSection> builtFrom;

    /// Rebuilds the sections, the chord ratios and, with a converted picture, the texture
    /// coordinates.
    void create(const VertWingSection& fin);
    Point3D rootPoint(int i, bool mirrored) const;
    Point3D tipPoint(int i, bool mirrored) const;
    double rootTexCoord(int i) const { return i <= rootTexCoords.upper() ? rootTexCoords(i) : 0; }
    double tipTexCoord(int i) const { return i <= tipTexCoords.upper() ? tipTexCoords(i) : 0; }
    double chordRatio(int i) const { return i <= chordRatios.upper() ? chordRatios(i) : 0; }
    /// How many points each section has.
    int pointCount() const { return rootPoints.upper() < 0 ? 0 : rootPoints.upper(); }

private:
    double offset1 = 0;  ///< the owner's, of the last rebuild
    double offset2 = 0;
    Array1<Point3D> rootPoints;
    Array1<Point3D> tipPoints;
    Array1<double> chordRatios;
    Array1<double> rootTexCoords;
    Array1<double> tipTexCoords;
};

}  // namespace velna
