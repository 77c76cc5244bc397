#pragma once

namespace velna {

class BoxSolid;
class ElectroBox;

/// A box in the colour of its kind, between the beginning and the end of a display list.
void drawEquipment(const ElectroBox& box, const BoxSolid& solid);

}  // namespace velna
