#include <barrier>
#include <set>
#include <thread>

#include <gtest/gtest.h>

#include "shell/RecoverySlot.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

namespace fs = std::filesystem;

class RecoverySlotOf : public ::testing::Test {
protected:
    RecoverySlot made() {
        std::string reason;
        auto slot = RecoverySlot::make(path, reason);
        EXPECT_EQ(reason, "");
        return std::move(slot.value());
    }
    void leaveWork(const std::string& bytes = "work") { writeBytes(made().file(), bytes); }

    TemporaryFolder folder;
    std::string path = folder / "state/velna/";
};

TEST_F(RecoverySlotOf, ARunningProgramKeepsItsPlaceAndADeadOneDoesNot) {
    {
        RecoverySlot running = made();
        writeBytes(running.file(), "work");
        EXPECT_EQ(RecoverySlot::numbersIn(path), std::vector{1});
        EXPECT_FALSE(RecoverySlot::takeOver(path, 1));
    }
    const auto left = RecoverySlot::takeOver(path, 1);
    ASSERT_TRUE(left);
    EXPECT_TRUE(left->holdsWork());
    EXPECT_FALSE(RecoverySlot::takeOver(path, 1)) << "who has taken it over holds it";
}

TEST_F(RecoverySlotOf, ProgramsThatStartAtTheSameMomentHaveAPlaceEach) {
    constexpr int programs = 6;
    for (int round = 0; round < 100; ++round) {
        std::barrier start(programs);
        std::vector<std::optional<RecoverySlot>> slots(programs);
        std::vector<std::string> reasons(programs);
        {
            std::vector<std::jthread> running;
            for (std::size_t n = 0; n < slots.size(); ++n) {
                running.emplace_back([&, n] {
                    start.arrive_and_wait();
                    slots[n] = RecoverySlot::make(path, reasons[n]);
                });
            }
        }
        std::set<std::string> files;
        for (std::size_t n = 0; n < slots.size(); ++n) {
            ASSERT_TRUE(slots[n]) << reasons[n];
            files.insert(slots[n]->file());
            slots[n]->remove();
        }
        EXPECT_EQ(files.size(), slots.size());
    }
}

TEST_F(RecoverySlotOf, TheFolderIsMadeForItsUserAlone) {
    made();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
}

TEST_F(RecoverySlotOf, EachPlaceIsAboveAllOthersWhateverTheClockSays) {
    leaveWork();
    leaveWork();
    fs::last_write_time(path + "unsaved-2.work", fs::file_time_type::min());
    leaveWork();
    EXPECT_EQ(RecoverySlot::numbersIn(path), (std::vector{3, 2, 1}));
    writeBytes(path + "unsaved-9.damaged", "");
    leaveWork();
    EXPECT_EQ(RecoverySlot::numbersIn(path), (std::vector{10, 3, 2, 1}));
}

TEST_F(RecoverySlotOf, WhatIsRemovedLeavesNothing) {
    RecoverySlot slot = made();
    writeBytes(slot.file(), "work");
    slot.remove();
    EXPECT_TRUE(fs::is_empty(path));
}

TEST_F(RecoverySlotOf, WhatIsPutAsideKeepsItsBytesAndIsNotFoundAgain) {
    leaveWork("noise");
    EXPECT_EQ(RecoverySlot::takeOver(path, 1)->putAside(), path + "unsaved-1.damaged");
    EXPECT_EQ(bytesOf(path + "unsaved-1.damaged"), "noise");
    EXPECT_TRUE(RecoverySlot::numbersIn(path).empty());
}

TEST_F(RecoverySlotOf, WorkWithoutALockIsLeftBehindToo) {
    leaveWork();
    fs::remove(path + "unsaved-1.lock");
    EXPECT_EQ(RecoverySlot::numbersIn(path), std::vector{1});
    EXPECT_TRUE(RecoverySlot::takeOver(path, 1));
}

TEST_F(RecoverySlotOf, OtherFilesAreNoPlaces) {
    made();
    for (const std::string name :
         {"unsaved-.work", "unsaved-0.work", "unsaved--3.work", "unsaved-99999999999.work",
          "unsaved-2147483647.work", "unsaved-4", "unsaved-5.work~", "work", "unsaved-6x.work",
          ".velna-abcdef"})
        writeBytes(path + name, "");
    EXPECT_EQ(RecoverySlot::numbersIn(path), std::vector{1});
    EXPECT_EQ(made().file(), path + "unsaved-6.work") << "above the number with another ending";
    EXPECT_TRUE(RecoverySlot::numbersIn(folder / "missing/").empty());
}

TEST_F(RecoverySlotOf, ALockThatIsALinkIsNotFollowed) {
    leaveWork();
    fs::remove(path + "unsaved-1.lock");
    fs::create_symlink(folder / "elsewhere", path + "unsaved-1.lock");
    EXPECT_FALSE(RecoverySlot::takeOver(path, 1));
    EXPECT_FALSE(fs::exists(folder / "elsewhere"));
}

TEST_F(RecoverySlotOf, AFolderThatCannotBeTellsWhy) {
    writeBytes(folder / "file", "");
    std::string reason;
    EXPECT_FALSE(RecoverySlot::make(folder / "file/velna/", reason));
    EXPECT_EQ(reason, folder / "file/velna/" + ": Not a directory");
    EXPECT_FALSE(RecoverySlot::make("/proc/velna/", reason));
    EXPECT_EQ(reason, "/proc/velna/: No such file or directory");
}

TEST_F(RecoverySlotOf, ItsTimeIsForPeople) {
    leaveWork();
    const auto slot = RecoverySlot::takeOver(path, 1);
    EXPECT_EQ(slot->time().size(), 16u);
    fs::remove(slot->file());
    EXPECT_EQ(slot->time(), "");
}

}  // namespace
}  // namespace velna::test
