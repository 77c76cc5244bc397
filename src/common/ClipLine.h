#pragma once

#include <utility>

#include "common/Point.h"

namespace velna {

/// The places from `low` to `high` on one axis.
struct AxisRange {
    double low = 0;
    double high = 0;
};

/// Shortens a line from (a1, b1) to (a2, b2) to its part in `range` of the axis of `a`; false when
/// nothing is left. Every finite double is allowed: halves keep the difference of two huge ends
/// finite.
inline bool clipAxis(double& a1, double& b1, double& a2, double& b2, AxisRange range) {
    for (const auto& [side, limit] : {std::pair{-1.0, -range.low}, std::pair{1.0, range.high}}) {
        const double over1 = a1 / 2 * side - limit / 2;
        const double over2 = a2 / 2 * side - limit / 2;
        if (over1 > 0 && over2 > 0) return false;
        if (over1 <= 0 && over2 <= 0) continue;
        const double t = over1 / (over1 - over2);
        const double b = b1 * (1 - t) + b2 * t;
        (over1 > 0 ? a1 : a2) = side * limit;
        (over1 > 0 ? b1 : b2) = b;
    }
    return true;
}

/// Shortens the line between two points to its part in a rectangle, whose border belongs to it;
/// false when nothing is left.
inline bool clipLine(Point2D& from, Point2D& to, AxisRange columns, AxisRange rows) {
    return clipAxis(from.x, from.y, to.x, to.y, columns) &&
           clipAxis(from.y, from.x, to.y, to.x, rows);
}

}  // namespace velna
