#pragma once

#include "model/MeshSections.h"
#include "output/DxfDrawing.h"

namespace velna {

// What a fuselage puts into a drawing, in model units, on a layer of its own. `id` is its number in
// the list, from 1.

void saveDXF_vtop(DxfDrawing& drawing, const MeshSections& body, int id);
/// All sections first, then all mirrored ones. Without a shift the outline is complete by itself.
void saveDXF_front(DxfDrawing& drawing, const MeshSections& body, int id);
void saveDXF_side(DxfDrawing& drawing, const MeshSections& body, int id);
/// The building plan of one body, and above it the row of its sections.
void saveDXF_htop(DxfDrawing& drawing, const MeshSections& body);

}  // namespace velna
