#include "editor/TailView.h"

#include <array>

#include "common/Polyline.h"
#include "model/VertWingSection.h"

namespace velna {
namespace {

using Fin = VertWingSection;
using FinHandle = Handle<Fin>;

// Segment 2 is the root, 3 the trailing edge, 4 the tip, 5 the leading edge. A leading corner moves
// alone: the chord, and at the root the sweep, take up the difference.
constexpr auto sideHandles = std::to_array({
    FinHandle{FinPart::tipEdge,
              {{{&Fin::pos2, &Grip::initval, Axis::Right, 1}}},
              {{{&Fin::span, &Grip::initval, Axis::Down, -1}}},
              {4, -1, -1, -1}},
    FinHandle{FinPart::rootEdge,
              {{{&Fin::pos1, &Grip::initval, Axis::Right, 1}}},
              {{{&Fin::shift, &Grip::initval, Axis::Down, -1}}},
              {2, 3, 4, 5}},
    FinHandle{FinPart::tipTrailing,
              {{{&Fin::length2, &Grip::initval, Axis::Right, 1}}},
              {},
              {3, 4, -1, -1}},
    FinHandle{FinPart::rootTrailing,
              {{{&Fin::length1, &Grip::initval, Axis::Right, 1}}},
              {},
              {2, 3, -1, -1}},
    FinHandle{FinPart::tipLeading,
              {{{&Fin::length2, &Grip::initval, Axis::Right, -1},
                {&Fin::pos2, &Grip::initval2, Axis::Right, 1}}},
              {},
              {5, 4, -1, -1}},
    FinHandle{FinPart::rootLeading,
              {{{&Fin::length1, &Grip::initval, Axis::Right, -1},
                {&Fin::pos1, &Grip::initval2, Axis::Right, 1},
                {&Fin::pos2, &Grip::initval3, Axis::Right, -1}}},
              {},
              {5, 2, -1, -1}},
});

// From ahead the fin has no highlight.
constexpr auto frontHandles = std::to_array({
    FinHandle{FinPart::rootEdge,
              {{{&Fin::offset1, &Grip::initval, Axis::Right, 1}}},
              {{{&Fin::shift, &Grip::initval, Axis::Down, -1}}},
              unlit},
    FinHandle{FinPart::tipEdge,
              {{{&Fin::offset2, &Grip::initval, Axis::Right, 1}}},
              {{{&Fin::span, &Grip::initval, Axis::Down, -1}}},
              unlit},
});

}  // namespace

void TailView::drawSide(const Canvas& canvas, const Fin& fin, const Lit& lit, bool background) {
    if (lit[0] != -1) grip.selected = true;
    if (canvas.erases) polyline(canvas.area, pointsOf(sidePoints), white);
    sidePoints = fin.computeSidePoints(canvas.at, sidePoints);
    polyline(canvas.area, pointsOf(sidePoints), [&](int segment) {
        if (background) return canvas.dim;
        return std::ranges::find(lit, segment) != lit.end() ? canvas.lit : black;
    });
}

void TailView::drawFront(const Canvas& canvas, const Fin& fin, FrontLook look) const {
    // Over a picture just painted neither the old nor the new outline is drawn: the one would
    // scratch it, and the other would then stay when the fin moves on.
    if (canvas.overPicture) return;
    const Rgb colour = look == FrontLook::erased       ? white
                       : look == FrontLook::background ? canvas.dim
                                                       : black;
    polyline(canvas.area, pointsOf(frontPoints), colour);
    if (fin.mirrored())
        mirroredPolyline(canvas.area, pointsOf(frontPoints), canvas.at.xoff, colour);
}

void TailView::drawVTop(const Canvas& canvas, const Fin& fin) const {
    polyline(canvas.area, pointsOf(vtopPoints), canvas.dim);
    // A fin on the keel line has one rectangle here, whatever its offsets: the plan is for
    // orientation, and a raised root is what tells a twin fin apart in it.
    if (fin.shift != 0)
        mirroredPolyline(canvas.area, pointsOf(vtopPoints), canvas.at.xoff, canvas.dim);
}

// Corners come last and so win over edges.
std::int32_t TailView::testPositionSide(float x, float y) const {
    const auto& p = sidePoints;
    std::int32_t part = FinPart::none;
    if (near(y, p[1].y) && p[1].x < x && p[2].x > x) part = FinPart::rootEdge;
    if (near(y, p[3].y) && p[3].x > x && p[4].x < x) part = FinPart::tipEdge;
    if (near(p[3], x, y)) part = FinPart::tipTrailing;
    if (near(p[2], x, y)) part = FinPart::rootTrailing;
    if (near(p[4], x, y)) part = FinPart::tipLeading;
    if (near(p[1], x, y)) part = FinPart::rootLeading;
    return part;
}

std::int32_t TailView::testPositionFront(float x, float y) const {
    const auto& p = frontPoints;
    std::int32_t part = FinPart::none;
    if (near(y, p[1].y) && p[1].x < x && p[2].x > x) part = FinPart::rootEdge;
    if (near(y, p[4].y) && p[4].x < x && p[3].x > x) part = FinPart::tipEdge;
    return part;
}

void TailView::initMouseValSide(Fin& fin, bool shiftkey) {
    rememberStart(grip, fin, sideHandles, shiftkey);
}

void TailView::initMouseValFront(Fin& fin, bool shiftkey) {
    rememberStart(grip, fin, frontHandles, shiftkey);
}

const FinHandle* TailView::heldSide() const {
    return findHandle(sideHandles, grip.paint);
}

const FinHandle* TailView::heldFront() const {
    return findHandle(frontHandles, grip.paint);
}

void TailView::selectsSide(const Canvas& canvas, Fin& fin, const Pointer& pointer) {
    hoverOrDrag(
        grip, sideHandles, testPositionSide(pointer.x, pointer.y),
        [&](const FinHandle& handle) { dragTo(grip, fin, handle, pointer, canvas.at.zoom); },
        [&](const Lit& lit) { drawSide(canvas, fin, lit); });
}

void TailView::selectsFront(const Canvas& canvas, Fin& fin, const Pointer& pointer) {
    // The hover step runs during a drag too: wings and fuselage drawn before have cut the outline.
    grip.selected_part = testPositionFront(pointer.x, pointer.y);
    frontPoints = fin.computeFrontPoints(canvas.at, frontPoints);
    drawFront(canvas, fin);
    grip.selected = grip.selected_part != FinPart::none;

    const auto* handle = findHandle(frontHandles, grip.paint);
    if (!handle) return;
    // Off with the old outline while the offsets still tell whether it has a mirror image, so that
    // the image goes at once when a drag ends on the centre line.
    drawFront(canvas, fin, FrontLook::erased);
    dragTo(grip, fin, *handle, pointer, canvas.at.zoom);
    frontPoints = fin.computeFrontPoints(canvas.at, frontPoints);
    drawFront(canvas, fin);
}

}  // namespace velna
