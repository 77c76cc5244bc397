#pragma once

#include "common/Point.h"

namespace velna {

/// Which way the road from `a` over `b` to `c` turns: 1 to the left (x right, y up), -1 to the
/// right, 0 where the three lie on one line. Exact for every three finite points whose products do
/// not underflow: what is near to a line is decided by the digits that the differences lose.
/// (J. R. Shewchuk, "Adaptive Precision Floating-Point Arithmetic and Fast Robust Geometric
/// Predicates", 1997.)
int turn(const Point2D& a, const Point2D& b, const Point2D& c);

}  // namespace velna
