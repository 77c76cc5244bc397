#pragma once

#include <cstdint>
#include <string>

#include "common/Point.h"
#include "model/Outlines.h"
#include "model/Transform.h"

namespace velna {

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

    /// The defaults in the given colour; `offset1` and `offset2` stand as they are.
    void init(const Point3D& color);
    void switchToInches();
    void switchToMillimeters();
    void rescale(double k);
    /// Whether a second fin stands mirrored across the centre plane.
    bool mirrored() const { return offset1 != 0 || offset2 != 0; }
    const Point3D& color() const { return color_; }
    void set_color(const Point3D& c) { color_ = c; }
    // The outlines in drawing units. A coordinate that is not finite keeps what `points` has.
    Outline computeSidePoints(const Transform& at, Outline points = {}) const;
    Outline computeFrontPoints(const Transform& at, Outline points = {}) const;
    Outline computeVTopPoints(const Transform& at, Outline points = {}) const;

    friend bool operator==(const VertWingSection&, const VertWingSection&) = default;

private:
    Point3D color_;
};

}  // namespace velna
