#pragma once

#include <string_view>

#include "common/Outcome.h"

namespace velna {

/// What a printer that does not keep to its scale is corrected by: by how much longer everything is
/// told to it. Where a ruler of 100 mm comes out 99 mm long, the factor is 100 / 99.
struct PrinterCorrection {
    double x = 1;  ///< across the sheet
    double y = 1;  ///< down the sheet

    friend bool operator==(const PrinterCorrection&, const PrinterCorrection&) = default;
};

/// No printer is farther off than this; what is was measured or typed wrong.
inline constexpr double leastCorrection = 0.8;
inline constexpr double largestCorrection = 1.25;

/// The correction of two typed factors. Failed with a word, `correction` left alone, where one is
/// no number or outside those bounds.
Outcome readCorrection(std::string_view x, std::string_view y, PrinterCorrection& correction);

}  // namespace velna
