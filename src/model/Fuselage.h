#pragma once

#include "model/MeshSections.h"
#include "model/Plane.h"

namespace velna::Fuselage {

/// The fuselage being edited.
inline MeshSections& current(Project& project) {
    return project.Fuselages(project.currentFuselage);
}
inline const MeshSections& current(const Project& project) {
    return project.Fuselages(project.currentFuselage);
}

void initFuselages(Project& project);
void resizeFuselages(Project& project);
/// A new fuselage in slot `nbFuselages`; with `copyCurrent` the shape of the current one.
void addFuselage(Project& project, bool copyCurrent = false);
/// The mesh points of all fuselages together.
long long meshPoints(const Project& project);

/// Whether all fuselages together stay within `Plane::largestMesh` when `grown` has `sections`
/// times `cross` points: what the panel or the pointer makes must load again. `grown` may be null
/// for a fuselage that is still to come.
bool meshFits(const Project& project, const MeshSections* grown, long long sections,
              long long cross);
void zeroElevationOffsets(Project& project);
void rescale(Project& project, double k);
void switchToInches(Project& project);
void switchToMillimeters(Project& project);

}  // namespace velna::Fuselage
