#pragma once

namespace velna::Rendering {

/// The arguments of a view transform: pan and distance in pointer units, angles in tenths of a
/// degree.
struct View {
    double panX = 0;
    double panY = 0;
    double distance = 0;
    double spin = 0;
    double tilt = 0;
};

/// What the picture shows now. It is apart from the stored values, which a drag writes only at its
/// release.
extern View shownView;

}  // namespace velna::Rendering
