#pragma once

#include <span>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"
#include "editor/Surface.h"
#include "model/SymWingSections.h"

namespace velna {

/// Entries 1 to `n` of an array that is used from 1, or as many as it has.
std::span<const Point2D> pointsOf(const Array1<Point2D>& array, int n);

/// The five points of an outline, the last being the first again.
std::span<const Point2D> pointsOf(const Outline& outline);

/// `point` on the other side of the aircraft's centre line, which stands at column `xoff`.
inline Point2D mirrored(Point2D point, double xoff) {
    return {2 * xoff - point.x, point.y};
}

/// One line between two points.
inline void line(Surface& surface, Point2D from, Point2D to, Rgb colour) {
    surface.line(from.x, from.y, to.x, to.y, colour);
}

/// A line from each point to the next. Segment i ends in point i, counted from 1, and has the
/// colour `colourOf(i)`.
template <class ColourOf>
void polyline(Surface& surface, std::span<const Point2D> points, ColourOf colourOf) {
    for (std::size_t i = 1; i < points.size(); ++i)
        line(surface, points[i - 1], points[i], colourOf(static_cast<int>(i) + 1));
}

/// A line from each point to the next, in one colour.
void polyline(Surface& surface, std::span<const Point2D> points, Rgb colour);

/// The same on the other side of the centre line at column `xoff`.
void mirroredPolyline(Surface& surface, std::span<const Point2D> points, double xoff, Rgb colour);

/// A polyline that goes on from its last point to its first.
void closedPolyline(Surface& surface, std::span<const Point2D> points, Rgb colour);

/// The same on the other side of the centre line at column `xoff`.
void mirroredClosedPolyline(Surface& surface, std::span<const Point2D> points, double xoff,
                            Rgb colour);

/// A line from each point of `from` to the same point of `to`; line i, counted from 1, has the
/// colour `colourOf(i)`.
template <class ColourOf>
void bars(Surface& surface, std::span<const Point2D> from, std::span<const Point2D> to,
          ColourOf colourOf) {
    for (std::size_t i = 0; i < from.size() && i < to.size(); ++i)
        line(surface, from[i], to[i], colourOf(static_cast<int>(i) + 1));
}

}  // namespace velna
