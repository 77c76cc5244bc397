#include "editor/Polyline.h"

#include <algorithm>

namespace velna {

std::span<const Point2D> pointsOf(const Array1<Point2D>& array, int n) {
    const int count = std::min(n, array.upper());
    if (count < 1) return {};
    return {array.data() + 1, static_cast<std::size_t>(count)};
}

std::span<const Point2D> pointsOf(const Outline& outline) {
    return std::span(outline).subspan<1>();
}

void polyline(Surface& surface, std::span<const Point2D> points, Rgb colour) {
    for (std::size_t i = 1; i < points.size(); ++i) line(surface, points[i - 1], points[i], colour);
}

void mirroredPolyline(Surface& surface, std::span<const Point2D> points, double xoff, Rgb colour) {
    for (std::size_t i = 1; i < points.size(); ++i)
        line(surface, mirrored(points[i - 1], xoff), mirrored(points[i], xoff), colour);
}

void closedPolyline(Surface& surface, std::span<const Point2D> points, Rgb colour) {
    if (points.empty()) return;
    polyline(surface, points, colour);
    line(surface, points.back(), points.front(), colour);
}

void mirroredClosedPolyline(Surface& surface, std::span<const Point2D> points, double xoff,
                            Rgb colour) {
    if (points.empty()) return;
    mirroredPolyline(surface, points, xoff, colour);
    line(surface, mirrored(points.back(), xoff), mirrored(points.front(), xoff), colour);
}

}  // namespace velna
