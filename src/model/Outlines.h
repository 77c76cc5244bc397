#pragma once

#include <array>

#include "common/List.h"
#include "common/Point.h"

namespace velna {

// What is computed of each part to be drawn, and the codes of the places on it.

/// A five-point closed outline, entries 1 to 5 used, point 5 being point 1.
using Outline = std::array<Point2D, 6>;

/// Both halves of a panel in plan with the nose to the left.
struct HTopOutlines {
    Outline points{};
    Outline mirrored{};
};

/// Handle codes of a wing panel, in `paint` during a drag and in `selected_part` while hovering.
namespace WingPart {
inline constexpr int tipEdge = 0;
inline constexpr int tipTrailing = 2;
inline constexpr int rootTrailing = 3;
inline constexpr int rootEdge = 4;
inline constexpr int none = 5;
inline constexpr int tipLeading = 6;
inline constexpr int rootLeading = 7;
}  // namespace WingPart

/// Handle codes of the fin.
namespace FinPart {
inline constexpr int tipEdge = 0;
inline constexpr int tipTrailing = 2;
inline constexpr int rootTrailing = 3;
inline constexpr int rootEdge = 4;
inline constexpr int none = 5;
inline constexpr int tipLeading = 7;
inline constexpr int rootLeading = 8;
}  // namespace FinPart

/// Parts of a fuselage, in `paint` during a drag and in `selected_part` while hovering.
namespace FuselagePart {
inline constexpr int bar = 0;     ///< bar of a section; in VTop the first section's line
inline constexpr int top = 1;     ///< Side: top point of a section
inline constexpr int bottom = 2;  ///< Side: bottom point of a section
inline constexpr int gap = 3;     ///< between two sections, only with Ctrl
inline constexpr int none = 4;
inline constexpr int plusEnd = 5;   ///< HTop: end at +width / 2
inline constexpr int minusEnd = 6;  ///< HTop: end at -width / 2
}  // namespace FuselagePart

/// The upper and the lower edge of a fuselage from the side, a point a section.
struct SideEdges {
    Array1<Point2D> top;
    Array1<Point2D> bottom;
};

/// Both edges of a fuselage in plan with the nose to the left, a point a section.
struct HTopEdges {
    Array1<Point2D> plus;
    Array1<Point2D> minus;
};

/// A rectangle in view coordinates, entries 1 to 4 used.
using Rectangle = std::array<Point2D, 5>;

}  // namespace velna
