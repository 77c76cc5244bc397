#include "common/Progress.h"

#include <algorithm>

namespace velna {

void Work::ask() {
    nextQuestion_ = done_ + interval_;
    if (watcher_ && !cancelled_) cancelled_ = !watcher_->step(std::min(done_, total_), total_);
}

}  // namespace velna
