#pragma once

#include "model/SymWingSections.h"
#include "output/DxfDrawing.h"

namespace velna {

// What a wing panel, or the stabiliser, puts into a drawing, in model units.

void saveDXF_vtop(DxfDrawing& drawing, const SymWingSections& wing);
void saveDXF_front(DxfDrawing& drawing, const SymWingSections& wing);
/// The root section alone: seen from the side, the halves cover each other.
void saveDXF_side(DxfDrawing& drawing, const SymWingSections& wing);

}  // namespace velna
