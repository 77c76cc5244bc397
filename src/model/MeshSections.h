#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"
#include "model/ObjectPicture.h"
#include "model/Transform.h"

namespace velna {

class ReplacedFile;
class ValueReader;

/// Parts of a fuselage, in `paint` during a drag and in `selected_part` while hovering.
namespace FuselagePart {
inline constexpr int bar = 0;     ///< bar of a section; in VTop the first section's line
inline constexpr int top = 1;     ///< Side: top point of a section
inline constexpr int bottom = 2;  ///< Side: bottom point of a section
inline constexpr int gap = 3;     ///< between two sections, only with Ctrl
inline constexpr int none = 4;
inline constexpr int plusEnd = 5;   ///< HTop: end at +width / 2
inline constexpr int minusEnd = 6;  ///< HTop: end at -width / 2
}  // namespace FuselagePart

/// The upper and the lower edge of a fuselage from the side, a point a section.
struct SideEdges {
    Array1<Point2D> top;
    Array1<Point2D> bottom;
};

/// Both edges of a fuselage in plan with the nose to the left, a point a section.
struct HTopEdges {
    Array1<Point2D> plus;
    Array1<Point2D> minus;
};

/// One fuselage: a chain of cross-sections of seven numbers each, and the straight surface between
/// them. Storage index k is where a section's values lie; ordered position i, nose to tail, is what
/// the user sees; `sectionOrder(i)` gives k.
class MeshSections {
public:
    std::int16_t nb_sections = 3;
    std::int16_t nb_cross = 8;  ///< outline points a section; 0: no shape yet
    double curv = 0;            ///< exponent in use during an outline computation
    bool cut = false;
    bool transparent = false;
    double shift = 0;              ///< sideways offset; not 0 means a twin on the other side
    double pos_offset = 0;         ///< added to every `pos`
    double elevation_offset = 0;   ///< added to every `elevation`
    bool uniqueCurvature = true;   ///< the shape setters act on all sections
    bool linkedCurvatures = true;  ///< the two exponents follow each other
    std::int16_t sel_sec = 1;      ///< selected section, an ordered position
    std::string texture_filename;
    std::string qualified_texture_filename;
    bool texture_loaded = false;
    std::int32_t xtex = 0;
    std::int32_t ytex = 0;
    Array2<Point3D> points;             ///< surface mesh, valid after `create`
    Array1<double> height;              ///< lowest to highest point
    Array1<double> width;               ///< full width
    Array1<double> pos;                 ///< x before `pos_offset`
    Array1<double> elevation;           ///< z of the lowest point before `elevation_offset`
    Array1<double> curvature;           ///< exponent of the upper half
    Array1<double> curvature2;          ///< exponent of the lower half
    Array1<double> bias_curve;          ///< share of `height` above the widest line
    Array1<std::int16_t> sectionOrder;  ///< ordered position to storage index

    /// The default shape in the project's unit.
    MeshSections();

    // model/
    /// A copy of the shape on the centre line, with its storage in order and no picture, meant to
    /// be reshaped; leaves `sel_sec` of this fuselage at its last section.
    MeshSections copyShapeAndSelectLast();
    /// Sizes the arrays for `nb_sections`, keeping their contents.
    void initArrays();
    /// How many sections there are to work on: `nb_sections`, or fewer where the arrays hold fewer.
    int sectionCount() const;
    /// `sectionOrder(i)`, or 0, the entry that holds nothing, where that is no entry of the arrays.
    int storageIndex(int i) const;
    void fillCurvatureArrays();
    double widthGet() const;
    double heightGet() const;
    double elevationGet() const;
    double posGet() const;
    double curvatureGet() const;
    double curvature2Get() const;
    double bias_curveGet() const;
    void widthSet(double w);
    void heightSet(double h);
    void elevationSet(double e);
    void posSet(double e);
    void curvatureSet(double e);
    void curvature2Set(double e);
    void bias_curveSet(double e);
    const Point3D& color() const { return color_; }
    void set_color(const Point3D& c) { color_ = c; }
    void switchToInches();
    void switchToMillimeters();
    void rescale(double k);
    /// sgn(cos t) |cos t|^p: the super-ellipse's coordinate; |0| to a power of 0 or below is 0.
    static double outlineCos(double t, double p);
    /// sgn(sin t) |sin t|^p + 1: callers take the 1 off again, which stays in the arithmetic.
    static double outlineSin(double t, double p);
    /// Builds `points` and the texture coordinates; below 2 outline points it leaves all as it is.
    void create();
    /// Point j of section i of the mesh; `mirrored` gives the twin's (y less 2 * `shift`). The
    /// origin where the mesh has no such point.
    Point3D meshPoint(int j, int i, bool mirrored) const;
    /// (u, v) of that point, v once round the section.
    Point2D texCoordAt(int j, int i) const;
    double lengthPoint() const;
    double startpoint() const;
    double maxElevationPoint() const;
    double minElevationPoint() const;
    double maxWidthPoint() const;
    /// Puts a section at `position` (x before `pos_offset`) into ordered place `sel_sec`, on the
    /// surface that was there. Does nothing at 32767 sections or with `nb_cross` 0.
    void insertSection(double position);
    void removeSection();
    void smoothTop();
    void smoothDown();
    void SmoothWidth();
    // The outlines in drawing units. A coordinate that is not finite keeps what the
    // second argument has.
    SideEdges computeSidePoints(const Transform& at, SideEdges edges = {}) const;
    /// Down the +width / 2 side from the first section, and up the other.
    Array1<Point2D> computeVTopPoints(const Transform& at, Array1<Point2D> contour = {}) const;
    HTopEdges computeHTopPoints(const Transform& at, HTopEdges edges = {}) const;
    /// Entry (i, j) is point j of the section in ordered place i.
    Array2<Point2D> computeFrontPoints(const Transform& at, Array2<Point2D> front = {}) const;
    /// Whether entry j of the front outline is written by its loops; an odd `nb_cross` leaves some
    /// out.
    bool frontPointUsed(int j) const;
    /// The used points of section `i` of `front`, none where it has no such section. A line to an
    /// entry that holds nothing is no part of a section.
    void collectSection(const Array2<Point2D>& front, int i, std::vector<Point2D>& section) const;
    /// Whether `sel_sec` is an ordered position.
    bool sectionSelected() const { return 0 < sel_sec && sel_sec <= nb_sections; }

    // persistence/
    void save(ReplacedFile& file) const;
    void read(ValueReader& file);
    void readV120(ValueReader& file);
    void readV101(ValueReader& file);
    void readV030(ValueReader& file);
    void readV0212(ValueReader& file);
    void readV026(ValueReader& file);

    // preview/
    /// What the conversion of the picture reads and fills.
    ObjectPicture picture() { return {texture_filename, texture_loaded, xtex, ytex, texels}; }
    /// Hands the converted picture to OpenGL and switches texturing on; nothing without one.
    void textureMap();

private:
    /// A shape of zeros.
    MeshSections(std::int16_t sections, std::int16_t cross);
    void changeLengths(double (*change)(double, double), double operand);
    void setOnShape(Array1<double>& values, double value);
    void createTexCoords();

    Array2<Point2D> texCoords;
    Point3D color_;
    Texels texels;
};

}  // namespace velna
