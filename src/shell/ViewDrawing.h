#pragma once

namespace velna {

struct Project;
class Surface;

/// Draws the view `mode` of the aircraft as a window does that has just opened it and whose drawing
/// surface is `surface`. What can be edited in it alone, such as the selected sections, stays.
void drawView(Project& project, int mode, Surface& surface);

}  // namespace velna
