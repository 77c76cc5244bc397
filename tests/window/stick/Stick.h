#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <memory>

struct _SDL_Joystick;

/// A virtual joystick with two axes and four buttons, plugged in as long as it lives. It is moved
/// by the lines written into a named pipe: "x y buttons" sets the axes (-32768 to 32767) and the
/// mask of the buttons that are down, "out" pulls the stick out.
class Stick : public QObject {
    Q_OBJECT

public:
    explicit Stick(const QString& pipe);
    ~Stick() override;

private:
    void plugIn();
    void pullOut();
    void read();
    void obey(const QByteArray& line);

    int pipe_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
    int index_ = -1;
    _SDL_Joystick* device_ = nullptr;
};
