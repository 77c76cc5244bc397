#pragma once

#include <cmath>
#include <limits>

#include "model/Figures.h"

namespace velna {

/// Figures are computed with more digits and a wider range than they are given with: a square that
/// no double holds may be divided away again, and far from the origin differences keep their
/// digits.
using Real = long double;

/// What a figure is that is not there. It makes every figure that needs it the same.
inline constexpr Real noFigure = std::numeric_limits<Real>::quiet_NaN();

/// How many square and cubic millimetres the units of areas and volumes have.
inline constexpr Real squareDecimetre = 1e4L;
inline constexpr Real cubicCentimetre = 1e3L;

/// Whether `value` can be given as a figure.
inline bool isFigure(Real value) {
    return std::abs(value) <= static_cast<Real>(std::numeric_limits<double>::max());
}

/// `value`, or nothing where it cannot be given in `unit`.
inline Real figure(Real value, Real unit = 1) {
    return isFigure(value / unit) ? value : noFigure;
}

/// `value` in `unit`, as it is given.
inline Figure given(Real value, Real unit = 1) {
    const Real result = value / unit;
    return isFigure(result) ? Figure(static_cast<double>(result)) : std::nullopt;
}

/// A given figure to compute with.
inline Real taken(const Figure& value) {
    return value ? Real{*value} : noFigure;
}

}  // namespace velna
