#include "shell/qt/GlideCursor.h"

#include <QCursor>
#include <QLabel>
#include <QPointer>
#include <memory>

#include "shell/qt/DisplaySystem.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/MainWindow.h"

namespace velna::GlideCursor {
namespace {

QPointer<QLabel> drawn;

// Under Wayland, native or through its X server, a program cannot move the pointer.
bool pointerIsFree() {
    return !DisplaySystem::isWayland() && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void moveDrawn(MainWindow& window, QPoint place) {
    if (!drawn) {
        drawn = new QLabel(&window);
        DisplaySystem::standAbovePicture(*drawn);
        drawn->setAttribute(Qt::WA_TransparentForMouseEvents);
        drawn->setPixmap(
            Drawings::picture("cursors/Arrow", {24, 24}, window.devicePixelRatioF(), Qt::black));
        drawn->resize(24, 24);
        drawn->show();
        drawn->raise();
    }
    drawn->move(place);
    const QPoint inside = window.drawArea().mapFrom(&window, place);
    if (window.drawArea().rect().contains(inside)) window.drawArea().glideTo(inside);
}

}  // namespace

void moveTo(MainWindow& window, QPoint place) {
    if (pointerIsFree()) {
        QCursor::setPos(window.mapToGlobal(place));
    } else {
        moveDrawn(window, place);
    }
}

QPoint position(const MainWindow& window) {
    return drawn ? window.mapToGlobal(drawn->pos()) : QCursor::pos();
}

void hide() {
    delete drawn;
}

}  // namespace velna::GlideCursor
