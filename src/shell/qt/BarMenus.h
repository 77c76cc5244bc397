#pragma once

#include "shell/ToolbarCommands.h"

class QToolButton;
class QWidget;

namespace velna::BarMenus {

/// The arrow that stands beside a button of the toolbar and opens a menu of further commands; null
/// where the button has none. It can be reached by Tab, and Space opens the menu.
QToolButton* arrowBeside(Toolbar::Key key, ToolbarCommands& commands, QWidget* parent);

}  // namespace velna::BarMenus
