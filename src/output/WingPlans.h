#pragma once

#include "common/Palette.h"
#include "model/SymWingSections.h"
#include "output/PrinterSurface.h"

namespace velna {

// What a wing panel, or the stabiliser, puts on a sheet, at any scale.

/// The root section.
void printSide(PrinterSurface& printer, const SymWingSections& wing, const Transform& at);
/// With the centre line in the colour `centreLine`, from the paper's upper edge as far below the
/// wing as above it.
void printFront(PrinterSurface& printer, const SymWingSections& wing, const Transform& at,
                Rgb centreLine);
void printVTop(PrinterSurface& printer, const SymWingSections& wing, const Transform& at);

}  // namespace velna
