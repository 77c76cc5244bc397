// Whatever call of the system fails while something is written, once or from there on: the old
// files stand or the new ones, what belongs together stays together, and a message tells it.

#include <cstdio>
#include <string>
#include <tuple>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "common/ReplacedFile.h"
#include "strikes/Writing.h"

namespace velna::test {
namespace {

class RefusedCalls : public ::testing::TestWithParam<std::tuple<Writing, Refusal>> {};

TEST_P(RefusedCalls, LeaveTheOldFilesOrTheNewOnesAndAreTold) {
    const auto& [writing, refusal] = GetParam();
    Judge judge(writing);
    EXPECT_GE(judge.calls(), 5);
    for (int number = 1; number <= judge.calls(); ++number) {
        EXPECT_EQ(judge.blame(refusal, number, false), "") << number << " of " << judge.calls();
        EXPECT_EQ(judge.blame(refusal, number, true), "") << "from " << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Writings, RefusedCalls,
                         ::testing::Combine(::testing::ValuesIn(writings()),
                                            ::testing::ValuesIn(refusals())),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) + "_" +
                                    std::get<1>(test.param).name;
                         });

// ---- what the judge must find

/// Whether some refusal of some call of `writing` is blamed with words that begin so.
bool isBlamed(const Writing& writing, const std::string& words) {
    Judge judge(writing);
    for (const Refusal& refusal : refusals()) {
        for (int number = 1; number <= judge.calls(); ++number)
            for (const bool goesOn : {false, true})
                if (judge.blame(refusal, number, goesOn).starts_with(words)) return true;
    }
    return false;
}

std::string written(int descriptor, const std::string& bytes) {
    const auto size = static_cast<ssize_t>(bytes.size());
    return ::write(descriptor, bytes.data(), bytes.size()) == size ? "" : "it could not be written";
}

TEST(JudgeOfRefusedCalls, FindsATornFile) {
    const Writing torn{"Torn", [](Workbench& bench) {
                           const int file = ::open((bench / "work").c_str(), O_WRONLY | O_TRUNC);
                           std::string reason = written(file, "one half, ");
                           reason += written(file, "the other");
                           ::close(file);
                           return reason;
                       }};
    EXPECT_TRUE(isBlamed(torn, "new and old ones stand together"));
}

TEST(JudgeOfRefusedCalls, FindsASilentFailure) {
    const Writing silent{"Silent", [](Workbench& bench) {
                             ReplacedFile file(bench / "work");
                             file.append("new");
                             file.commit();
                             return std::string();
                         }};
    EXPECT_TRUE(isBlamed(silent, "it says nothing"));
}

TEST(JudgeOfRefusedCalls, FindsWhatIsLeftOver) {
    const Writing leaving{"Leaving", [](Workbench& bench) {
                              const std::string made = bench / ".velna-abcdef";
                              const int file = ::open(made.c_str(), O_WRONLY | O_CREAT, 0600);
                              const std::string reason = written(file, "new");
                              ::close(file);
                              if (!reason.empty()) return reason;
                              const bool placed =
                                  std::rename(made.c_str(), (bench / "work").c_str()) == 0;
                              return std::string(placed ? "" : "it has no place");
                          }};
    EXPECT_TRUE(isBlamed(leaving, "it leaves .velna-abcdef"));
}

TEST(JudgeOfRefusedCalls, FindsWhoGivesUpWhenASignalComes) {
    const Writing timid{"Timid", [](Workbench& bench) {
                            ReplacedFile file(bench / "work");
                            const int other =
                                ::open((bench / "one").c_str(), O_WRONLY | O_CREAT, 0600);
                            if (other < 0) file.fail("it could not be opened");
                            file.append("new");
                            file.commit();
                            ::close(other);
                            return file.error();
                        }};
    EXPECT_TRUE(isBlamed(timid, "it cannot go on"));
}

TEST(JudgeOfRefusedCalls, FindsSideFilesThatDoNotBelongToTheFile) {
    const Writing apart{"Apart", [](Workbench& bench) {
                            ReplacedFile side(bench / "wing.bmp");
                            side.append("new wing");
                            ReplacedFile file(bench / "p.vln");
                            file.append("new");
                            return !side.commit() ? side.error() : (file.commit(), file.error());
                        }};
    EXPECT_TRUE(isBlamed(apart, "new and old ones stand together, wing.bmp"));
}

}  // namespace
}  // namespace velna::test
