#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

struct _SmcConn;

namespace velna {

/// What the program has to say to the desktop's manager of log-ins under Wayland, where the toolkit
/// says nothing: a log-out is asked about while it can still be called off.
class SessionClient {
public:
    /// Registers with the manager that SESSION_MANAGER names. `agrees` asks the user; its false
    /// calls the log-out off.
    explicit SessionClient(std::function<bool()> agrees);
    ~SessionClient();
    SessionClient(const SessionClient&) = delete;
    SessionClient& operator=(const SessionClient&) = delete;

    /// False where the desktop has no such manager, or has ended it.
    bool joined() const { return connection_ != nullptr; }

    // What the manager says.

    /// The program may keep what it needs; `mayAsk` when this is for a log-out that still waits.
    void saveYourself(bool mayAsk);
    /// The user's attention is the program's now.
    void ask();
    /// The user is logged out: the windows close.
    static void end();

private:
    void join();
    void introduce();
    void read();

    std::function<bool()> agrees_;
    _SmcConn* connection_ = nullptr;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace velna
