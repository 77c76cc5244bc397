#pragma once

#include <span>

#include "model/SymWingSections.h"

namespace velna {

/// Points 1 to 5 of an outline; the fifth closes it.
inline std::span<const Point2D> closedOutline(const Outline& outline) {
    return std::span(outline).subspan(1);
}

}  // namespace velna
