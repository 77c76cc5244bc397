#pragma once

namespace velna::Plane {

/// The fits of the four views to a surface of `width` x `height` pixels. They give pixels per model
/// unit and the pixel of model coordinate 0; an empty extent leaves `zoom` as it stands.
void fitVTop(int width, int height, double& zoom, double& yoff);
void fitFront(int width, int height, double& zoom, double& yoff);
void fitSide(int width, int height, double& zoom, double& xoff, double& yoff);
void fitHTop(int width, int height, double& zoom, double& xoff, double& yoff);

}  // namespace velna::Plane
