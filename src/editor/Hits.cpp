#include <algorithm>
#include <functional>

#include "editor/AircraftViews.h"
#include "model/Project.h"

namespace velna {
namespace {

// Of what nobody has asked for, nothing is hit or lit.

template <class View, class Asked>
bool any(const NumberedList<View>& views, int count, Asked asked) {
    for (int i = 1; i <= std::min(count, views.size()); ++i)
        if (std::invoke(asked, views(i).grip)) return true;
    return false;
}

template <class View, class Change>
void each(NumberedList<View>& views, int count, Change change) {
    for (int i = 1; i <= std::min(count, views.size()); ++i) std::invoke(change, views(i).grip);
}

}  // namespace

void AircraftViews::startOver() {
    wings.clear();
    fuselages.clear();
    boxes.clear();
    stabilizer.grip.letGo();
    rudder.grip = TailView().grip;
}

bool AircraftViews::wingHit() const {
    return any(wings, project.nbWings, &Grip::held);
}

bool AircraftViews::boxHit() const {
    return any(boxes, project.nbEquipments, &Grip::held);
}

bool AircraftViews::anyHit() const {
    return boxHit() || wingHit() || stabilizer.grip.held() || rudder.grip.held() ||
           fuselage().grip.held();
}

bool AircraftViews::wingSelected() const {
    return any(wings, project.nbWings, &Grip::selected);
}

bool AircraftViews::boxSelected() const {
    return any(boxes, project.nbEquipments, &Grip::selected);
}

bool AircraftViews::anySelected() const {
    return boxSelected() || wingSelected() || stabilizer.grip.selected || rudder.grip.selected ||
           fuselage().grip.selected;
}

int AircraftViews::selectedWingPart() const {
    for (int i = 1; i <= std::min<int>(project.nbWings, wings.size()); ++i)
        if (wings(i).grip.selected) return wings(i).grip.selected_part;
    return WingPart::none;
}

void AircraftViews::letGoOfWings() {
    each(wings, project.nbWings, &Grip::letGo);
}

void AircraftViews::letGoOfBoxes() {
    each(boxes, project.nbEquipments, &Grip::letGo);
}

void AircraftViews::letGo() {
    letGoOfWings();
    letGoOfBoxes();
    stabilizer.grip.letGo();
    rudder.grip.letGo();
    fuselage().grip.letGo();
}

void AircraftViews::clearHover() {
    each(wings, project.nbWings, &Grip::unlight);
    each(boxes, project.nbEquipments, &Grip::unlight);
    stabilizer.grip.unlight();
    rudder.grip.unlight();
    fuselage().grip.unlight();
}

}  // namespace velna
