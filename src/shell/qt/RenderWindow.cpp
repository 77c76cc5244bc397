#include "shell/qt/RenderWindow.h"

#include <QExposeEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "shell/qt/EventArguments.h"

namespace velna {
namespace {

// A wheel's notch is 120 units and moves the eye by 50; a pinch to double size by 200.
constexpr double distancePerWheelUnit = -50.0 / 120;
constexpr double distancePerPinch = -200;

}  // namespace

RenderWindow::RenderWindow() {
    setSurfaceType(QSurface::OpenGLSurface);
    setFlag(Qt::WindowDoesNotAcceptFocus);
    setObjectName("Render");
}

void RenderWindow::exposeEvent(QExposeEvent*) {
    if (isExposed() && Rendering::contextCreated) Rendering::renderScene(false);
}

void RenderWindow::mousePressEvent(QMouseEvent* event) {
    const int button = EventArguments::button(event->button());
    if (Flying::flying) {
        Flying::mouseDown(button);
        return;
    }
    Rendering::mouseDown(button, EventArguments::shift(event->modifiers()), event->position().x(),
                         event->position().y());
}

void RenderWindow::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void RenderWindow::mouseMoveEvent(QMouseEvent* event) {
    if (Flying::flying) Flying::mouseMove(event->position().x(), event->position().y());
    else Rendering::mouseMove(event->position().x(), event->position().y());
}

void RenderWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (Flying::flying) return;
    Rendering::mouseUp(EventArguments::button(event->button()), event->position().x(),
                       event->position().y());
}

void RenderWindow::wheelEvent(QWheelEvent* event) {
    if (!Flying::flying) Rendering::zoomBy(event->angleDelta().y() * distancePerWheelUnit);
}

bool RenderWindow::event(QEvent* event) {
    if (event->type() == QEvent::NativeGesture && !Flying::flying) {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture)
            Rendering::zoomBy(gesture->value() * distancePerPinch);
        return true;
    }
    return QWindow::event(event);
}

}  // namespace velna
