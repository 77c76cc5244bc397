#pragma once

#include "model/VertWingSection.h"
#include "output/DxfDrawing.h"

namespace velna {

// What the fin puts into a drawing, in model units.

/// The fin's root. The twin is asked for by the height of the root, as the view from above does it.
void saveDXF_vtop(DxfDrawing& drawing, const VertWingSection& fin);
void saveDXF_front(DxfDrawing& drawing, const VertWingSection& fin);
void saveDXF_side(DxfDrawing& drawing, const VertWingSection& fin);

}  // namespace velna
