#pragma once

#include <string>

#include "editor/Main.h"
#include "preview/Rendering.h"
#include "shell/Dialogs.h"
#include "shell/Ports.h"

namespace velna {

/// The commands that put a section on the wing, beside the Open command's own import. What cannot
/// be put there is told in one message, and the wing stays as it is. The stabiliser keeps its
/// section: a project file has no place for another one.
struct AirfoilCommands {
    MainForm& main;
    Rendering& rendering;
    const ShellPorts& ports;

    /// What the dialog was left with.
    NacaAnswer naca;

    /// Puts the section of an airfoil file, in whatever order its points come, on the current
    /// panel.
    void openOutline(const std::string& file);

    /// Asks for a NACA section and puts it on the current panel or on all.
    void nacaSection();

    /// Gives every panel the current one's section and thickness.
    void onEveryPanel();

private:
    void show();
};

}  // namespace velna
