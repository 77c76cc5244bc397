#pragma once

#include <cerrno>

namespace velna {

/// What a call of the system gives, below 0 for a failure; one that a signal has interrupted is
/// made again.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

}  // namespace velna
