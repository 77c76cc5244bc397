#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"
#include "model/ObjectPicture.h"
#include "model/SymWingSections.h"

namespace velna {

/// Handle codes of the fin.
namespace FinPart {
inline constexpr int tipEdge = 0;
inline constexpr int tipTrailing = 2;
inline constexpr int rootTrailing = 3;
inline constexpr int rootEdge = 4;
inline constexpr int none = 5;
inline constexpr int tipLeading = 7;
inline constexpr int rootLeading = 8;
}  // namespace FinPart

/// The fin with rudder: upright, with a fixed symmetric profile. An offset that is not 0 makes it a
/// twin fin, mirrored across the aircraft's centre plane.
class VertWingSection {
public:
    std::int16_t nb = 16;     ///< number of section points
    double span = 150;        ///< height, root to tip
    double length1 = 150;     ///< root chord
    double length2 = 80;      ///< tip chord
    double thickness1 = 0.1;  ///< root thickness as a fraction of the chord
    double thickness2 = 0.1;  ///< tip thickness as a fraction of the chord
    double pos1 = 650;        ///< x of the root's leading edge
    double pos2 = 100;        ///< x of the tip's leading edge relative to the root's
    double shift = 30;        ///< z of the root
    double offset1 = 0;       ///< y of the root
    double offset2 = 0;       ///< y of the tip relative to the root's
    std::string texture_filename;
    std::string qualified_texture_filename;
    bool texture_loaded = false;
    std::int32_t xtex = 0;
    std::int32_t ytex = 0;

    // model/
    /// The defaults; `offset1` and `offset2` stand as they are.
    void init();
    /// Rebuilds the sections, the chord ratios and, with a picture, the texture coordinates.
    void create();
    void switchToInches();
    void switchToMillimeters();
    void rescale(double k);
    Point3D rootPoint(int i, bool mirrored) const;
    Point3D tipPoint(int i, bool mirrored) const;
    double rootTexCoord(int i) const { return i <= rootTexCoords.upper() ? rootTexCoords(i) : 0; }
    double tipTexCoord(int i) const { return i <= tipTexCoords.upper() ? tipTexCoords(i) : 0; }
    double chordRatio(int i) const { return i <= chordRatios.upper() ? chordRatios(i) : 0; }
    /// How many section points `create` has built.
    int pointCount() const { return rootPoints.upper() < 0 ? 0 : rootPoints.upper(); }
    /// Whether a second fin stands mirrored across the centre plane.
    bool mirrored() const { return offset1 != 0 || offset2 != 0; }
    const Point3D& color() const { return color_; }
    void set_color(const Point3D& c) { color_ = c; }
    // The outlines in drawing units. A coordinate that is not finite keeps what `points` has.
    Outline computeSidePoints(const Transform& at, Outline points = {}) const;
    Outline computeFrontPoints(const Transform& at, Outline points = {}) const;
    Outline computeVTopPoints(const Transform& at, Outline points = {}) const;

    // persistence/
    void save(ReplacedFile& file) const;
    void read(ValueReader& file);
    void readV101(ValueReader& file);
    void readV030(ValueReader& file);
    void readV0212(ValueReader& file);

    // preview/
    /// What the conversion of the picture reads and fills.
    ObjectPicture picture() { return {texture_filename, texture_loaded, xtex, ytex, texels}; }
    /// Hands the converted picture to OpenGL and switches texturing on; nothing without one.
    void textureMap();

private:
    void buildFinSection(Array1<Point3D>& points, const Point3D& origin, double length,
                         double thickness) const;
    void createTexCoords();

    Point3D color_;
    Array1<Point3D> rootPoints;
    Array1<Point3D> tipPoints;
    Array1<double> chordRatios;
    Array1<double> rootTexCoords;
    Array1<double> tipTexCoords;
    Texels texels;
};

}  // namespace velna
