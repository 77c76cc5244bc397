#pragma once

#include <cstddef>
#include <exception>
#include <new>
#include <system_error>
#include <thread>

namespace velna {

/// Below so many points a second thread costs more than it saves.
inline constexpr std::size_t workForTwoThreads = 500'000;

/// Runs `first` and `second`, which must not touch the same memory. Where `work`, in points, is
/// more than `workForTwoThreads` and the machine has a second core, `second` runs beside `first` in
/// a thread of its own; otherwise, and where no thread can be started, they run one after the
/// other. Returns when both have ended. What either throws arrives here, `first`'s before
/// `second`'s; where `first` throws, `second` may have run or not.
template <class Thread = std::jthread, class First, class Second>
void inTwoThreads(std::size_t work, First&& first, Second&& second,
                  unsigned cores = std::thread::hardware_concurrency()) {
    std::exception_ptr failure;
    Thread beside;
    if (work > workForTwoThreads && cores > 1) {
        try {
            beside = Thread([&]() noexcept {
                try {
                    second();
                } catch (...) {
                    failure = std::current_exception();
                }
            });
        } catch (const std::system_error&) {
            // The system starts no more threads.
        } catch (const std::bad_alloc&) {
            // Nor is there memory for one.
        }
    }
    const bool alone = !beside.joinable();
    first();
    if (alone) {
        second();
        return;
    }
    beside.join();
    if (failure) std::rethrow_exception(failure);
}

}  // namespace velna
