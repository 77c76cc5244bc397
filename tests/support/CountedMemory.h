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
    /// Whether one block alone is not to be had then, and all behind it are.
    static std::atomic<bool> refusesOne;

    /// Counts `most` anew, and gives what is in use.
    static std::size_t begin();
};

/// While one lives, the program gets so many blocks; the next one is refused, or all from that on.
class RefusedMemory {
public:
    enum class From { one, there };

    RefusedMemory(int blocks, From from) {
        CountedMemory::refusesOne = from == From::one;
        CountedMemory::blocksLeft = blocks;
    }
    ~RefusedMemory() { CountedMemory::blocksLeft = -1; }
    RefusedMemory(const RefusedMemory&) = delete;
    RefusedMemory& operator=(const RefusedMemory&) = delete;
};

/// How many blocks `work` takes.
template <class Work>
int blocksOf(Work work) {
    constexpr int plenty = 1 << 30;
    CountedMemory::refusesOne = false;
    CountedMemory::blocksLeft = plenty;
    work();
    return plenty - CountedMemory::blocksLeft.exchange(-1);
}

}  // namespace velna::test
