#pragma once

namespace velna {

/// A point or vector of the model: x from the nose backward, y along the span, z upward, in the
/// project's unit. As a colour: red, green, blue from 0 to 255.
struct Point3D {
    double x = 0;
    double y = 0;
    double z = 0;

    friend bool operator==(const Point3D&, const Point3D&) = default;
};

/// A point in view coordinates (pixels, y down) or a texture coordinate.
struct Point2D {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point2D&, const Point2D&) = default;
};

}  // namespace velna
