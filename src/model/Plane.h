#pragma once

#include <cstdint>

#include "model/Project.h"

namespace velna {

namespace Plane {

inline constexpr std::int16_t largestCount = 32767;
/// All fuselages together may have this many mesh points.
inline constexpr long long largestMesh = 4'000'000;

/// Resets the project to the default aircraft. The unit and the manager's rows stay as they are.
void setDefaultPlane(Project& project);
/// Multiplies all lengths of all objects by `k`.
void rescaleAll(Project& project, double k);
/// Converts every object; the order is wings, stabiliser, fuselages, fin, boxes. The unit itself is
/// left to the caller.
void switchAllToInches(Project& project);
void switchAllToMillimeters(Project& project);
/// Raises a signed 16-bit counter by 1; at 32767 the statement fails and false comes back.
bool increment(std::int16_t& counter);

}  // namespace Plane
}  // namespace velna
