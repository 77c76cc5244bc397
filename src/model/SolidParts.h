#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "common/Outcome.h"
#include "model/ClosedSolid.h"
#include "model/Project.h"

namespace velna {

/// How a stretch of a part's triangles looks: a panel of a wing, or the whole part.
struct PartSkin {
    Point3D color;                  ///< 0 to 255
    std::string picture = {};       ///< full path, empty for none
    std::string title = {};         ///< the picture's name
    bool turned = false;            ///< the picture is turned a quarter, as for a wing
    bool repeat = false;            ///< it is repeated round the part
    std::size_t first = 0;          ///< triangle
    std::size_t end = 0;            ///< the triangle behind the last
    std::uint32_t firstSource = 0;  ///< the point of the loft that `places` begins with
    /// Where the points of the loft lie in the picture, which has these sizes: (0, 0) is its lower
    /// left corner, (1, 1) the upper right one.
    std::function<std::vector<Point2D>(int width, int height)> places = {};
};

/// A body of its own.
struct SolidPart {
    std::string name;  ///< "wing 1 left", "wing 2-3 right", "fin mirrored", "fuselage 1"
    ClosedSolid solid;
    std::vector<PartSkin> skins;
};

/// A part that gives no solid, and why.
struct RefusedPart {
    std::string name;
    std::string why;
};

/// What is wished of the parts.
struct PartsOrder {
    SolidOrder solid;
    bool cut = false;          ///< neighbouring panels stay apart
    bool electronics = false;  ///< with servos, receivers and accumulators
};

/// Calls `visit(part)` for each part of the aircraft, in the order wings, stabiliser, fin,
/// fuselages (all, shown or not), electronics; each half of a wing, twin fin or twin hull is a
/// part, and unless they are cut so are neighbouring panels that continue each other. Those that
/// give no solid go into `refused`. Millimetres, also for a project in inches. Cancelled where
/// `visit` returns false or the order's question does.
Outcome forEachSolidPart(const Project& project, const PartsOrder& order,
                         const std::function<bool(const SolidPart&)>& visit,
                         std::vector<RefusedPart>& refused);

/// About how many points all parts have together, each half and twin counted.
long long solidPoints(const Project& project);

}  // namespace velna
