#pragma once

#include "preview/Flying.h"
#include "preview/Rendering.h"

namespace velna {

/// What takes the pointer over `Render`, in its own units; `shift` the modifier mask (Shift 1,
/// Ctrl 2, Alt 4). During a flight it hands on to that, or does nothing. Both must outlive it.
class RenderPointer {
public:
    RenderPointer(Rendering& rendering, Flying& flying) : rendering_(rendering), flying_(flying) {}

    void mouseDown(int button, int shift, double x, double y);
    void mouseMove(double x, double y);
    void mouseUp(int button, double x, double y);
    /// A wheel step or a pinch: `change` is added to the distance; a step that would leave the
    /// limits of a drag does nothing.
    void zoomBy(double change);
    /// The view that the program begins with; the next drag goes on from it. Nothing during a
    /// flight or a drag.
    void showStartView();

private:
    /// A point of the pointer, or its distance from a stored value.
    struct Grab {
        double x = 0;
        double y = 0;
    };

    void show(const View& view);

    Rendering& rendering_;
    Flying& flying_;
    // Each drag has its own, so that a second button held at the same time does not make the first
    // jump.
    Grab rotateGrab_;
    double zoomGrab_ = 0;
    Grab panGrab_;
};

}  // namespace velna
