#pragma once

#include "editor/Main.h"
#include "support/InHand.h"

namespace velna {

// The one form that the tests of a program work, on the project in hand, and its preferences.
extern MainForm& Main;
extern PrefsRecord& Prefs;

/// Puts form and project back to those of a program just started; the form has no ports yet.
void resetEditor();

}  // namespace velna
