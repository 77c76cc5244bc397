// The Print command's ends: what is said, and what stands afterwards.

#include "output/Plans.h"
#include "support/Impatient.h"
#include "support/RecordingPrinter.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

class PrintCommand : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
        Main.initSideView();
        dialogs.printers = {&printer};
    }
    void TearDown() override {
        program.shell.progress = nullptr;
        ShellFixture::TearDown();
    }
    /// Prints the side view alone.
    void print() {
        dialogs.inPrintSelect = [] {
            program.PrintSelect = {};
            program.PrintSelect.Side = true;
            program.PrintSelect.cancel = false;
        };
        program.toolbar.click(Key::Print);
    }

    RecordingPrinter printer{190, 277};
};

TEST_F(PrintCommand, AsksWhatAndWhereAndEndsInTheTopView) {
    print();
    EXPECT_EQ(dialogs.story(), "printselect printer");
    EXPECT_EQ(printer.jobs(), std::vector<std::string>{"side"});
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(PrintCommand, TheFuselageThatAPlanLeavesCurrentIsTheOneThatThePanelShows) {
    Main.buttonPressed(Control::IndexFusPlusButton, 0);
    Main.scrollChanged(Control::IndexFusScroll, 1);
    Fuselages(2).width(1) = 77;
    dialogs.inPrintSelect = [] {
        program.PrintSelect = {};
        program.PrintSelect.front = true;
        program.PrintSelect.cancel = false;
    };
    program.toolbar.click(Key::Print);
    EXPECT_EQ(currentFuselage, 2);
    EXPECT_EQ(Main.controls[Control::WidthFuselageText].text, "77");
}

TEST_F(PrintCommand, FittedPlansLeaveALockedScaleAlone) {
    dialogs.printers = {&printer, &printer};
    Main.setChecked(Control::LockZoom, true);
    const Transform locked = Main.view.transform();
    dialogs.inPrintSelect = [] {
        program.PrintSelect = {};
        program.PrintSelect.vtop = program.PrintSelect.front = true;
        program.PrintSelect.cancel = false;
    };
    program.toolbar.click(Key::Print);
    EXPECT_EQ(printer.jobs().size(), 2U);
    EXPECT_EQ(Main.view.transform(), locked) << "the picture behind the model stays aligned";
    EXPECT_TRUE(Main.checked(Control::LockZoom));
    const auto once = printer.calls.size();
    Main.setChecked(Control::LockZoom, false);
    program.toolbar.click(Key::Print);
    ASSERT_EQ(printer.calls.size(), 2 * once);
    for (std::size_t i = 0; i < once; ++i)
        EXPECT_EQ(printer.calls[i].at, printer.calls[once + i].at) << "the whole aircraft";
}

TEST_F(PrintCommand, ACancelledPrinterEndsInTheTopViewWithThePanelFilled) {
    dialogs.printers = {nullptr};
    Main.textEdited(Control::WidthFuselageText, "55");
    print();
    EXPECT_EQ(dialogs.story(), "printselect printer");
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    EXPECT_EQ(Main.controls[Control::WidthFuselageText].text, "20");
}

TEST_F(PrintCommand, AFailureIsToldOnceWithItsReason) {
    printer.failure = "The printer is gone";
    print();
    EXPECT_EQ(dialogs.story(), "printselect printer message");
    EXPECT_NE(dialogs.asked.back().text.find("The printer is gone"), std::string::npos);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(PrintCommand, APlanOfNoSheetsSaysSoAndPrintsNothing) {
    Fuselages(1).pos_offset = -5000;
    print();
    EXPECT_EQ(dialogs.story(), "printselect printer message");
    EXPECT_NE(dialogs.asked.back().text.find("no sheets"), std::string::npos);
    EXPECT_EQ(printer.pages(), 0);
    EXPECT_EQ(printer.count(PrinterCall::Kind::EndDoc), 0);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(PrintCommand, ACancelOnTheWaySaysNothing) {
    Impatient user;
    program.shell.progress = &user;
    print();
    EXPECT_EQ(dialogs.story(), "printselect printer");
    EXPECT_EQ(printer.calls.back().kind, PrinterCall::Kind::KillDoc);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

}  // namespace
}  // namespace velna::test
