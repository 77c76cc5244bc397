#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/Rib.h"

namespace velna {

class Region;

/// The edge of a rib from which a slot is cut.
enum class SlotSide { top, bottom };

/// A slot for a spar: a rectangle that is open to the outside. Its sides stand at equal distances
/// before and behind `percent` of the whole rib's chord. Its floor lies `depth` below the lowest
/// point that the top edge has between them (above the highest of the bottom edge), so that the
/// spar stands proud nowhere and a straight one fits all ribs of a panel.
struct SparSlot {
    double percent = 30;
    double width = 0;  ///< millimetres across the rib
    double depth = 0;  ///< millimetres
    SlotSide side = SlotSide::top;

    friend bool operator==(const SparSlot&, const SparSlot&) = default;
};

/// What became of a slot on one rib. Millimetres in the rib's frame.
struct SlotCut {
    double left = 0;
    double right = 0;
    double floor = 0;
    std::string why;  ///< why it is not cut; empty where it is
};

/// Cuts slots into what the skin has left of a rib of this chord, each by itself: a refused one
/// leaves the rib as it was. One row a slot, in their order.
std::vector<SlotCut> cutSlots(Region& rib, double chord, std::span<const SparSlot> spars);

/// The band between the top edge and the bottom edge below it: how low the one comes and how high
/// the other.
struct Clearance {
    double lowestTop = 0;
    double highestBottom = 0;
};

/// The clearance between the columns `left` and `right` of borders that do not cross each other;
/// nothing where a column of them lies outside.
std::optional<Clearance> clearanceOf(const std::vector<Loop>& borders, double left, double right);

}  // namespace velna
