#pragma once

#include <vector>

#include "common/Point.h"
#include "model/Figures.h"
#include "model/Transform.h"

namespace velna {

/// How a drawing shows the aircraft: from above with the nose up or to the left, or from the side.
enum class MarkView { NoseUp, NoseLeft, Side };

/// A line of the marks, in units of the drawing.
struct MarkLine {
    Point2D from;
    Point2D to;
    bool range = false;  ///< it belongs to the balance range, not to the quarter point

    friend bool operator==(const MarkLine&, const MarkLine&) = default;
};

/// The marks of the wing's quarter point, a diamond, and of the balance range, a bar from its
/// forward to its rear end, each on the middle plane; from the side at the height of the first
/// panel's root. `size` is half a mark's breadth in units of the drawing. None of what is not
/// known.
std::vector<MarkLine> figureMarks(const Project& project, const Figures& figures, MarkView view,
                                  const Transform& at, double size);

}  // namespace velna
