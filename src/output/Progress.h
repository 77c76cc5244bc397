#pragma once

#include <string>

namespace velna {

/// Who watches a long export or print job: it shows how far the work is, and may end it.
class Progress {
public:
    virtual ~Progress() = default;

    /// `done` of `total` units of work (lines, points, sheets) are behind us. False: the user has
    /// cancelled, and the work is to be dropped.
    virtual bool step(long long done, long long total) = 0;
};

/// The watcher in use; null when nobody watches, and the work then runs to its end.
extern Progress* progress;

/// The reason that a cancelled export or print job returns. It is no failure: no message follows
/// it.
inline const std::string cancelledReason = "Cancelled";

/// Counts the units of one export or job and asks the watcher now and then, so that neither a small
/// model pays for the question nor a large one runs on after a cancel.
class Work {
public:
    /// `total` is an estimate; more units than that count as all of them. The watcher is asked
    /// every `interval` units.
    explicit Work(long long total, long long interval = 4096)
        : total_(total), interval_(interval), nextQuestion_(interval) {}

    /// `units` more are done. False once the user has cancelled.
    bool did(long long units) {
        done_ += units;
        if (done_ >= nextQuestion_) ask();
        return !cancelled_;
    }

    bool cancelled() const { return cancelled_; }

private:
    void ask();

    long long total_;
    long long interval_;
    long long done_ = 0;
    long long nextQuestion_;
    bool cancelled_ = false;
};

}  // namespace velna
