#pragma once

#include <cstdint>

#include "common/Palette.h"
#include "editor/Surface.h"
#include "model/Transform.h"

namespace velna {

/// What the drawing of a view works on: where it draws, at which scale, and in which colours.
struct Canvas {
    Surface& area;
    Transform at;
    bool erases;       ///< old lines are taken off in white first
    bool overPicture;  ///< on a background picture just painted, where nothing old stands
    Rgb dim;           ///< of what stands in the background
    Rgb lit;           ///< of the part that the pointer rests on
};

/// The pointer over the drawing surface, in its pixels, and the modifiers that count there.
struct Pointer {
    float x = 0;
    float y = 0;
    std::int16_t xloc = 0;  ///< pixel of the last press
    std::int16_t yloc = 0;
    bool shiftkey = false;
    bool ctrlkey = false;
};

}  // namespace velna
