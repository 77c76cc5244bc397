#include "shell/ToolbarCommands.h"

#include <algorithm>
#include <cmath>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Plane.h"
#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "shell/ContextIDs.h"
#include "shell/FileCommands.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/PrintCommand.h"
#include "shell/Startup.h"
#include "shell/TabElement.h"

namespace velna::Toolbar {

namespace {

void showView(std::optional<int> tab, void (MainForm::*enter)()) {
    if (tab) Main.selectTab(*tab);
    (Main.*enter)();
}

void vtop() {
    showView(PanelTab::wing, &MainForm::initVTopView);
}
void front() {
    showView(PanelTab::wing, &MainForm::initFrontView);
}
void side() {
    showView(PanelTab::fuselage, &MainForm::initSideView);
}
void htop() {
    showView(std::nullopt, &MainForm::initHTopView);
}

/// The colour dialog starts from the element's colour, or, on the electronics tab, from its own
/// last one.
void pickElementColour() {
    static std::uint32_t dialogValue = 0;
    if (const auto color = TabElement::color()) dialogValue = dialogColour(*color);
    const auto picked = Shell.dialogs->pickColour(dialogValue);
    if (!picked) return;
    dialogValue = *picked;
    if (TabElement::color()) {
        TabElement::setColor(colourRecord(dialogValue));
        Main.savedProject = false;
    }
    Rendering::renderScene(true);
}

void render() {
    Main.setChecked(Control::RenderButton, !Main.renderPressed());
    Plane::createAllSolids();
    Rendering::renderScene(true);
}

void preferences() {
    Preferences::formLoad();
    Shell.dialogs->showPreferences();
    Main.refreshPanels();
    Main.initVTopView();
    Rendering::reapplyViewTransform();
    Rendering::renderScene(true);
}

/// The button goes down and the flight runs inside this event; its next click, which comes while
/// the flight lets events run, lets it up and ends it.
void flyingPreview() {
    Main.setChecked(Control::FlyingPreviewButton, !Main.checked(Control::FlyingPreviewButton));
    if (!Main.checked(Control::FlyingPreviewButton)) {
        Flying::flying = false;
        return;
    }
    Flying::flyPreview();
    Main.setChecked(Control::FlyingPreviewButton, false);
}

struct Command {
    Key key;
    void (*run)();
};

constexpr Command commands[] = {
    {Key::New, FileCommands::newProject},
    {Key::Open, FileCommands::open},
    {Key::Save, FileCommands::save},
    {Key::Print, PrintCommand::run},
    {Key::VTop, vtop},
    {Key::Front, front},
    {Key::Side, side},
    {Key::HTop, htop},
    {Key::Palette, pickElementColour},
    {Key::Render, render},
    {Key::Prefs, preferences},
    {Key::Manager, [] { Shell.dialogs->showManager(); }},
    {Key::FlyingPreview, flyingPreview},
    {Key::Help, showHelpContents},
    {Key::Exit, [] { Shell.desktop->endProcess(); }},
    {Key::Centering, [] { Main.centerUpdate = !Main.centerUpdate; }},
};

}  // namespace

const std::array<Button, 14> buttons{{
    {Key::New, "New", "Reset to the default plane", ButtonKind::Push, {}},
    {Key::Open, "Open", "Open a Velna project", ButtonKind::Push, {}},
    {Key::Save, "Save", "Save Velna project or export to VRML", ButtonKind::Push, {}},
    {Key::Print, "Print", "Print plans", ButtonKind::Push, {}},
    {Key::VTop, "VTop", "Selects the 2D top view", ButtonKind::View, Control::VTopButton},
    {Key::Front, "Front", "Selects the 2D front view", ButtonKind::View, Control::FrontButton},
    {Key::Side, "Side", "Selects the 2D side view", ButtonKind::View, Control::SideButton},
    {Key::HTop, "HTop", "Selects the fuselage top view", ButtonKind::View, Control::HTopButton},
    {Key::Palette, "Palette", "Change the color of the edited element", ButtonKind::Push, {}},
    {Key::Render, "Render", "Swich On/Off real-time rendering", ButtonKind::Toggle,
     Control::RenderButton},
    {Key::Prefs, "Prefs", "Selects units and model scale", ButtonKind::Push, {}},
    {Key::Manager, "Manager", "Opens the fuselage manager window", ButtonKind::Push, {}},
    {Key::FlyingPreview, "FlyingPreview", "Flying Preview", ButtonKind::Toggle,
     Control::FlyingPreviewButton},
    {Key::Help, "Help", "Help File", ButtonKind::Push, {}},
}};

void click(Key key) {
    // The project is in scaled form during a flight: it must not be saved, opened or reset.
    if (Flying::running() && key != Key::FlyingPreview) return;
    {
        const Startup::CommandUnderWay command;
        for (const Command& row : commands)
            if (row.key == key) row.run();
    }
    Startup::closeIfAsked();
}

void frustumPrompt() {
    const auto answer =
        Shell.dialogs->askText("Enter max frustrum value [100]",
                               "Special feature for the members of Velna Expert Group", "100");
    if (!answer) return;
    const double halfWidth = leadingNumber(*answer);
    if (std::isfinite(halfWidth) && halfWidth > 0) Rendering::createRenderContextWide(halfWidth);
}

std::uint32_t dialogColour(const Point3D& color) {
    const auto component = [](double value) {
        return static_cast<std::uint32_t>(std::clamp(roundToInt(value), 0, 255));
    };
    return component(color.x) | component(color.y) << 8 | component(color.z) << 16;
}

Point3D colourRecord(std::uint32_t value) {
    return {static_cast<double>(value & 0xFF), static_cast<double>(value >> 8 & 0xFF),
            static_cast<double>(value >> 16 & 0xFF)};
}

}  // namespace velna::Toolbar
