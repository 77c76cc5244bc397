#include "editor/Handles.h"

namespace velna {

float pixelsFromPress(Axis axis, float x, float y) {
    return axis == Axis::Right ? x - static_cast<float>(Main.xloc)
                               : y - static_cast<float>(Main.yloc);
}

double* valueOf(MeshSections& fuselage, Array1<double> MeshSections::*values) {
    if (!fuselage.sectionSelected()) return nullptr;
    return &(fuselage.*values)(fuselage.storageIndex(fuselage.sel_sec));
}

}  // namespace velna
