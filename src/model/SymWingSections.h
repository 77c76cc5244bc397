#pragma once

#include <cstdint>
#include <string>

#include "common/List.h"
#include "common/Point.h"
#include "model/Outlines.h"
#include "model/Transform.h"

namespace velna {

/// One symmetric lifting surface panel: a wing panel or the stabiliser.
class SymWingSections {
public:
    std::int16_t nb = 16;   ///< number of airfoil points (never of panels)
    double span = 0;        ///< half panel along y, root to tip
    double length1 = 0;     ///< root chord
    double length2 = 0;     ///< tip chord
    double thickness1 = 0;  ///< root thickness as a fraction of the chord
    double thickness2 = 0;  ///< tip thickness as a fraction of the chord
    double pos1 = 0;        ///< x of the root's leading edge
    double pos2 = 0;        ///< sweep: x of the tip's leading edge relative to the root's
    double elevation1 = 0;  ///< z of the root
    double elevation2 = 0;  ///< dihedral: z of the tip relative to the root's
    double shift = 0;       ///< y of the root
    std::string airfoil_filename;
    std::string qualified_texture_filename;  ///< bare file name of the picture

    /// Built-in airfoil, no picture, the given colour; the lengths stand as they are.
    void init(const Point3D& color);
    /// `airfoil` afresh for `nb` points.
    void allocate();
    void init_airfoil();
    void normalizeAirfoil();
    Point3D airfoilPoint(int i) const { return airfoil(i); }
    Point3D& airfoilPoint(int i) { return airfoil(i); }
    void setAirfoilPoint(int i, double x, double z) { airfoil(i) = {x, 0, z}; }
    /// Points that `airfoil` really holds; `nb` may promise more.
    int airfoilSize() const { return airfoil.upper(); }
    /// How many airfoil points there are to draw: the smaller of `nb` and `airfoilSize`.
    int pointCount() const;
    void switchToInches();
    void switchToMillimeters();
    void rescale(double k);
    const std::string& texture_filename() const { return textureFile; }
    void set_texture_filename(const std::string& file) { textureFile = file; }
    const Point3D& color() const { return color_; }
    void set_color(const Point3D& c) { color_ = c; }
    // The outlines in drawing units. A coordinate that is not finite keeps what `points` has.
    Array1<Point2D> computeSidePoints(const Transform& at, Array1<Point2D> points = {}) const;
    HTopOutlines computeHTopPoints(const Transform& at, HTopOutlines outlines = {}) const;
    Outline computeFrontPoints(const Transform& at, Outline points = {}) const;
    Outline computeVTopPoints(const Transform& at, Outline points = {}) const;
    /// Largest x or y of a plan outline, rounded, not below 0.
    static std::int16_t xMaxVtopGet(const Outline& vtopPoints);
    static std::int16_t yMaxVtopGet(const Outline& vtopPoints);

    friend bool operator==(const SymWingSections&, const SymWingSections&) = default;

private:
    Point3D color_;
    Array1<Point3D> airfoil;
    std::string textureFile;
};

}  // namespace velna
