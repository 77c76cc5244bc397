#include "output/Progress.h"

#include <algorithm>

namespace velna {

Progress* progress = nullptr;

void Work::ask() {
    nextQuestion_ = done_ + interval_;
    if (progress && !cancelled_) cancelled_ = !progress->step(std::min(done_, total_), total_);
}

}  // namespace velna
