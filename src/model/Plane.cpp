#include "model/Plane.h"

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"

namespace velna {

namespace Plane {

namespace {

/// The lengths that a default panel has of its own; millimetres, whatever the project's unit.
struct PanelLengths {
    double pos1, pos2, span, length1, length2, elevation1, elevation2, shift;
};

constexpr PanelLengths defaultWing{180, 10, 700, 230, 150, 50, 0, 0};
constexpr PanelLengths defaultStabilizer{650, 40, 250, 130, 80, 50, 0, 0};

void assignLengths(SymWingSections& panel, const PanelLengths& lengths) {
    panel.pos1 = lengths.pos1;
    panel.pos2 = lengths.pos2;
    panel.span = lengths.span;
    panel.length1 = lengths.length1;
    panel.length2 = lengths.length2;
    panel.elevation1 = lengths.elevation1;
    panel.elevation2 = lengths.elevation2;
    panel.shift = lengths.shift;
}

}  // namespace

void setDefaultPlane(Project& project) {
    const Project fresh;
    project.defaultColor = fresh.defaultColor;
    MainWing::clearWings(project);
    project.nbWings = 1;
    MainWing::allocateWings(project);
    Fuselage::initFuselages(project);
    SymWingSections& wing = project.Wings(1);
    assignLengths(wing, defaultWing);
    assignLengths(project.Stabilizer, defaultStabilizer);
    // `init` comes last: it leaves the lengths in place and gives the rest.
    wing.init(project.defaultColor);
    project.Stabilizer.init(project.defaultColor);
    // `init` keeps a fin's offsets, and a twin fin must not outlive its aircraft.
    project.Rudder.offset1 = 0;
    project.Rudder.offset2 = 0;
    project.Rudder.init(project.defaultColor);
    Equipment::initEquipments(project);
    project.dimColor = fresh.dimColor;
    project.highlightColor = fresh.highlightColor;
    project.projectDirectory.clear();
}

void rescaleAll(Project& project, double k) {
    MainWing::rescale(project, k);
    project.Stabilizer.rescale(k);
    project.Rudder.rescale(k);
    Fuselage::rescale(project, k);
    Equipment::rescaleEquipments(project, k);
}

void switchAllToInches(Project& project) {
    MainWing::switchToInches(project);
    project.Stabilizer.switchToInches();
    Fuselage::switchToInches(project);
    project.Rudder.switchToInches();
    Equipment::equipmentsToInches(project);
}

void switchAllToMillimeters(Project& project) {
    MainWing::switchToMillimeters(project);
    project.Stabilizer.switchToMillimeters();
    Fuselage::switchToMillimeters(project);
    project.Rudder.switchToMillimeters();
    Equipment::equipmentsToMillimeters(project);
}

bool increment(std::int16_t& counter) {
    if (counter >= largestCount) return false;
    ++counter;
    return true;
}

}  // namespace Plane
}  // namespace velna
