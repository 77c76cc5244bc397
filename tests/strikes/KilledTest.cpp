// A program that is killed at any moment while it writes: no file is torn, what was written before
// stands, and unsaved work is offered as it was last. VELNA_KILLS=N kills so often.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>

#include <gtest/gtest.h>

#include "model/Plane.h"
#include "shell/Application.h"
#include "strikes/Victim.h"
#include "strikes/Writing.h"
#include "support/FakeDesktop.h"
#include "support/FileCalls.h"
#include "support/ScriptedDialogs.h"

namespace velna::test {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;
using Clock = std::chrono::steady_clock;

constexpr int versions = 8;  // a victim writes at most so many

int killsInAll() {
    const char* wished = std::getenv("VELNA_KILLS");
    return wished ? std::max(1, std::atoi(wished)) : 200;
}

/// Kills at moments that the seed of the tests gives.
class Killed : public ::testing::Test {
protected:
    // A kill takes nothing from what the system has been given: nothing waits for the disk.
    void SetUp() override {
        fileCalls.sync = [](int) { return 0; };
    }
    void TearDown() override { fileCalls = {}; }

    /// Kills it while it is at number 2 or later; gives the last number that it has done.
    int kill(Victim& victim) {
        const int number = std::uniform_int_distribution(1, versions - 2)(moments_);
        const auto most = static_cast<std::int64_t>(1.1 * static_cast<double>(ofOne_.count()));
        const std::chrono::nanoseconds wait(
            std::uniform_int_distribution<std::int64_t>(0, most)(moments_));
        return victim.killAfter(number, wait);
    }

    std::chrono::nanoseconds ofOne_{};  ///< how long one number takes

private:
    std::mt19937 moments_{static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed())};
};

class KilledWriting : public Killed {
protected:
    static void write(Workbench& bench, const Writing& writing, int number) {
        bench.setVersion(number);
        const std::string reason = writing.run(bench);
        EXPECT_EQ(reason, "");
    }
    /// The files before anything is written, and after each version.
    std::vector<Files> statesOf(Workbench& bench, const Writing& writing) {
        bench.reset();
        std::vector<Files> states{bench.files()};
        const auto begin = Clock::now();
        for (int number = 1; number <= versions; ++number) {
            write(bench, writing, number);
            states.push_back(bench.files());
        }
        ofOne_ = (Clock::now() - begin) / versions;
        return states;
    }
    /// What is wrong with the files after a kill behind version `last`; empty for nothing. Each is
    /// that of this version or of the next.
    static std::string blame(const Files& now, const std::vector<Files>& states, int last) {
        const Files& before = states.at(static_cast<std::size_t>(last));
        const Files& after = states.at(static_cast<std::size_t>(std::min(last + 1, versions)));
        const auto stands = [](const Files& files, const auto& file) {
            const auto same = files.find(file.first);
            return same != files.end() && same->second == file.second;
        };
        for (const auto& file : now)
            if (!stands(before, file) && !stands(after, file)) return file.first + " is torn";
        for (const auto& [name, _] : before)
            if (!now.contains(name) && after.contains(name)) return name + " is gone";
        return {};
    }
    /// One kill: what there is to blame.
    std::string killOne(Workbench& bench, const Writing& writing,
                        const std::vector<Files>& states) {
        bench.reset();
        Victim victim([&](int number) { write(bench, writing, number); }, versions);
        const int last = kill(victim);
        return blame(bench.files(), states, last);
    }
    /// What a killed run has left goes with a write of a later day.
    static void expectSwept(Workbench& bench, const Writing& writing) {
        for (const std::string& name : bench.leftOver())
            fs::last_write_time(bench / name,
                                fs::file_time_type::clock::now() - std::chrono::hours(25));
        write(bench, writing, versions);
        EXPECT_TRUE(bench.leftOver().empty());
    }
};

TEST_F(KilledWriting, TearsNoFileAndLosesNoVersion) {
    const auto all = writings();
    const int each =
        (killsInAll() + static_cast<int>(all.size()) - 1) / static_cast<int>(all.size());
    int caught = 0;
    for (const Writing& writing : all) {
        SCOPED_TRACE(writing.name);
        Workbench bench;
        const auto states = statesOf(bench, writing);
        for (int i = 0; i < each; ++i) {
            EXPECT_EQ(killOne(bench, writing, states), "");
            if (bench.leftOver().empty()) continue;
            ++caught;
            expectSwept(bench, writing);
        }
    }
    RecordProperty("caughtInTheAct", caught);
    EXPECT_GT(caught, each);
}

TEST_F(KilledWriting, IsBlamedWhereAFileIsTorn) {
    const Writing torn{"Torn", [](Workbench& bench) {
                           std::ofstream file(bench / "work");
                           for (int i = 0; i < 2000; ++i) file << bench.version << std::endl;
                           return std::string();
                       }};
    Workbench bench;
    const auto states = statesOf(bench, torn);
    std::string blamed;
    for (int i = 0; i < 50 && blamed.empty(); ++i) blamed = killOne(bench, torn, states);
    EXPECT_EQ(blamed, "work is torn");
}

TEST_F(KilledWriting, IsBlamedWhereAVersionIsLost) {
    const Writing late{"Late", [](Workbench& bench) {
                           if (bench.version % 4 == 0)
                               writeBytes(bench / "work", std::to_string(bench.version));
                           return std::string();
                       }};
    Workbench bench;
    auto states = statesOf(bench, late);
    for (int i = 1; i <= versions; ++i)
        states[static_cast<std::size_t>(i)]["work"] = std::to_string(i);
    bool blamed = false;
    for (int i = 0; i < 20 && !blamed; ++i) blamed = !killOne(bench, late, states).empty();
    EXPECT_TRUE(blamed);
}

/// A program on the folder of unsaved work, as after its start.
struct Started {
    explicit Started(const std::string& folder) {
        desktop.state = desktop.configuration = folder;
        application.shell = {&desktop, &dialogs};
        Plane::setDefaultPlane(application.project);
    }
    FakeDesktop desktop;
    ScriptedDialogs dialogs;
    Application application;
};

class KilledKeeping : public Killed {
protected:
    /// Keeps the unsaved work `number` and waits until it is on the disk.
    static void keep(Application& program, int number) {
        program.project.Wings(1).span = 700 + number;
        program.Main.savedProject = false;
        program.recovery.lookNow("/models/glider.vln");
        program.recovery.finish();
    }
    /// The number of the work that the next start restores; -1 where it offers none.
    static int restored(const std::string& folder) {
        const auto next = std::make_unique<Started>(folder);
        next->dialogs.leftWork.push_back(LeftWorkAnswer::Restore);
        const auto work = next->application.recovery.offer();
        if (!work) return -1;
        EXPECT_EQ(work->name, "/models/glider.vln");
        return static_cast<int>(work->project.Wings(1).span) - 700;
    }
};

TEST_F(KilledKeeping, IsOfferedTheLastWorkAtTheNextStart) {
    ofOne_ = std::chrono::milliseconds(3);
    for (int kills = killsInAll() / 4; kills > 0; --kills) {
        const TemporaryFolder folder;
        std::unique_ptr<Started> program;
        Victim victim(
            [&](int number) {
                if (!program) {
                    program = std::make_unique<Started>(folder.path());
                    program->application.recovery.begin();
                }
                keep(program->application, number);
            },
            versions);
        const int last = kill(victim);
        const int found = restored(folder.path());
        EXPECT_GE(found, last);
        EXPECT_LE(found, last + 1);
    }
}

}  // namespace
}  // namespace velna::test
