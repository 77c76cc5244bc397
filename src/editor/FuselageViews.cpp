#include <utility>

#include "editor/AircraftViews.h"
#include "model/Fuselage.h"
#include "model/ObjectList.h"

namespace velna {
namespace {

bool shown(int i) {
    return ObjectList.shown(i);
}

/// Calls `draw` on each shown fuselage but the current one, with its number.
template <class Draw>
void forShownOthers(Draw draw) {
    Fuselages.forEachDistinct(
        nbFuselages, [](int i) { return i != currentFuselage && shown(i); }, draw);
}

bool currentShown() {
    return shown(currentFuselage);
}

}  // namespace

// The current fuselage comes last, so that it stands on top of the others.
void AircraftViews::drawFuselagesSide(const Canvas& canvas, int lit, FuselageLook look) {
    forShownOthers([&](int i, const MeshSections& other) {
        fuselages(i).drawSide(canvas, other, noSection, FuselageLook::other);
    });
    if (currentShown()) fuselage().drawSide(canvas, Fuselage::current(), lit, look);
}

void AircraftViews::drawFuselagesHTop(const Canvas& canvas, int lit, FuselageLook look) {
    forShownOthers([&](int i, const MeshSections& other) {
        fuselages(i).drawHTop(canvas, other, noSection, FuselageLook::other);
    });
    if (currentShown()) fuselage().drawHTop(canvas, Fuselage::current(), lit, look);
}

void AircraftViews::drawFuselagesVTop(const Canvas& canvas, FuselageLook look) {
    // While nothing is lit on it, the current one is drawn dim in its place among the others, and
    // in black on top of them all at the end.
    const bool all = !fuselage().grip.selected;
    Fuselages.forEachDistinct(
        nbFuselages, [&](int i) { return (all || i != currentFuselage) && shown(i); },
        [&](int i, const MeshSections& body) {
            fuselages(i).drawVTop(canvas, body, FuselageLook::other);
        });
    if (currentShown()) fuselage().drawVTop(canvas, Fuselage::current(), look);
}

void AircraftViews::computeFuselagesVTop(const Transform& at) {
    Fuselages.forEachDistinct(nbFuselages, shown, [&](int i, const MeshSections& body) {
        auto& points = fuselages(i).vtopPoints;
        points = body.computeVTopPoints(at, std::move(points));
    });
}

void AircraftViews::drawFuselageFront(const Canvas& canvas) {
    if (currentShown()) fuselage().drawFront(canvas, Fuselage::current());
}

void AircraftViews::selectsFuselagesSide(const Canvas& canvas, const Pointer& pointer) {
    forShownOthers([&](int i, const MeshSections& other) {
        fuselages(i).drawSide(canvas, other, noSection, FuselageLook::other);
    });
    if (currentShown()) fuselage().selectsSide(canvas, Fuselage::current(), pointer);
}

// In list order: the erasing of each one's old lines is followed by the drawing of all behind it.
void AircraftViews::selectsFuselagesHTop(const Canvas& canvas, const Pointer& pointer) {
    Fuselages.forEachDistinct(nbFuselages, shown, [&](int i, MeshSections& body) {
        if (i == currentFuselage) {
            fuselages(i).selectsHTop(canvas, body, pointer);
        } else {
            fuselages(i).drawHTop(canvas, body, noSection, FuselageLook::other);
        }
    });
}

void AircraftViews::selectsFuselagesVTop(const Canvas& canvas, const Pointer& pointer) {
    forShownOthers([&](int i, const MeshSections& other) {
        fuselages(i).drawVTop(canvas, other, FuselageLook::other);
    });
    if (currentShown()) fuselage().selectsVTop(canvas, Fuselage::current(), pointer);
}

}  // namespace velna
