#pragma once

#include <chrono>
#include <future>
#include <system_error>

#include "common/Progress.h"

namespace velna {

/// Runs `work`, which asks nobody and cannot be interrupted, in a thread of its own, and asks
/// `watcher` meanwhile, so that the window goes on and takes a Cancel. Returns what `work` returns,
/// once it has ended; what it throws arrives here. `cancelled` becomes true where the watcher said
/// so, and stays as it is otherwise. Where no thread can be started, `work` runs unwatched.
template <class Work>
auto watchedWork(Progress& watcher, bool& cancelled, Work work) {
    constexpr std::chrono::milliseconds betweenQuestions(20);
    std::future<decltype(work())> result;
    try {
        result = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return work();
    }
    while (result.wait_for(betweenQuestions) != std::future_status::ready)
        if (!watcher.stillAtWork()) cancelled = true;
    return result.get();
}

}  // namespace velna
