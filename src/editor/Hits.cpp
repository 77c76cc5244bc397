#include <algorithm>

#include "editor/AircraftViews.h"
#include "model/Plane.h"

namespace velna {
namespace {

// Of what nobody has asked for, nothing is hit or lit.

template <class View, class Asked>
bool any(const ViewList<View>& views, int count, Asked asked) {
    for (int i = 1; i <= std::min(count, views.size()); ++i)
        if (asked(views(i).grip)) return true;
    return false;
}

template <class View, class Change>
void each(const ViewList<View>& views, int count, Change change) {
    for (int i = 1; i <= std::min(count, views.size()); ++i) change(views(i).grip);
}

bool isSelected(const Grip& grip) {
    return grip.selected;
}

void unselect(Grip& grip) {
    grip.selected = false;
}

}  // namespace

void AircraftViews::startOver() {
    wings.clear();
    fuselages.clear();
    boxes.clear();
    stabilizer.grip.paint = WingPart::none;
    rudder.grip = TailView().grip;
}

FuselageView& AircraftViews::fuselage() const {
    return fuselages(currentFuselage);
}

bool AircraftViews::wingHit() const {
    return any(wings, nbWings, [](const Grip& grip) { return grip.paint != WingPart::none; });
}

bool AircraftViews::boxHit() const {
    return any(boxes, nbEquipments, [](const Grip& grip) { return grip.paint != BoxPart::none; });
}

bool AircraftViews::anyHit() const {
    return boxHit() || wingHit() || stabilizer.grip.paint != WingPart::none ||
           rudder.grip.paint != FinPart::none || fuselage().grip.paint != FuselagePart::none;
}

bool AircraftViews::wingSelected() const {
    return any(wings, nbWings, isSelected);
}

bool AircraftViews::boxSelected() const {
    return any(boxes, nbEquipments, isSelected);
}

bool AircraftViews::anySelected() const {
    return boxSelected() || wingSelected() || stabilizer.grip.selected || rudder.grip.selected ||
           fuselage().grip.selected;
}

int AircraftViews::selectedWingPart() const {
    for (int i = 1; i <= std::min<int>(nbWings, wings.size()); ++i)
        if (wings(i).grip.selected) return wings(i).grip.selected_part;
    return WingPart::none;
}

void AircraftViews::letGoOfWings() {
    each(wings, nbWings, [](Grip& grip) { grip.paint = WingPart::none; });
}

void AircraftViews::letGoOfBoxes() {
    each(boxes, nbEquipments, [](Grip& grip) { grip.paint = BoxPart::none; });
}

void AircraftViews::letGo() {
    letGoOfWings();
    letGoOfBoxes();
    stabilizer.grip.paint = WingPart::none;
    rudder.grip.paint = FinPart::none;
    fuselage().grip.paint = FuselagePart::none;
}

void AircraftViews::clearHover() {
    each(wings, nbWings, unselect);
    each(boxes, nbEquipments, unselect);
    unselect(stabilizer.grip);
    unselect(rudder.grip);
    unselect(fuselage().grip);
}

}  // namespace velna
