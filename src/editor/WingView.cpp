#include "editor/WingView.h"

#include <array>

#include "common/Polyline.h"
#include "model/SymWingSections.h"

namespace velna {
namespace {

using Wing = SymWingSections;
using WingHandle = Handle<Wing>;

// Seen from ahead, segment 2 is the lower edge, 3 the tip, 4 the upper edge, 5 the root.
constexpr auto frontHandles = std::to_array({
    WingHandle{WingPart::rootEdge,
               {{{&Wing::elevation1, &Grip::initval, Axis::Down, -1}}},
               {{{&Wing::shift, &Grip::initval, Axis::Right, 1}}},
               {2, 3, 4, 5}},
    WingHandle{WingPart::tipEdge,
               {{{&Wing::elevation2, &Grip::initval, Axis::Down, -1}}},
               {{{&Wing::span, &Grip::initval, Axis::Right, 1}}},
               {3, -1, -1, -1}},
});

// In plan, segment 2 is the leading edge, 3 the tip, 4 the trailing edge, 5 the root. A leading
// corner takes up the difference with the chord, so that the trailing edge stays; the root's takes
// the sweep the other way as well, so that the tip stays.
constexpr auto vtopHandles = std::to_array({
    WingHandle{WingPart::tipEdge,
               {{{&Wing::pos2, &Grip::initval, Axis::Down, 1}}},
               {{{&Wing::span, &Grip::initval, Axis::Right, 1}}},
               {3, -1, -1, -1}},
    WingHandle{WingPart::rootEdge,
               {{{&Wing::pos1, &Grip::initval, Axis::Down, 1}}},
               {{{&Wing::shift, &Grip::initval, Axis::Right, 1}}},
               {2, 3, 4, 5}},
    WingHandle{WingPart::tipTrailing,
               {{{&Wing::length2, &Grip::initval, Axis::Down, 1}}},
               {},
               {3, 4, -1, -1}},
    WingHandle{WingPart::rootTrailing,
               {{{&Wing::length1, &Grip::initval, Axis::Down, 1}}},
               {},
               {5, 4, -1, -1}},
    WingHandle{WingPart::tipLeading,
               {{{&Wing::length2, &Grip::initval, Axis::Down, -1},
                 {&Wing::pos2, &Grip::initval2, Axis::Down, 1}}},
               {},
               {2, 3, -1, -1}},
    WingHandle{WingPart::rootLeading,
               {{{&Wing::length1, &Grip::initval, Axis::Down, -1},
                 {&Wing::pos1, &Grip::initval2, Axis::Down, 1},
                 {&Wing::pos2, &Grip::initval3, Axis::Down, -1}}},
               {},
               {2, 5, -1, -1}},
});

void drawHalves(const Canvas& canvas, const Outline& outline, const Lit& lit, Rgb plain) {
    const auto points = pointsOf(outline);
    // Only three arguments can light a segment: the fourth one of a whole panel is its root edge,
    // which lies on the next panel's tip and would flicker with it.
    polyline(canvas.area, points, [&](int segment) {
        const bool on = segment == lit[0] || segment == lit[1] || segment == lit[2];
        return on ? canvas.lit : plain;
    });
    mirroredPolyline(canvas.area, points, canvas.at.xoff, plain);
}

void eraseHalves(const Canvas& canvas, const Outline& outline) {
    if (canvas.erases) drawHalves(canvas, outline, unlit, white);
}

}  // namespace

void WingView::drawFront(const Canvas& canvas, const Wing& wing, const Lit& lit) {
    if (lit[0] != -1) grip.selected = true;
    eraseHalves(canvas, frontPoints);
    frontPoints = wing.computeFrontPoints(canvas.at, frontPoints);
    drawHalves(canvas, frontPoints, lit, black);
}

void WingView::drawVTop(const Canvas& canvas, const Wing& wing, const Lit& lit, bool dim) {
    if (lit[0] != -1) grip.selected = true;
    eraseHalves(canvas, vtopPoints);
    vtopPoints = wing.computeVTopPoints(canvas.at, vtopPoints);
    drawHalves(canvas, vtopPoints, lit, dim ? canvas.dim : black);
}

void WingView::drawSide(const Canvas& canvas, const Wing& wing) const {
    closedPolyline(canvas.area, pointsOf(sidePoints, wing.pointCount()), canvas.dim);
}

void WingView::drawHTop(const Canvas& canvas) const {
    polyline(canvas.area, pointsOf(htopPoints.points), canvas.dim);
    polyline(canvas.area, pointsOf(htopPoints.mirrored), canvas.dim);
}

// An edge is hit between the rows of its ends, the ends excluded.
std::int32_t WingView::testPositionFront(float x, float y) const {
    const auto& p = frontPoints;
    std::int32_t part = WingPart::none;
    if (near(x, p[1].x) && p[1].y > y && p[4].y < y) part = WingPart::rootEdge;
    if (near(x, p[2].x) && p[2].y > y && p[3].y < y) part = WingPart::tipEdge;
    return part;
}

// Corners come last and so win over edges.
std::int32_t WingView::testPositionVTop(float x, float y) const {
    const auto& p = vtopPoints;
    std::int32_t part = WingPart::none;
    if (near(x, p[1].x) && p[1].y < y && p[4].y > y) part = WingPart::rootEdge;
    if (near(x, p[2].x) && p[2].y < y && p[3].y > y) part = WingPart::tipEdge;
    if (near(p[3], x, y)) part = WingPart::tipTrailing;
    if (near(p[2], x, y)) part = WingPart::tipLeading;
    if (near(p[4], x, y)) part = WingPart::rootTrailing;
    if (near(p[1], x, y)) part = WingPart::rootLeading;
    return part;
}

void WingView::initMouseValFront(Wing& wing, bool shiftkey) {
    rememberStart(grip, wing, frontHandles, shiftkey);
}

void WingView::initMouseValVTop(Wing& wing, bool shiftkey) {
    rememberStart(grip, wing, vtopHandles, shiftkey);
}

const WingHandle* WingView::heldFront() const {
    return findHandle(frontHandles, grip.paint);
}

const WingHandle* WingView::heldVTop() const {
    return findHandle(vtopHandles, grip.paint);
}

void WingView::selectsFront(const Canvas& canvas, Wing& wing, const Pointer& pointer) {
    hoverOrDrag(
        grip, frontHandles, testPositionFront(pointer.x, pointer.y),
        [&](const WingHandle& handle) { dragTo(grip, wing, handle, pointer, canvas.at.zoom); },
        [&](const Lit& lit) { drawFront(canvas, wing, lit); });
}

void WingView::selectsVTop(const Canvas& canvas, Wing& wing, const Pointer& pointer) {
    hoverOrDrag(
        grip, vtopHandles, testPositionVTop(pointer.x, pointer.y),
        [&](const WingHandle& handle) { dragTo(grip, wing, handle, pointer, canvas.at.zoom); },
        [&](const Lit& lit) { drawVTop(canvas, wing, lit); });
}

}  // namespace velna
