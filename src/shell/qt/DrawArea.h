#pragma once

#include "editor/Window.h"
#include "shell/qt/SurfaceWidget.h"

class QKeyEvent;
class QMouseEvent;

namespace velna {

/// The two-dimensional editor on screen: it hands the pointer and the keys to `Main` as plain
/// arguments. Presses and releases are handed on one by one; only moves may be collapsed.
class DrawArea : public SurfaceWidget {
public:
    explicit DrawArea(QWidget* parent);

    void setShape(CursorShape shape, CursorIcon icon);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void openMenu();

    int keysDown_ = 0;  // that went down here, modifiers apart
};

}  // namespace velna
