#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QSize>

namespace velna {

/// The program's own drawings, kept as SVG in its resources. They are drawn in the ink of the
/// desktop in use, so that they can be read on a dark one too.
namespace Drawings {

/// Drawing `name` ("icons/Open") at `size`, for a screen of `density` device pixels to a pixel. In
/// a drawing with several measures only `measure` is lit. Empty when there is no such drawing.
QPixmap picture(const char* name, QSize size, double density, const QColor& ink,
                const char* measure = nullptr);

/// A drawing as the icon of a button, sharp at any size and density.
QIcon icon(const char* name, const QColor& ink);

}  // namespace Drawings
}  // namespace velna
