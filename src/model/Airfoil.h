#pragma once

#include "common/List.h"
#include "common/Point.h"

namespace velna::Airfoil {

/// Fills points 1 to 16 of `points` (as far as it reaches) with the built-in profile, before
/// normalisation; further points keep what they hold.
void fillBuiltIn(Array1<Point3D>& points, int nb);

/// Divides the heights of points 1 to `nb` by the profile's thickness ratio, rounded to 2 decimals
/// half to even, and returns that ratio in `thickness1` and `thickness2`. A flat profile gives the
/// ratio 0 and keeps its heights; a profile without chord keeps both thicknesses and is divided by
/// the old one unless that is 0.
void normalize(Array1<Point3D>& points, int nb, double& thickness1, double& thickness2);

}  // namespace velna::Airfoil
