#pragma once

#include <string>

namespace velna {

/// Length units of a project.
inline constexpr int millimetres = 0;
inline constexpr int inches = 1;

/// The settings that the model reads; the form that shows them is in the shell.
struct PrefsRecord {
    int units = millimetres;       ///< unit of all lengths in the project
    int prev_units = millimetres;  ///< `units` as it was when the form was closed last
    bool InchesOption = false;
    bool MillimetersOption = true;
    double modelScaleFactor = 1.0;  ///< one-off factor, the number in `ScaleText` / 100
    std::string ScaleText = "100";

    /// The two options are one group: setting one clears the other.
    void selectUnit(int unit) {
        InchesOption = unit == inches;
        MillimetersOption = unit == millimetres;
    }
};

extern PrefsRecord Prefs;

}  // namespace velna
