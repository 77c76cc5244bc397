#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace velna {

/// A size on a sheet, or that of the sheet.
struct PackedSize {
    double width = 0;
    double height = 0;
};

/// Something to be packed: its size, and the one that it has turned, where it may lie so.
struct PackedPart {
    PackedSize size;
    std::optional<PackedSize> turned = {};
};

/// Where a part has come to lie: its upper left corner, y down, on a sheet counted from 0.
struct PackedPlace {
    std::size_t sheet = 0;
    double x = 0;
    double y = 0;
    bool turned = false;
};

/// Packs parts on as few sheets as it finds, so that `gap` lies between any two: large ones first,
/// each into the free rectangle that suits it best, and of several ways the one that needs least.
/// One that no sheet holds lies alone on its own, in the corner, and reaches beyond it. One place a
/// part, in their order. (J. Jylänki, "A Thousand Ways to Pack the Bin", 2010: maximal rectangles.)
std::vector<PackedPlace> packParts(std::span<const PackedPart> parts, const PackedSize& sheet,
                                   double gap);

}  // namespace velna
