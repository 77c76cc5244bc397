#include <algorithm>

#include "FileCommandsFixture.h"
#include "shell/Recovery.h"
#include "support/Drag.h"
#include "support/FileSizeLimit.h"

namespace velna::test {
namespace {

using namespace std::chrono_literals;
using Toolbar::Key;
namespace fs = std::filesystem;

class RecoveryOf : public FileCommandsFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        program.run();
    }
    /// The program is gone without a proper end, and started again.
    void crashAndStart() {
        program.recovery.finish();
        renewConnected();
        dialogs.asked.clear();
        program.run();
    }
    static void edit(double span) {
        Wings(1).span = span;
        Main.savedProject = false;
    }
    void look(std::chrono::seconds later = 0s) {
        // Commands look too, by the real clock.
        time = std::max(time, Recovery::Clock::now()) + later;
        program.recovery.look(Main.projectName, time);
        program.recovery.finish();
    }
    std::vector<std::string> files() const {
        std::vector<std::string> titles;
        if (fs::exists(desktop.state))
            for (const auto& entry : fs::directory_iterator(desktop.state))
                titles.push_back(entry.path().filename().string());
        std::ranges::sort(titles);
        return titles;
    }
    std::string work(int number = 1) const {
        return desktop.state + "unsaved-" + std::to_string(number) + ".work";
    }
    double keptSpan(int number = 1) const {
        return RecoveryFile::read(work(number)).project.Wings(1).span;
    }
    /// Work that a program has left which runs no more.
    void leave(double span, const std::string& name = "") const {
        Project left = project;
        left.Wings(1).span = span;
        RecoveryWriter(desktop.state).keep({left, name});
    }

    Recovery::Clock::time_point time{};
};

TEST_F(RecoveryOf, WhatIsNotSavedIsKeptAtTheNextLook) {
    look();
    edit(650);
    look(5s);
    EXPECT_EQ(keptSpan(), 650);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(files(), (std::vector<std::string>{"unsaved-1.lock", "unsaved-1.work"}));
}

TEST_F(RecoveryOf, LooksThatFollowAtOnceWriteNothing) {
    edit(650);
    look();
    edit(640);
    for (int second = 1; second < 5; ++second) look(1s);
    EXPECT_EQ(keptSpan(), 650);
    look(1s);
    EXPECT_EQ(keptSpan(), 640);
}

TEST_F(RecoveryOf, WhatIsUnchangedIsWrittenOnce) {
    edit(650);
    look();
    fs::remove(work());
    look(5s);
    EXPECT_FALSE(fs::exists(work()));
}

TEST_F(RecoveryOf, NothingToBeLostIsNotKept) {
    Main.savedProject = false;  // as each press in the drawing makes it
    look();
    Main.buttonPressed(Control::IndexWingPlusButton, 0);
    look(5s);
    EXPECT_EQ(files().size(), 2u);
    program.recovery.settle();
    currentWing = 2;
    Fuselages(1).sel_sec = 3;
    Main.savedProject = false;
    look(5s);
    EXPECT_TRUE(files().empty()) << "to choose another part is no work";
}

TEST_F(RecoveryOf, AChangeThatIsTakenBackIsNothingToBeLost) {
    edit(650);
    look();
    edit(700);
    look(5s);
    EXPECT_TRUE(files().empty());
}

TEST_F(RecoveryOf, ADragIsLetComeToItsEnd) {
    const Outline& outline = Main.views.wings(1).vtopPoints;
    const auto x = static_cast<float>(outline[1].x),
               y = static_cast<float>((outline[1].y + outline[2].y) / 2);
    Drag hand = drag(Main);
    hand.hover(x, y).press(x, y).move(x, y + 30);
    ASSERT_TRUE(Main.anyBusy());
    look();
    EXPECT_TRUE(files().empty());
    hand.release();
    look(1s);
    EXPECT_TRUE(fs::exists(work()));
}

TEST_F(RecoveryOf, AFlightIsNeverKeptButWhatWasBeforeIt) {
    edit(650);
    context.events = [this] {
        look(60s);
        EXPECT_EQ(keptSpan(), 650);
        program.flying.flying = false;
    };
    program.toolbar.click(Key::FlyingPreview);
    EXPECT_EQ(keptSpan(), 650);
}

TEST_F(RecoveryOf, ACommandFindsAllKeptThatWasDoneBeforeIt) {
    look();
    edit(650);
    dialogs.inManager = [this] {
        program.recovery.finish();
        EXPECT_EQ(keptSpan(), 650);
    };
    program.toolbar.click(Key::Manager);
    EXPECT_EQ(dialogs.story(), "manager");
}

TEST_F(RecoveryOf, ASaveRemovesItAndLeavesNothingBesideTheProject) {
    edit(650);
    look();
    saveAs("sub.vln", 1);
    program.recovery.finish();
    EXPECT_TRUE(files().empty());
    EXPECT_FALSE(fs::exists(file("sub.vln.work")));
    Main.savedProject = false;
    look(5s);
    EXPECT_TRUE(files().empty());
    edit(640);
    look(5s);
    EXPECT_EQ(RecoveryFile::read(work()).name, file("sub.vln"));
}

TEST_F(RecoveryOf, AFailedSaveKeepsIt) {
    edit(650);
    look();
    saveAs("missing/a.vln", 1);
    look(5s);
    EXPECT_EQ(keptSpan(), 650);
}

TEST_F(RecoveryOf, NewAndOpenGiveUpWhatTheirQuestionNames) {
    saveAs("a.vln", 1);
    for (const Key key : {Key::New, Key::Open}) {
        edit(600);
        look(5s);
        EXPECT_EQ(files().size(), 2u);
        if (key == Key::Open) answerFile(file("a.vln"), 1);
        dialogs.yesNo = {true};
        program.toolbar.click(key);
        Main.savedProject = false;
        look(5s);
        EXPECT_TRUE(files().empty());
    }
}

TEST_F(RecoveryOf, AProperEndLeavesNothing) {
    edit(650);
    look();
    program.quit.unload();
    look(5s);
    EXPECT_TRUE(files().empty());
    crashAndStart();
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(RecoveryOf, AProperStartAsksNothingAndMakesNoFolder) {
    look();
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_FALSE(fs::exists(desktop.state));
}

TEST_F(RecoveryOf, RestoreGivesTheProjectUnsavedWithItsNameAndPictures) {
    saveAs("a.vln", 1);
    project.projectDirectory = "/models/";
    edit(650);
    Wings(1).set_texture_filename("/pictures/wood.bmp");
    Wings(1).qualified_texture_filename = "wood.bmp";
    Main.buttonPressed(Control::IndexFusPlusButton, 0);
    ObjectList.setShown(2, false);
    project.units = inches;
    look(5s);
    dialogs.leftWork = {LeftWorkAnswer::Restore};
    crashAndStart();
    ASSERT_EQ(dialogs.story(), "leftwork");
    EXPECT_TRUE(dialogs.asked[0].text.starts_with("Velna did not end properly the last time."));
    EXPECT_NE(dialogs.asked[0].text.find(file("a.vln")), std::string::npos);
    EXPECT_EQ(Wings(1).span, 650);
    EXPECT_EQ(Wings(1).texture_filename(), "/pictures/wood.bmp");
    EXPECT_EQ(Wings(1).qualified_texture_filename, "wood.bmp");
    EXPECT_EQ(nbFuselages, 2);
    EXPECT_FALSE(ObjectList.shown(2));
    EXPECT_EQ(project.units, inches);
    EXPECT_TRUE(Main.Prefs.InchesOption);
    EXPECT_EQ(project.projectDirectory, "/models/");
    EXPECT_EQ(Main.projectName, file("a.vln"));
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1300.00");
}

TEST_F(RecoveryOf, ASecondCrashCostsNothingOfWhatTheFirstOneLeft) {
    leave(650);
    dialogs.leftWork = {LeftWorkAnswer::Restore, LeftWorkAnswer::Restore};
    crashAndStart();
    crashAndStart();
    EXPECT_EQ(Wings(1).span, 650);
    edit(640);
    look(5s);
    EXPECT_EQ(files(), (std::vector<std::string>{"unsaved-1.lock", "unsaved-1.work"}));
    saveAs("a.vln", 1);
    program.recovery.finish();
    EXPECT_TRUE(files().empty());
}

TEST_F(RecoveryOf, DiscardRemovesItAndKeepForLaterAsksAgain) {
    leave(650);
    dialogs.leftWork = {LeftWorkAnswer::Later};
    crashAndStart();
    EXPECT_EQ(dialogs.asked.at(0).text.find("Older work"), std::string::npos) << "there is none";
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_TRUE(Main.savedProject);
    dialogs.leftWork = {LeftWorkAnswer::Discard};
    crashAndStart();
    EXPECT_EQ(dialogs.story(), "leftwork");
    EXPECT_TRUE(files().empty());
    crashAndStart();
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(RecoveryOf, OfSeveralTheNewestIsAskedAboutFirstWhateverTheClockSays) {
    leave(610, "/first.vln");
    leave(620);
    leave(630, "/third.vln");
    fs::last_write_time(work(3), fs::file_time_type::clock::now() - std::chrono::hours(9000));
    dialogs.leftWork = {LeftWorkAnswer::Discard, LeftWorkAnswer::Restore};
    crashAndStart();
    ASSERT_EQ(dialogs.story(), "leftwork leftwork");
    EXPECT_NE(dialogs.asked[0].text.find("/third.vln"), std::string::npos);
    EXPECT_NE(dialogs.asked[0].text.find("Older work that was not saved: 2 projects."),
              std::string::npos);
    EXPECT_NE(dialogs.asked[1].text.find("a new project"), std::string::npos);
    EXPECT_TRUE(dialogs.asked[1].text.ends_with("Older work that was not saved: 1 project."));
    EXPECT_EQ(Wings(1).span, 620);
    EXPECT_EQ(keptSpan(1), 610);
    EXPECT_FALSE(fs::exists(work(3)));
}

TEST_F(RecoveryOf, RunningProgramsDoNotOfferEachOthersWork) {
    RecoveryWriter other(desktop.state);
    other.keep({project, "/other.vln"});
    other.finish();
    edit(650);
    look();
    EXPECT_EQ(keptSpan(2), 650);
    dialogs.leftWork = {LeftWorkAnswer::Discard};
    crashAndStart();
    ASSERT_EQ(dialogs.story(), "leftwork") << "of its own alone";
    EXPECT_EQ(files(), (std::vector<std::string>{"unsaved-1.lock", "unsaved-1.work"}));
}

TEST_F(RecoveryOf, ALockThatNoWorkCameToIsClearedAway) {
    std::string reason;
    RecoverySlot::make(desktop.state, reason);
    ASSERT_EQ(files().size(), 1u);
    crashAndStart();
    EXPECT_TRUE(files().empty());
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(RecoveryOf, WhatCannotBeRestoredIsToldOfInOneMessageAndPutAside) {
    for (const double span : {610, 620, 630, 640}) leave(span);
    const std::string whole = contentOf(work(1));
    writeFile(work(1), whole.substr(0, whole.size() / 2));
    writeFile(work(2), std::string(3000, '\x81'));
    std::string other = whole;
    writeFile(work(3), other.replace(other.find('1'), 1, "7"));
    fs::remove(work(4));
    fs::create_directory(work(4));
    crashAndStart();
    ASSERT_EQ(dialogs.story(), "message");
    const std::string text = dialogs.asked[0].text;
    EXPECT_TRUE(text.starts_with("Work that was not saved cannot be restored. It is kept in:\n"));
    for (const std::string line :
         {"unsaved-1.damaged: it is not complete", "unsaved-2.damaged: it is no recovery file",
          "unsaved-3.damaged: another version of Velna has written it", "unsaved-4.damaged: "})
        EXPECT_NE(text.find(desktop.state + line), std::string::npos) << text;
    EXPECT_EQ(contentOf(desktop.state + "unsaved-1.damaged"), whole.substr(0, whole.size() / 2));
    EXPECT_EQ(files().size(), 4u);
    crashAndStart();
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(RecoveryOf, AFullDiskIsToldOnceAndTriedAgain) {
    edit(650);
    {
        const FileSizeLimit full(100);
        for (int i = 0; i < 4; ++i) {
            look(5s);
            program.recovery.tell();
        }
    }
    ASSERT_EQ(dialogs.story(), "message");
    EXPECT_EQ(dialogs.asked[0].text,
              "What is not saved cannot be kept for the case of a crash: save it now and then.\n" +
                  work() + ": File too large");
    look(5s);
    look(5s);
    EXPECT_EQ(keptSpan(), 650) << "without a further change";
    edit(640);
    const FileSizeLimit full(100);
    look(5s);
    look(5s);
    program.recovery.tell();
    EXPECT_EQ(dialogs.story(), "message");
    EXPECT_EQ(keptSpan(), 650);
}

TEST_F(RecoveryOf, AFolderThatCannotBeWrittenIsToldOnce) {
    writeFile((folder / "state").string(), "a file");
    edit(650);
    for (int i = 0; i < 4; ++i) {
        look(5s);
        program.recovery.tell();
    }
    ASSERT_EQ(dialogs.story(), "message");
    EXPECT_NE(dialogs.asked[0].text.find(desktop.state + ": Not a directory"), std::string::npos);
}

TEST_F(RecoveryOf, RestoredWorkIsNotConvertedAndTheDemonstrationWaits) {
    leave(650);
    writeFile(programFile("prefs.txt"), "\"DoIt\"\r\n#TRUE#\r\n#FALSE#\r\n");
    dialogs.leftWork = {LeftWorkAnswer::Restore};
    crashAndStart();
    EXPECT_EQ(dialogs.story(), "leftwork");
    EXPECT_EQ(project.units, millimetres);
    EXPECT_EQ(Wings(1).span, 650);
    EXPECT_FALSE(desktop.timer1);
    EXPECT_FALSE(Main.savedProject);
    program.quit.unload();
    EXPECT_TRUE(contentOf(programFile("prefs.txt")).starts_with("\"DoIt\"\r\n"));
}

}  // namespace
}  // namespace velna::test
