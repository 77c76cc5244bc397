#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace velna {

/// The size of something to be packed, or of the sheet to pack it on.
struct PackedSize {
    double width = 0;
    double height = 0;
};

/// Where a part has come to lie: its upper left corner, y down, on a sheet counted from 0.
struct PackedPlace {
    std::size_t sheet = 0;
    double x = 0;
    double y = 0;
};

/// Packs parts on sheets so that `gap` lies between any two, in rows of falling height from the
/// upper edge; a part goes into the first row that has room for it. A part larger than the sheet
/// gets a row or a sheet of its own, and reaches beyond it. One place a part, in their order.
std::vector<PackedPlace> packParts(std::span<const PackedSize> parts, const PackedSize& sheet,
                                   double gap);

}  // namespace velna
