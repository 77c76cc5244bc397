#pragma once

#include "common/List.h"
#include "editor/EquipmentView.h"
#include "editor/FuselageView.h"
#include "editor/TailView.h"
#include "editor/WingView.h"
#include "model/Project.h"

namespace velna {

/// What the editor keeps of each part of the aircraft: its outlines on the surface, and the gesture
/// on it.
class AircraftViews {
public:
    explicit AircraftViews(Project& aircraft) : project(aircraft) {}

    NumberedList<WingView> wings;
    WingView stabilizer;
    TailView rudder;
    NumberedList<FuselageView> fuselages;
    NumberedList<EquipmentView> boxes;

    /// Another aircraft: nothing of the former one's lists is left, and nothing is grabbed.
    void startOver();
    /// The view of the fuselage being edited.
    FuselageView& fuselage() { return fuselages(project.currentFuselage); }
    const FuselageView& fuselage() const { return fuselages(project.currentFuselage); }

    // Hits.cpp
    /// Some wing, or some box, is being dragged.
    bool wingHit() const;
    bool boxHit() const;
    bool anyHit() const;
    /// The pointer rests on some wing, on some box, on anything.
    bool wingSelected() const;
    bool boxSelected() const;
    bool anySelected() const;
    /// `selected_part` of the first selected wing, `WingPart::none` when none is.
    int selectedWingPart() const;
    void letGoOfWings();
    void letGoOfBoxes();
    void letGo();
    void clearHover();

    // WingViews.cpp
    void drawWingsFront(const Canvas& canvas);
    void drawWingsVTop(const Canvas& canvas);
    /// The press: a root edge takes all panels behind it along.
    void testWingsFront(const Pointer& pointer);
    void testWingsVTop(const Pointer& pointer);
    void selectsWingsFront(const Canvas& canvas, const Pointer& pointer);
    void selectsWingsVTop(const Canvas& canvas, const Pointer& pointer);

    // FuselageViews.cpp: of the fuselages those that are shown
    void drawFuselagesSide(const Canvas& canvas, int lit, FuselageLook look);
    void drawFuselagesHTop(const Canvas& canvas, int lit, FuselageLook look);
    void drawFuselagesVTop(const Canvas& canvas, FuselageLook look);
    void computeFuselagesVTop(const Transform& at);
    /// Current fuselage only, when it is shown.
    void drawFuselageFront(const Canvas& canvas);
    void selectsFuselagesSide(const Canvas& canvas, const Pointer& pointer);
    void selectsFuselagesHTop(const Canvas& canvas, const Pointer& pointer);
    void selectsFuselagesVTop(const Canvas& canvas, const Pointer& pointer);

    // EquipmentViews.cpp
    void drawEquipmentsSide(const Canvas& canvas);
    void drawEquipmentsHTop(const Canvas& canvas);
    /// The press: the current box has priority; where it is missed, every other box under the
    /// pointer is taken.
    void testEquipmentsSide(const Pointer& pointer);
    void testEquipmentsHTop(const Pointer& pointer);
    void selectsEquipmentsSide(const Canvas& canvas, const Pointer& pointer);
    void selectsEquipmentsHTop(const Canvas& canvas, const Pointer& pointer);

private:
    Project& project;
};

}  // namespace velna
