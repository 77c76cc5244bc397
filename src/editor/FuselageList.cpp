#include "editor/Main.h"
#include "model/Fuselage.h"
#include "model/ObjectList.h"
#include "model/Plane.h"

namespace velna::Fuselage {
namespace {

constexpr int otherFuselage = 7;

/// Calls `draw` on each shown fuselage but the current one.
template <class Draw>
void forShownOthers(Draw draw) {
    Fuselages.forEachDistinct(
        nbFuselages, [](int i) { return i != currentFuselage && ObjectList.shown(i); },
        [&](int, MeshSections& other) { draw(other); });
}

bool shown(int i) {
    return ObjectList.shown(i);
}

bool currentShown() {
    return ObjectList.shown(currentFuselage);
}

}  // namespace

// The current fuselage comes last, so that it stands on top of the others.
void drawFuselagesSide(double zoom, double xoff, double yoff, int selected1, int which) {
    forShownOthers(
        [&](MeshSections& other) { other.drawSide(zoom, xoff, yoff, -1, otherFuselage); });
    if (currentShown()) current().drawSide(zoom, xoff, yoff, selected1, which);
}

void drawFuselagesHTop(double zoom, double xoff, double yoff, int selected1, int which) {
    forShownOthers(
        [&](MeshSections& other) { other.drawHTop(zoom, xoff, yoff, -1, otherFuselage); });
    if (currentShown()) current().drawHTop(zoom, xoff, yoff, selected1, which);
}

void drawFuselagesVTop(int which) {
    // While nothing is lit on it, the current one is drawn dim in its place among the others, and
    // in black on top of them all at the end.
    const bool all = !current().selected;
    Fuselages.forEachDistinct(
        nbFuselages, [&](int i) { return (all || i != currentFuselage) && ObjectList.shown(i); },
        [](int, MeshSections& body) { body.drawVTop(otherFuselage); });
    if (currentShown()) current().drawVTop(which);
}

void computeFuselagesVTop(double zoom, double xoff, double yoff) {
    Fuselages.forEachDistinct(nbFuselages, shown, [&](int, MeshSections& body) {
        body.computeVTopPoints(zoom, xoff, yoff);
    });
}

void drawFuselageFront(double zoom, double xoff, double yoff) {
    if (currentShown()) current().drawFront(zoom, xoff, yoff);
}

void selectsFuselagesSide(float x, float y) {
    forShownOthers([](MeshSections& other) {
        other.drawSide(Main.zoom, Main.xoff, Main.yoff, -1, otherFuselage);
    });
    if (currentShown()) current().selectsSide(x, y);
}

// In list order: the erasing of each one's old lines is followed by the drawing of all behind it.
void selectsFuselagesHTop(float x, float y) {
    Fuselages.forEachDistinct(nbFuselages, shown, [&](int i, MeshSections& body) {
        if (i == currentFuselage) {
            body.selectsHTop(x, y);
        } else {
            body.drawHTop(Main.zoom, Main.xoff, Main.yoff, -1, otherFuselage);
        }
    });
}

void selectsFuselagesVTop(float x, float y) {
    forShownOthers([](MeshSections& other) { other.drawVTop(otherFuselage); });
    if (currentShown()) current().selectsVTop(x, y);
}

}  // namespace velna::Fuselage
