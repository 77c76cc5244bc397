#pragma once

#include "editor/Window.h"
#include "shell/qt/SurfaceWidget.h"

class QKeyEvent;
class QMouseEvent;

namespace velna {

class MainForm;
struct Helper;

/// The two-dimensional editor on screen: it hands the pointer and the keys to `Main` as plain
/// arguments. Presses and releases are handed on one by one; only moves may be collapsed.
class DrawArea : public SurfaceWidget {
public:
    DrawArea(MainForm& main, const Helper& helper, QWidget* parent);

    void setShape(CursorShape shape, CursorIcon icon);
    /// A move of the demonstration, where no program can move the pointer itself.
    void glideTo(QPoint place);

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

    MainForm& main_;
    const Helper& helper_;
    int keysDown_ = 0;  // that went down here, modifiers apart
};

}  // namespace velna
