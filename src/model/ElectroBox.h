#pragma once

#include <cstdint>

#include "common/Point.h"
#include "model/BuiltFrom.h"
#include "model/Outlines.h"
#include "model/Transform.h"

namespace velna {

/// Kinds of a box.
namespace BoxKind {
inline constexpr int servo = 0;
inline constexpr int receiver = 1;
inline constexpr int accumulator = 2;
}  // namespace BoxKind

/// A servo, receiver or accumulator: a plain box placed in the fuselage to see that it fits.
class ElectroBox {
public:
    double length = 30;  ///< extent along the aircraft
    double width = 15;   ///< first cross extent
    double height = 25;  ///< second cross extent
    double weight = 0;   ///< as listed in the catalogue; never converted
    std::int32_t orientation =
        0;                  ///< 0: `width` across, `height` upright; otherwise they change places
    double pos = 200;       ///< start along the aircraft
    double elevation = 50;  ///< height of the underside
    double shift = 5;       ///< sideways position of the centre line
    std::int32_t box = BoxKind::servo;

    /// The default box in a project of the given unit.
    explicit ElectroBox(int unit);

    double actualLength() const { return length; }
    double actualWidth() const { return width; }
    double actualHeight() const { return height; }
    /// The cross extents as they stand: across the aircraft, and upright.
    double extentAcross() const { return orientation == 0 ? width : height; }
    double extentUpright() const { return orientation == 0 ? height : width; }
    void switchToInches();
    void switchToMillimeters();
    void rescale(double k);
    /// Colour of the kind, 0 to 255; a box of an unknown kind has the servo's.
    Point3D kindColor() const;
    // The outlines in drawing units. A coordinate that is not finite keeps what `points` has.
    Rectangle computeSidePoints(const Transform& at, Rectangle points = {}) const;
    Rectangle computeHTopPoints(const Transform& at, Rectangle points = {}) const;

    friend bool operator==(const ElectroBox&, const ElectroBox&) = default;
};

/// The solid of a box.
class BoxSolid {
public:
    BuiltFrom<ElectroBox> builtFrom;

    void create(const ElectroBox& box);
    Point3D solidSize() const { return size_; }
    Point3D solidOrigin() const { return origin_; }
    Point3D centre() const;

private:
    Point3D size_;
    Point3D origin_;
};

}  // namespace velna
