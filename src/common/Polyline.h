#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"

namespace velna {

/// What has `line(paper, from, to, colour)`, be it a screen or a sheet, takes the polylines below.

/// Entries 1 to `n` of an array that is used from 1, or as many as it has.
inline std::span<const Point2D> pointsOf(const Array1<Point2D>& array, int n) {
    const int count = std::min(n, array.upper());
    if (count < 1) return {};
    return {array.data() + 1, static_cast<std::size_t>(count)};
}

/// The points of a fixed number that are used from 1.
template <std::size_t size>
std::span<const Point2D> pointsOf(const std::array<Point2D, size>& points) {
    return std::span(points).template subspan<1>();
}

/// `point` on the other side of the aircraft's centre line, which stands at column `xoff`.
inline Point2D mirrored(Point2D point, double xoff) {
    return {2 * xoff - point.x, point.y};
}

/// A line from each point to the next. Segment i ends in point i, counted from 1, and has the
/// colour `colourOf(i)`.
template <class Paper, class ColourOf>
void polyline(Paper& paper, std::span<const Point2D> points, ColourOf colourOf) {
    for (std::size_t i = 1; i < points.size(); ++i)
        line(paper, points[i - 1], points[i], colourOf(static_cast<int>(i) + 1));
}

/// A line from each point to the next, in one colour.
template <class Paper>
void polyline(Paper& paper, std::span<const Point2D> points, Rgb colour) {
    for (std::size_t i = 1; i < points.size(); ++i) line(paper, points[i - 1], points[i], colour);
}

/// The same on the other side of the centre line at column `xoff`.
template <class Paper>
void mirroredPolyline(Paper& paper, std::span<const Point2D> points, double xoff, Rgb colour) {
    for (std::size_t i = 1; i < points.size(); ++i)
        line(paper, mirrored(points[i - 1], xoff), mirrored(points[i], xoff), colour);
}

/// A polyline that goes on from its last point to its first.
template <class Paper>
void closedPolyline(Paper& paper, std::span<const Point2D> points, Rgb colour) {
    if (points.empty()) return;
    polyline(paper, points, colour);
    line(paper, points.back(), points.front(), colour);
}

/// The same on the other side of the centre line at column `xoff`.
template <class Paper>
void mirroredClosedPolyline(Paper& paper, std::span<const Point2D> points, double xoff,
                            Rgb colour) {
    if (points.empty()) return;
    mirroredPolyline(paper, points, xoff, colour);
    line(paper, mirrored(points.back(), xoff), mirrored(points.front(), xoff), colour);
}

/// A line from each point of `from` to the same point of `to`; line i, counted from 1, has the
/// colour `colourOf(i)`.
template <class Paper, class ColourOf>
void bars(Paper& paper, std::span<const Point2D> from, std::span<const Point2D> to,
          ColourOf colourOf) {
    for (std::size_t i = 0; i < from.size() && i < to.size(); ++i)
        line(paper, from[i], to[i], colourOf(static_cast<int>(i) + 1));
}

}  // namespace velna
