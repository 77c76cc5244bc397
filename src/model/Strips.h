#pragma once

#include <array>

#include "model/FigureReal.h"

namespace velna {

/// One panel in plan: four numbers at each of its ends, the outer ones from the root's. The axis
/// runs along the span, to the side for a wing and upward for a fin.
struct Trapezium {
    Real root;   ///< place of the root on the axis
    Real span;   ///< the tip's from there
    Real x;      ///< leading edge of the root
    Real sweep;  ///< the tip's from there
    Real rise;   ///< square to both, from root to tip
    Real chord1;
    Real chord2;
};

/// A part of a panel in which nothing changes its sign: index 1 inside, 2 outside, and no chord
/// below 0.
struct Strip {
    Real width;  ///< along the axis, not below 0
    Real rise;
    Real y1, y2;
    Real x1, x2;
    Real c1, c2;

    Real area() const { return width * (c1 + c2) / 2; }
    Real developed() const;
    /// The integral over the strip of a quantity that runs straight from `v1` to `v2`.
    Real moment(Real v1, Real v2) const {
        return width * (v1 * (2 * c1 + c2) + v2 * (c1 + 2 * c2)) / 6;
    }
    /// The integral of the chord's square along the axis.
    Real squares() const { return width * (c1 * c1 + c1 * c2 + c2 * c2) / 3; }
};

/// The strips of one panel, from its root to its tip.
class Strips {
public:
    /// Whether what lies beyond 0 of the axis is laid on the other half, whose mirror image it is.
    enum class Halves { Alike, Apart };

    Strips(const Trapezium& panel, Halves halves);

    const Strip* begin() const { return strips_.data(); }
    const Strip* end() const { return begin() + count_; }

private:
    static constexpr int most = 3;

    std::array<Strip, most> strips_{};
    int count_ = 0;
};

}  // namespace velna
