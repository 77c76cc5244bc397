#pragma once

#include <array>
#include <optional>
#include <string>

#include "common/Point.h"
#include "editor/FieldNames.h"

namespace velna {

class MainForm;

/// What the strip beside the logo measures from.
struct StripState {
    /// A visit to a text box of the panel, from the focus's coming to its going.
    struct Visit {
        Control box;
        double value;                ///< at its begin
        std::array<int, 4> current;  ///< the parts that the panel showed then
    };

    std::optional<Point2D> pointer;  ///< over the drawing, in its pixels
    std::optional<Visit> visit;
    std::array<std::optional<HeldField>, 2>
        atPress;  ///< what the press has held, without Shift and with
};

/// What the strip says, each part empty where it has nothing to say.
struct StripText {
    std::string place;  ///< of the pointer in the aircraft ("x 312.40  y -120.00 mm")
    std::string value;  ///< of what is dragged or typed, and its change; or what to do next
};

StripText stripText(const MainForm& form);

/// The focus has come to a text box of the panel; nothing for any other control.
void enterField(MainForm& form, Control box);
void leaveField(MainForm& form);

/// The press: what a drag changes is measured from here.
void rememberHeld(MainForm& form);

}  // namespace velna
