// What is saved must be read, and be saved the same again: savings and readings that break it end
// the run.

#include <string>

#include <gtest/gtest.h>

#include "support/Holds.h"

namespace velna::fuzz {
namespace {

/// A program that keeps one text, and holds no more than `most` letters of it once it has read it.
struct Keeper {
    std::string text;
    std::size_t most = 100;
    int readings = 0;

    std::string save() const { return text; }
    bool read(const std::string& bytes) {
        ++readings;
        text = bytes.substr(0, most);
        return !bytes.empty();
    }
    /// How often it is read before it is known to stay; a run that ends gives nothing.
    int expect() {
        expectFixedPoint([this] { return save(); },
                         [this](const std::string& bytes) { return read(bytes); });
        return readings;
    }
};

TEST(FixedPoint, HoldsForWhatIsSavedTheSameAgain) {
    EXPECT_EQ(Keeper{"an aircraft"}.expect(), 1);
}

TEST(FixedPoint, MaySettleAtTheFirstReading) {
    Keeper keeper{"an aircraft", 4};
    EXPECT_EQ(keeper.expect(), 2);
}

TEST(FixedPoint, ThatCannotBeReadEndsTheRun) {
    EXPECT_DEATH(Keeper{}.expect(), "broken: a saved project cannot be read");
}

TEST(FixedPoint, ThatGrowsWithEachSavingEndsTheRun) {
    std::string text = "x";
    const auto read = [&](const std::string& bytes) {
        text = bytes + "x";
        return true;
    };
    EXPECT_DEATH(expectFixedPoint([&] { return text; }, read),
                 "broken: a project changes from one");
}

TEST(FixedPoint, ThatCannotBeReadTheSecondTimeEndsTheRun) {
    int readings = 0;
    const auto save = [&] { return std::to_string(readings); };
    const auto read = [&](const std::string& /*bytes*/) { return ++readings < 2; };
    EXPECT_DEATH(expectFixedPoint(save, read), "broken: a project changes from one");
}

}  // namespace
}  // namespace velna::fuzz
