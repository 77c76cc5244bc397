#pragma once

#include "shell/Desktop.h"
#include "shell/Dialogs.h"

namespace velna {

/// The shell's ports, set once before start-up.
struct ShellPorts {
    Desktop* desktop = nullptr;
    Dialogs* dialogs = nullptr;
};

extern ShellPorts Shell;

/// The program's name as its own windows and messages give it.
inline constexpr const char* applicationTitle = "Velna";

}  // namespace velna
