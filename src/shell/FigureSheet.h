#pragma once

#include <string>
#include <vector>

#include "model/FigureMarks.h"
#include "model/LiveFigures.h"
#include "output/FigureGroups.h"

namespace velna {

class MainForm;

/// What the window of figures shows of the aircraft in hand, and what is typed there.
class FigureSheet {
public:
    explicit FigureSheet(const MainForm& main) : main_(main) {}
    FigureSheet(const FigureSheet&) = delete;

    /// A line of the window; a title has neither value nor unit.
    struct Line {
        std::string label;
        std::string value;  ///< empty where there is none
        std::string unit;
        bool title = false;

        friend bool operator==(const Line&, const Line&) = default;
    };

    /// The marks are drawn in the views and on the plans.
    bool showsMarks = false;

    /// What a field holds. Whatever is no number of at least 0 counts as nothing.
    void typeMass(const std::string& text) { type(mass_, text); }
    void typeSpeed(const std::string& text) { type(speed_, text); }
    /// Whether that is a number, or empty.
    bool massTaken() const { return mass_.taken; }
    bool speedTaken() const { return speed_.taken; }

    /// Looks whether anything has changed, and only then computes; whether it did.
    bool update();

    /// The lines as they stood at the last `update`. Mass and speed are not among them: they stand
    /// in their fields.
    std::vector<Line> lines() const;
    /// All figures as a text to be kept elsewhere, as they stood then.
    std::string text() const;

    /// The marks for the view on the screen as it is now, of the aircraft at the last `update`;
    /// none where they are not asked for.
    std::vector<MarkLine> marksOnScreen() const;

private:
    struct Typed {
        Figure value;
        bool taken = true;
    };

    static void type(Typed& field, const std::string& text);

    const MainForm& main_;
    Typed mass_;
    Typed speed_;
    LiveFigures live_;
};

}  // namespace velna
