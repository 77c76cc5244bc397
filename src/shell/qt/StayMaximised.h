#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace velna {

/// Keeps a window maximised. A window manager that is just moving the window ignores the wish, so
/// it is told again until it is granted; one that never grants it is left alone after some seconds.
class StayMaximised : public QObject {
public:
    /// Lives as long as `window`, which is shown maximised already.
    explicit StayMaximised(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void askFrom(int milliseconds);
    void ask();
    bool granted() const;

    QWidget& window_;
    QTimer again_;
    int tries_ = 0;
};

}  // namespace velna
