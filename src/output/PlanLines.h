#pragma once

#include <cstddef>
#include <span>

#include "common/Palette.h"
#include "common/Point.h"
#include "output/PrinterSurface.h"

namespace velna {

/// The lines along `points`.
inline void printPolyline(PrinterSurface& printer, std::span<const Point2D> points, Rgb colour) {
    for (std::size_t i = 1; i < points.size(); ++i)
        printer.Line(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y, colour);
}

/// The same mirrored about the column `xoff`: the other half of the aircraft.
inline void printMirrored(PrinterSurface& printer, std::span<const Point2D> points, double xoff,
                          Rgb colour) {
    for (std::size_t i = 1; i < points.size(); ++i) {
        printer.Line(2 * xoff - points[i - 1].x, points[i - 1].y, 2 * xoff - points[i].x,
                     points[i].y, colour);
    }
}

}  // namespace velna
