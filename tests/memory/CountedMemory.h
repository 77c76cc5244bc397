#pragma once

#include <atomic>
#include <cstddef>

namespace velna::test {

/// Every block that `new` gives in this program, which is why these tests have one of their own.
struct CountedMemory {
    static std::atomic<std::size_t> now;   ///< bytes in use
    static std::atomic<std::size_t> most;  ///< the most since it was last set
    /// How many blocks are still to be had; below 0 any number.
    static std::atomic<int> blocksLeft;

    /// Counts `most` anew, and gives what is in use.
    static std::size_t begin();
};

}  // namespace velna::test
