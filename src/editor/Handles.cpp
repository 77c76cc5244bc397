#include "editor/Handles.h"

namespace velna {

float pixelsFromPress(Axis axis, float x, float y) {
    return axis == Axis::Right ? x - static_cast<float>(Main.xloc)
                               : y - static_cast<float>(Main.yloc);
}

double* valueOf(MeshSections& fuselage, Array1<double> MeshSections::*values) {
    if (!fuselage.sectionSelected()) return nullptr;
    Array1<double>& array = fuselage.*values;
    const int k = fuselage.sectionOrder(fuselage.sel_sec);
    return k <= array.upper() ? &array(k) : nullptr;
}

}  // namespace velna
