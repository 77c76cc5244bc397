#include "shell/qt/RenderWindow.h"

#include <QExposeEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPlatformSurfaceEvent>
#include <QWheelEvent>

#include "preview/Rendering.h"
#include "preview/ViewMouse.h"
#include "shell/qt/EventArguments.h"

namespace velna {
namespace {

// A wheel's notch is 120 units and moves the eye by 20; a pinch to double size by 200.
constexpr double distancePerWheelUnit = -20.0 / 120;
constexpr double distancePerPinch = -200;

}  // namespace

RenderWindow::RenderWindow(Rendering& rendering, RenderPointer& pointer)
    : rendering_(rendering), pointer_(pointer) {
    setSurfaceType(QSurface::OpenGLSurface);
    setFlag(Qt::WindowDoesNotAcceptFocus);
    setObjectName("Render");
}

void RenderWindow::exposeEvent(QExposeEvent*) {
    if (isExposed()) requestUpdate();
}

void RenderWindow::resized() {
    resized_ = true;
    requestUpdate();
}

// Showing and sizing a window come as several events in a row: one frame answers them all.
void RenderWindow::answer() {
    if (!isExposed()) return;
    if (lostContext_) {
        rendering_.recreateRenderContext();
        rendering_.renderScene(true);
    } else if (resized_) {
        rendering_.resized();
    } else if (rendering_.contextCreated) {
        rendering_.renderScene(false);
    }
    lostContext_ = false;
    resized_ = false;
}

void RenderWindow::mousePressEvent(QMouseEvent* event) {
    held_ = true;
    last_ = event->position();
    pointer_.mouseDown(EventArguments::button(event->button()),
                       EventArguments::shift(event->modifiers()), event->position().x(),
                       event->position().y());
}

void RenderWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void RenderWindow::mouseMoveEvent(QMouseEvent* event) {
    // A dialog opened in mid-drag takes the release: it is made up for where the drag was last.
    if (event->buttons() == Qt::NoButton && held_) {
        pointer_.mouseUp(0, last_.x(), last_.y());
        held_ = false;
    }
    last_ = event->position();
    pointer_.mouseMove(event->position().x(), event->position().y());
}

void RenderWindow::mouseReleaseEvent(QMouseEvent* event) {
    held_ = false;
    pointer_.mouseUp(EventArguments::button(event->button()), event->position().x(),
                     event->position().y());
}

void RenderWindow::wheelEvent(QWheelEvent* event) {
    pointer_.zoomBy(event->angleDelta().y() * distancePerWheelUnit);
}

bool RenderWindow::event(QEvent* event) {
    if (event->type() == QEvent::UpdateRequest) answer();
    // A display list dies with its context, and a context with the window that it draws on.
    if (event->type() == QEvent::PlatformSurface && rendering_.contextCreated &&
        static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
        rendering_.destroyRenderContext();
        lostContext_ = true;
    }
    if (event->type() == QEvent::NativeGesture) {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture)
            pointer_.zoomBy(gesture->value() * distancePerPinch);
        return true;
    }
    return QWindow::event(event);
}

}  // namespace velna
