#include "editor/ViewZoom.h"

#include <algorithm>
#include <cmath>

#include "editor/Views.h"

namespace velna {
namespace {

/// The part of the window's width that a pan leaves to what the fit has shown.
constexpr double leftInSight = 0.1;

Transform after(const Transform& at, const Transform& step) {
    return {at.zoom * step.zoom, at.xoff * step.zoom + step.xoff, at.yoff * step.zoom + step.yoff};
}

bool isFinite(const Transform& at) {
    return std::isfinite(at.zoom) && std::isfinite(at.xoff) && std::isfinite(at.yoff);
}

/// The view again at its new scale. Armed keys stay armed, and what lies under the pointer lights
/// as if the pointer had come there: the wheel turns without a move.
void redraw(MainForm& form) {
    PointerState& pointer = form.pointer;
    const bool shiftkey = pointer.shiftkey, ctrlkey = pointer.ctrlkey;
    form.redrawAtSameScale();
    pointer.shiftkey = shiftkey;
    pointer.ctrlkey = ctrlkey;
    if (form.tracing.active) return;
    form.views.clearHover();
    form.view.firstPictureRefresh = form.pictureShownHere();
    viewOf(form.view.mode)
        .move(form, form.canvas(), pointer.at(pointer.lastMouseX, pointer.lastMouseY));
    form.view.firstPictureRefresh = false;
    form.updateCursor();
    form.DrawArea->refresh();
}

void apply(MainForm& form, const Transform& step) {
    ViewState& view = form.view;
    const Transform shown = after(view.transform(), step), byHand = after(view.byHand, step);
    if (!isFinite(shown) || !isFinite(byHand)) return;
    view.zoom = shown.zoom;
    view.xoff = shown.xoff;
    view.yoff = shown.yoff;
    view.byHand = byHand;
    redraw(form);
}

}  // namespace

void zoomAt(MainForm& form, double x, double y, double factor) {
    if (form.anyBusy() || !(factor > 0)) return;
    const double before = form.view.byHand.zoom;
    const double step = std::clamp(before * factor, farthestView, nearestView) / before;
    if (step != 1) apply(form, {step, x - step * x, y - step * y});
}

void panSideways(MainForm& form, double pixels) {
    if (form.anyBusy() || !std::isfinite(pixels)) return;
    // The window of the fit, as it lies now: from `left`, `width` wide.
    const double room = form.DrawArea->width(), margin = leftInSight * room;
    const double left = form.view.byHand.xoff, width = room * form.view.byHand.zoom;
    const double lowest = std::min(left, margin - width), highest = std::max(left, room - margin);
    const double step = std::clamp(left + pixels, lowest, highest) - left;
    if (step != 0) apply(form, {1, step, 0});
}

}  // namespace velna
