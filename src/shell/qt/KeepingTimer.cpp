#include "shell/qt/KeepingTimer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QThread>

#include "shell/Application.h"

namespace velna {

KeepingTimer::KeepingTimer(Application& program) : program_(program) {
    constexpr int period = 1000;  // milliseconds
    connect(&timer_, &QTimer::timeout, this, [this] { look(); });
    timer_.start(period);
    qApp->installEventFilter(this);
}

void KeepingTimer::look() {
    if (QGuiApplication::mouseButtons() != Qt::NoButton) return;
    program_.recovery.look(program_.files.projectName);
    // A message must not lie over a dialog that asks for something else.
    if (QThread::currentThread()->loopLevel() <= 1) program_.recovery.tell();
}

// Who drags one thing after the other may never be found at rest by the timer alone. The look comes
// when the release has done its work.
bool KeepingTimer::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease)
        QTimer::singleShot(0, this, [this] { look(); });
    return false;
}

}  // namespace velna
