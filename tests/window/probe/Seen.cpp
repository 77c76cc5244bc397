#include "Seen.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QKeyEvent>
#include <QMouseEvent>

Seen::Seen() {
    QCoreApplication::instance()->installEventFilter(this);
}

QJsonObject Seen::told() const {
    QJsonArray keys;
    if (keys_ & Qt::ShiftModifier) keys.append("shift");
    if (keys_ & Qt::ControlModifier) keys.append("ctrl");
    if (keys_ & Qt::AltModifier) keys.append("alt");
    return {{"at", QJsonArray{at_.x(), at_.y()}},
            {"buttons", static_cast<int>(buttons_)},
            {"keys", keys},
            {"presses", presses_}};
}

bool Seen::eventFilter(QObject* watched, QEvent* event) {
    // Widgets get the same events once more.
    if (!watched->isWindowType()) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            ++presses_;
            [[fallthrough]];
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove:
            at_ = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
            buttons_ = static_cast<QMouseEvent*>(event)->buttons();
            break;
        case QEvent::Enter:
            at_ = static_cast<QEnterEvent*>(event)->globalPosition().toPoint();
            break;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            seeKey(static_cast<QKeyEvent*>(event)->key(), event->type() == QEvent::KeyPress);
            break;
        default:
            break;
    }
    return false;
}

void Seen::seeKey(int key, bool down) {
    if (key == Qt::Key_Shift) keys_.setFlag(Qt::ShiftModifier, down);
    if (key == Qt::Key_Control) keys_.setFlag(Qt::ControlModifier, down);
    if (key == Qt::Key_Alt) keys_.setFlag(Qt::AltModifier, down);
}
