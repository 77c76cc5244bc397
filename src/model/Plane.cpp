#include "model/Plane.h"

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Prefs.h"

namespace velna {

namespace {

constexpr Point3D lightGrey{200, 200, 200};

}  // namespace

PrefsRecord Prefs;

// Before the objects: their constructors copy it.
Point3D defaultColor = lightGrey;
Point3D zeroTranslation;
Point3D vrmlUnitScale{1, 1, 1};
Rgb dimColor = palette[9];
Rgb highlightColor = palette[14];
std::string projectDirectory;

OwnedList<SymWingSections> Wings;
std::int16_t nbWings = 0;
std::int16_t currentWing = 1;
SymWingSections Stabilizer;
VertWingSection Rudder;
OwnedList<MeshSections> Fuselages;
std::int16_t nbFuselages = 0;
std::int16_t currentFuselage = 1;
OwnedList<ElectroBox> Equipments;
std::int16_t nbEquipments = 0;
std::int16_t currentEquipment = 1;

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

void setDefaultPlane() {
    defaultColor = lightGrey;
    MainWing::clearWings();
    nbWings = 1;
    MainWing::allocateWings();
    Fuselage::initFuselages();
    assignLengths(Wings(1), defaultWing);
    Wings(1).set_texture_filename("");
    assignLengths(Stabilizer, defaultStabilizer);
    // `init` comes last: it leaves the lengths in place and gives the rest.
    for (int i = 1; i <= nbWings; ++i) Wings(i).init();
    Stabilizer.init();
    // `init` keeps a fin's offsets, and a twin fin must not outlive its aircraft.
    Rudder.offset1 = 0;
    Rudder.offset2 = 0;
    Rudder.init();
    Equipment::initEquipments();
    zeroTranslation = {};
    dimColor = palette[9];
    highlightColor = palette[14];
    projectDirectory.clear();
}

void rescaleAll(double k) {
    MainWing::rescale(k);
    Stabilizer.rescale(k);
    Rudder.rescale(k);
    Fuselage::rescale(k);
    Equipment::rescaleEquipments(k);
}

void createAllSolids() {
    Fuselage::createVisibleFuselages();
    Wings.forEachDistinct(nbWings, [](SymWingSections& wing) { wing.create(); });
    Stabilizer.create();
    Rudder.create();
    Equipment::createEquipments();
}

void switchAllToInches() {
    MainWing::switchToInches();
    Stabilizer.switchToInches();
    Fuselage::switchToInches();
    Rudder.switchToInches();
    Equipment::equipmentsToInches();
}

void switchAllToMillimeters() {
    MainWing::switchToMillimeters();
    Stabilizer.switchToMillimeters();
    Fuselage::switchToMillimeters();
    Rudder.switchToMillimeters();
    Equipment::equipmentsToMillimeters();
}

bool increment(std::int16_t& counter) {
    if (counter >= largestCount) return false;
    ++counter;
    return true;
}

}  // namespace Plane
}  // namespace velna
