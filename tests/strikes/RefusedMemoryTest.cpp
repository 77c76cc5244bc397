// Memory ends at any block that an operation takes: what is written is old or new, and its outcome
// tells it. VELNA_BLOCKS=N tries the first N blocks each, and some of those behind.

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "strikes/Writing.h"

namespace velna::test {
namespace {

using From = RefusedMemory::From;

/// The numbers of blocks to be tried of `count`: the first `all`, and some spread over the rest.
std::vector<int> blocksToTry(int count, int all) {
    if (const char* wished = std::getenv("VELNA_BLOCKS")) all = std::atoi(wished);
    constexpr int spread = 30;
    std::vector<int> blocks;
    const int seed = ::testing::UnitTest::GetInstance()->random_seed();
    const int step = std::max(1, (count - all) / spread);
    for (int i = 0; i < std::min(all, count); ++i) blocks.push_back(i);
    for (int i = all + seed % step; i < count; i += step) blocks.push_back(i);
    return blocks;
}

class RefusedBlocks : public ::testing::TestWithParam<Writing> {};

TEST_P(RefusedBlocks, LeaveTheOldFilesOrTheNewOnesAndTheOutcomeTellsIt) {
    Judge judge(GetParam());
    const int count = judge.blocks();
    EXPECT_GT(count, 20);
    for (const int blocks : blocksToTry(count, 60)) {
        EXPECT_EQ(judge.blameWithout(blocks, From::one), "") << blocks << " of " << count;
        EXPECT_EQ(judge.blameWithout(blocks, From::there), "") << "from " << blocks;
    }
}

std::vector<Writing> operations() {
    std::vector<Writing> all(writings().begin(), writings().end());
    std::erase_if(all, [](const Writing& writing) { return !writing.isOperation; });
    return all;
}

INSTANTIATE_TEST_SUITE_P(Writings, RefusedBlocks, ::testing::ValuesIn(operations()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(JudgeOfRefusedBlocks, FindsAnOutcomeThatDoesNotTellIt) {
    Judge judge({"Throwing", [](Workbench& bench) {
                     return std::string(100, 'x').empty() ? bench.target("work") : std::string();
                 }});
    EXPECT_EQ(judge.blameWithout(0, From::one), "its outcome does not tell it");
}

}  // namespace
}  // namespace velna::test
