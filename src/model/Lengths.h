#pragma once

#include "common/Finite.h"
#include "common/Point.h"
#include "model/Units.h"

namespace velna {

/// Multiplies every one of `fields` (pointers to double members) of `object` by `k`. A product that
/// is not finite leaves its field as it stands.
template <class Object, class Fields>
void multiplyLengths(Object& object, const Fields& fields, double k) {
    for (auto field : fields) assignFinite(object.*field, object.*field * k);
}

/// Divides every one of `fields` by 25.4: division and multiplication by the reciprocal differ in
/// the last digit, which a project file shows.
template <class Object, class Fields>
void convertToInches(Object& object, const Fields& fields) {
    for (auto field : fields) assignFinite(object.*field, Plane::mmToInches(object.*field));
}

/// Multiplies every one of `fields` by 25.4.
template <class Object, class Fields>
void convertToMillimeters(Object& object, const Fields& fields) {
    multiplyLengths(object, fields, Plane::millimetresPerInch);
}

/// Stores a point of a drawing coordinate by coordinate; one that is not finite keeps the old
/// value, so that no file and no sheet ever gets an infinity.
inline void assignFinite(Point2D& target, double x, double y) {
    assignFinite(target.x, x);
    assignFinite(target.y, y);
}

/// The same for a point of a solid.
inline void assignFinite(Point3D& target, double x, double y, double z) {
    assignFinite(target.x, x);
    assignFinite(target.y, y);
    assignFinite(target.z, z);
}

}  // namespace velna
