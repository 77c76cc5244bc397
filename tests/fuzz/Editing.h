#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include "editor/Main.h"
#include "support/Bystanders.h"

namespace velna::fuzz {

inline constexpr int mostGestures = 60;

/// A hand at the form: what the bytes say is pressed, dragged, typed, chosen and clicked, as far as
/// the form lets it. A control that is disabled is left alone, as a user has to.
class Editing {
public:
    /// The form's ports are set, and a view is entered.
    Editing(MainForm& form, PlacesSurface& area, AnsweringWindow& window, FuzzedDataProvider& bytes)
        : form_(form), area_(area), window_(window), bytes_(bytes) {}

    /// One gesture more.
    void act();

private:
    void enterView();
    void drag();
    void key();
    void type();
    void slide();
    void scroll();
    void check();
    void push();
    void choose();
    void menu();
    void manage();
    void prefer();
    void undoOrRedo();
    void look();

    /// A control between two, both included, that is enabled and visible; `Control::count` where
    /// it is not.
    Control usable(Control first, Control last);
    Point2D place();
    std::string number();

    MainForm& form_;
    PlacesSurface& area_;
    AnsweringWindow& window_;
    FuzzedDataProvider& bytes_;
};

}  // namespace velna::fuzz
