#pragma once

#include "editor/Main.h"

namespace velna {

/// Runs `change`, and takes note that the project is to be saved if `read` then gives another
/// value: to commit the number that stands already is no change.
template <class Read, class Change>
void changeModel(MainForm& form, Read read, Change change) {
    const auto before = read();
    change();
    if (!(read() == before)) form.savedProject = false;
}

/// `changeModel` for one field.
template <class Value>
void storeInModel(MainForm& form, Value& field, Value value) {
    if (field == value) return;
    field = value;
    form.savedProject = false;
}

}  // namespace velna
