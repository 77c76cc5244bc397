#pragma once

#include "model/Plane.h"

namespace velna::MainWing {

// model/
/// A new initialised wing in every slot 1 to `nbWings`; `currentWing` becomes 1.
void allocateWings();
void clearWings();
/// To be called with `nbWings` already raised: the new panel continues the outer end of the last.
void addWing();
void rescale(double k);
void switchToInches();
void switchToMillimeters();

// persistence/
void saveWings(ReplacedFile& file);
void readWings(ValueReader& file);
void readWingsV120(ValueReader& file);
void readWingsV101(ValueReader& file);
void readWingsV0212(ValueReader& file);
void saveWingAirfoils(ReplacedFile& file);
void readWingAirfoils(ValueReader& file);

}  // namespace velna::MainWing
