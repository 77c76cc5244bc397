#pragma once

#include <optional>
#include <string>

#include "common/Palette.h"
#include "common/Point.h"

namespace velna {

/// How lines meet what is already on the surface.
/// While lines invert, a white one takes off what stands, and any other draws what does not stand
/// yet: nothing is inverted a second time.
enum class DrawMode { Invert = 6, Copy = 13 };

/// The operations that the editor draws with, and nothing else. Coordinates are pixels, y down;
/// every double is allowed, NaN and infinity draw nothing. What a redraw does not draw is gone.
class Surface {
public:
    virtual ~Surface() = default;

    /// Size in pixels.
    virtual double width() const = 0;
    virtual double height() const = 0;

    /// Makes everything white.
    virtual void clear() = 0;

    /// One line of one pixel's width; the same line with its ends exchanged covers the same pixels.
    virtual void line(double x1, double y1, double x2, double y2, Rgb colour) = 0;

    virtual void setDrawMode(DrawMode mode) = 0;

    /// The natural size in pixels of a picture file, nothing when it cannot be read.
    virtual std::optional<Point2D> pictureSize(const std::string& file) = 0;

    /// Paints a picture file into the given rectangle; one that cannot be read is skipped.
    virtual void paintPicture(const std::string& file, Point2D position, Point2D size) = 0;

    /// Brings to the screen what has changed since the last call.
    virtual void refresh() = 0;

    virtual void setFocus() = 0;
};

/// One line between two points.
inline void line(Surface& surface, Point2D from, Point2D to, Rgb colour) {
    surface.line(from.x, from.y, to.x, to.y, colour);
}

}  // namespace velna
