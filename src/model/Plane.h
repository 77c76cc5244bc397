#pragma once

#include <cstdint>
#include <string>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"
#include "model/ElectroBox.h"
#include "model/MeshSections.h"
#include "model/SymWingSections.h"
#include "model/VertWingSection.h"

namespace velna {

// The project: one aircraft, alive for the whole run, reset by Plane::setDefaultPlane. Lists are
// 1-based; the counter, never the list's size, is what every loop uses.

extern OwnedList<SymWingSections> Wings;
extern std::int16_t nbWings;
extern std::int16_t currentWing;
extern SymWingSections Stabilizer;
extern VertWingSection Rudder;
extern OwnedList<MeshSections> Fuselages;
extern std::int16_t nbFuselages;
extern std::int16_t currentFuselage;
extern OwnedList<ElectroBox> Equipments;
extern std::int16_t nbEquipments;
extern std::int16_t currentEquipment;

extern Point3D defaultColor;
extern Point3D zeroTranslation;
extern Point3D vrmlUnitScale;
extern Rgb dimColor;
extern Rgb highlightColor;
extern std::string projectDirectory;  ///< folder of the last read project, with its "/"

namespace Plane {

inline constexpr std::int16_t largestCount = 32767;
inline constexpr double millimetresPerInch = 25.4;
/// All fuselages together may have this many mesh points.
inline constexpr long long largestMesh = 4'000'000;

// model/
/// Resets the project to the default aircraft.
void setDefaultPlane();
/// Multiplies all lengths of all objects by `k`.
void rescaleAll(double k);
/// Rebuilds every solid; of the fuselages the shown ones.
void createAllSolids();
/// Converts every object; the order is wings, stabiliser, fuselages, fin, boxes.
void switchAllToInches();
void switchAllToMillimeters();
/// Raises a signed 16-bit counter by 1; at 32767 the statement fails and false comes back.
bool increment(std::int16_t& counter);
inline double mmToInches(double value) {
    return value / millimetresPerInch;
}
inline double inchesToMm(double value) {
    return value * millimetresPerInch;
}

// persistence/
/// Saves the project and its pictures' side files. Returns the reason of a failure, empty for none.
std::string saveProject(const std::string& file);
/// Why `file` is no project, empty where it is one: it cannot be read, or it neither begins as a
/// project does nor gives even a first wing. The model is not touched.
std::string whyNoProject(const std::string& file);
/// Replaces the model by the file's; expects setDefaultPlane to have run. Never fails aloud: what
/// was read before a failure stands. Returns the text of the one message that a refused version
/// has, or an empty text.
std::string readProject(const std::string& file);
/// Puts an airfoil file on the current wing.
void loadAirfoil(const std::string& file);

// output/
/// Each returns the reason of a failure, empty for none; the old file then stands whole. The model
/// is written by the solids as they stand: a fuselage that was never shown has none.
std::string exportVRML(const std::string& file);
std::string exportDXFVTop(const std::string& file);
std::string exportDXFFront(const std::string& file);
std::string exportDXFSide(const std::string& file);
std::string exportDXFHTop(const std::string& file);

}  // namespace Plane
}  // namespace velna
