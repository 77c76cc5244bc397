#pragma once

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

namespace velna::test {

/// The numbers of blocks to be tried of `count`: the first `all`, or so many as VELNA_BLOCKS tells,
/// and `spread` of the rest, moved by the seed.
inline std::vector<int> blocksToTry(int count, int all, int spread = 30) {
    if (const char* wished = std::getenv("VELNA_BLOCKS")) all = std::atoi(wished);
    std::vector<int> blocks;
    const int seed = ::testing::UnitTest::GetInstance()->random_seed();
    const int step = std::max(1, (count - all) / spread);
    for (int i = 0; i < std::min(all, count); ++i) blocks.push_back(i);
    for (int i = all + seed % step; i < count; i += step) blocks.push_back(i);
    return blocks;
}

}  // namespace velna::test
