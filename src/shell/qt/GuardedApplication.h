#pragma once

#include <QApplication>
#include <functional>

namespace velna {

/// The toolkit's application, which outlives an event that needs more memory than there is.
class GuardedApplication : public QApplication {
public:
    using QApplication::QApplication;

    /// What is to be done then. It waits for the end of the outermost event: what an event within
    /// another, as those of a dialog are, has lost must not be taken back under the other.
    std::function<void()> whenMemoryEnds = [] {};

    /// Does `work` as the outermost event is done.
    void guard(const std::function<void()>& work);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    int depth_ = 0;  // of events within events
    bool memoryEnded_ = false;
};

}  // namespace velna
