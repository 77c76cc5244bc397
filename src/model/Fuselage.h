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

// editor/
void drawFuselagesSide(double zoom, double xoff, double yoff, int selected1, int which);
void drawFuselagesHTop(double zoom, double xoff, double yoff, int selected1, int which);
void drawFuselagesVTop(int which);
void computeFuselagesVTop(double zoom, double xoff, double yoff);
/// Current fuselage only, when it is shown.
void drawFuselageFront(double zoom, double xoff, double yoff);
void selectsFuselagesSide(float x, float y);
void selectsFuselagesHTop(float x, float y);
void selectsFuselagesVTop(float x, float y);

// output/
void printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff);

}  // namespace velna::Fuselage
