#pragma once

#include <QJsonObject>
#include <QObject>
#include <QPoint>

/// What has reached the program of the mouse and the keyboard. A toolkit passes over the pointer's
/// stops when it is late; whoever works the program waits here until it has noticed one.
class Seen : public QObject {
    Q_OBJECT

public:
    /// Watches everything that the application's windows get from now on.
    Seen();

    /// "at": the pointer's last place on the screen; "buttons": those that are down; "keys": the
    /// modifiers that are down; "presses": how many presses there were.
    QJsonObject told() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void seeKey(int key, bool down);

    QPoint at_;
    Qt::MouseButtons buttons_;
    Qt::KeyboardModifiers keys_;
    int presses_ = 0;
};
