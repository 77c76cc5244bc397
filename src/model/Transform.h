#pragma once

namespace velna {

/// From model units to a drawing's: `zoom` units of the drawing a model unit, the model's origin at
/// column `xoff` and row `yoff`. A drawing's rows count downward, whatever it is: pixels, paper
/// or a file.
struct Transform {
    double zoom = 1;
    double xoff = 0;
    double yoff = 0;

    friend bool operator==(const Transform&, const Transform&) = default;
};

}  // namespace velna
