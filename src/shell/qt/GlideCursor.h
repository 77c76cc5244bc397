#pragma once

#include <QPoint>

namespace velna {

class MainWindow;

/// The cursor of the guided demonstration: the real one, or, where the platform lets no program
/// move it, a drawn one, whose moves are given to the drawing area directly.
namespace GlideCursor {

/// To `place` in the window's client area.
void moveTo(MainWindow& window, QPoint place);
/// Where it is on the screen.
QPoint position(const MainWindow& window);
/// Takes a drawn cursor away.
void hide();

}  // namespace GlideCursor
}  // namespace velna
