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
/// True as soon as a wing's `paint` is not idle.
bool anyHit();
bool anySelected();
/// `selected_part` of the first selected wing, 5 when none is.
int selectedPart();
void clearPaint();
void clearSelection();

// persistence/
void saveWings(ReplacedFile& file);
void readWings(ValueReader& file);
void readWingsV120(ValueReader& file);
void readWingsV101(ValueReader& file);
void readWingsV0212(ValueReader& file);
void saveWingAirfoils(ReplacedFile& file);
void readWingAirfoils(ValueReader& file);

// editor/
void drawFront(double zoom, double xoff, double yoff);
void drawVTop(double zoom, double xoff, double yoff, int which);
void selectsFront(float x, float y);
void selectsVTop(float x, float y);
/// The press: sets `paint` and start values from wing 1 on; a root edge takes all wings behind
/// along.
void testFront(float x, float y);
void testVTop(float x, float y);

// output/
void printFront(PrinterSurface& printer, double zoom, double xoff, double yoff);
void printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff);

}  // namespace velna::MainWing
