#pragma once

namespace velna {

/// Length units of a project.
inline constexpr int millimetres = 0;
inline constexpr int inches = 1;

namespace Plane {

inline constexpr double millimetresPerInch = 25.4;

inline double mmToInches(double value) {
    return value / millimetresPerInch;
}
inline double inchesToMm(double value) {
    return value * millimetresPerInch;
}

}  // namespace Plane
}  // namespace velna
