#include "editor/EquipmentView.h"

#include <array>

#include "common/Polyline.h"
#include "model/ElectroBox.h"

namespace velna {
namespace {

using Box = ElectroBox;
using BoxHandle = Handle<Box>;

// A plain drag moves a box along the aircraft only, one with Shift across only: a box that fits is
// rarely meant to leave its place in both directions at once.
constexpr auto sideHandles = std::to_array({
    BoxHandle{BoxPart::hit,
              {{{&Box::pos, &Grip::initval, Axis::Right, 1}}},
              {{{&Box::elevation, &Grip::initval, Axis::Down, -1}}}},
});

constexpr auto htopHandles = std::to_array({
    BoxHandle{BoxPart::hit,
              {{{&Box::pos, &Grip::initval, Axis::Right, 1}}},
              {{{&Box::shift, &Grip::initval, Axis::Down, -1}}}},
});

void drawOutline(const Canvas& canvas, const Rectangle& outline, Rgb colour) {
    closedPolyline(canvas.area, pointsOf(outline), colour);
}

/// One edge catches the pointer: the one whose row is that of `edge`, between points 1 and 2.
std::int32_t partAt(const Rectangle& outline, Point2D edge, float x, float y) {
    return near(y, edge.y) && outline[1].x < x && outline[2].x > x ? BoxPart::hit : BoxPart::none;
}

/// The hover tests twice, since its first drawing has computed the outline anew.
template <class Table, class PartHere, class Move, class Draw>
void hoverOrDragBox(Grip& grip, const Table& table, PartHere partHere, Move move, Draw draw) {
    if (!grip.held()) {
        if (partHere() == BoxPart::hit) {
            draw(true);
            grip.selected = true;
        }
        if (partHere() != BoxPart::hit) {
            draw(false);
            grip.selected = false;
        }
    } else if (const auto* handle = findHandle(table, grip.paint)) {
        move(*handle);
        draw(true);
    }
}

}  // namespace

void EquipmentView::drawSide(const Canvas& canvas, const Box& box, bool lit) {
    if (lit) grip.selected = true;
    if (canvas.erases) drawOutline(canvas, sideOutline, white);
    sideOutline = box.computeSidePoints(canvas.at, sideOutline);
    drawOutline(canvas, sideOutline, lit ? canvas.lit : black);
}

void EquipmentView::drawHTop(const Canvas& canvas, const Box& box, bool lit) {
    if (lit) grip.selected = true;
    if (canvas.erases) drawOutline(canvas, htopOutline, white);
    htopOutline = box.computeHTopPoints(canvas.at, htopOutline);
    drawOutline(canvas, htopOutline, lit ? canvas.lit : black);
}

// The underside.
std::int32_t EquipmentView::testPositionSide(float x, float y) const {
    return partAt(sideOutline, sideOutline[1], x, y);
}

// The edge at `shift` minus half the cross extent.
std::int32_t EquipmentView::testPositionHTop(float x, float y) const {
    return partAt(htopOutline, htopOutline[3], x, y);
}

void EquipmentView::initMouseValSide(Box& box, bool shiftkey) {
    rememberStart(grip, box, sideHandles, shiftkey);
}

void EquipmentView::initMouseValHTop(Box& box, bool shiftkey) {
    rememberStart(grip, box, htopHandles, shiftkey);
}

const BoxHandle* EquipmentView::heldSide() const {
    return findHandle(sideHandles, grip.paint);
}

const BoxHandle* EquipmentView::heldHTop() const {
    return findHandle(htopHandles, grip.paint);
}

void EquipmentView::selectsSide(const Canvas& canvas, Box& box, const Pointer& pointer) {
    hoverOrDragBox(
        grip, sideHandles, [&] { return testPositionSide(pointer.x, pointer.y); },
        [&](const BoxHandle& handle) { dragTo(grip, box, handle, pointer, canvas.at.zoom); },
        [&](bool lit) { drawSide(canvas, box, lit); });
}

void EquipmentView::selectsHTop(const Canvas& canvas, Box& box, const Pointer& pointer) {
    hoverOrDragBox(
        grip, htopHandles, [&] { return testPositionHTop(pointer.x, pointer.y); },
        [&](const BoxHandle& handle) { dragTo(grip, box, handle, pointer, canvas.at.zoom); },
        [&](bool lit) { drawHTop(canvas, box, lit); });
}

}  // namespace velna
