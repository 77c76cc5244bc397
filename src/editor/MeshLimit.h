#pragma once

#include "model/MeshSections.h"

namespace velna {

/// Whether all fuselages together stay within the number of mesh points that a project file may
/// hold when `grown` has `sections` times `cross` points: what the panel or the pointer makes must
/// load again. `grown` may be null for a fuselage that is still to come.
bool meshFits(const MeshSections* grown, long long sections, long long cross);

}  // namespace velna
