#pragma once

#include <QObject>

class QSessionManager;

namespace velna {

/// A log-out of the desktop: asks the question of a quit while its No can still call the log-out
/// off. The close that follows a Yes does not ask again.
class LogOut : public QObject {
public:
    LogOut();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void ask(QSessionManager& manager);
};

}  // namespace velna
