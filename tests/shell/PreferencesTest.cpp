#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "preview/Rendering.h"
#include "shell/Preferences.h"
#include "shell/ToolbarCommands.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

class PreferencesFile : public ShellFixture {
protected:
    /// The options after reading `content`, as "inches millimetres".
    std::string optionsAfter(const std::string& content) {
        Prefs = {};
        Preferences::firstUseState = "before";
        writeFile(programFile("prefs.txt"), content);
        Preferences::readAll();
        return std::string(Prefs.InchesOption ? "on " : "off ") +
               (Prefs.MillimetersOption ? "on" : "off");
    }
};

TEST_F(PreferencesFile, GivesTheStateAndBothOptions) {
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\n#TRUE#\r\n#FALSE#\r\n"), "on off");
    EXPECT_EQ(Preferences::firstUseState, "DoIt");
    EXPECT_EQ(optionsAfter("\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n"), "off on");
    EXPECT_EQ(Preferences::firstUseState, "Done");
    EXPECT_EQ(Prefs.units, millimetres);
}

TEST_F(PreferencesFile, TheOptionsAreOneGroup) {
    EXPECT_EQ(optionsAfter("\"Done\"\r\n#TRUE#\r\n#TRUE#\r\n"), "off on");
}

TEST_F(PreferencesFile, ADamagedFileLeavesWhatItDoesNotTell) {
    EXPECT_EQ(optionsAfter(""), "off on");
    EXPECT_EQ(Preferences::firstUseState, "before");
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\n"), "off on");
    EXPECT_EQ(Preferences::firstUseState, "DoIt");
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\n#TRUE#\r\n"), "on off");
    EXPECT_EQ(optionsAfter("\"DoIt\"\r\nmaybe\r\n#TRUE#\r\n"), "off on");
    EXPECT_EQ(optionsAfter(std::string("\0\xff\x80\r\n\x01", 6)), "off on");
}

TEST_F(PreferencesFile, AMissingFileChangesNothing) {
    Preferences::readAll();
    EXPECT_TRUE(Preferences::firstUseState.empty());
    EXPECT_TRUE(Prefs.MillimetersOption);
}

TEST_F(PreferencesFile, GoesToTheUsersFolderWhereTheProgramsCannotBeWritten) {
    desktop.program = "/proc/velna-cannot-write-here/";
    Prefs.selectUnit(inches);
    Preferences::writeAll();
    EXPECT_EQ(contentOf(desktop.configuration + "prefs.txt"), "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n");
}

TEST_F(PreferencesFile, TheUsersOwnIsReadOnceItExistsWhereTheProgramsCannotBeWritten) {
    desktop.program = "/proc/velna-cannot-write-here/";
    EXPECT_EQ(Preferences::fileToRead(), desktop.program + "prefs.txt");
    std::filesystem::create_directories(desktop.configuration);
    writeFile(desktop.configuration + "prefs.txt", "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n");
    Preferences::readAll();
    EXPECT_EQ(Preferences::firstUseState, "Done");
    EXPECT_TRUE(Prefs.InchesOption);
}

TEST_F(PreferencesFile, WhatWasWrittenBesideTheProgramIsReadThere) {
    std::filesystem::create_directories(desktop.configuration);
    writeFile(desktop.configuration + "prefs.txt", "\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n");
    Prefs.selectUnit(inches);
    Preferences::writeAll();
    Prefs = {};
    Preferences::readAll();
    EXPECT_TRUE(Prefs.InchesOption) << "an older one of the user's own does not hide it";
}

TEST_F(PreferencesFile, WhatCouldOnlyBeWrittenToTheUsersFolderIsReadThere) {
    // The folder takes files, but this one cannot be replaced.
    std::filesystem::create_directory(programFile("prefs.txt"));
    Prefs.selectUnit(inches);
    Preferences::writeAll();
    Prefs = {};
    Preferences::readAll();
    EXPECT_TRUE(Prefs.InchesOption);
    // Back beside the program as soon as that can be.
    std::filesystem::remove(programFile("prefs.txt"));
    Prefs.selectUnit(millimetres);
    Preferences::writeAll();
    EXPECT_EQ(Preferences::fileToRead(), programFile("prefs.txt"));
    Preferences::readAll();
    EXPECT_FALSE(Prefs.InchesOption);
}

TEST_F(PreferencesFile, WhatAnotherProgramFolderCouldNotHoldIsNotReadForThisOne) {
    const std::string here = desktop.program;
    writeFile(programFile("prefs.txt"), "\"Done\"\r\n#FALSE#\r\n#TRUE#\r\n");
    desktop.program = "/proc/velna-cannot-write-here/";
    Prefs.selectUnit(inches);
    Preferences::writeAll();
    EXPECT_EQ(Preferences::fileToRead(), desktop.configuration + "prefs.txt");
    desktop.program = here;
    EXPECT_EQ(Preferences::fileToRead(), programFile("prefs.txt"));
}

TEST_F(PreferencesFile, OfALongFileTheStartIsRead) {
    std::string longFile = "\"Done\"\r\n#TRUE#\r\n#FALSE#\r\n";
    longFile.resize(1 << 20, 'x');
    EXPECT_EQ(optionsAfter(longFile), "on off");
    EXPECT_EQ(Preferences::settingsBytes(programFile("prefs.txt")), longFile.substr(0, 65536));
    // A text without an end is cut there, too.
    optionsAfter(std::string(1 << 20, 'x'));
    EXPECT_EQ(Preferences::firstUseState.size(), 65536U);
}

TEST_F(PreferencesFile, NowhereToWriteIsNoCrash) {
    desktop.program = "/proc/velna-a/";
    desktop.configuration = "/proc/velna-b/";
    Preferences::writeAll();
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
        Toolbar::click(Toolbar::Key::Prefs);
    }
};

TEST_F(PreferencesForm, ClosingUnchangedChangesNoValue) {
    Wings(1).span = 701.5;
    open([] { Preferences::CloseCommand_Click(); });
    EXPECT_EQ(Wings(1).span, 701.5);
    EXPECT_EQ(Prefs.units, millimetres);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(Main.mode, ViewMode::VTop);
}

TEST_F(PreferencesForm, AScaleOfFiftyHalvesEveryLengthOnce) {
    open([] {
        Main.scaleTextKeyDown("50");
        Preferences::CloseCommand_Click();
    });
    EXPECT_EQ(Wings(1).span, 350);
    EXPECT_EQ(Rudder.span, 75);
    EXPECT_EQ(Fuselages(1).pos(3), 400);
    EXPECT_EQ(Equipments(1).length, 15);
    EXPECT_EQ(Wings(1).thickness1, 0.13);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "700");
    EXPECT_EQ(Prefs.ScaleText, "100");
    open([] { Preferences::CloseCommand_Click(); });
    EXPECT_EQ(Wings(1).span, 350);
}

TEST_F(PreferencesForm, ATextTypedWithoutAFurtherKeyCounts) {
    open([] {
        Prefs.ScaleText = "200";
        Preferences::CloseCommand_Click();
    });
    EXPECT_EQ(Wings(1).span, 1400);
}

TEST_F(PreferencesForm, ABadScaleLeavesTheModelAlone) {
    for (const char* text : {"", "abc", "0", "-50", "1e999", "nan"}) {
        open([&] {
            Main.scaleTextKeyDown(text);
            Preferences::CloseCommand_Click();
        });
        EXPECT_EQ(Wings(1).span, 700) << text;
    }
}

TEST_F(PreferencesForm, InchesConvertOnceAndBack) {
    open([] {
        Prefs.selectUnit(inches);
        Preferences::CloseCommand_Click();
    });
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    open([] { Preferences::CloseCommand_Click(); });
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_EQ(Main.controls[Control::LengthERudderText].text, "3.15");
    open([] {
        Prefs.selectUnit(millimetres);
        Preferences::CloseCommand_Click();
    });
    EXPECT_NEAR(Wings(1).span, 700, 1e-9);
}

TEST_F(PreferencesForm, CancelPutsTheOptionsBackToTheUnitInUse) {
    open([] {
        Prefs.selectUnit(inches);
        Main.scaleTextKeyDown("50");
        Preferences::CancelCommand_Click();
    });
    EXPECT_EQ(Prefs.units, millimetres);
    EXPECT_TRUE(Prefs.MillimetersOption);
    EXPECT_FALSE(Prefs.InchesOption);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Prefs.modelScaleFactor, 1.0);
    EXPECT_EQ(Prefs.ScaleText, "100");
}

TEST_F(PreferencesForm, TheSpanLabelFollowsTheFactor) {
    Preferences::formLoad();
    EXPECT_EQ(Preferences::spanText(), "1400");
    Main.scaleTextKeyDown("25");
    EXPECT_EQ(Preferences::spanText(), "350");
    Main.scaleTextKeyDown("100");
}

TEST_F(PreferencesForm, TheCommandFillsAllTabsAndEntersTheTopView) {
    Main.initSideView();
    Rudder.span = 42;
    open([] { Preferences::CancelCommand_Click(); });
    EXPECT_EQ(Main.controls[Control::SpanRudderText].text, "42");
    EXPECT_EQ(Main.mode, ViewMode::VTop);
}

}  // namespace
}  // namespace velna::test
