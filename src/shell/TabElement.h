#pragma once

#include <optional>
#include <string>

#include "common/Point.h"

namespace velna::TabElement {

/// The element that the open tab edits, as far as colour and picture go: the current fuselage (tab
/// 0), the current wing (1), the stabiliser (2), the fin (3). The electronics tab has none.

/// Its colour, nothing on the electronics tab.
std::optional<Point3D> color();
/// Stores its colour; the electronics tab stores nothing.
void setColor(const Point3D& color);
/// Gives it a picture by full path and title; both empty take the picture away. It is converted at
/// its next use. False where that changes nothing: no such element, or no picture to take away.
bool setTexture(const std::string& file, const std::string& title);

}  // namespace velna::TabElement
