#pragma once

#include "common/Point.h"

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

extern HelpWindowRecord helpWindow;

/// Names the help file beside the program and the window's first place.
void initHelp();

/// Places the help over the drawing area: its upper left in the main window, and its size.
void setHelpWindow(Point2D position, Point2D size);

void showHelpContents();

/// Closes the help; runs when the program ends.
void quitHelp();

}  // namespace velna
