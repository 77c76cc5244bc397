#pragma once

#include <QKeyEvent>
#include <optional>

#include "shell/ToolbarCommands.h"

namespace velna {

/// The command that a key press runs wherever in the main window it comes, in a text box too: that
/// commits its text first. `ctrlZ` is the tick of the preferences: without it Ctrl+Z is the letter
/// over the drawing and the box's own undo in a text box. A control that gets such a press lets it
/// go on to the window.
std::optional<Toolbar::Key> commandOf(const QKeyEvent& event, bool ctrlZ);

}  // namespace velna
