#pragma once

#include "common/Point.h"

namespace velna::Helper {

extern bool running;          ///< the demonstration is under way
extern Point2D cursorPos;     ///< where the glide stands, in pixels of the main window
extern Point2D cursorTarget;  ///< where it goes

/// Back to the state before start-up.
void reset();

/// The guided demonstration of a first use: it shows the mouse, Shift and Ctrl on the real
/// aircraft, with the real cursor and through the real events. The user keeps what it has edited.
void run();

/// Ends it at its present step (Escape, a closed window): nothing stays pressed, armed or floating.
void stop();

/// One tick of the glide: a tenth of the way, and the picture follows. It ends closer than 3 pixels
/// on both axes, at once when none is under way.
void glideStep();

/// The steps of the script; each takes the transform of the view that it works in.
void demoDragWing(double zoom, double xoff, double yoff);
void demoShiftDrag(double zoom, double xoff, double yoff);
void demoInsertSection(double zoom, double xoff, double yoff);

/// Glides to `point` from the last one given, or, without `glide`, only notes it.
void demoMoveCursor(Point2D point, bool glide);
void demoGlide(Point2D from, Point2D to);

}  // namespace velna::Helper
