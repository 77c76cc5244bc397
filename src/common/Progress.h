#pragma once

namespace velna {

/// Who watches a long reading, save, export or print job: it shows how far the work is, and may end
/// it.
class Progress {
public:
    virtual ~Progress() = default;

    /// `done` of `total` units of work (lines, points, sheets) are behind us. False: the user has
    /// cancelled, and the work is to be dropped.
    virtual bool step(long long done, long long total) = 0;

    /// Asked every few hundredths of a second while something goes on that has no parts to count.
    /// False: the user has cancelled.
    virtual bool stillAtWork() { return true; }

    /// The command is over: the next one starts anew.
    virtual void finish() {}
};

/// Thrown out of work whose steps give no outcome of their own, once the user has cancelled it.
struct WorkCancelled {};

/// Counts the units of one export or job and asks the watcher now and then, so that neither a small
/// model pays for the question nor a large one runs on after a cancel.
class Work {
public:
    /// `total` is an estimate; more units than that count as all of them. `watcher` is asked every
    /// `interval` units; null when nobody watches, and the work then runs to its end.
    Work(Progress* watcher, long long total, long long interval = 4096)
        : watcher_(watcher), total_(total), interval_(interval), nextQuestion_(interval) {}

    /// `units` more are done. False once the user has cancelled.
    bool did(long long units) {
        done_ += units;
        if (done_ >= nextQuestion_) ask();
        return !cancelled_;
    }

    bool cancelled() const { return cancelled_; }

private:
    void ask();

    Progress* watcher_;
    long long total_;
    long long interval_;
    long long done_ = 0;
    long long nextQuestion_;
    bool cancelled_ = false;
};

}  // namespace velna
