#include "editor/AircraftViews.h"
#include "model/Plane.h"

namespace velna {
namespace {

/// A root edge carries all panels behind it along, and no panel behind is asked any more.
template <class PartAt, class Remember>
void press(const ViewList<WingView>& views, PartAt partAt, Remember remember) {
    bool carried = false;
    int firstPromised = 0;
    for (int i = 1; i <= nbWings && !carried; ++i) {
        // Panels that a file only promises lie on one another, where the first of them was drawn.
        if (firstPromised == 0 && Wings.promised(i)) firstPromised = i;
        const int drawn = Wings.promised(i) ? firstPromised : i;
        const std::int32_t part = partAt(views(drawn));
        if (part == WingPart::none) {
            views(drawn).grip.paint = part;
            continue;
        }
        // What is taken hold of becomes an object of its own.
        if (i != drawn) views.renew(i, views(drawn));
        carried = part == WingPart::rootEdge;
        for (int held = i; held <= (carried ? nbWings : i); ++held) {
            views(held).grip.paint = part;
            remember(views(held), Wings(held));
        }
    }
}

}  // namespace

void AircraftViews::drawWingsFront(const Canvas& canvas) {
    Wings.forEachDistinct(nbWings,
                          [&](int i, SymWingSections& wing) { wings(i).drawFront(canvas, wing); });
}

void AircraftViews::drawWingsVTop(const Canvas& canvas) {
    Wings.forEachDistinct(nbWings,
                          [&](int i, SymWingSections& wing) { wings(i).drawVTop(canvas, wing); });
}

void AircraftViews::testWingsFront(const Pointer& pointer) {
    press(
        wings, [&](const WingView& view) { return view.testPositionFront(pointer.x, pointer.y); },
        [&](WingView& view, SymWingSections& wing) {
            view.initMouseValFront(wing, pointer.shiftkey);
        });
}

void AircraftViews::testWingsVTop(const Pointer& pointer) {
    press(
        wings, [&](const WingView& view) { return view.testPositionVTop(pointer.x, pointer.y); },
        [&](WingView& view, SymWingSections& wing) {
            view.initMouseValVTop(wing, pointer.shiftkey);
        });
}

void AircraftViews::selectsWingsFront(const Canvas& canvas, const Pointer& pointer) {
    Wings.forEachDistinct(nbWings, [&](int i, SymWingSections& wing) {
        wings(i).selectsFront(canvas, wing, pointer);
    });
}

void AircraftViews::selectsWingsVTop(const Canvas& canvas, const Pointer& pointer) {
    Wings.forEachDistinct(nbWings, [&](int i, SymWingSections& wing) {
        wings(i).selectsVTop(canvas, wing, pointer);
    });
}

}  // namespace velna
