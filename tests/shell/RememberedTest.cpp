// What comes back at the next start: folders of the dialogs, and the print form's additions.

#include <set>

#include "shell/DialogFolders.h"
#include "shell/PrintAdditions.h"
#include "support/FileSizeLimit.h"
#include "support/RecordingPrinter.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

class Remembered : public ShellFixture {
protected:
    Settings nextStart() const {
        Settings settings;
        settings.load(desktop.configuration);
        return settings;
    }
};

TEST_F(Remembered, EachPurposeHasTheFolderItWasLastServedIn) {
    Settings settings = nextStart();
    DialogFolders folders{settings};
    EXPECT_EQ(folders.of(FilePurpose::Project), "");
    const std::string projects = folder / "projects", exports = folder / "my = exports";
    for (const std::string& place : {projects, exports}) std::filesystem::create_directory(place);
    folders.remember(FilePurpose::Project, projects);
    folders.remember(FilePurpose::Export, exports);

    Settings next = nextStart();
    const DialogFolders later{next};
    EXPECT_EQ(later.of(FilePurpose::Project), projects);
    EXPECT_EQ(later.of(FilePurpose::Export), exports);
    for (const FilePurpose purpose :
         {FilePurpose::Airfoil, FilePurpose::Texture, FilePurpose::Background})
        EXPECT_EQ(later.of(purpose), "");
}

TEST_F(Remembered, AFolderThatHasGoneIsNoneUntilItIsBack) {
    Settings settings = nextStart();
    DialogFolders folders{settings};
    const std::string drive = folder / "drive";
    folders.remember(FilePurpose::Airfoil, drive);
    EXPECT_EQ(folders.of(FilePurpose::Airfoil), "");
    writeFile(drive, "a file of that name");
    EXPECT_EQ(folders.of(FilePurpose::Airfoil), "");
    std::filesystem::remove(drive);
    std::filesystem::create_directory(drive);
    EXPECT_EQ(folders.of(FilePurpose::Airfoil), drive);
}

TEST_F(Remembered, WhereNothingCanBeWrittenThisRunRemembersAllTheSame) {
    Settings settings = nextStart();
    DialogFolders folders{settings};
    const FileSizeLimit full(0);
    folders.remember(FilePurpose::Project, folder.string());
    EXPECT_EQ(folders.of(FilePurpose::Project), folder.string());
}

class RememberedPrint : public Remembered {
protected:
    void SetUp() override {
        Remembered::SetUp();
        start();
        program.preferences.readSettings();
    }
    /// Opens the form and leaves it with these ticks; gives what it showed at first.
    PrintSelectRecord leaveWith(bool overlap, bool cancel) {
        PrintSelectRecord shown;
        dialogs.printers = {&printer};
        dialogs.inPrintSelect = [&] {
            shown = program.PrintSelect;
            program.PrintSelect.Side = true;
            if (!cancel) program.PrintSelect.overlap = overlap;
            program.PrintSelect.cancel = cancel;
        };
        program.toolbar.click(Toolbar::Key::Print);
        return shown;
    }

    RecordingPrinter printer{190, 277};
};

TEST_F(RememberedPrint, TheAdditionsComeBackAndTheChoiceOfPlansDoesNot) {
    EXPECT_FALSE(leaveWith(true, false).overlap);
    PrintSelectRecord next;
    recallPrintAdditions(nextStart(), next);
    EXPECT_TRUE(next.overlap);
    EXPECT_FALSE(next.Side);
    program.PrintSelect = {};
    EXPECT_TRUE(leaveWith(false, false).overlap);
    next = {};
    recallPrintAdditions(nextStart(), next);
    EXPECT_FALSE(next.overlap);
}

TEST_F(RememberedPrint, ACancelledFormRemembersNothing) {
    leaveWith(true, true);
    PrintSelectRecord next;
    recallPrintAdditions(nextStart(), next);
    EXPECT_FALSE(next.overlap);
}

TEST_F(RememberedPrint, WhatWasNeverPrintedWithStaysAsItIs) {
    PrintSelectRecord record;
    record.overlap = true;
    recallPrintAdditions(nextStart(), record);
    EXPECT_TRUE(record.overlap);
}

TEST_F(RememberedPrint, NoTwoAdditionsShareAName) {
    std::set<std::string> names;
    for (const PrintAddition& addition : printAdditions)
        EXPECT_TRUE(names.insert(addition.key).second) << addition.key;
}

}  // namespace
}  // namespace velna::test
