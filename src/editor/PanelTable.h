#pragma once

#include <optional>
#include <span>
#include <string>

#include "editor/Controls.h"

namespace velna {

struct Project;
class SymWingSections;

/// What a number of the panel is stored in, and the panel that it is typed in.
struct PanelStore {
    Project& project;
    const ControlStates& controls;
};

/// How a number stands in a text box.
enum class TextRule {
    Length,  ///< through `Formatter`
    Plain,   ///< the shortest text of the number
    Whole,   ///< a whole number in both units
};

/// What a commit does once the number is stored, beyond the redraw of the view.
enum class AfterCommit {
    Redraw,
    RefillWing,    ///< the shown span has changed with the shift
    MovePlan,      ///< take the fuselage's old plan off the surface first
    BuildOutline,  ///< the number of outline points: commits on each change of the text
};

/// A text box of the panel.
struct PanelField {
    Control control;
    int tab;
    double (*get)(const Project& project);
    bool (*set)(const PanelStore& store,
                double value);  ///< false: the model cannot hold the number, and keeps its own
    TextRule rule;
    AfterCommit after;
    const char* quantity;  ///< what it measures, for the tool tip
};

/// A slider of the section editor; the model holds a hundredth of its number.
struct PanelSlider {
    Control control;
    int lowest;
    int highest;
    int largeStep;
    double (*get)(const Project& project);
    bool (*set)(const PanelStore& store, double value);
    std::optional<Control> linked;  ///< follows with `LinkedCurvaturesCheck`
    const char* quantity;
};

/// A check box of the panel.
struct PanelCheck {
    Control control;
    bool (*get)(const Project& project);
    void (*set)(Project& project, bool on);
    bool renders;  ///< the picture shows the change at once
    const char* quantity;
};

/// Every text box of the form, in the order of the tabs' numbers.
std::span<const PanelField> panelFields();
std::span<const PanelSlider> panelSliders();
std::span<const PanelCheck> panelChecks();

/// The row of a control, null when it has none.
const PanelField* panelField(Control control);
const PanelSlider* panelSlider(Control control);
const PanelCheck* panelCheck(Control control);

/// The number of a field as its box shows it.
std::string panelText(const Project& project, const PanelField& field);

/// What the box measures, and the unit in use ("Root chord (mm)").
std::string panelTip(const Project& project, const PanelField& field);

/// What becomes of the text that the user has left in the box; empty when the model holds it.
std::string entryTip(const PanelStore& store, const PanelField& field);

/// The span that the boxes show, over both halves. A panel's own lies outside its shift.
double fullSpan(const SymWingSections& panel);

/// A length in the given unit as a box shows it: whole millimetres rounded down, or inches with two
/// decimals.
std::string lengthText(double length, int unit);

}  // namespace velna
