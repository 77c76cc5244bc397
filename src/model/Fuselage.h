#pragma once

#include "model/Plane.h"

namespace velna::Fuselage {

/// The fuselage being edited.
inline MeshSections& current() {
    return Fuselages(currentFuselage);
}

// model/
void initFuselages();
void resizeFuselages();
/// A new fuselage in slot `nbFuselages`; with `copyCurrent` the shape of the current one.
void addFuselage(bool copyCurrent = false);
/// `create` on each shown fuselage.
void createVisibleFuselages();
void zeroElevationOffsets();
void rescale(double k);
void switchToInches();
void switchToMillimeters();

// persistence/
void saveFuselages(ReplacedFile& file);
void readFuselages(ValueReader& file);
void readFuselagesV120(ValueReader& file);
void readFuselagesV101(ValueReader& file);
void readFuselagesV030(ValueReader& file);
void readFuselageV0212(ValueReader& file);
void readFuselageV026(ValueReader& file);

}  // namespace velna::Fuselage
