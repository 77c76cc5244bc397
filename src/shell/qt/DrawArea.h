#pragma once

#include <functional>
#include <vector>

#include "editor/Window.h"
#include "model/FigureMarks.h"
#include "shell/qt/SurfaceWidget.h"

class QKeyEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QWheelEvent;

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

    /// What the strip says, as one text: the drawing's accessible value.
    QString reading() const;

    /// The marks of the figures that lie over the drawing from now on; what is drawn below them is
    /// not touched.
    void showMarks(std::vector<MarkLine> marks);

    /// Runs after each event of the pointer and the keys.
    std::function<void()> afterInput = [] {};

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void openMenu();
    void pinch(const QNativeGestureEvent& event);
    /// Wheel and pinch are for the hand alone: not while the demonstration draws, or a button is
    /// held.
    bool canZoom(Qt::MouseButtons held) const;

    MainForm& main_;
    const Helper& helper_;
    std::vector<MarkLine> marks_;
    int keysDown_ = 0;  // that went down here, modifiers apart
};

}  // namespace velna
