#pragma once

#include <cstdint>

#include "editor/Canvas.h"
#include "editor/Handles.h"
#include "model/Outlines.h"

namespace velna {

class VertWingSection;

/// The fin on the drawing surface: the outlines as they were computed last, which are also what the
/// pointer meets, and what the pointer does with it.
class TailView {
public:
    Grip grip{.none = FinPart::none};
    Outline sidePoints{};
    Outline frontPoints{};
    Outline vtopPoints{};

    /// How the fin is drawn from ahead.
    enum class FrontLook { edited, background, erased };

    /// Takes the old lines off, computes the outline and draws it with the segments of `lit`, or
    /// all dim in the background.
    void drawSide(const Canvas& canvas, const VertWingSection& fin, const Lit& lit = unlit,
                  bool background = false);
    /// The outline as it was computed last, with its mirror image where the fin has one.
    void drawFront(const Canvas& canvas, const VertWingSection& fin,
                   FrontLook look = FrontLook::edited) const;
    void drawVTop(const Canvas& canvas, const VertWingSection& fin) const;

    /// The part of the outline at a pixel, `FinPart::none` for none.
    std::int32_t testPositionSide(float x, float y) const;
    std::int32_t testPositionFront(float x, float y) const;

    /// The press: the start values of a drag of the part in `grip.paint`.
    void initMouseValSide(VertWingSection& fin, bool shiftkey);
    void initMouseValFront(VertWingSection& fin, bool shiftkey);

    /// What is held, with what a drag of it writes; null when nothing is.
    const Handle<VertWingSection>* heldSide() const;
    const Handle<VertWingSection>* heldFront() const;

    /// A move: lights what is under the pointer, or drags what is grabbed.
    void selectsSide(const Canvas& canvas, VertWingSection& fin, const Pointer& pointer);
    void selectsFront(const Canvas& canvas, VertWingSection& fin, const Pointer& pointer);
};

}  // namespace velna
