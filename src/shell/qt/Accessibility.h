#pragma once

namespace velna::Accessibility {

/// From now on the program's own widgets tell a screen reader what they are. The toolkit knows only
/// its own: to it the main window and the drawing area are fillings without a meaning.
void install();

}  // namespace velna::Accessibility
