#include <filesystem>

#include <gtest/gtest.h>

#include "output/Plans.h"
#include "support/RecordingPrinter.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

/// The aircraft that the program ships, each opened, saved, exported and printed as a user would.
class Examples : public ShellFixture, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
        answerFile(std::string(VELNA_SOURCE_DIR "/examples/") + GetParam() + ".vln", 1);
        program.toolbar.click(Key::Open);
    }
    void TearDown() override {
        EXPECT_TRUE(pictures.errors.empty());
        EXPECT_TRUE(GlTape::faults().empty());
        ShellFixture::TearDown();
    }
    void answerFile(const std::string& path, int filterIndex) {
        dialogs.files.push_back({path, filterIndex});
    }
    std::string target(const std::string& extension) const {
        return (folder / (GetParam() + extension)).string();
    }
};

TEST_P(Examples, IsWhatTheProgramWritesItself) {
    answerFile(target(".vln"), 1);
    program.toolbar.click(Key::Save);
    EXPECT_EQ(contentOf(target(".vln")),
              contentOf(std::string(VELNA_SOURCE_DIR "/examples/") + GetParam() + ".vln"));
}

TEST_P(Examples, ExportsTheModelAndEveryView) {
    answerFile(target(".wrl"), 2);
    program.toolbar.click(Key::Save);
    EXPECT_TRUE(contentOf(target(".wrl")).ends_with("  ]\r\n}\r\n"));
    for (const Key view : {Key::VTop, Key::Front, Key::Side, Key::HTop}) {
        program.toolbar.click(view);
        answerFile(target(".dxf"), 3);
        program.toolbar.click(Key::Save);
        EXPECT_TRUE(contentOf(target(".dxf")).ends_with("ENDSEC\r\n 0 \r\nEOF\r\n"));
    }
}

TEST_P(Examples, PrintsEveryPlan) {
    const bool inInches = std::string(GetParam()) == "sport_inches";
    RecordingPrinter printer(inInches ? 7.5 : 190, inInches ? 10 : 277);
    dialogs.inPrintSelect = [] {
        PrintSelectRecord& plans = program.PrintSelect;
        plans.Side = plans.htop = plans.frontSections = plans.vtop = plans.front = true;
        plans.cancel = false;
    };
    dialogs.printers = {&printer};
    program.toolbar.click(Key::Print);
    EXPECT_EQ(dialogs.asked.back().kind, "printer");
    EXPECT_EQ(printer.jobs(),
              (std::vector<std::string>{"side", "sections", "vtop", "front", "htop"}));
    EXPECT_EQ(printer.count(PrinterCall::Kind::EndDoc), 5);
    EXPECT_EQ(printer.scaleMode, inInches ? 5 : 6);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

INSTANTIATE_TEST_SUITE_P(Shipped, Examples,
                         ::testing::Values("trainer", "glider", "twin_hull", "sport_inches"),
                         [](const auto& example) { return std::string(example.param); });

}  // namespace
}  // namespace velna::test
