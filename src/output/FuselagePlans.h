#pragma once

#include "model/MeshSections.h"

namespace velna {

class PrinterSurface;

/// Section `i` of the outlines that `computeFrontPoints` made last, in the dim colour, and its
/// mirror image about `xoff` where the fuselage has a twin. Who prints all sections computes them
/// once.
void printComputedSection(PrinterSurface& printer, const MeshSections& fuselage, int i,
                          double xoff);

}  // namespace velna
