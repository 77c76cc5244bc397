#pragma once

#include <new>

#include "common/Outcome.h"

namespace velna {

/// What `work` gives; failed, and nothing thrown, where it needs memory that is not to be had.
template <class Work>
Outcome failedIfMemoryEnds(Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        // No more letters than a string holds without memory.
        return Outcome::failed("out of memory");
    }
}

/// Does as much of `work` as there is memory for, where it only shows what stands without it.
template <class Work>
void asFarAsMemoryGoes(Work work) {
    try {
        work();
    } catch (const std::bad_alloc&) {
        // The next showing is whole again.
    }
}

}  // namespace velna
