#include "editor/MeshLimit.h"

#include "model/Plane.h"

namespace velna {

bool meshFits(const MeshSections* grown, long long sections, long long cross) {
    long long points = sections * cross;
    for (int i = 1; i <= nbFuselages; ++i) {
        const MeshSections& fuselage = Fuselages.alike(i);
        if (&fuselage != grown)
            points += static_cast<long long>(fuselage.nb_sections) * fuselage.nb_cross;
    }
    return points <= Plane::largestMesh;
}

}  // namespace velna
