#include <utility>

#include "editor/AircraftViews.h"
#include "model/Fuselage.h"

namespace velna {
namespace {

/// Calls `draw` on each shown fuselage that `wanted` chooses, with its number.
template <class Fleet, class Wanted, class Draw>
void forShown(Fleet& project, Wanted wanted, Draw draw) {
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return wanted(i) && project.ObjectList.shown(i); }, draw);
}

/// The same but for the current one.
template <class Draw>
void forShownOthers(const Project& project, Draw draw) {
    forShown(
        project, [&](int i) { return i != project.currentFuselage; }, draw);
}

bool currentShown(const Project& project) {
    return project.ObjectList.shown(project.currentFuselage);
}

bool all(int /*i*/) {
    return true;
}

}  // namespace

// The current fuselage comes last, so that it stands on top of the others.
void AircraftViews::drawFuselagesSide(const Canvas& canvas, int lit, FuselageLook look) {
    forShownOthers(project, [&](int i, const MeshSections& other) {
        fuselages(i).drawSide(canvas, other, noSection, FuselageLook::other);
    });
    if (currentShown(project)) fuselage().drawSide(canvas, Fuselage::current(project), lit, look);
}

void AircraftViews::drawFuselagesHTop(const Canvas& canvas, int lit, FuselageLook look) {
    forShownOthers(project, [&](int i, const MeshSections& other) {
        fuselages(i).drawHTop(canvas, other, noSection, FuselageLook::other);
    });
    if (currentShown(project)) fuselage().drawHTop(canvas, Fuselage::current(project), lit, look);
}

void AircraftViews::drawFuselagesVTop(const Canvas& canvas, FuselageLook look) {
    // While nothing is lit on it, the current one is drawn dim in its place among the others, and
    // in black on top of them all at the end.
    const bool idle = !fuselage().grip.selected;
    forShown(
        std::as_const(project), [&](int i) { return idle || i != project.currentFuselage; },
        [&](int i, const MeshSections& body) {
            fuselages(i).drawVTop(canvas, body, FuselageLook::other);
        });
    if (currentShown(project)) fuselage().drawVTop(canvas, Fuselage::current(project), look);
}

void AircraftViews::computeFuselagesVTop(const Transform& at) {
    forShown(std::as_const(project), all, [&](int i, const MeshSections& body) {
        auto& points = fuselages(i).vtopPoints;
        points = body.computeVTopPoints(at, std::move(points));
    });
}

void AircraftViews::drawFuselageFront(const Canvas& canvas) {
    if (currentShown(project)) fuselage().drawFront(canvas, Fuselage::current(project));
}

void AircraftViews::selectsFuselagesSide(const Canvas& canvas, const Pointer& pointer) {
    forShownOthers(project, [&](int i, const MeshSections& other) {
        fuselages(i).drawSide(canvas, other, noSection, FuselageLook::other);
    });
    if (currentShown(project)) fuselage().selectsSide(canvas, Fuselage::current(project), pointer);
}

// In list order: the erasing of each one's old lines is followed by the drawing of all behind it.
void AircraftViews::selectsFuselagesHTop(const Canvas& canvas, const Pointer& pointer) {
    forShown(project, all, [&](int i, MeshSections& body) {
        if (i == project.currentFuselage) {
            fuselages(i).selectsHTop(canvas, body, pointer);
        } else {
            fuselages(i).drawHTop(canvas, body, noSection, FuselageLook::other);
        }
    });
}

void AircraftViews::selectsFuselagesVTop(const Canvas& canvas, const Pointer& pointer) {
    forShownOthers(project, [&](int i, const MeshSections& other) {
        fuselages(i).drawVTop(canvas, other, FuselageLook::other);
    });
    if (currentShown(project)) fuselage().selectsVTop(canvas, Fuselage::current(project), pointer);
}

}  // namespace velna
