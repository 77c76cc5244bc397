#pragma once

#include <string>

#include "model/Units.h"

namespace velna {

/// What the form of the preferences holds.
struct PrefsRecord {
    int prev_units = millimetres;  ///< the project's unit when the form was closed last
    bool InchesOption = false;
    bool MillimetersOption = true;
    double modelScaleFactor = 1.0;  ///< one-off factor, the number in `ScaleText` / 100
    std::string ScaleText = "100";
    bool ctrlZUndoes = false;  ///< Ctrl+Z, Ctrl+Y and Ctrl+S undo, redo and save again

    /// The two options are one group: setting one clears the other.
    void selectUnit(int unit) {
        InchesOption = unit == inches;
        MillimetersOption = unit == millimetres;
    }
    /// A key goes down in `ScaleText` that shows `text`: percent of the present size. Anything that
    /// is not a finite factor above 0 leaves the model alone.
    void scaleTextKeyDown(const std::string& text);
};

}  // namespace velna
