#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/List.h"
#include "common/Point.h"
#include "model/Outlines.h"
#include "model/Transform.h"

namespace velna {

/// One fuselage: a chain of cross-sections of seven numbers each, and the straight surface between
/// them. Storage index k is where a section's values lie; ordered position i, nose to tail, is what
/// the user sees; `sectionOrder(i)` gives k.
class MeshSections {
public:
    std::int16_t nb_sections = 3;
    std::int16_t nb_cross = 8;  ///< outline points a section; 0: no shape yet
    double curv = 0;            ///< exponent of the oldest files, while one is read
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
    Array1<double> height;              ///< lowest to highest point
    Array1<double> width;               ///< full width
    Array1<double> pos;                 ///< x before `pos_offset`
    Array1<double> elevation;           ///< z of the lowest point before `elevation_offset`
    Array1<double> curvature;           ///< exponent of the upper half
    Array1<double> curvature2;          ///< exponent of the lower half
    Array1<double> bias_curve;          ///< share of `height` above the widest line
    Array1<std::int16_t> sectionOrder;  ///< ordered position to storage index

    /// The default shape in a project of the given unit and colour.
    explicit MeshSections(int unit, const Point3D& color);

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
    /// The section in ordered place `i` alone; `section` as it is where there is none such.
    Array1<Point2D> computeFrontSection(const Transform& at, int i,
                                        Array1<Point2D> section = {}) const;
    /// Whether entry j of the front outline is written by its loops; an odd `nb_cross` leaves some
    /// out.
    bool frontPointUsed(int j) const;
    /// The used points of section `i` of `front`, none where it has no such section. A line to an
    /// entry that holds nothing is no part of a section.
    void collectSection(const Array2<Point2D>& front, int i, std::vector<Point2D>& section) const;
    /// The same of a section that was computed alone.
    void collectSection(const Array1<Point2D>& front, std::vector<Point2D>& section) const;
    /// Whether `sel_sec` is an ordered position.
    bool sectionSelected() const { return 0 < sel_sec && sel_sec <= nb_sections; }

    friend bool operator==(const MeshSections&, const MeshSections&) = default;

private:
    /// A shape of zeros.
    MeshSections(std::int16_t sections, std::int16_t cross);
    void changeLengths(double (*change)(double, double), double operand);
    void setOnShape(Array1<double>& values, double value);

    Point3D color_;
};

}  // namespace velna
