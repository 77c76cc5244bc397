#pragma once

#include <cmath>

#include "common/Point.h"

namespace velna {

// Defined here, since a rebuild calls them for every point of the aircraft.

/// Brings `v` to length 1. A vector without length, or of no finite one, becomes (1, 0, 0).
inline void normalizeVector(Point3D& v) {
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length == 0 || !std::isfinite(length)) {
        v = {1, 0, 0};
        return;
    }
    v = {v.x / length, v.y / length, v.z / length};
}

/// The normal of the face with edges from `p` to `q` and from `p` to `r`.
inline Point3D faceNormal(const Point3D& p, const Point3D& q, const Point3D& r) {
    const Point3D a{q.x - p.x, q.y - p.y, q.z - p.z};
    const Point3D b{r.x - p.x, r.y - p.y, r.z - p.z};
    Point3D normal{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    normalizeVector(normal);
    return normal;
}

/// The normal half-way between two.
inline Point3D averageNormal(const Point3D& a, const Point3D& b) {
    Point3D normal{(a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2};
    normalizeVector(normal);
    return normal;
}

}  // namespace velna
