#pragma once

#include <cstdint>

#include "model/Transform.h"

namespace velna {

struct Project;

/// The size of a drawing surface in whole pixels.
struct SurfaceSize {
    std::int16_t width = 900;
    std::int16_t height = 500;
};

/// What a fit of the side view takes in.
enum class SideExtent { fuselage, aircraft };

namespace Plane {

/// The scale that stands where a fit fails, with the centre line in the middle of the surface.
inline Transform unfitted(SurfaceSize size, double yoff = 0) {
    return {0.2, size.width / 2.0, yoff};
}

/// The fits of the four views to a surface: the transform that shows the aircraft there. An empty
/// extent leaves the scale of `before`, and what cannot be computed its offset.
Transform fitVTop(const Project& project, SurfaceSize size, Transform before);
Transform fitFront(const Project& project, SurfaceSize size, Transform before);
Transform fitSide(const Project& project, SurfaceSize size, Transform before, SideExtent extent);
Transform fitHTop(const Project& project, SurfaceSize size, Transform before);
/// The selected section fills nine tenths of the height.
Transform focusSide(const Project& project, SurfaceSize size, Transform before);
Transform focusHTop(const Project& project, SurfaceSize size, Transform before);

}  // namespace Plane
}  // namespace velna
