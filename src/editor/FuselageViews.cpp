#include <array>
#include <span>

#include "editor/Handles.h"
#include "editor/Main.h"
#include "editor/Polyline.h"
#include "model/MeshSections.h"
#include "model/Plane.h"

namespace velna {
namespace {

using Body = MeshSections;
using SectionHandle = Handle<Body, Array1<double> Body::*>;
using BodyHandle = Handle<Body>;

// What `which` tells the draws.
constexpr int litTopLine = 1;
constexpr int litBottomLine = 2;
constexpr int litPlusEdge = 5;
constexpr int otherFuselage = 7;
constexpr int eraseState = 8;
constexpr int plainState = 4;
constexpr int litBar = 0;

// A bottom point moves the bottom and holds the top; the height that goes with it is computed where
// the drag is applied. A gap remembers a start value and moves nothing.
constexpr std::array sideHandles{
    SectionHandle{FuselagePart::bar,
                  {{{&Body::elevation, &Body::initval, Axis::Down, -1}}},
                  {{{&Body::pos, &Body::initval, Axis::Right, 1}}}},
    SectionHandle{FuselagePart::top, {{{&Body::height, &Body::initval, Axis::Down, -1}}}, {}},
    SectionHandle{FuselagePart::bottom,
                  {{{&Body::elevation, &Body::initval, Axis::Down, -1},
                    {&Body::height, &Body::initval3, Axis::Down, 0}}},
                  {}},
    SectionHandle{FuselagePart::gap, {{{&Body::pos, &Body::initval, Axis::Right, 0}}}, {}},
};

// Both edges follow an end, so the width changes by twice the way. A bar moves with Shift only:
// seen from above nothing else is left to move, and a slip of the hand must not.
constexpr std::array htopHandles{
    SectionHandle{FuselagePart::plusEnd, {{{&Body::width, &Body::initval, Axis::Down, 2}}}, {}},
    SectionHandle{FuselagePart::minusEnd, {{{&Body::width, &Body::initval, Axis::Down, -2}}}, {}},
    SectionHandle{FuselagePart::bar,
                  {{{&Body::pos, &Body::initval, Axis::Right, 0}}},
                  {{{&Body::pos, &Body::initval, Axis::Right, 1}}}},
};

constexpr std::array vtopHandles{
    BodyHandle{FuselagePart::bar,
               {{{&Body::shift, &Body::initval, Axis::Right, 1}}},
               {{{&Body::pos_offset, &Body::initval, Axis::Down, 1}}}},
};

/// The picture of the Side and HTop views: two edges along the body and a bar at each section.
struct BodyPicture {
    std::span<const Point2D> first;   ///< the edge drawn first
    std::span<const Point2D> second;  ///< the edge drawn second
    std::span<const Point2D> barsFrom;
    std::span<const Point2D> barsTo;
};

BodyPicture sidePicture(const Body& body) {
    const auto top = pointsOf(body.topPoints, body.sectionCount());
    const auto bottom = pointsOf(body.bottomPoints, body.sectionCount());
    return {top, bottom, bottom, top};
}

BodyPicture htopPicture(const Body& body) {
    const auto plus = pointsOf(body.htopPlus, body.sectionCount());
    const auto minus = pointsOf(body.htopMinus, body.sectionCount());
    return {plus, minus, plus, minus};
}

/// Draws a picture with the bar of section `selected1` lit, if it is one. `litFirst` and
/// `litSecond` tell whether an edge lights the two segments that meet at that section, which is
/// where a dragged end pulls.
void drawPicture(const BodyPicture& picture, int selected1, bool litFirst, bool litSecond,
                 Rgb plain) {
    Surface& surface = *Main.DrawArea;
    const auto edge = [&](std::span<const Point2D> points, bool lit) {
        polyline(surface, points, [&](int i) {
            return lit && (i == selected1 || i == selected1 + 1) ? highlightColor : plain;
        });
    };
    edge(picture.first, litFirst);
    edge(picture.second, litSecond);
    bars(surface, picture.barsFrom, picture.barsTo,
         [&](int i) { return i == selected1 ? highlightColor : plain; });
}

constexpr int noSection = -1;

void erasePicture(const BodyPicture& picture) {
    drawPicture(picture, noSection, false, false, white);
}

/// Sections whose end is under the pointer. The last one wins, since it is the one on top.
void testEnds(Body& body, const LateArray1<Point2D>& ends, float x, float y, int part,
              std::int32_t& found) {
    const auto points = pointsOf(ends, body.sectionCount());
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!near(points[i], x, y)) continue;
        found = part;
        body.sel_sec = static_cast<std::int16_t>(i + 1);
    }
}

/// Gaps between neighbouring bars, with Ctrl only. The section behind the gap is selected: a new
/// one takes its place.
void testGaps(Body& body, const LateArray1<Point2D>& upper, const LateArray1<Point2D>& lower,
              float x, float y, std::int32_t& found) {
    if (!Main.ctrlkey) return;
    const auto above = pointsOf(upper, body.sectionCount());
    const auto below = pointsOf(lower, body.sectionCount());
    const auto beside = [&](std::size_t i) { return above[i].y < y && below[i].y > y; };
    for (std::size_t i = 0; i + 1 < below.size() && i + 1 < above.size(); ++i) {
        if (!(x > below[i].x + hitDistance && x < below[i + 1].x - hitDistance)) continue;
        if (!beside(i) && !beside(i + 1)) continue;
        found = FuselagePart::gap;
        body.sel_sec = static_cast<std::int16_t>(i + 2);
    }
}

}  // namespace

void MeshSections::eraseSide() {
    if (nb_cross != 0) erasePicture(sidePicture(*this));
}

void MeshSections::eraseHTop() {
    if (nb_cross != 0) erasePicture(htopPicture(*this));
}

void MeshSections::drawSide(double zoom, double xoff, double yoff, int selected1, int which) {
    if (nb_cross == 0) return;
    if (selected1 != noSection) selected = true;
    const bool dim = which == otherFuselage;
    if (!dim && Main.erases()) eraseSide();
    computeSidePoints(zoom, xoff, yoff);
    drawPicture(sidePicture(*this), dim ? noSection : selected1, which == litTopLine,
                which == litBottomLine, dim ? dimColor : black);
}

void MeshSections::drawHTop(double zoom, double xoff, double yoff, int selected1, int which) {
    if (nb_cross == 0) return;
    if (selected1 != noSection) selected = true;
    const bool dim = which == otherFuselage;
    if (Main.erases()) eraseHTop();
    computeHTopPoints(zoom, xoff, yoff);
    // The minus edge never lights: a drag of either end changes the width, shown at the plus edge.
    drawPicture(htopPicture(*this), dim ? noSection : selected1, which == litPlusEdge, false,
                dim ? dimColor : black);
}

void MeshSections::drawVTop(int which) {
    if (nb_cross == 0) return;
    if (which == eraseState && !Main.erases()) return;
    const Rgb colour = which == litBar          ? highlightColor
                       : which == otherFuselage ? dimColor
                       : which == eraseState    ? white
                                                : black;
    const auto contour = pointsOf(vtopPoints, 2 * sectionCount());
    closedPolyline(*Main.DrawArea, contour, colour);
    if (shift != 0) mirroredClosedPolyline(*Main.DrawArea, contour, Main.xoff, colour);
}

void MeshSections::drawFront(double, double xoff, double) {
    if (nb_cross == 0 || !sectionSelected()) return;
    if (frontPoints.rows() < sel_sec || frontPoints.columns() < nb_cross) return;
    const Point2D* outline = frontPoints.row(sel_sec);
    const auto draw = [&](auto place) {
        const Point2D* first = nullptr;
        const Point2D* last = nullptr;
        for (int j = 1; j <= nb_cross; ++j) {
            if (!frontPointUsed(j)) continue;
            if (last) line(*Main.DrawArea, place(*last), place(outline[j]), dimColor);
            if (!first) first = &outline[j];
            last = &outline[j];
        }
        if (last) line(*Main.DrawArea, place(*last), place(*first), dimColor);
    };
    draw([](Point2D point) { return point; });
    if (shift != 0) draw([=](Point2D point) { return mirrored(point, xoff); });
}

std::int32_t MeshSections::testPositionSide(float x, float y) {
    std::int32_t part = FuselagePart::none;
    if (nb_cross == 0) return part;
    const auto top = pointsOf(topPoints, sectionCount());
    const auto bottom = pointsOf(bottomPoints, sectionCount());
    for (std::size_t i = 0; i < top.size() && i < bottom.size(); ++i) {
        if (!(near(x, bottom[i].x) && top[i].y < y && bottom[i].y > y)) continue;
        part = FuselagePart::bar;
        sel_sec = static_cast<std::int16_t>(i + 1);
    }
    testEnds(*this, topPoints, x, y, FuselagePart::top, part);
    testEnds(*this, bottomPoints, x, y, FuselagePart::bottom, part);
    testGaps(*this, topPoints, bottomPoints, x, y, part);
    return part;
}

std::int32_t MeshSections::testPositionHTop(float x, float y) {
    std::int32_t part = FuselagePart::none;
    if (nb_cross == 0) return part;
    const auto plus = pointsOf(htopPlus, sectionCount());
    for (std::size_t i = 0; i < plus.size(); ++i) {
        // Compared with the plain negative of the edge and not with the other edge, so that a bar
        // can be caught well above its minus end too, where small bodies leave room for the
        // pointer.
        if (!(near(x, plus[i].x) && plus[i].y > y && y > -plus[i].y)) continue;
        part = FuselagePart::bar;
        sel_sec = static_cast<std::int16_t>(i + 1);
    }
    testEnds(*this, htopPlus, x, y, FuselagePart::plusEnd, part);
    testEnds(*this, htopMinus, x, y, FuselagePart::minusEnd, part);
    testGaps(*this, htopMinus, htopPlus, x, y, part);
    return part;
}

std::int32_t MeshSections::testPositionVTop(float x, float y) {
    const auto contour = pointsOf(vtopPoints, 2 * sectionCount());
    if (nb_cross == 0 || contour.empty()) return FuselagePart::none;
    const bool onFirstSection =
        near(y, contour.front().y) && x > contour.back().x && x < contour.front().x;
    return onFirstSection ? FuselagePart::bar : FuselagePart::none;
}

void MeshSections::initMouseValSide() {
    if (nb_cross == 0) return;
    rememberStart(*this, sideHandles);
    if (paint == FuselagePart::bottom) initval2 = heightGet() + elevationGet();
}

void MeshSections::initMouseValHTop() {
    if (nb_cross != 0) rememberStart(*this, htopHandles);
}

void MeshSections::initMouseValVTop() {
    if (nb_cross != 0) rememberStart(*this, vtopHandles);
}

namespace {

void hoverSide(Body& body, float x, float y) {
    body.selected_part = body.testPositionSide(x, y);
    const bool lit = body.selected_part == FuselagePart::bar ||
                     body.selected_part == FuselagePart::top ||
                     body.selected_part == FuselagePart::bottom;
    if (lit) {
        body.drawSide(Main.zoom, Main.xoff, Main.yoff, body.sel_sec, body.selected_part);
    } else {
        body.drawSide(Main.zoom, Main.xoff, Main.yoff, noSection, litBar);
    }
    body.selected = lit;
}

void hoverHTop(Body& body, float x, float y) {
    const auto draw = [&](int selected1, int which) {
        body.drawHTop(Main.zoom, Main.xoff, Main.yoff, selected1, which);
    };
    body.selected_part = body.testPositionHTop(x, y);
    switch (body.selected_part) {
        case FuselagePart::plusEnd:
        case FuselagePart::minusEnd:
            draw(body.sel_sec, litPlusEdge);
            body.selected = true;
            break;
        case FuselagePart::bar:
            draw(body.sel_sec, litBar);
            body.selected = true;
            break;
        case FuselagePart::none:
            // Twice when a highlight goes: taking it off in white cuts the lines that meet it.
            if (body.selected) {
                draw(noSection, litBar);
                body.selected = false;
            }
            draw(noSection, litBar);
            break;
        default:
            break;  // over a gap the picture stays
    }
}

/// The top line is held: what the bottom point moves is taken from the height. Back at its start
/// the section has its own height again, not the difference of a sum, which may be off by a
/// rounding.
void holdTop(Body& body) {
    if (!body.sectionSelected()) return;
    const double elevation = body.elevationGet();
    const double height = elevation == body.initval ? body.initval3 : body.initval2 - elevation;
    assignFinite(body.height(body.storageIndex(body.sel_sec)), height);
}

}  // namespace

void MeshSections::selectsSide(float x, float y) {
    if (nb_cross == 0) return;
    if (paint == FuselagePart::none) return hoverSide(*this, x, y);
    const auto* handle = findHandle(sideHandles, paint);
    if (!handle || !handle->moves()) return;
    dragTo(*this, *handle, x, y);
    if (paint == FuselagePart::bottom) holdTop(*this);
    drawSide(Main.zoom, Main.xoff, Main.yoff, sel_sec, paint);
}

void MeshSections::selectsHTop(float x, float y) {
    if (nb_cross == 0) return;
    if (paint == FuselagePart::none) return hoverHTop(*this, x, y);
    const auto* handle = findHandle(htopHandles, paint);
    if (!handle || !handle->moves()) return;
    dragTo(*this, *handle, x, y);
    drawHTop(Main.zoom, Main.xoff, Main.yoff, sel_sec,
             paint == FuselagePart::bar ? litBar : litPlusEdge);
}

void MeshSections::selectsVTop(float x, float y) {
    if (nb_cross == 0) return;
    if (paint == FuselagePart::none) {
        selected_part = testPositionVTop(x, y);
        selected = selected_part == FuselagePart::bar;
        if (selected) computeVTopPoints(Main.zoom, Main.xoff, Main.yoff);
        drawVTop(selected ? litBar : plainState);
    } else if (const auto* handle = findHandle(vtopHandles, paint)) {
        dragTo(*this, *handle, x, y);
        drawVTop(eraseState);
        computeVTopPoints(Main.zoom, Main.xoff, Main.yoff);
        drawVTop(plainState);
    }
}

}  // namespace velna
