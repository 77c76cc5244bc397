#pragma once

namespace velna {

/// A place in the main window, pixels of its client area, y down.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    int right() const { return left + width; }
    int bottom() const { return top + height; }
};

/// What the layout starts from.
struct LayoutInput {
    int workWidth = 0;  ///< client area of the maximised window
    int workHeight = 0;
    int barHeight = 0;   ///< the toolbar
    int panelNeeds = 0;  ///< width without which the panel's pages would be cut off
    bool smallFonts = false;
};

/// Where everything stands. Nothing overlaps, whatever the size.
struct WindowLayout {
    Place bar;         ///< the toolbar
    Place parameters;  ///< the panel, in the width left of the drawing area
    Place render;      ///< the picture, above the drawing area
    Place drawArea;
    Place hints;       ///< what is free above the panel
    Place foot;        ///< the strip under the drawing area
    int logoLeft = 0;  ///< in the strip
    int logoWidth = 0;
    bool logoVisible = false;
    Place strip;  ///< right of the logo, or in its place where there is none
};

WindowLayout layOutWindow(const LayoutInput& input);

}  // namespace velna
