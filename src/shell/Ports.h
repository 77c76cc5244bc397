#pragma once

#include "common/Progress.h"
#include "shell/Desktop.h"
#include "shell/Dialogs.h"

namespace velna {

/// What the shell needs of the window, set once before start-up.
struct ShellPorts {
    Desktop* desktop = nullptr;
    Dialogs* dialogs = nullptr;
    Progress* progress = nullptr;  ///< watches exports and print jobs; null: they run to their end
};

/// The program's name as its own windows and messages give it.
inline constexpr const char* applicationTitle = "Velna";

/// Tells a save, export or print that failed: one message box with the reason, one line on standard
/// error.
void reportFailure(Dialogs& dialogs, const std::string& what, const std::string& reason);

}  // namespace velna
