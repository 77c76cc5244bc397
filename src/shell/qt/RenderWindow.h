#pragma once

#include <QWindow>

namespace velna {

/// The native window `Render` inside the main window: it shows the picture and hands the pointer
/// on. It never takes the keyboard, so that the editor's keys keep working after a click into it.
class RenderWindow : public QWindow {
public:
    RenderWindow();

protected:
    void exposeEvent(QExposeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool lostContext_ = false;  // the native window went, and the context with it
};

}  // namespace velna
