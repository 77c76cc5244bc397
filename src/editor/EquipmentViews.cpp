#include <array>
#include <span>

#include "editor/Handles.h"
#include "editor/Main.h"
#include "editor/Polyline.h"
#include "model/ElectroBox.h"
#include "model/Equipment.h"
#include "model/Plane.h"

namespace velna {
namespace {

using Box = ElectroBox;
using BoxHandle = Handle<Box>;

// Codes of `paint`.
constexpr int hit = 0;
constexpr int missed = 1;

// State codes of the draws.
constexpr int litState = 0;
constexpr int plainState = 1;

// A plain drag moves a box along the aircraft only, one with Shift across only: a box that fits is
// rarely meant to leave its place in both directions at once.
constexpr std::array sideHandles{
    BoxHandle{hit,
              {{{&Box::pos, &Box::initval, Axis::Right, 1}}},
              {{{&Box::elevation, &Box::initval, Axis::Down, -1}}}},
};

constexpr std::array htopHandles{
    BoxHandle{hit,
              {{{&Box::pos, &Box::initval, Axis::Right, 1}}},
              {{{&Box::shift, &Box::initval, Axis::Down, -1}}}},
};

void drawOutline(const Rectangle& outline, Rgb colour) {
    closedPolyline(*Main.DrawArea, std::span(outline).subspan<1>(), colour);
}

/// One edge catches the pointer: the one whose row is that of `edge`, between points 1 and 2.
std::int32_t partAt(const Rectangle& outline, Point2D edge, float x, float y) {
    return near(y, edge.y) && outline[1].x < x && outline[2].x > x ? hit : missed;
}

/// The hover tests twice, since its first drawing has computed the outline anew.
template <class Table, class PartAt, class Draw>
void hoverOrDragBox(Box& box, const Table& table, float x, float y, PartAt part, Draw draw) {
    if (box.paint == missed) {
        if (part() == hit) {
            draw(litState);
            box.selected = true;
        }
        if (part() != hit) {
            draw(plainState);
            box.selected = false;
        }
    } else if (const auto* handle = findHandle(table, box.paint)) {
        dragTo(box, *handle, x, y);
        draw(litState);
    }
}

}  // namespace

void ElectroBox::drawSide(double zoom, double xoff, double yoff, int which) {
    if (which != plainState) selected = true;
    if (Main.erases()) drawOutline(sideOutline, white);
    computeSidePoints(zoom, xoff, yoff);
    drawOutline(sideOutline, which == litState ? highlightColor : black);
}

void ElectroBox::drawHTop(double zoom, double xoff, double yoff, int which) {
    if (which != plainState) selected = true;
    if (Main.erases()) drawOutline(htopOutline, white);
    computeHTopPoints(zoom, xoff, yoff);
    drawOutline(htopOutline, which == litState ? highlightColor : black);
}

// The underside.
std::int32_t ElectroBox::testPositionSide(float x, float y) const {
    return partAt(sideOutline, sideOutline[1], x, y);
}

// The edge at `shift` minus half the cross extent.
std::int32_t ElectroBox::testPositionHTop(float x, float y) const {
    return partAt(htopOutline, htopOutline[3], x, y);
}

void ElectroBox::initMouseValSide() {
    rememberStart(*this, sideHandles);
}

void ElectroBox::initMouseValHTop() {
    rememberStart(*this, htopHandles);
}

void ElectroBox::selectsSide(float x, float y) {
    hoverOrDragBox(
        *this, sideHandles, x, y, [&] { return testPositionSide(x, y); },
        [&](int which) { drawSide(Main.zoom, Main.xoff, Main.yoff, which); });
}

void ElectroBox::selectsHTop(float x, float y) {
    hoverOrDragBox(
        *this, htopHandles, x, y, [&] { return testPositionHTop(x, y); },
        [&](int which) { drawHTop(Main.zoom, Main.xoff, Main.yoff, which); });
}

namespace Equipment {
namespace {

/// The current box has priority; where it is missed, every other box under the pointer is taken.
void press(std::int32_t (Box::*part)(float, float) const, float x, float y) {
    current().paint = (current().*part)(x, y);
    if (current().paint == hit) return;
    for (int i = 1; i <= nbEquipments; ++i)
        if (i != currentEquipment) Equipments(i).paint = (Equipments(i).*part)(x, y);
}

}  // namespace

void drawEquipmentsSide(double zoom, double xoff, double yoff) {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).drawSide(zoom, xoff, yoff, plainState);
}

void drawEquipmentsHTop(double zoom, double xoff, double yoff) {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).drawHTop(zoom, xoff, yoff, plainState);
}

void selectsEquipmentsSide(float x, float y) {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).selectsSide(x, y);
}

void selectsEquipmentsHTop(float x, float y) {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).selectsHTop(x, y);
}

void testEquipmentsSide(float x, float y) {
    press(&Box::testPositionSide, x, y);
}

void testEquipmentsHTop(float x, float y) {
    press(&Box::testPositionHTop, x, y);
}

void initMouseValEquipmentsSide() {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).initMouseValSide();
}

void initMouseValEquipmentsHTop() {
    for (int i = 1; i <= nbEquipments; ++i) Equipments(i).initMouseValHTop();
}

}  // namespace Equipment
}  // namespace velna
