#include "editor/AircraftViews.h"
#include "model/Project.h"

namespace velna {
namespace {

/// A root edge carries all panels behind it along, and no panel behind is asked any more.
void press(Project& project, NumberedList<WingView>& views, const Pointer& pointer,
           std::int32_t (WingView::*partAt)(float x, float y) const,
           void (WingView::*remember)(SymWingSections& wing, bool shiftkey)) {
    bool carried = false;
    int firstPromised = 0;
    for (int i = 1; i <= project.nbWings && !carried; ++i) {
        // Panels that a file only promises lie on one another, where the first of them was drawn.
        const bool promised = project.Wings.promised(i);
        if (firstPromised == 0 && promised) firstPromised = i;
        const int drawn = promised ? firstPromised : i;
        const std::int32_t part = (views(drawn).*partAt)(pointer.x, pointer.y);
        if (part == WingPart::none) {
            views(drawn).grip.paint = part;
            continue;
        }
        // What is taken hold of becomes an object of its own.
        if (i != drawn) views.renew(i, views(drawn));
        carried = part == WingPart::rootEdge;
        for (int held = i; held <= (carried ? project.nbWings : i); ++held) {
            views(held).grip.paint = part;
            (views(held).*remember)(project.Wings(held), pointer.shiftkey);
        }
    }
}

}  // namespace

void AircraftViews::drawWingsFront(const Canvas& canvas) {
    project.Wings.forEachDistinct(project.nbWings, [&](int i, const SymWingSections& wing) {
        wings(i).drawFront(canvas, wing);
    });
}

void AircraftViews::drawWingsVTop(const Canvas& canvas) {
    project.Wings.forEachDistinct(project.nbWings, [&](int i, const SymWingSections& wing) {
        wings(i).drawVTop(canvas, wing);
    });
}

void AircraftViews::testWingsFront(const Pointer& pointer) {
    press(project, wings, pointer, &WingView::testPositionFront, &WingView::initMouseValFront);
}

void AircraftViews::testWingsVTop(const Pointer& pointer) {
    press(project, wings, pointer, &WingView::testPositionVTop, &WingView::initMouseValVTop);
}

void AircraftViews::selectsWingsFront(const Canvas& canvas, const Pointer& pointer) {
    project.Wings.forEachDistinct(project.nbWings, [&](int i, SymWingSections& wing) {
        wings(i).selectsFront(canvas, wing, pointer);
    });
}

void AircraftViews::selectsWingsVTop(const Canvas& canvas, const Pointer& pointer) {
    project.Wings.forEachDistinct(project.nbWings, [&](int i, SymWingSections& wing) {
        wings(i).selectsVTop(canvas, wing, pointer);
    });
}

}  // namespace velna
