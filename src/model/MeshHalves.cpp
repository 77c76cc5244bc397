#include "model/MeshHalves.h"

#include "common/NumberText.h"

namespace velna {

MeshHalves::MeshHalves(int nb_cross)
    : upperLast(roundToInt(nb_cross / 2.0)),
      opposite(roundToInt(nb_cross / 2.0 + 1)),
      lowerFirst(roundToInt(nb_cross / 2.0 + 2)) {
    for (int j = upperLast + 1; j < lowerFirst && j <= nb_cross; ++j)
        if (j != opposite) unset = j;
}

}  // namespace velna
