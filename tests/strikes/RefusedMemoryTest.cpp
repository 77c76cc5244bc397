// Memory ends at any block that an operation takes: what is written is old or new, and its outcome
// tells it; so it is with unsaved work. VELNA_BLOCKS=N tries the first N blocks each, and some of
// those behind.

#include <new>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/Plane.h"
#include "persistence/RecoveryFile.h"
#include "shell/RecoveryWriter.h"
#include "strikes/Blocks.h"
#include "strikes/Writing.h"

namespace velna::test {
namespace {

using From = RefusedMemory::From;

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

// ---- unsaved work, which a thread keeps and a start looks for

/// A folder of unsaved work with a piece that was kept before.
class RefusedKeeping : public ::testing::Test {
protected:
    RefusedKeeping() {
        Plane::setDefaultPlane(work_.project);
        RecoveryWriter writer(folder_.path());
        writer.keep(work_);
    }
    /// What there is to blame where memory ends behind so many blocks for who keeps another piece.
    std::string blameForKeeping(int blocks, From from) {
        UnsavedWork other = work_;
        other.project.Wings(1).span += 1;
        RecoveryWriter writer(folder_.path(), RecoverySlot::takeOver(folder_.path(), 1));
        {
            const RefusedMemory refused(blocks, from);
            writer.keep(std::move(other));
            writer.finish();
        }
        const bool told = writer.failure().has_value();
        const double span = RecoveryFile::read(folder_ / "unsaved-1.work").project.Wings(1).span;
        writer.keep(work_);
        writer.finish();
        return told || span != work_.project.Wings(1).span ? "" : "nobody is told";
    }

    UnsavedWork work_{{}, "/models/glider.vln"};
    TemporaryFolder folder_;
};

TEST_F(RefusedKeeping, LeavesOneOfTheTwoWholeAndIsTold) {
    for (int blocks = 0; blocks < 60; ++blocks) {
        EXPECT_EQ(blameForKeeping(blocks, From::one), "") << blocks;
        EXPECT_EQ(blameForKeeping(blocks, From::there), "") << "from " << blocks;
    }
}

TEST_F(RefusedKeeping, AStartThatLooksForWorkComesThrough) {
    const std::string folder = folder_.path();
    for (int i = 2; i < 40; ++i)
        writeBytes(folder_ / ("unsaved-" + std::to_string(i) + ".lock"), "");
    const int count = blocksOf([&] { RecoverySlot::numbersIn(folder); });
    EXPECT_GT(count, 3);
    for (int blocks = 0; blocks < count; ++blocks) {
        const RefusedMemory refused(blocks, From::one);
        EXPECT_THROW(RecoverySlot::numbersIn(folder), std::bad_alloc) << blocks;
    }
    EXPECT_EQ(RecoverySlot::numbersIn(folder).size(), 39U);
}

}  // namespace
}  // namespace velna::test
