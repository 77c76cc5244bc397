#pragma once

namespace velna {

/// Which points of a mesh's section belong to the upper half (1 to `upperLast`) and to the lower
/// one (from `lowerFirst`), and which stands opposite point 1. With an odd number of points the
/// rounding leaves one of them out of all ranges, and lets others overlap, where the later one
/// stays.
struct MeshHalves {
    explicit MeshHalves(int nb_cross);

    int upperLast;
    int opposite;
    int lowerFirst;
    int unset = 0;  ///< the point that is left out, 0 where none is
};

}  // namespace velna
