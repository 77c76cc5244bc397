#include "support/ShellFixture.h"

namespace velna::test {
namespace {

class PreferencesFile : public ShellFixture {
protected:
    /// The options after reading `content`, as "inches millimetres".
    std::string optionsAfter(const std::string& content) {
        Prefs = {};
        program.preferences.firstUseState = "before";
        writeFile(programFile("prefs.txt"), content);
        program.preferences.readAll();
        return std::string(Main.Prefs.InchesOption ? "on " : "off ") +
               (Main.Prefs.MillimetersOption ? "on" : "off");
    }
};

TEST_F(PreferencesFile, GivesTheStateAndBothOptions) {
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\n#TRUE#\r\n#FALSE#\r\n"), "on off");
    EXPECT_EQ(program.preferences.firstUseState, "DoIt");
    EXPECT_EQ(optionsAfter("\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n"), "off on");
    EXPECT_EQ(program.preferences.firstUseState, "Done");
    EXPECT_EQ(project.units, millimetres);
}

TEST_F(PreferencesFile, TheOptionsAreOneGroup) {
    EXPECT_EQ(optionsAfter("\"Done\"\r\n#TRUE#\r\n#TRUE#\r\n"), "off on");
}

TEST_F(PreferencesFile, ADamagedFileLeavesWhatItDoesNotTell) {
    EXPECT_EQ(optionsAfter(""), "off on");
    EXPECT_EQ(program.preferences.firstUseState, "before");
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\n"), "off on");
    EXPECT_EQ(program.preferences.firstUseState, "DoIt");
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\n#TRUE#\r\n"), "on off");
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\nmaybe\r\n#TRUE#\r\n"), "off on");
    EXPECT_EQ(optionsAfter(std::string("\0\xff\x80\r\n\x01", 6)), "off on");
}

TEST_F(PreferencesFile, AMissingFileChangesNothing) {
    program.preferences.readAll();
    EXPECT_TRUE(program.preferences.firstUseState.empty());
    EXPECT_TRUE(Main.Prefs.MillimetersOption);
}

TEST_F(PreferencesFile, WhatStandsAndCannotBeReadIsToldAndNotWrittenOver) {
    std::filesystem::create_directory(programFile("prefs.txt"));
    testing::internal::CaptureStderr();
    program.preferences.readAll();
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("velna: the settings stay as they are: "),
              0U);
    EXPECT_FALSE(program.preferences.known);
    std::filesystem::remove(programFile("prefs.txt"));
    program.preferences.readAll();
    EXPECT_TRUE(program.preferences.known) << "what is missing can be written";
}

TEST_F(PreferencesFile, GoesToTheUsersFolderWhereTheProgramsCannotBeWritten) {
    desktop.program = "/proc/velna-cannot-write-here/";
    Main.Prefs.selectUnit(inches);
    program.preferences.writeAll();
    EXPECT_EQ(contentOf(desktop.configuration + "prefs.txt"), "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n");
}

TEST_F(PreferencesFile, TheUsersOwnIsReadOnceItExistsWhereTheProgramsCannotBeWritten) {
    desktop.program = "/proc/velna-cannot-write-here/";
    EXPECT_EQ(program.preferences.fileToRead(), desktop.program + "prefs.txt");
    std::filesystem::create_directories(desktop.configuration);
    writeFile(desktop.configuration + "prefs.txt", "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n");
    program.preferences.readAll();
    EXPECT_EQ(program.preferences.firstUseState, "Done");
    EXPECT_TRUE(Main.Prefs.InchesOption);
}

TEST_F(PreferencesFile, WhatWasWrittenBesideTheProgramIsReadThere) {
    std::filesystem::create_directories(desktop.configuration);
    writeFile(desktop.configuration + "prefs.txt", "\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n");
    Main.Prefs.selectUnit(inches);
    program.preferences.writeAll();
    Prefs = {};
    program.preferences.readAll();
    EXPECT_TRUE(Main.Prefs.InchesOption) << "an older one of the user's own does not hide it";
}

TEST_F(PreferencesFile, WhatCouldOnlyBeWrittenToTheUsersFolderIsReadThere) {
    // The folder takes files, but this one cannot be replaced.
    std::filesystem::create_directory(programFile("prefs.txt"));
    Main.Prefs.selectUnit(inches);
    program.preferences.writeAll();
    Prefs = {};
    program.preferences.readAll();
    EXPECT_TRUE(Main.Prefs.InchesOption);
    // Back beside the program as soon as that can be.
    std::filesystem::remove(programFile("prefs.txt"));
    Main.Prefs.selectUnit(millimetres);
    program.preferences.writeAll();
    EXPECT_EQ(program.preferences.fileToRead(), programFile("prefs.txt"));
    program.preferences.readAll();
    EXPECT_FALSE(Main.Prefs.InchesOption);
}

TEST_F(PreferencesFile, WhatAnotherProgramFolderCouldNotHoldIsNotReadForThisOne) {
    const std::string here = desktop.program;
    writeFile(programFile("prefs.txt"), "\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n");
    desktop.program = "/proc/velna-cannot-write-here/";
    Main.Prefs.selectUnit(inches);
    program.preferences.writeAll();
    EXPECT_EQ(program.preferences.fileToRead(), desktop.configuration + "prefs.txt");
    desktop.program = here;
    EXPECT_EQ(program.preferences.fileToRead(), programFile("prefs.txt"));
}

TEST_F(PreferencesFile, AnInstalledProgramTakesItsFolderForOneThatCannotBeWritten) {
    desktop.program = folder.string() + "/libexec/velna/";
    std::filesystem::create_directories(desktop.program);
    const std::string shipped = "\"DoIt\"\r\n#FALSE#\r\n#TRUE#\r\n";
    writeFile(programFile("prefs.txt"), shipped);
    ASSERT_EQ(program.preferences.fileToRead(), programFile("prefs.txt"));
    program.preferences.readAll();
    EXPECT_EQ(program.preferences.firstUseState, "DoIt");

    Main.Prefs.selectUnit(inches);
    program.preferences.writeAll();
    EXPECT_EQ(contentOf(programFile("prefs.txt")), shipped);
    const std::string own = desktop.configuration + "prefs.txt";
    EXPECT_EQ(contentOf(own), "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n");
    EXPECT_EQ(program.preferences.fileToRead(), own);
    // Also where the note of whose settings these are has gone.
    std::filesystem::remove(desktop.configuration + "prefs-owner.txt");
    EXPECT_EQ(program.preferences.fileToRead(), own);
}

TEST_F(PreferencesFile, OfALongFileTheStartIsRead) {
    std::string longFile = "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n";
    longFile.resize(1 << 20, 'x');
    EXPECT_EQ(optionsAfter(longFile), "on off");
    EXPECT_EQ(program.preferences.settingsBytes(programFile("prefs.txt")),
              longFile.substr(0, 65536));
    // A text without an end is cut there, too.
    optionsAfter(std::string(1 << 20, 'x'));
    EXPECT_EQ(program.preferences.firstUseState.size(), 65536U);
}

TEST_F(PreferencesFile, NowhereToWriteIsNoCrash) {
    desktop.program = "/proc/velna-a/";
    desktop.configuration = "/proc/velna-b/";
    program.preferences.writeAll();
    EXPECT_FALSE(std::filesystem::exists("/proc/velna-b/prefs.txt"));
}

class PreferencesForm : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }
    /// Opens the form by the toolbar and does what `user` does in it.
    void open(std::function<void()> user) {
        dialogs.inPreferences = std::move(user);
        program.toolbar.click(Toolbar::Key::Prefs);
    }
};

TEST_F(PreferencesForm, ClosingUnchangedChangesNoValue) {
    Wings(1).span = 701.5;
    open([] { program.preferences.CloseCommand_Click(); });
    EXPECT_EQ(Wings(1).span, 701.5);
    EXPECT_EQ(project.units, millimetres);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(PreferencesForm, AScaleOfFiftyHalvesEveryLengthOnce) {
    open([] {
        Main.Prefs.scaleTextKeyDown("50");
        program.preferences.CloseCommand_Click();
    });
    EXPECT_EQ(Wings(1).span, 350);
    EXPECT_EQ(Rudder.span, 75);
    EXPECT_EQ(Fuselages(1).pos(3), 400);
    EXPECT_EQ(Equipments(1).length, 15);
    EXPECT_EQ(Wings(1).thickness1, 0.13);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "700");
    EXPECT_EQ(Main.Prefs.ScaleText, "100");
    open([] { program.preferences.CloseCommand_Click(); });
    EXPECT_EQ(Wings(1).span, 350);
}

TEST_F(PreferencesForm, ATextTypedWithoutAFurtherKeyCounts) {
    open([] {
        Main.Prefs.ScaleText = "200";
        program.preferences.CloseCommand_Click();
    });
    EXPECT_EQ(Wings(1).span, 1400);
}

TEST_F(PreferencesForm, ABadScaleLeavesTheModelAlone) {
    for (const char* text : {"", "abc", "0", "-50", "1e999", "nan"}) {
        open([&] {
            Main.Prefs.scaleTextKeyDown(text);
            program.preferences.CloseCommand_Click();
        });
        EXPECT_EQ(Wings(1).span, 700) << text;
    }
}

TEST_F(PreferencesForm, InchesConvertOnceAndBack) {
    open([] {
        Main.Prefs.selectUnit(inches);
        program.preferences.CloseCommand_Click();
    });
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    open([] { program.preferences.CloseCommand_Click(); });
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_EQ(Main.controls[Control::LengthERudderText].text, "3.15");
    open([] {
        Main.Prefs.selectUnit(millimetres);
        program.preferences.CloseCommand_Click();
    });
    EXPECT_NEAR(Wings(1).span, 700, 1e-9);
}

TEST_F(PreferencesForm, CancelPutsTheOptionsBackToTheUnitInUse) {
    open([] {
        Main.Prefs.selectUnit(inches);
        Main.Prefs.scaleTextKeyDown("50");
        program.preferences.CancelCommand_Click();
    });
    EXPECT_EQ(project.units, millimetres);
    EXPECT_TRUE(Main.Prefs.MillimetersOption);
    EXPECT_FALSE(Main.Prefs.InchesOption);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Main.Prefs.modelScaleFactor, 1.0);
    EXPECT_EQ(Main.Prefs.ScaleText, "100");
}

TEST_F(PreferencesForm, TheSpanLabelFollowsTheFactor) {
    program.preferences.formLoad();
    EXPECT_EQ(program.preferences.spanText(), "1400");
    Main.Prefs.scaleTextKeyDown("25");
    EXPECT_EQ(program.preferences.spanText(), "350");
    Main.Prefs.scaleTextKeyDown("100");
}

TEST_F(PreferencesForm, TheCommandFillsAllTabsAndEntersTheTopView) {
    Main.initSideView();
    Rudder.span = 42;
    open([] { program.preferences.CancelCommand_Click(); });
    EXPECT_EQ(Main.controls[Control::SpanRudderText].text, "42");
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

}  // namespace
}  // namespace velna::test
