#include <fstream>

#include <nlohmann/json.hpp>

#include "output/Plans.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

class ToolbarCommands : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }
};

TEST_F(ToolbarCommands, TheBarHasItsButtonsInOrder) {
    std::string names;
    for (const auto& button : Toolbar::buttons()) {
        names += std::string(button.name) + " ";
        EXPECT_STRNE(button.tip, "");
    }
    EXPECT_EQ(names,
              "New Open Save Print VTop Front Side HTop Palette Render Prefs Manager FlyingPreview "
              "Help Undo Redo Figures ");
}

TEST_F(ToolbarCommands, TheViewButtonsSetTheirTabs) {
    program.toolbar.click(Key::Side);
    EXPECT_EQ(Main.view.mode, ViewMode::Side);
    EXPECT_EQ(Main.tab(), PanelTab::fuselage);
    Main.selectTab(PanelTab::electronics);
    program.toolbar.click(Key::HTop);
    EXPECT_EQ(Main.view.mode, ViewMode::HTop);
    EXPECT_EQ(Main.tab(), PanelTab::electronics);
    program.toolbar.click(Key::Front);
    EXPECT_EQ(Main.view.mode, ViewMode::Front);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
    Main.selectTab(PanelTab::rudder);
    program.toolbar.click(Key::VTop);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
}

TEST_F(ToolbarCommands, TheColourDialogStartsFromTheElementsColour) {
    Main.selectTab(PanelTab::rudder);
    Rudder.set_color({127.5, 128.5, 0.5});
    dialogs.colours = {1122867};
    program.toolbar.click(Key::Palette);
    EXPECT_EQ(dialogs.asked.back().colour, 32896u);
    EXPECT_EQ(Rudder.color(), (Point3D{51, 34, 17}));
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(ToolbarCommands, ACancelledColourDialogChangesNothing) {
    Main.selectTab(PanelTab::stabilizer);
    Stabilizer.set_color({0.25, 0.5, 0.75});
    dialogs.colours = {std::nullopt};
    program.toolbar.click(Key::Palette);
    EXPECT_EQ(Stabilizer.color(), (Point3D{0.25, 0.5, 0.75}));
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(ToolbarCommands, TheElectronicsTabPicksAColourForNothing) {
    Main.selectTab(PanelTab::wing);
    dialogs.colours = {8453889, 65280};
    program.toolbar.click(Key::Palette);
    EXPECT_EQ(Wings(1).color(), (Point3D{1, 255, 128}));
    Main.selectTab(PanelTab::electronics);
    const int swaps = GlTape::count("SwapBuffers");
    program.toolbar.click(Key::Palette);
    EXPECT_EQ(dialogs.asked.back().colour, 8453889u);
    EXPECT_EQ(Wings(1).color(), (Point3D{1, 255, 128}));
    EXPECT_EQ(GlTape::count("SwapBuffers"), swaps + 1);
}

TEST_F(ToolbarCommands, RenderTogglesAndBuildsEitherWay) {
    const int swaps = GlTape::count("SwapBuffers");
    program.toolbar.click(Key::Render);
    EXPECT_TRUE(Main.renderPressed());
    program.toolbar.click(Key::Render);
    EXPECT_FALSE(Main.renderPressed());
    EXPECT_EQ(GlTape::count("SwapBuffers"), swaps + 2);
}

TEST_F(ToolbarCommands, CenteringTogglesItsFlagAndNothingElse) {
    program.toolbar.click(Key::Centering);
    EXPECT_TRUE(Main.view.centerUpdate);
    program.toolbar.click(Key::Centering);
    EXPECT_FALSE(Main.view.centerUpdate);
}

TEST_F(ToolbarCommands, CommandsAreDeafDuringAFlight) {
    context.events = [&] {
        for (const Key key : {Key::New, Key::Open, Key::Save, Key::Print, Key::Prefs, Key::Palette})
            program.toolbar.click(key);
        EXPECT_TRUE(dialogs.asked.empty());
        program.toolbar.click(Key::FlyingPreview);
        // The rest of this turn's events still meets the scaled project.
        program.toolbar.click(Key::Save);
        EXPECT_TRUE(dialogs.asked.empty());
    };
    program.toolbar.click(Key::FlyingPreview);
    EXPECT_EQ(Wings(1).span, 700);
}

/// What the colour dialog is given and what is stored of its answer, as computed by other means.
TEST_F(ToolbarCommands, ColoursGoThroughTheDialogAsComputedByOtherMeans) {
    std::ifstream in(VELNA_TEST_DATA "/scene/cases.json");
    const auto palette = nlohmann::json::parse(in)["palette"];
    const auto point = [](const nlohmann::json& list) {
        return Point3D{list[0].get<double>(), list[1].get<double>(), list[2].get<double>()};
    };
    ASSERT_FALSE(palette["preload"].empty());
    for (const auto& row : palette["preload"]) {
        const auto value = Toolbar::dialogColour(point(row["color"]));
        EXPECT_EQ(value, row["dialog_preload"].get<std::uint32_t>());
        EXPECT_EQ(Toolbar::colourRecord(value), point(row["stored_when_nothing_is_changed"]));
    }
    for (const auto& row : palette["take"])
        EXPECT_EQ(Toolbar::colourRecord(row["dialog"].get<std::uint32_t>()), point(row["stored"]));
}

TEST_F(ToolbarCommands, TheFlightsButtonStartsAndEndsIt) {
    context.events = [] { program.toolbar.click(Key::FlyingPreview); };
    program.toolbar.click(Key::FlyingPreview);
    EXPECT_FALSE(program.flying.flying);
    EXPECT_FALSE(Main.checked(Control::FlyingPreviewButton));
    EXPECT_EQ(Wings(1).span, 700);
}

TEST_F(ToolbarCommands, TheFrustumPromptTakesANumberAboveZeroOnly) {
    const int created = GlTape::count("create");
    dialogs.texts = {std::nullopt, "", "0", "-5", "abc", "1e999", "50"};
    for (int i = 0; i < 7; ++i) program.toolbar.frustumPrompt();
    EXPECT_EQ(GlTape::count("create"), created + 1);
    EXPECT_EQ(dialogs.asked[0].text, "Enter max frustrum value [100]|100");
    EXPECT_EQ(dialogs.asked[0].title, "Special feature for the members of Velna Expert Group");
}

TEST_F(ToolbarCommands, CancelInPrintSelectLeavesTheViewAsItWas) {
    Main.initSideView();
    dialogs.inPrintSelect = [] { program.PrintSelect.cancel = true; };
    program.toolbar.click(Key::Print);
    EXPECT_EQ(dialogs.story(), "printselect");
    EXPECT_EQ(Main.view.mode, ViewMode::Side);
}

TEST_F(ToolbarCommands, ACancelledPrinterDialogPrintsNothingAndEndsInTheTopView) {
    Main.initSideView();
    dialogs.inPrintSelect = [] {
        program.PrintSelect = {};
        program.PrintSelect.cancel = false;
        program.PrintSelect.Side = program.PrintSelect.front = true;
    };
    dialogs.printers = {nullptr};
    program.toolbar.click(Key::Print);
    EXPECT_EQ(dialogs.asked.back().text, "side front ");
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(ToolbarCommands, ManagerAndHelpOpen) {
    program.toolbar.click(Key::Manager);
    EXPECT_EQ(dialogs.story(), "manager");
    program.toolbar.click(Key::Help);
    EXPECT_EQ(desktop.calls.back(), "help");
}

}  // namespace
}  // namespace velna::test
