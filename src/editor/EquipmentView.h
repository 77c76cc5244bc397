#pragma once

#include <cstdint>

#include "editor/Canvas.h"
#include "editor/Handles.h"
#include "model/Outlines.h"

namespace velna {

class ElectroBox;

/// What `grip.paint` of a box holds: it has one part, which is grabbed or not.
namespace BoxPart {
inline constexpr int hit = 0;
inline constexpr int none = 1;
}  // namespace BoxPart

/// A box on the drawing surface: the outlines as they were drawn last, which are also what the
/// pointer meets, and what the pointer does with it.
class EquipmentView {
public:
    Grip grip{.none = BoxPart::none};
    Rectangle sideOutline{};
    Rectangle htopOutline{};

    /// Takes the old lines off, computes the outline and draws it.
    void drawSide(const Canvas& canvas, const ElectroBox& box, bool lit = false);
    void drawHTop(const Canvas& canvas, const ElectroBox& box, bool lit = false);

    /// `BoxPart::hit` where the pointer is on the edge that catches it, else `BoxPart::none`.
    std::int32_t testPositionSide(float x, float y) const;
    std::int32_t testPositionHTop(float x, float y) const;

    /// The press: the start values of a drag of a box that is hit.
    void initMouseValSide(ElectroBox& box, bool shiftkey);
    void initMouseValHTop(ElectroBox& box, bool shiftkey);

    /// What is held, with what a drag of it writes; null when nothing is.
    const Handle<ElectroBox>* heldSide() const;
    const Handle<ElectroBox>* heldHTop() const;

    /// A move: lights the box under the pointer, or drags one that is grabbed.
    void selectsSide(const Canvas& canvas, ElectroBox& box, const Pointer& pointer);
    void selectsHTop(const Canvas& canvas, ElectroBox& box, const Pointer& pointer);
};

}  // namespace velna
