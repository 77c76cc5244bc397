#pragma once

#include "model/ElectroBox.h"
#include "model/MeshSections.h"
#include "model/SymWingSections.h"
#include "model/VertWingSection.h"
#include "output/DxfDrawing.h"

namespace velna {

// What each part of the aircraft puts into a drawing, in model units, a layer a part. `id` is the
// part's number in its list, from 1.

void saveDXF_vtop(DxfDrawing& drawing, const SymWingSections& wing);
void saveDXF_front(DxfDrawing& drawing, const SymWingSections& wing);
/// The root section alone: seen from the side, the halves cover each other.
void saveDXF_side(DxfDrawing& drawing, const SymWingSections& wing);

/// The fin's root. The twin is asked for by the height of the root, as the view from above does it.
void saveDXF_vtop(DxfDrawing& drawing, const VertWingSection& fin);
void saveDXF_front(DxfDrawing& drawing, const VertWingSection& fin);
void saveDXF_side(DxfDrawing& drawing, const VertWingSection& fin);

void saveDXF_vtop(DxfDrawing& drawing, const MeshSections& body, int id);
/// All sections first, then all mirrored ones. Without a shift the outline is complete by itself.
void saveDXF_front(DxfDrawing& drawing, const MeshSections& body, int id);
void saveDXF_side(DxfDrawing& drawing, const MeshSections& body, int id);
/// The building plan of one body, and above it the row of its sections.
void saveDXF_htop(DxfDrawing& drawing, const MeshSections& body);

void saveDXF_side(DxfDrawing& drawing, const ElectroBox& box, int id);
void saveDXF_htop(DxfDrawing& drawing, const ElectroBox& box, int id);

}  // namespace velna
