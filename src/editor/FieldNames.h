#pragma once

#include <optional>
#include <string_view>

#include "editor/Controls.h"

namespace velna {

class MainForm;

/// What a control of the panel changes in the aircraft, as the user reads it ("Tip chord",
/// "Smooth width"); empty for a control that changes nothing there, such as a list's scroll bar.
std::string_view fieldName(Control control);

/// A number of the aircraft that a drag changes.
struct HeldField {
    Control box;   ///< the box of the panel that shows this number, of the part that is current
    double value;  ///< of the part that is held, as that box would show it, before rounding
};

/// What the drag under way changes, with or without Shift. Nothing where nothing is held, or where
/// what is held does not move. Of several numbers that change together, and of several parts, it is
/// the one that the hand has taken: the chord of a leading corner, the first panel of a wing.
std::optional<HeldField> heldField(const MainForm& form, bool shiftkey);
/// The same with the Shift of this moment.
std::optional<HeldField> heldField(const MainForm& form);

}  // namespace velna
