#pragma once

#include <QObject>
#include <memory>

class QSessionManager;

namespace velna {

class SessionClient;
struct Quit;

/// A log-out of the desktop: asks the question of a quit while its No can still call the log-out
/// off. The close that follows a Yes does not ask again.
class LogOut : public QObject {
public:
    explicit LogOut(Quit& quit);
    ~LogOut() override;

    /// False where the desktop gives no way to ask.
    bool asks() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ask(QSessionManager& manager);

    Quit& quit_;
    std::unique_ptr<SessionClient> session_;  // where the toolkit itself takes no part in one
};

}  // namespace velna
