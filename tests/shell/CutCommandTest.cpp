// The kinds of Save for machines that cut: what is asked, written, told and remembered.

#include <filesystem>

#include "shell/CutCommand.h"
#include "shell/CuttingSettings.h"
#include "shell/FileCommandsFixture.h"
#include "support/RecordingPrinter.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

/// The numbers of the kinds in the Save dialog.
enum { wingDxf = 9, wingSvg, ribsDxf, ribsSvg, sectionsDxf, sectionsSvg };

class CutCommands : public FileCommandsFixture {
protected:
    void SetUp() override {
        FileCommandsFixture::SetUp();
        program.settings.load(desktop.configuration);
    }
    /// What is answered to the question about ribs.
    void answerRibs(std::function<void(RibWishes&)> change = [](RibWishes&) {}) {
        dialogs.ribWishes.emplace_back([change](RibWishes& wishes) {
            change(wishes);
            return true;
        });
    }
    bool exists(const std::string& title) const { return std::filesystem::exists(file(title)); }
};

TEST_F(CutCommands, KindsStandBehindTheOthers) {
    answerFile("", wingDxf);
    program.toolbar.click(Toolbar::Key::Save);
    const std::string& filter = dialogs.asked.at(0).text;
    EXPECT_TRUE(
        filter.starts_with("Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|"
                           "DXF Format (*.dxf)|*.dxf|"));
    EXPECT_TRUE(filter.ends_with("Fuselage Sections SVG (*.svg)|*.svg"));
}

TEST_F(CutCommands, EachKindWritesItsFile) {
    for (const int kind : {wingDxf, wingSvg, ribsDxf, ribsSvg, sectionsDxf, sectionsSvg}) {
        const std::string title = "part" + std::to_string(kind) + (kind % 2 == 1 ? ".dxf" : ".svg");
        answerRibs();
        saveAs(title, kind);
        EXPECT_TRUE(exists(title)) << title;
        const bool svg = bytesOf(file(title)).starts_with("<?xml");
        EXPECT_EQ(svg, kind % 2 == 0) << title;
    }
    EXPECT_EQ(dialogs.story(), "save ribs save ribs save ribs save ribs save ribs save ribs");
}

TEST_F(CutCommands, CancelledQuestionWritesNothing) {
    dialogs.ribWishes.emplace_back([](RibWishes& wishes) {
        wishes.skin = 3;
        return false;
    });
    saveAs("ribs.dxf", ribsDxf);
    EXPECT_FALSE(exists("ribs.dxf"));
    EXPECT_EQ(recallRibWishes(program.settings).skin, 0);
}

TEST_F(CutCommands, WishesComeBackTheNextTime) {
    answerRibs([](RibWishes& wishes) {
        wishes.stations = {5, 0};
        wishes.skin = 1.5;
        wishes.spars = {{30, 6, 4, SlotSide::top}};
    });
    saveAs("ribs.dxf", ribsDxf);
    RibWishes seen;
    answerRibs([&seen](RibWishes& wishes) { seen = wishes; });
    saveAs("again.dxf", ribsDxf);
    EXPECT_EQ(seen.stations.count, 5);
    EXPECT_EQ(seen.skin, 1.5);
    EXPECT_EQ(seen.spars.size(), 1U);
    Settings later;
    later.load(desktop.configuration);
    EXPECT_EQ(recallRibWishes(later).skin, 1.5);
}

TEST_F(CutCommands, WhatIsLeftAsItWasIsNotWritten) {
    answerRibs();
    saveAs("ribs.dxf", ribsDxf);
    EXPECT_TRUE(program.settings.list("ribs").empty());
}

TEST_F(CutCommands, SpoiltMemoryIsPassedOver) {
    Settings settings;
    EXPECT_EQ(settings.store("ribs", {"skin thick", "stations 99999", "", "wood balsa", "skin 2"}),
              Outcome());
    EXPECT_EQ(recallRibWishes(settings).skin, 2);
    EXPECT_EQ(recallRibWishes(settings).stations.count, RibWishes().stations.count);
    for (const std::vector<std::string>& texts :
         {std::vector<std::string>{"1.1"}, {"7", "1"}, {"x", "y"}, {}}) {
        EXPECT_EQ(settings.store("printer-correction", texts), Outcome());
        EXPECT_EQ(recallCorrection(settings), PrinterCorrection());
    }
}

TEST_F(CutCommands, FilesOfEachPartAreAskedAboutOnce) {
    const auto each = [](RibWishes& wishes) {
        wishes.each = true;
        wishes.stations = {2, 0};
    };
    answerRibs(each);
    saveAs("set.svg", ribsSvg);
    EXPECT_TRUE(exists("set-wing-1-rib-001.svg"));
    EXPECT_FALSE(exists("set.svg"));
    EXPECT_EQ(dialogs.story(), "save ribs");
    std::filesystem::remove(file("set-wing-1-rib-002.svg"));
    answerRibs(each);
    dialogs.yesNo = {false};
    saveAs("set.svg", ribsSvg);
    EXPECT_FALSE(exists("set-wing-1-rib-002.svg")) << "kept";
    EXPECT_NE(dialogs.asked.back().text.find("set-wing-1-rib-001.svg"), std::string::npos);
    EXPECT_EQ(dialogs.asked.back().text.find("set-wing-1-rib-002.svg"), std::string::npos);
    answerRibs(each);
    dialogs.yesNo = {true};
    saveAs("set.svg", ribsSvg);
    EXPECT_TRUE(exists("set-wing-1-rib-002.svg"));
}

TEST_F(CutCommands, WhatIsNotAsWishedIsToldInOneMessage) {
    answerRibs([](RibWishes& wishes) { wishes.spars = {{30, 6, 40, SlotSide::top}}; });
    saveAs("ribs.dxf", ribsDxf);
    EXPECT_TRUE(exists("ribs.dxf"));
    EXPECT_EQ(dialogs.story(), "save ribs message");
    EXPECT_NE(dialogs.asked.back().text.find("wing 1, rib 1 at 0.00 mm: no slot 1"),
              std::string::npos);
    EXPECT_TRUE(dialogs.asked.back().text.ends_with("and 5 more"));
}

TEST(FirstLines, AreTwelveOrElevenAndTheNumberOfTheRest) {
    const std::string eleven = "x\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx";
    EXPECT_EQ(firstLines({}), "");
    EXPECT_EQ(firstLines({"x"}), "x");
    EXPECT_EQ(firstLines(std::vector<std::string>(12, "x")), eleven + "\nx");
    EXPECT_EQ(firstLines(std::vector<std::string>(13, "x")), eleven + "\nand 2 more");
}

TEST_F(CutCommands, FailureIsToldWithItsReason) {
    answerRibs([](RibWishes& wishes) { wishes.skin = 400; });
    saveAs("ribs.dxf", ribsDxf);
    EXPECT_FALSE(exists("ribs.dxf"));
    EXPECT_NE(dialogs.asked.back().text.find("There is no rib to cut."), std::string::npos);
}

TEST_F(CutCommands, SavedProjectStaysSaved) {
    Main.savedProject = true;
    answerRibs();
    saveAs("ribs.dxf", ribsDxf);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(CutCommands, PrintFormRemembersWishesAndCorrection) {
    RecordingPrinter printer(190, 277);
    dialogs.printers = {&printer};
    dialogs.inPrintSelect = [] {
        program.PrintSelect.ribs = true;
        program.PrintSelect.wishes.skin = 40;
        program.PrintSelect.wishes.stations = {2, 0};
        program.PrintSelect.correction = {1.01, 0.99};
        program.PrintSelect.frontSections = true;
        program.PrintSelect.cancel = false;
    };
    program.toolbar.click(Toolbar::Key::Print);
    Settings later;
    later.load(desktop.configuration);
    EXPECT_EQ(recallRibWishes(later).skin, 40);
    EXPECT_EQ(recallCorrection(later), (PrinterCorrection{1.01, 0.99}));
    dialogs.inPrintSelect = [] {
        EXPECT_EQ(program.PrintSelect.wishes.skin, 40);
        program.PrintSelect.wishes.skin = 7;
        program.PrintSelect.cancel = true;
    };
    program.toolbar.click(Toolbar::Key::Print);
    EXPECT_EQ(recallRibWishes(program.settings).skin, 40) << "Cancel remembers nothing";
}

TEST_F(CutCommands, WordsOfAPrintAreToldInOneMessage) {
    RecordingPrinter printer(190, 277);
    dialogs.printers = {&printer};
    dialogs.inPrintSelect = [] {
        program.PrintSelect = {};
        program.PrintSelect.ribs = true;
        program.PrintSelect.wishes.spars = {{99, 6, 1, SlotSide::top}};
        program.PrintSelect.cancel = false;
    };
    program.toolbar.click(Toolbar::Key::Print);
    EXPECT_EQ(dialogs.story(), "printselect printer message");
    EXPECT_NE(dialogs.asked.back().text.find("it lies outside the rib"), std::string::npos);
}

}  // namespace
}  // namespace velna::test
