#pragma once

#include <span>

#include "editor/Controls.h"

namespace velna {

/// Where a text box stands on its tab, its caption, and the drawing that shows what it measures.
struct PanelPlace {
    Control control;
    int row;
    int column;  ///< 0 left, 1 right
    const char* caption;
    const char* drawing;  ///< `Image1` to `Image13`
    const char* measure;  ///< the part of the drawing that is lit
};

/// Every text box of the panel, in tab order.
std::span<const PanelPlace> panelPlaces();

}  // namespace velna
