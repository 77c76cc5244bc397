#pragma once

#include "model/MeshSections.h"

namespace velna {

/// The seven numbers of a section, in the order of their fields.
inline constexpr Array1<double> MeshSections::*sectionArrays[] = {
    &MeshSections::height,    &MeshSections::width,     &MeshSections::pos,
    &MeshSections::elevation, &MeshSections::curvature, &MeshSections::curvature2,
    &MeshSections::bias_curve};

}  // namespace velna
