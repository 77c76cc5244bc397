#pragma once

#include "editor/Main.h"
#include "output/Plans.h"
#include "shell/FigureSheet.h"
#include "shell/Ports.h"
#include "shell/Settings.h"

namespace velna {

/// The Print command.
struct PrintCommand {
    MainForm& main;
    PrintSelectRecord& PrintSelect;  ///< the form's choice
    Settings& settings;
    const ShellPorts& ports;
    const FigureSheet& figures;  ///< whether its marks go on the plans too

    /// Asks which plans, then for the printer, and prints each chosen plan as a job of its own.
    /// Whatever happens after the choice, the top view stands afterwards; Cancel in the choice
    /// changes nothing. What the form has beside the plans comes back at the next start. What could
    /// not be printed as it was wished is told in one message.
    void run();
};

}  // namespace velna
