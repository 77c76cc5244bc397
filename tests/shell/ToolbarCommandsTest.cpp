#include <fstream>

#include <nlohmann/json.hpp>

#include "model/Plane.h"
#include "output/Plans.h"
#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "shell/ToolbarCommands.h"
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

TEST_F(ToolbarCommands, TheBarHasItsFourteenButtonsInOrder) {
    std::string names;
    for (const auto& button : Toolbar::buttons) {
        names += std::string(button.name) + " ";
        EXPECT_STRNE(button.tip, "");
    }
    EXPECT_EQ(names,
              "New Open Save Print VTop Front Side HTop Palette Render Prefs Manager FlyingPreview "
              "Help ");
}

TEST_F(ToolbarCommands, TheViewButtonsSetTheirTabs) {
    Toolbar::click(Key::Side);
    EXPECT_EQ(Main.mode, ViewMode::Side);
    EXPECT_EQ(Main.tab(), PanelTab::fuselage);
    Main.selectTab(PanelTab::electronics);
    Toolbar::click(Key::HTop);
    EXPECT_EQ(Main.mode, ViewMode::HTop);
    EXPECT_EQ(Main.tab(), PanelTab::electronics);
    Toolbar::click(Key::Front);
    EXPECT_EQ(Main.mode, ViewMode::Front);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
    Main.selectTab(PanelTab::rudder);
    Toolbar::click(Key::VTop);
    EXPECT_EQ(Main.mode, ViewMode::VTop);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
}

TEST_F(ToolbarCommands, TheColourDialogStartsFromTheElementsColour) {
    Main.selectTab(PanelTab::rudder);
    Rudder.set_color({127.5, 128.5, 0.5});
    dialogs.colours = {1122867};
    Toolbar::click(Key::Palette);
    EXPECT_EQ(dialogs.asked.back().colour, 32896u);
    EXPECT_EQ(Rudder.color(), (Point3D{51, 34, 17}));
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(ToolbarCommands, ACancelledColourDialogChangesNothing) {
    Main.selectTab(PanelTab::stabilizer);
    Stabilizer.set_color({0.25, 0.5, 0.75});
    dialogs.colours = {std::nullopt};
    Toolbar::click(Key::Palette);
    EXPECT_EQ(Stabilizer.color(), (Point3D{0.25, 0.5, 0.75}));
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(ToolbarCommands, TheElectronicsTabPicksAColourForNothing) {
    Main.selectTab(PanelTab::wing);
    dialogs.colours = {8453889, 65280};
    Toolbar::click(Key::Palette);
    EXPECT_EQ(Wings(1).color(), (Point3D{1, 255, 128}));
    Main.selectTab(PanelTab::electronics);
    const int swaps = GlTape::count("SwapBuffers");
    Toolbar::click(Key::Palette);
    EXPECT_EQ(dialogs.asked.back().colour, 8453889u);
    EXPECT_EQ(Wings(1).color(), (Point3D{1, 255, 128}));
    EXPECT_EQ(GlTape::count("SwapBuffers"), swaps + 1);
}

TEST_F(ToolbarCommands, RenderTogglesAndBuildsEitherWay) {
    const int swaps = GlTape::count("SwapBuffers");
    Toolbar::click(Key::Render);
    EXPECT_TRUE(Main.renderPressed());
    Toolbar::click(Key::Render);
    EXPECT_FALSE(Main.renderPressed());
    EXPECT_EQ(GlTape::count("SwapBuffers"), swaps + 2);
}

TEST_F(ToolbarCommands, CenteringTogglesItsFlagAndNothingElse) {
    Toolbar::click(Key::Centering);
    EXPECT_TRUE(Main.centerUpdate);
    Toolbar::click(Key::Centering);
    EXPECT_FALSE(Main.centerUpdate);
}

TEST_F(ToolbarCommands, CommandsAreDeafDuringAFlight) {
    context.events = [&] {
        for (const Key key : {Key::New, Key::Open, Key::Save, Key::Print, Key::Prefs, Key::Palette})
            Toolbar::click(key);
        EXPECT_TRUE(dialogs.asked.empty());
        Toolbar::click(Key::FlyingPreview);
        // The rest of this turn's events still meets the scaled project.
        Toolbar::click(Key::Save);
        EXPECT_TRUE(dialogs.asked.empty());
    };
    Toolbar::click(Key::FlyingPreview);
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
    context.events = [] { Toolbar::click(Key::FlyingPreview); };
    Toolbar::click(Key::FlyingPreview);
    EXPECT_FALSE(Flying::flying);
    EXPECT_FALSE(Main.checked(Control::FlyingPreviewButton));
    EXPECT_EQ(Wings(1).span, 700);
}

TEST_F(ToolbarCommands, TheFrustumPromptTakesANumberAboveZeroOnly) {
    const int created = GlTape::count("create");
    dialogs.texts = {std::nullopt, "", "0", "-5", "abc", "1e999", "50"};
    for (int i = 0; i < 7; ++i) Toolbar::frustumPrompt();
    EXPECT_EQ(GlTape::count("create"), created + 1);
    EXPECT_EQ(dialogs.asked[0].text, "Enter max frustrum value [100]|100");
    EXPECT_EQ(dialogs.asked[0].title, "Special feature for the members of Velna Expert Group");
}

TEST_F(ToolbarCommands, CancelInPrintSelectLeavesTheViewAsItWas) {
    Main.initSideView();
    dialogs.inPrintSelect = [] { PrintSelect.cancel = true; };
    Toolbar::click(Key::Print);
    EXPECT_EQ(dialogs.story(), "printselect");
    EXPECT_EQ(Main.mode, ViewMode::Side);
}

TEST_F(ToolbarCommands, ACancelledPrinterDialogPrintsNothingAndEndsInTheTopView) {
    Main.initSideView();
    dialogs.inPrintSelect = [] {
        PrintSelect = {};
        PrintSelect.cancel = false;
        PrintSelect.Side = PrintSelect.front = true;
    };
    dialogs.printers = {nullptr};
    Toolbar::click(Key::Print);
    EXPECT_EQ(dialogs.asked.back().text, "side front ");
    EXPECT_EQ(Main.mode, ViewMode::VTop);
}

TEST_F(ToolbarCommands, ManagerAndHelpOpen) {
    Toolbar::click(Key::Manager);
    EXPECT_EQ(dialogs.story(), "manager");
    Toolbar::click(Key::Help);
    EXPECT_EQ(desktop.calls.back(), "help");
}

}  // namespace
}  // namespace velna::test
