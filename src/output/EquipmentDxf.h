#pragma once

#include "model/ElectroBox.h"
#include "output/DxfDrawing.h"

namespace velna {

// What a box puts into a drawing, in model units, on a layer named after its kind and its number
// `id` in the list, from 1.

void saveDXF_side(DxfDrawing& drawing, const ElectroBox& box, int id);
void saveDXF_htop(DxfDrawing& drawing, const ElectroBox& box, int id);

}  // namespace velna
