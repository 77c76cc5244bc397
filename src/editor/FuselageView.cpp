#include "editor/FuselageView.h"

#include <array>
#include <span>
#include <utility>

#include "common/Polyline.h"
#include "model/MeshSections.h"

namespace velna {

/// A value of the selected section; null when no section is selected.
static double* valueOf(MeshSections& fuselage, Array1<double> MeshSections::*values) {
    if (!fuselage.sectionSelected()) return nullptr;
    return &(fuselage.*values)(fuselage.storageIndex(fuselage.sel_sec));
}

namespace {

using Body = MeshSections;
using SectionHandle = Handle<Body, Array1<double> Body::*>;
using BodyHandle = Handle<Body>;
using enum FuselageLook;

// A bottom point moves the bottom and holds the top; the height that goes with it is computed where
// the drag is applied. A gap remembers a start value and moves nothing.
constexpr auto sideHandles = std::to_array({
    SectionHandle{FuselagePart::bar,
                  {{{&Body::elevation, &Grip::initval, Axis::Down, -1}}},
                  {{{&Body::pos, &Grip::initval, Axis::Right, 1}}}},
    SectionHandle{FuselagePart::top, {{{&Body::height, &Grip::initval, Axis::Down, -1}}}, {}},
    SectionHandle{FuselagePart::bottom,
                  {{{&Body::elevation, &Grip::initval, Axis::Down, -1},
                    {&Body::height, &Grip::initval3, Axis::Down, 0}}},
                  {}},
    SectionHandle{FuselagePart::gap, {{{&Body::pos, &Grip::initval, Axis::Right, 0}}}, {}},
});

// Both edges follow an end, so the width changes by twice the way. A bar moves with Shift only:
// seen from above nothing else is left to move, and a slip of the hand must not.
constexpr auto htopHandles = std::to_array({
    SectionHandle{FuselagePart::plusEnd, {{{&Body::width, &Grip::initval, Axis::Down, 2}}}, {}},
    SectionHandle{FuselagePart::minusEnd, {{{&Body::width, &Grip::initval, Axis::Down, -2}}}, {}},
    SectionHandle{FuselagePart::bar,
                  {{{&Body::pos, &Grip::initval, Axis::Right, 0}}},
                  {{{&Body::pos, &Grip::initval, Axis::Right, 1}}}},
});

constexpr auto vtopHandles = std::to_array({
    BodyHandle{FuselagePart::bar,
               {{{&Body::shift, &Grip::initval, Axis::Right, 1}}},
               {{{&Body::pos_offset, &Grip::initval, Axis::Down, 1}}}},
});

/// The picture of the Side and HTop views: two edges along the body and a bar at each section.
struct BodyPicture {
    std::span<const Point2D> first;   ///< the edge drawn first
    std::span<const Point2D> second;  ///< the edge drawn second
    std::span<const Point2D> barsFrom;
    std::span<const Point2D> barsTo;
};

BodyPicture sidePicture(const SideEdges& edges, const Body& body) {
    const auto top = pointsOf(edges.top, body.sectionCount());
    const auto bottom = pointsOf(edges.bottom, body.sectionCount());
    return {top, bottom, bottom, top};
}

BodyPicture htopPicture(const HTopEdges& edges, const Body& body) {
    const auto plus = pointsOf(edges.plus, body.sectionCount());
    const auto minus = pointsOf(edges.minus, body.sectionCount());
    return {plus, minus, plus, minus};
}

/// What of a picture is lit: the bar of a section, and on an edge the two segments that meet there,
/// which is where a dragged end pulls.
struct Lights {
    int section = noSection;
    bool first = false;
    bool second = false;
};

void drawPicture(const Canvas& canvas, const BodyPicture& picture, const Lights& lights,
                 Rgb plain) {
    const auto edge = [&](std::span<const Point2D> points, bool lit) {
        polyline(canvas.area, points, [&](int i) {
            return lit && (i == lights.section || i == lights.section + 1) ? canvas.lit : plain;
        });
    };
    edge(picture.first, lights.first);
    edge(picture.second, lights.second);
    bars(canvas.area, picture.barsFrom, picture.barsTo,
         [&](int i) { return i == lights.section ? canvas.lit : plain; });
}

/// Sections whose end is under the pointer. The last one wins, since it is the one on top.
void testEnds(Body& body, const Array1<Point2D>& ends, const Pointer& pointer, int part,
              std::int32_t& found) {
    const auto points = pointsOf(ends, body.sectionCount());
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!near(points[i], pointer.x, pointer.y)) continue;
        found = part;
        body.sel_sec = static_cast<std::int16_t>(i + 1);
    }
}

/// Gaps between neighbouring bars, with Ctrl only. The section behind the gap is selected: a new
/// one takes its place.
void testGaps(Body& body, const Array1<Point2D>& upper, const Array1<Point2D>& lower,
              const Pointer& pointer, std::int32_t& found) {
    if (!pointer.ctrlkey) return;
    const auto above = pointsOf(upper, body.sectionCount());
    const auto below = pointsOf(lower, body.sectionCount());
    const auto beside = [&](std::size_t i) {
        return above[i].y < pointer.y && below[i].y > pointer.y;
    };
    for (std::size_t i = 0; i + 1 < below.size() && i + 1 < above.size(); ++i) {
        if (!(pointer.x > below[i].x + hitDistance && pointer.x < below[i + 1].x - hitDistance))
            continue;
        if (!beside(i) && !beside(i + 1)) continue;
        found = FuselagePart::gap;
        body.sel_sec = static_cast<std::int16_t>(i + 2);
    }
}

}  // namespace

void FuselageView::eraseSide(const Canvas& canvas, const Body& body) const {
    if (body.nb_cross != 0) drawPicture(canvas, sidePicture(side, body), {}, white);
}

void FuselageView::eraseHTop(const Canvas& canvas, const Body& body) const {
    if (body.nb_cross != 0) drawPicture(canvas, htopPicture(htop, body), {}, white);
}

void FuselageView::drawSide(const Canvas& canvas, const Body& body, int lit, FuselageLook look) {
    if (body.nb_cross == 0) return;
    if (lit != noSection) grip.selected = true;
    const bool dim = look == other;
    if (!dim && canvas.erases) eraseSide(canvas, body);
    side = body.computeSidePoints(canvas.at, std::move(side));
    drawPicture(canvas, sidePicture(side, body),
                {dim ? noSection : lit, look == topLine, look == bottomLine},
                dim ? canvas.dim : black);
}

void FuselageView::drawHTop(const Canvas& canvas, const Body& body, int lit, FuselageLook look) {
    if (body.nb_cross == 0) return;
    if (lit != noSection) grip.selected = true;
    const bool dim = look == other;
    if (canvas.erases) eraseHTop(canvas, body);
    htop = body.computeHTopPoints(canvas.at, std::move(htop));
    // The minus edge never lights: a drag of either end changes the width, shown at the plus edge.
    drawPicture(canvas, htopPicture(htop, body), {dim ? noSection : lit, look == plusEdge, false},
                dim ? canvas.dim : black);
}

void FuselageView::drawVTop(const Canvas& canvas, const Body& body, FuselageLook look) const {
    if (body.nb_cross == 0) return;
    if (look == erased && !canvas.erases) return;
    const Rgb colour = look == bar      ? canvas.lit
                       : look == other  ? canvas.dim
                       : look == erased ? white
                                        : black;
    const auto contour = pointsOf(vtopPoints, 2 * body.sectionCount());
    closedPolyline(canvas.area, contour, colour);
    if (body.shift != 0) mirroredClosedPolyline(canvas.area, contour, canvas.at.xoff, colour);
}

void FuselageView::computeFront(const Transform& at, const Body& body) {
    if (body.nb_cross < 1) return;
    // Another section's points are no old values of this one's.
    if (front_.section != body.sel_sec || front_.of != body.sectionCount()) front_.points = {};
    front_.at = at;
    front_.section = body.sel_sec;
    front_.of = body.sectionCount();
    front_.points = body.computeFrontSection(at, body.sel_sec, std::move(front_.points));
}

void FuselageView::drawFront(const Canvas& canvas, const Body& body) {
    if (body.nb_cross == 0 || !body.sectionSelected() || front_.of < body.sel_sec) return;
    if (front_.section != body.sel_sec) computeFront(front_.at, body);
    if (front_.points.upper() < body.nb_cross) return;
    body.collectSection(front_.points, section_);
    closedPolyline(canvas.area, section_, canvas.dim);
    if (body.shift != 0) mirroredClosedPolyline(canvas.area, section_, canvas.at.xoff, canvas.dim);
}

std::int32_t FuselageView::testPositionSide(Body& body, const Pointer& pointer) const {
    std::int32_t part = FuselagePart::none;
    if (body.nb_cross == 0) return part;
    const auto top = pointsOf(side.top, body.sectionCount());
    const auto bottom = pointsOf(side.bottom, body.sectionCount());
    for (std::size_t i = 0; i < top.size() && i < bottom.size(); ++i) {
        if (!(near(pointer.x, bottom[i].x) && top[i].y < pointer.y && bottom[i].y > pointer.y))
            continue;
        part = FuselagePart::bar;
        body.sel_sec = static_cast<std::int16_t>(i + 1);
    }
    testEnds(body, side.top, pointer, FuselagePart::top, part);
    testEnds(body, side.bottom, pointer, FuselagePart::bottom, part);
    testGaps(body, side.top, side.bottom, pointer, part);
    return part;
}

std::int32_t FuselageView::testPositionHTop(Body& body, const Pointer& pointer) const {
    std::int32_t part = FuselagePart::none;
    if (body.nb_cross == 0) return part;
    const auto plus = pointsOf(htop.plus, body.sectionCount());
    for (std::size_t i = 0; i < plus.size(); ++i) {
        // Compared with the plain negative of the edge and not with the other edge, so that a bar
        // can be caught well above its minus end too, where small bodies leave room for the
        // pointer.
        if (!(near(pointer.x, plus[i].x) && plus[i].y > pointer.y && pointer.y > -plus[i].y))
            continue;
        part = FuselagePart::bar;
        body.sel_sec = static_cast<std::int16_t>(i + 1);
    }
    testEnds(body, htop.plus, pointer, FuselagePart::plusEnd, part);
    testEnds(body, htop.minus, pointer, FuselagePart::minusEnd, part);
    testGaps(body, htop.minus, htop.plus, pointer, part);
    return part;
}

std::int32_t FuselageView::testPositionVTop(const Body& body, const Pointer& pointer) const {
    const auto contour = pointsOf(vtopPoints, 2 * body.sectionCount());
    if (body.nb_cross == 0 || contour.empty()) return FuselagePart::none;
    const bool onFirstSection = near(pointer.y, contour.front().y) &&
                                pointer.x > contour.back().x && pointer.x < contour.front().x;
    return onFirstSection ? FuselagePart::bar : FuselagePart::none;
}

void FuselageView::initMouseValSide(Body& body, bool shiftkey) {
    if (body.nb_cross == 0) return;
    rememberStart(grip, body, sideHandles, shiftkey);
    if (grip.paint == FuselagePart::bottom) grip.initval2 = body.heightGet() + body.elevationGet();
}

void FuselageView::initMouseValHTop(Body& body, bool shiftkey) {
    if (body.nb_cross != 0) rememberStart(grip, body, htopHandles, shiftkey);
}

void FuselageView::initMouseValVTop(Body& body, bool shiftkey) {
    if (body.nb_cross != 0) rememberStart(grip, body, vtopHandles, shiftkey);
}

void FuselageView::hoverSide(const Canvas& canvas, Body& body, const Pointer& pointer) {
    grip.selected_part = testPositionSide(body, pointer);
    switch (grip.selected_part) {
        case FuselagePart::bar:
            drawSide(canvas, body, body.sel_sec, bar);
            break;
        case FuselagePart::top:
            drawSide(canvas, body, body.sel_sec, topLine);
            break;
        case FuselagePart::bottom:
            drawSide(canvas, body, body.sel_sec, bottomLine);
            break;
        default:
            drawSide(canvas, body, noSection, bar);
            grip.selected = false;
            break;
    }
}

void FuselageView::hoverHTop(const Canvas& canvas, Body& body, const Pointer& pointer) {
    grip.selected_part = testPositionHTop(body, pointer);
    switch (grip.selected_part) {
        case FuselagePart::plusEnd:
        case FuselagePart::minusEnd:
            drawHTop(canvas, body, body.sel_sec, plusEdge);
            grip.selected = true;
            break;
        case FuselagePart::bar:
            drawHTop(canvas, body, body.sel_sec, bar);
            grip.selected = true;
            break;
        case FuselagePart::none:
            // Twice when a highlight goes: taking it off in white cuts the lines that meet it.
            if (grip.selected) {
                drawHTop(canvas, body, noSection, bar);
                grip.selected = false;
            }
            drawHTop(canvas, body, noSection, bar);
            break;
        default:
            break;  // over a gap the picture stays
    }
}

/// The top line is held: what the bottom point moves is taken from the height. Back at its start
/// the section has its own height again, not the difference of a sum, which may be off by a
/// rounding.
void FuselageView::holdTop(Body& body) const {
    if (!body.sectionSelected()) return;
    const double elevation = body.elevationGet();
    const double height = elevation == grip.initval ? grip.initval3 : grip.initval2 - elevation;
    assignFinite(body.height(body.storageIndex(body.sel_sec)), height);
}

void FuselageView::selectsSide(const Canvas& canvas, Body& body, const Pointer& pointer) {
    if (body.nb_cross == 0) return;
    if (!grip.held()) return hoverSide(canvas, body, pointer);
    const auto* handle = findHandle(sideHandles, grip.paint);
    if (!handle || !handle->moves(pointer.shiftkey)) return;
    dragTo(grip, body, *handle, pointer, canvas.at.zoom);
    if (grip.paint == FuselagePart::bottom) holdTop(body);
    drawSide(canvas, body, body.sel_sec,
             grip.paint == FuselagePart::top      ? topLine
             : grip.paint == FuselagePart::bottom ? bottomLine
                                                  : bar);
}

void FuselageView::selectsHTop(const Canvas& canvas, Body& body, const Pointer& pointer) {
    if (body.nb_cross == 0) return;
    if (!grip.held()) return hoverHTop(canvas, body, pointer);
    const auto* handle = findHandle(htopHandles, grip.paint);
    if (!handle || !handle->moves(pointer.shiftkey)) return;
    dragTo(grip, body, *handle, pointer, canvas.at.zoom);
    drawHTop(canvas, body, body.sel_sec, grip.paint == FuselagePart::bar ? bar : plusEdge);
}

void FuselageView::selectsVTop(const Canvas& canvas, Body& body, const Pointer& pointer) {
    if (body.nb_cross == 0) return;
    if (!grip.held()) {
        grip.selected_part = testPositionVTop(body, pointer);
        grip.selected = grip.selected_part == FuselagePart::bar;
        if (grip.selected) vtopPoints = body.computeVTopPoints(canvas.at, std::move(vtopPoints));
        drawVTop(canvas, body, grip.selected ? bar : plain);
    } else if (const auto* handle = findHandle(vtopHandles, grip.paint)) {
        dragTo(grip, body, *handle, pointer, canvas.at.zoom);
        drawVTop(canvas, body, erased);
        vtopPoints = body.computeVTopPoints(canvas.at, std::move(vtopPoints));
        drawVTop(canvas, body, plain);
    }
}

}  // namespace velna
