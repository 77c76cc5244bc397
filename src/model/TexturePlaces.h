#pragma once

#include "common/Finite.h"
#include "common/List.h"
#include "common/Point.h"
#include "model/SolidPicture.h"

namespace velna {

/// Where the picture of a panel begins at the root, and how far it reaches.
struct PictureFrame {
    double pos1;  ///< x of the root's leading edge
    double span;  ///< as the panel has it, signed
};

/// Gives `places` the first texture coordinates of the `count` points of a section of a wing half
/// or the fin. A failing division (`span` or `xtex` 0) leaves the coordinate at 0.
inline void placeTexture(Array1<double>& places, const Array1<Point3D>& points, int count,
                         const PictureFrame& frame, const SolidPicture& picture) {
    places.allocate(count);
    // The tip is measured from the root's leading edge and by the span too, so it carries the
    // sweep: the picture then lies undistorted in plan.
    for (int i = 1; i <= count / 2; ++i) {
        assignFinite(places(i),
                     ((points(i).x - frame.pos1) / frame.span) * picture.ytex / picture.xtex);
    }
    // The second surface takes the places of the first one, so the picture stands the same way on
    // both.
    for (int i = count / 2 + 1; i <= count; ++i) places(i) = places(count + 1 - i);
}

}  // namespace velna
