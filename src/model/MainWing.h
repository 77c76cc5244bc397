#pragma once

#include "model/Plane.h"

namespace velna::MainWing {

/// A new initialised wing in every slot 1 to `nbWings`; `currentWing` becomes 1.
void allocateWings(Project& project);
void clearWings(Project& project);
/// To be called with `nbWings` already raised: the new panel continues the outer end of the last.
void addWing(Project& project);
void rescale(Project& project, double k);
void switchToInches(Project& project);
void switchToMillimeters(Project& project);

}  // namespace velna::MainWing
