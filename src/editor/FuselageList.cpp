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
    for (int i = 1; i <= nbFuselages; ++i)
        if (i != currentFuselage && ObjectList.shown(i)) draw(Fuselages(i));
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
    for (int i = 1; i <= nbFuselages; ++i) {
        if ((all || i != currentFuselage) && ObjectList.shown(i))
            Fuselages(i).drawVTop(otherFuselage);
    }
    if (currentShown()) current().drawVTop(which);
}

void computeFuselagesVTop(double zoom, double xoff, double yoff) {
    for (int i = 1; i <= nbFuselages; ++i)
        if (ObjectList.shown(i)) Fuselages(i).computeVTopPoints(zoom, xoff, yoff);
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
    for (int i = 1; i <= nbFuselages; ++i) {
        if (!ObjectList.shown(i)) continue;
        if (i == currentFuselage) {
            Fuselages(i).selectsHTop(x, y);
        } else {
            Fuselages(i).drawHTop(Main.zoom, Main.xoff, Main.yoff, -1, otherFuselage);
        }
    }
}

void selectsFuselagesVTop(float x, float y) {
    forShownOthers([](MeshSections& other) { other.drawVTop(otherFuselage); });
    if (currentShown()) current().selectsVTop(x, y);
}

}  // namespace velna::Fuselage
