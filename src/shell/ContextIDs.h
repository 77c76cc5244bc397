#pragma once

#include "common/Point.h"
#include "shell/Desktop.h"

// The help: its page numbers, its file, and the place of its window.

namespace velna {

/// The main window's page of the help.
inline constexpr int mainWindowContext = 300;

/// The place of the help window on the screen, pixels.
struct HelpWindowRecord {
    int x = 256;
    int y = 256;
    int width = 512;
    int height = 512;
};

/// Names the help file beside the program.
void initHelp(Desktop& desktop);

/// Places the help over the drawing area: its upper left in the main window, and its size. Returns
/// the place, in whole pixels.
HelpWindowRecord setHelpWindow(Desktop& desktop, Point2D position, Point2D size);

}  // namespace velna
