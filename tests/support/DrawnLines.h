#pragma once

#include <cmath>
#include <ostream>
#include <vector>

#include "common/Palette.h"
#include "support/InHand.h"
#include "support/RecordingSurface.h"

namespace velna {

/// How a failing test names a colour.
inline void PrintTo(const Rgb& colour, std::ostream* out) {
    if (colour == white)
        *out << "white";
    else if (colour == black)
        *out << "black";
    else if (colour == project.dimColor)
        *out << "dim";
    else if (colour == project.highlightColor)
        *out << "highlight";
    else
        *out << "rgb(" << int{colour.red} << ", " << int{colour.green} << ", " << int{colour.blue}
             << ")";
}

/// How a failing test names a point.
inline void PrintTo(const Point2D& point, std::ostream* out) {
    *out << "(" << point.x << ", " << point.y << ")";
}

}  // namespace velna

namespace velna::test {

/// The lines among what a surface recorded, in order.
inline std::vector<SurfaceCall> drawnLines(const RecordingSurface& surface) {
    std::vector<SurfaceCall> lines;
    for (const SurfaceCall& call : surface.calls)
        if (call.kind == SurfaceCall::Kind::Line) lines.push_back(call);
    return lines;
}

/// The colours of the recorded lines, in order.
inline std::vector<Rgb> drawnColours(const RecordingSurface& surface) {
    std::vector<Rgb> colours;
    for (const SurfaceCall& call : drawnLines(surface)) colours.push_back(call.colour);
    return colours;
}

/// The places that a pen passes over `lines[from]` to `lines[from + count - 1]`: the start of the
/// first, then each line's end.
inline std::vector<Point2D> penPath(const std::vector<SurfaceCall>& lines, std::size_t from,
                                    std::size_t count) {
    std::vector<Point2D> path{{lines.at(from).x1, lines.at(from).y1}};
    for (std::size_t i = from; i < from + count; ++i)
        path.push_back({lines.at(i).x2, lines.at(i).y2});
    return path;
}

/// A list of `count` times one colour.
inline std::vector<Rgb> repeated(std::size_t count, Rgb colour) {
    return std::vector<Rgb>(count, colour);
}

/// One list after the other.
inline std::vector<Rgb> joined(std::initializer_list<std::vector<Rgb>> lists) {
    std::vector<Rgb> all;
    for (const auto& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

}  // namespace velna::test
