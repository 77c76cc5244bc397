#include "shell/qt/GuardedApplication.h"

#include <QThread>
#include <new>
#include <utility>

namespace velna {

void GuardedApplication::guard(const std::function<void()>& work) {
    ++depth_;
    try {
        work();
    } catch (const std::bad_alloc&) {
        memoryEnded_ = true;
    }
    // Still within it: what comes of the doing waits in its turn.
    if (depth_ == 1 && std::exchange(memoryEnded_, false)) whenMemoryEnds();
    --depth_;
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    // The toolkit's own threads have events too.
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    bool handled = true;
    guard([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

}  // namespace velna
