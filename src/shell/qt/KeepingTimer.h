#pragma once

#include <QObject>
#include <QTimer>

namespace velna {

struct Application;

/// Has the program look, every second and after each gesture, whether there is work to be kept for
/// the case of a crash. Its timer runs in a dialog's own loop too; while a button of the mouse is
/// down nothing is looked at, for something may be dragged.
class KeepingTimer : public QObject {
public:
    explicit KeepingTimer(Application& program);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look();

    Application& program_;
    QTimer timer_;
};

}  // namespace velna
