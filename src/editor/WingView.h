#pragma once

#include <cstdint>

#include "editor/Canvas.h"
#include "editor/Handles.h"
#include "model/Outlines.h"

namespace velna {

class SymWingSections;

/// A wing panel or the stabiliser on the drawing surface: the outlines as they were drawn last,
/// which are also what the pointer meets, and what the pointer does with it.
class WingView {
public:
    Grip grip{.none = WingPart::none};
    Outline vtopPoints{};
    Outline frontPoints{};
    HTopOutlines htopPoints;
    Array1<Point2D> sidePoints;

    /// Takes the old lines off, computes the outline and draws it with the segments of `lit`.
    void drawFront(const Canvas& canvas, const SymWingSections& wing, const Lit& lit = unlit);
    void drawVTop(const Canvas& canvas, const SymWingSections& wing, const Lit& lit = unlit,
                  bool dim = false);
    /// The outlines of views that show a wing in the background: as they were computed last.
    void drawSide(const Canvas& canvas, const SymWingSections& wing) const;
    void drawHTop(const Canvas& canvas) const;

    /// The part of the outline at a pixel, `WingPart::none` for none.
    std::int32_t testPositionFront(float x, float y) const;
    std::int32_t testPositionVTop(float x, float y) const;

    /// The press: the start values of a drag of the part in `grip.paint`.
    void initMouseValFront(SymWingSections& wing, bool shiftkey);
    void initMouseValVTop(SymWingSections& wing, bool shiftkey);

    /// What is held, with what a drag of it writes; null when nothing is.
    const Handle<SymWingSections>* heldFront() const;
    const Handle<SymWingSections>* heldVTop() const;

    /// A move: lights what is under the pointer, or drags what is grabbed.
    void selectsFront(const Canvas& canvas, SymWingSections& wing, const Pointer& pointer);
    void selectsVTop(const Canvas& canvas, SymWingSections& wing, const Pointer& pointer);
};

}  // namespace velna
