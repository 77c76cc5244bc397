#include <array>

#include "editor/Handles.h"
#include "editor/Main.h"
#include "editor/Polyline.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "model/SymWingSections.h"

namespace velna {
namespace {

using Wing = SymWingSections;
using WingHandle = Handle<Wing>;

// Seen from ahead, segment 2 is the lower edge, 3 the tip, 4 the upper edge, 5 the root.
constexpr std::array frontHandles{
    WingHandle{WingPart::rootEdge,
               {{{&Wing::elevation1, &Wing::initval, Axis::Down, -1}}},
               {{{&Wing::shift, &Wing::initval, Axis::Right, 1}}},
               {2, 3, 4, 5}},
    WingHandle{WingPart::tipEdge,
               {{{&Wing::elevation2, &Wing::initval, Axis::Down, -1}}},
               {{{&Wing::span, &Wing::initval, Axis::Right, 1}}},
               {3, -1, -1, -1}},
};

// In plan, segment 2 is the leading edge, 3 the tip, 4 the trailing edge, 5 the root. A leading
// corner takes up the difference with the chord, so that the trailing edge stays; the root's takes
// the sweep the other way as well, so that the tip stays.
constexpr std::array vtopHandles{
    WingHandle{WingPart::tipEdge,
               {{{&Wing::pos2, &Wing::initval, Axis::Down, 1}}},
               {{{&Wing::span, &Wing::initval, Axis::Right, 1}}},
               {3, -1, -1, -1}},
    WingHandle{WingPart::rootEdge,
               {{{&Wing::pos1, &Wing::initval, Axis::Down, 1}}},
               {{{&Wing::shift, &Wing::initval, Axis::Right, 1}}},
               {2, 3, 4, 5}},
    WingHandle{WingPart::tipTrailing,
               {{{&Wing::length2, &Wing::initval, Axis::Down, 1}}},
               {},
               {3, 4, -1, -1}},
    WingHandle{WingPart::rootTrailing,
               {{{&Wing::length1, &Wing::initval, Axis::Down, 1}}},
               {},
               {5, 4, -1, -1}},
    WingHandle{WingPart::tipLeading,
               {{{&Wing::length2, &Wing::initval, Axis::Down, -1},
                 {&Wing::pos2, &Wing::initval2, Axis::Down, 1}}},
               {},
               {2, 3, -1, -1}},
    WingHandle{WingPart::rootLeading,
               {{{&Wing::length1, &Wing::initval, Axis::Down, -1},
                 {&Wing::pos1, &Wing::initval2, Axis::Down, 1},
                 {&Wing::pos2, &Wing::initval3, Axis::Down, -1}}},
               {},
               {2, 5, -1, -1}},
};

void drawHalves(const Outline& outline, double xoff, const Lit& lit, Rgb plain) {
    const auto points = pointsOf(outline);
    // Only three arguments can light a segment: the fourth one of a whole panel is its root edge,
    // which lies on the next panel's tip and would flicker with it.
    polyline(*Main.DrawArea, points, [&](int segment) {
        const bool on = segment == lit[0] || segment == lit[1] || segment == lit[2];
        return on ? highlightColor : plain;
    });
    mirroredPolyline(*Main.DrawArea, points, xoff, plain);
}

void eraseHalves(const Outline& outline, double xoff) {
    if (Main.erases()) drawHalves(outline, xoff, unlit, white);
}

}  // namespace

void SymWingSections::drawFront(double zoom, double xoff, double yoff, int selected1, int selected2,
                                int selected3, int selected4) {
    if (selected1 != -1) selected = true;
    eraseHalves(frontPoints, xoff);
    computeFrontPoints(zoom, xoff, yoff);
    drawHalves(frontPoints, xoff, {selected1, selected2, selected3, selected4}, black);
}

void SymWingSections::drawVTop(double zoom, double xoff, double yoff, int selected1, int selected2,
                               int selected3, int selected4, int which) {
    if (selected1 != -1) selected = true;
    eraseHalves(vtopPoints, xoff);
    computeVTopPoints(zoom, xoff, yoff);
    drawHalves(vtopPoints, xoff, {selected1, selected2, selected3, selected4},
               which == 8 ? dimColor : black);
}

void SymWingSections::drawSide(double, double, double) {
    closedPolyline(*Main.DrawArea, pointsOf(sidePoints, pointCount()), dimColor);
}

void SymWingSections::drawHTop() {
    polyline(*Main.DrawArea, pointsOf(htopPoints), dimColor);
    polyline(*Main.DrawArea, pointsOf(htopMirrorPoints), dimColor);
}

// An edge is hit between the rows of its ends, the ends excluded.
std::int32_t SymWingSections::testPositionFront(float x, float y) const {
    const auto& p = frontPoints;
    std::int32_t part = WingPart::none;
    if (near(x, p[1].x) && p[1].y > y && p[4].y < y) part = WingPart::rootEdge;
    if (near(x, p[2].x) && p[2].y > y && p[3].y < y) part = WingPart::tipEdge;
    return part;
}

// Corners come last and so win over edges.
std::int32_t SymWingSections::testPositionVTop(float x, float y) const {
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

void SymWingSections::initMouseValFront() {
    rememberStart(*this, frontHandles);
}

void SymWingSections::initMouseValVTop() {
    rememberStart(*this, vtopHandles);
}

void SymWingSections::selectsFront(float x, float y) {
    hoverOrDrag(
        *this, WingPart::none, frontHandles, x, y, [&] { return testPositionFront(x, y); },
        [&](const Lit& lit) {
            drawFront(Main.zoom, Main.xoff, Main.yoff, lit[0], lit[1], lit[2], lit[3]);
        });
}

void SymWingSections::selectsVTop(float x, float y) {
    hoverOrDrag(
        *this, WingPart::none, vtopHandles, x, y, [&] { return testPositionVTop(x, y); },
        [&](const Lit& lit) {
            drawVTop(Main.zoom, Main.xoff, Main.yoff, lit[0], lit[1], lit[2], lit[3], 4);
        });
}

namespace MainWing {
namespace {

/// A root edge carries all panels behind it along, and no panel behind is asked any more.
void press(std::int32_t (Wing::*partAt)(float, float) const, void (Wing::*initMouseVal)(), float x,
           float y) {
    for (int i = 1; i <= nbWings; ++i) {
        const std::int32_t part = (Wings.alike(i).*partAt)(x, y);
        // What is taken hold of becomes an object of its own.
        Wing& wing = part == WingPart::none ? Wings.alike(i) : Wings(i);
        wing.paint = part;
        (wing.*initMouseVal)();
        if (wing.paint != WingPart::rootEdge) continue;
        for (int outer = i + 1; outer <= nbWings; ++outer) {
            Wings(outer).paint = WingPart::rootEdge;
            (Wings(outer).*initMouseVal)();
        }
        return;
    }
}

}  // namespace

void drawFront(double zoom, double xoff, double yoff) {
    Wings.forEachDistinct(nbWings,
                          [&](Wing& wing) { wing.drawFront(zoom, xoff, yoff, -1, -1, -1, -1); });
}

void drawVTop(double zoom, double xoff, double yoff, int which) {
    Wings.forEachDistinct(
        nbWings, [&](Wing& wing) { wing.drawVTop(zoom, xoff, yoff, -1, -1, -1, -1, which); });
}

void selectsFront(float x, float y) {
    Wings.forEachDistinct(nbWings, [&](Wing& wing) { wing.selectsFront(x, y); });
}

void selectsVTop(float x, float y) {
    Wings.forEachDistinct(nbWings, [&](Wing& wing) { wing.selectsVTop(x, y); });
}

void testFront(float x, float y) {
    press(&Wing::testPositionFront, &Wing::initMouseValFront, x, y);
}

void testVTop(float x, float y) {
    press(&Wing::testPositionVTop, &Wing::initMouseValVTop, x, y);
}

}  // namespace MainWing
}  // namespace velna
