// A project that takes long to read or to save: the user may cancel it, and the aircraft in hand
// stands meanwhile as it was.

#include <gtest/gtest.h>

#include "FileCommandsFixture.h"
#include "support/Impatient.h"
#include "support/SameAircraft.h"

namespace velna::test {
namespace {

using Key = Toolbar::Key;

/// Looks at the aircraft in hand at each question, and lets the work run.
class Onlooker : public Progress {
public:
    explicit Onlooker(const Project& expected) : expected_(expected) {}

    bool step(long long done, long long total) override {
        ++questions;
        unchanged = unchanged && sameAircraft(expected_, project);
        within = within && 0 <= done && done <= total;
        return true;
    }
    void finish() override { ++finished; }

    int questions = 0;
    int finished = 0;
    bool unchanged = true;
    bool within = true;

private:
    const Project& expected_;
};

class LongFiles : public FileCommandsFixture {
protected:
    void SetUp() override {
        FileCommandsFixture::SetUp();
        long_ = file("long.vln");
        setSections(20'000);
        saveAs("long.vln", 1);
        setSections(3);
        writeFile(file("old.vln"), "old");
    }
    void TearDown() override {
        program.shell.progress = nullptr;
        FileCommandsFixture::TearDown();
    }
    static void setSections(std::int16_t sections) {
        Fuselages(1).nb_sections = sections;
        Fuselages(1).initArrays();
        for (int i = 1; i <= sections; ++i) {
            Fuselages(1).sectionOrder(i) = static_cast<std::int16_t>(i);
            Fuselages(1).pos(i) = 0.1 * i;
        }
    }
    void open(const std::string& path) {
        answerFile(path, 1);
        program.toolbar.click(Key::Open);
    }

    std::string long_;
};

TEST_F(LongFiles, ACancelledOpenLeavesTheAircraftItsNameAndItsHistory) {
    Wings(1).span = 777;
    Main.projectName = "mine.vln";
    Main.savedProject = true;
    Main.beginHistory();
    const Project before = project;
    Impatient user;
    program.shell.progress = &user;
    dialogs.asked.clear();
    open(long_);
    EXPECT_EQ(dialogs.story(), "open");
    EXPECT_TRUE(sameAircraft(before, project));
    EXPECT_EQ(Main.projectName, "mine.vln");
    EXPECT_TRUE(Main.savedProject);
    EXPECT_FALSE(Main.undo());
}

TEST_F(LongFiles, TheAircraftInHandStandsUntilTheOtherIsRead) {
    Main.savedProject = true;
    const Project before = project;
    Onlooker user(before);
    program.shell.progress = &user;
    open(long_);
    EXPECT_GT(user.questions, 5);
    EXPECT_TRUE(user.unchanged);
    EXPECT_TRUE(user.within);
    EXPECT_GT(user.finished, 0);
    EXPECT_EQ(Fuselages(1).nb_sections, 20'000);
}

TEST_F(LongFiles, ACancelledSaveSaysNothingAndLeavesTheOldFile) {
    setSections(20'000);
    Main.savedProject = false;
    Main.projectName = "mine.vln";
    Impatient user;
    program.shell.progress = &user;
    dialogs.asked.clear();
    const auto before = std::distance(std::filesystem::directory_iterator(folder), {});
    saveAs("old.vln", 1);
    EXPECT_EQ(dialogs.story(), "save");
    EXPECT_EQ(contentOf(file("old.vln")), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), before);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.projectName, "mine.vln");
}

TEST_F(LongFiles, AWatchedSaveWritesTheSameBytes) {
    setSections(20'000);
    const Project before = project;
    Onlooker user(before);
    program.shell.progress = &user;
    saveAs("watched.vln", 1);
    EXPECT_GT(user.questions, 5);
    EXPECT_TRUE(user.within);
    program.shell.progress = nullptr;
    saveAs("alone.vln", 1);
    EXPECT_EQ(contentOf(file("watched.vln")), contentOf(file("alone.vln")));
}

}  // namespace
}  // namespace velna::test
