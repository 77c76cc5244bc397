#pragma once

namespace velna::FileCommands {

/// Resets to the default aircraft, after a question.
void newProject();

/// Opens a project, an airfoil for the current wing, or a picture for the open tab's element; a
/// cancel with the picture filter takes that picture away.
void open();

/// Saves the project, or exports the model or the view on screen. Each save asks for a name.
void save();

}  // namespace velna::FileCommands
