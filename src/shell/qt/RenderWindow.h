#pragma once

#include <QWindow>

namespace velna {

class RenderPointer;
class Rendering;

/// The native window `Render` inside the main window: it shows the picture and hands the pointer
/// on. It never takes the keyboard, so that the editor's keys keep working after a click into it.
class RenderWindow : public QWindow {
public:
    RenderWindow(Rendering& rendering, RenderPointer& pointer);

    /// The picture is drawn for its new size, in the next turn of the event loop.
    void resized();
    /// There is no context yet; one is made when the window is first shown.
    void awaitSurface() { lostContext_ = true; }

protected:
    void exposeEvent(QExposeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;

private:
    void answer();

    Rendering& rendering_;
    RenderPointer& pointer_;
    bool lostContext_ = false;  // none yet, or the native window went, and the context with it
    bool resized_ = false;
    bool held_ = false;  // a press has not been followed by a release
    QPointF last_;       // where the pointer was seen last
};

}  // namespace velna
