#pragma once

#include "model/VertWingSection.h"
#include "output/PrinterSurface.h"

namespace velna {

// What the fin puts on a sheet, at any scale.

void printSide(PrinterSurface& printer, const VertWingSection& fin, const Transform& at);
void printFront(PrinterSurface& printer, const VertWingSection& fin, const Transform& at);
/// The fin's root; the twin is asked for by the height of the root.
void printVTop(PrinterSurface& printer, const VertWingSection& fin, const Transform& at);

}  // namespace velna
