#pragma once

#include <cmath>

namespace velna {

/// Stores `value` in `target` when it is finite; otherwise the statement fails and `target` keeps
/// its old value. Every value that enters the model from a field, a drag or a division passes here,
/// so that no infinity or NaN ever stands in a project. Returns whether the value was stored.
inline bool assignFinite(double& target, double value) {
    if (!std::isfinite(value)) return false;
    target = value;
    return true;
}

}  // namespace velna
