#include <array>

#include "editor/Handles.h"
#include "editor/Main.h"
#include "editor/Polyline.h"
#include "model/Plane.h"
#include "model/VertWingSection.h"

namespace velna {
namespace {

using Fin = VertWingSection;
using FinHandle = Handle<Fin>;

// Segment 2 is the root, 3 the trailing edge, 4 the tip, 5 the leading edge. A leading corner moves
// alone: the chord, and at the root the sweep, take up the difference.
constexpr std::array sideHandles{
    FinHandle{FinPart::tipEdge,
              {{{&Fin::pos2, &Fin::initval, Axis::Right, 1}}},
              {{{&Fin::span, &Fin::initval, Axis::Down, -1}}},
              {4, -1, -1, -1}},
    FinHandle{FinPart::rootEdge,
              {{{&Fin::pos1, &Fin::initval, Axis::Right, 1}}},
              {{{&Fin::shift, &Fin::initval, Axis::Down, -1}}},
              {2, 3, 4, 5}},
    FinHandle{FinPart::tipTrailing,
              {{{&Fin::length2, &Fin::initval, Axis::Right, 1}}},
              {},
              {3, 4, -1, -1}},
    FinHandle{FinPart::rootTrailing,
              {{{&Fin::length1, &Fin::initval, Axis::Right, 1}}},
              {},
              {2, 3, -1, -1}},
    FinHandle{FinPart::tipLeading,
              {{{&Fin::length2, &Fin::initval, Axis::Right, -1},
                {&Fin::pos2, &Fin::initval2, Axis::Right, 1}}},
              {},
              {5, 4, -1, -1}},
    FinHandle{FinPart::rootLeading,
              {{{&Fin::length1, &Fin::initval, Axis::Right, -1},
                {&Fin::pos1, &Fin::initval2, Axis::Right, 1},
                {&Fin::pos2, &Fin::initval3, Axis::Right, -1}}},
              {},
              {5, 2, -1, -1}},
};

// From ahead the fin has no highlight.
constexpr std::array frontHandles{
    FinHandle{FinPart::rootEdge,
              {{{&Fin::offset1, &Fin::initval, Axis::Right, 1}}},
              {{{&Fin::shift, &Fin::initval, Axis::Down, -1}}},
              unlit},
    FinHandle{FinPart::tipEdge,
              {{{&Fin::offset2, &Fin::initval, Axis::Right, 1}}},
              {{{&Fin::span, &Fin::initval, Axis::Down, -1}}},
              unlit},
};

// State codes of a fin seen from ahead or from the side.
constexpr int editedState = 5;
constexpr int backgroundState = 6;
constexpr int eraseState = 9;

}  // namespace

void VertWingSection::drawSide(double zoom, double xoff, double yoff, int selected1, int selected2,
                               int selected3, int selected4, int which) {
    if (selected1 != -1) selected = true;
    if (Main.erases()) polyline(*Main.DrawArea, pointsOf(sidePoints), white);
    computeSidePoints(zoom, xoff, yoff);
    polyline(*Main.DrawArea, pointsOf(sidePoints), [=](int segment) {
        if (which == backgroundState) return dimColor;
        const bool on = segment == selected1 || segment == selected2 || segment == selected3 ||
                        segment == selected4;
        return on ? highlightColor : black;
    });
}

void VertWingSection::drawFront(int which) {
    // Over a picture just painted neither the old nor the new outline is drawn: the one would
    // scratch it, and the other would then stay when the fin moves on.
    if (Main.firstPictureRefresh && !Main.nothingToErase) return;
    const Rgb colour = which == eraseState ? white : which == backgroundState ? dimColor : black;
    polyline(*Main.DrawArea, pointsOf(frontPoints), colour);
    if (mirrored()) mirroredPolyline(*Main.DrawArea, pointsOf(frontPoints), Main.xoff, colour);
}

void VertWingSection::drawVTop() {
    polyline(*Main.DrawArea, pointsOf(vtopPoints), dimColor);
    // A fin on the keel line has one rectangle here, whatever its offsets: the plan is for
    // orientation, and a raised root is what tells a twin fin apart in it.
    if (shift != 0) mirroredPolyline(*Main.DrawArea, pointsOf(vtopPoints), Main.xoff, dimColor);
}

// Corners come last and so win over edges.
std::int32_t VertWingSection::testPositionSide(float x, float y) const {
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

std::int32_t VertWingSection::testPositionFront(float x, float y) const {
    const auto& p = frontPoints;
    std::int32_t part = FinPart::none;
    if (near(y, p[1].y) && p[1].x < x && p[2].x > x) part = FinPart::rootEdge;
    if (near(y, p[4].y) && p[4].x < x && p[3].x > x) part = FinPart::tipEdge;
    return part;
}

void VertWingSection::initMouseValSide() {
    rememberStart(*this, sideHandles);
}

void VertWingSection::initMouseValFront() {
    rememberStart(*this, frontHandles);
}

void VertWingSection::selectsSide(float x, float y) {
    hoverOrDrag(
        *this, FinPart::none, sideHandles, x, y, [&] { return testPositionSide(x, y); },
        [&](const Lit& lit) {
            drawSide(Main.zoom, Main.xoff, Main.yoff, lit[0], lit[1], lit[2], lit[3], 4);
        });
}

void VertWingSection::selectsFront(float x, float y) {
    // The hover step runs during a drag too: wings and fuselage drawn before have cut the outline.
    selected_part = testPositionFront(x, y);
    computeFrontPoints(Main.zoom, Main.xoff, Main.yoff);
    drawFront(editedState);
    selected = selected_part != FinPart::none;

    const auto* handle = findHandle(frontHandles, paint);
    if (!handle) return;
    // Off with the old outline while the offsets still tell whether it has a mirror image, so that
    // the image goes at once when a drag ends on the centre line.
    drawFront(eraseState);
    dragTo(*this, *handle, x, y);
    computeFrontPoints(Main.zoom, Main.xoff, Main.yoff);
    drawFront(editedState);
}

}  // namespace velna
