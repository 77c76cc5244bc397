#include "shell/qt/LogOut.h"

#include <QApplication>
#include <QEvent>
#include <QSessionManager>

#include "shell/Quit.h"
#include "shell/qt/DisplaySystem.h"
#include "shell/qt/SessionClient.h"

namespace velna {

LogOut::LogOut(Quit& quit) : quit_(quit) {
    // The desktop waits for the answer of this very call.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &LogOut::ask, Qt::DirectConnection);
    qApp->installEventFilter(this);
    if (DisplaySystem::isWayland())
        session_ = std::make_unique<SessionClient>([this] { return quit_.querySessionEnd(); });
}

LogOut::~LogOut() = default;

bool LogOut::asks() const {
    return !session_ || session_->joined();
}

void LogOut::ask(QSessionManager& manager) {
    // Where the desktop lets nobody ask, it only takes stock or will not wait: the close itself
    // asks.
    if (!manager.allowsInteraction()) return;
    // The interaction that a release has ended cannot carry the No any more.
    quit_.querySessionEnd() ? manager.release() : manager.cancel();
}

// Another program can call the log-out off without a word to this one; the user then goes on.
bool LogOut::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress)
        quit_.sessionGoesOn();
    return false;
}

}  // namespace velna
