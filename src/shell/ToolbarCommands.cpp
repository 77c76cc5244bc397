#include "shell/ToolbarCommands.h"

#include <algorithm>
#include <cmath>

#include "common/NumberText.h"
#include "editor/HistoryStep.h"
#include "shell/EditedPart.h"

namespace velna {

namespace {

using Toolbar::Button;
using Toolbar::ButtonKind;
using Toolbar::Key;

void showView(MainForm& main, int tab, void (MainForm::*enter)()) {
    main.selectTab(tab);
    (main.*enter)();
}

/// The colour dialog starts from the part's colour, or, on the electronics tab, from its own last
/// one.
void pickElementColour(ToolbarCommands& on) {
    const EditedPart part{on.main.project, on.solids, on.main.tab()};
    const auto color = part.color();
    if (color) on.dialogValue = Toolbar::dialogColour(*color);
    const auto picked = on.ports.dialogs->pickColour(on.dialogValue);
    if (!picked) return;
    on.dialogValue = *picked;
    if (color) {
        const HistoryStep step(on.main, "Colour");
        part.setColor(Toolbar::colourRecord(on.dialogValue));
        on.main.savedProject = false;
    }
    on.rendering.renderScene(true);
}

void render(ToolbarCommands& on) {
    on.main.setChecked(Control::RenderButton, !on.main.renderPressed());
    on.rendering.renderScene(true);
}

void showPreferences(ToolbarCommands& on) {
    on.preferences.formLoad();
    on.ports.dialogs->showPreferences();
    on.main.refreshPanels();
    on.main.initVTopView();
    on.rendering.reapplyViewTransform();
    on.rendering.renderScene(true);
}

/// The button goes down and the flight runs inside this event; its next click, which comes while
/// the flight lets events run, lets it up and ends it.
void flyingPreview(ToolbarCommands& on) {
    MainForm& main = on.main;
    main.setChecked(Control::FlyingPreviewButton, !main.checked(Control::FlyingPreviewButton));
    if (!main.checked(Control::FlyingPreviewButton)) {
        on.flying.flying = false;
        return;
    }
    on.flying.flyPreview();
    main.setChecked(Control::FlyingPreviewButton, false);
}

struct Command {
    Key key;
    void (*run)(ToolbarCommands& on);
};

constexpr Command commands[] = {
    {Key::New, [](ToolbarCommands& on) { on.files.newProject(); }},
    {Key::Open, [](ToolbarCommands& on) { on.files.open(); }},
    {Key::Save, [](ToolbarCommands& on) { on.files.save(); }},
    {Key::Print, [](ToolbarCommands& on) { on.print.run(); }},
    {Key::VTop,
     [](ToolbarCommands& on) { showView(on.main, PanelTab::wing, &MainForm::initVTopView); }},
    {Key::Front,
     [](ToolbarCommands& on) { showView(on.main, PanelTab::wing, &MainForm::initFrontView); }},
    {Key::Side,
     [](ToolbarCommands& on) { showView(on.main, PanelTab::fuselage, &MainForm::initSideView); }},
    {Key::HTop, [](ToolbarCommands& on) { on.main.initHTopView(); }},
    {Key::Palette, pickElementColour},
    {Key::Render, render},
    {Key::Prefs, showPreferences},
    {Key::Manager, [](ToolbarCommands& on) { on.ports.dialogs->showManager(); }},
    {Key::FlyingPreview, flyingPreview},
    {Key::Help, [](ToolbarCommands& on) { on.ports.desktop->showHelpContents(); }},
    {Key::Undo, [](ToolbarCommands& on) { on.history.undo(); }},
    {Key::Redo, [](ToolbarCommands& on) { on.history.redo(); }},
    {Key::Figures, [](ToolbarCommands& on) { on.ports.desktop->toggleFigures(); }},
    {Key::Exit, [](ToolbarCommands& on) { on.ports.desktop->endProcess(); }},
    {Key::SaveAgain, [](ToolbarCommands& on) { on.files.saveAgain(); }},
    {Key::NacaSection, [](ToolbarCommands& on) { on.files.airfoils.nacaSection(); }},
    {Key::AirfoilOnAll, [](ToolbarCommands& on) { on.files.airfoils.onEveryPanel(); }},
    {Key::Centering,
     [](ToolbarCommands& on) { on.main.view.centerUpdate = !on.main.view.centerUpdate; }},
};

constexpr Button allButtons[] = {
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
    {Key::Undo, "Undo", "Undo", ButtonKind::Step, Control::UndoButton},
    {Key::Redo, "Redo", "Redo", ButtonKind::Step, Control::RedoButton},
    {Key::Figures,
     "Figures",
     "Figures of the aircraft: areas, tail volumes, balance",
     ButtonKind::Push,
     {}},
};

}  // namespace

std::span<const Button> Toolbar::buttons() {
    return allButtons;
}

/// One command from its beginning to its end.
template <class Work>
void ToolbarCommands::perform(Work work) {
    // A flight, an export, a dialog may last.
    recovery.lookNow(main.projectName);
    {
        const CommandUnderWay command(quit);
        work();
    }
    if (ports.progress) ports.progress->finish();
    quit.closeIfAsked();
}

void ToolbarCommands::click(Key key) {
    // The project is in scaled form during a flight: it must not be saved, opened or reset.
    if (flying.running() && key != Key::FlyingPreview) return;
    perform([&] {
        for (const Command& row : commands)
            if (row.key == key) row.run(*this);
    });
}

bool ToolbarCommands::takesFiles() const {
    return !flying.running() && !quit.helper.running && !main.anyBusy();
}

void ToolbarCommands::openFile(const std::string& file) {
    if (takesFiles()) perform([&] { files.openFile(file); });
}

void ToolbarCommands::openDropped(const std::string& uriList) {
    if (takesFiles()) perform([&] { files.openDropped(uriList); });
}

void ToolbarCommands::frustumPrompt() {
    const auto answer =
        ports.dialogs->askText("Enter max frustrum value [100]",
                               "Special feature for the members of Velna Expert Group", "100");
    if (!answer) return;
    const double halfWidth = leadingNumber(*answer);
    if (std::isfinite(halfWidth) && halfWidth > 0) rendering.createRenderContextWide(halfWidth);
}

std::uint32_t Toolbar::dialogColour(const Point3D& color) {
    const auto component = [](double value) {
        return static_cast<std::uint32_t>(std::clamp(roundToInt(value), 0, 255));
    };
    return component(color.x) | component(color.y) << 8 | component(color.z) << 16;
}

Point3D Toolbar::colourRecord(std::uint32_t value) {
    return {static_cast<double>(value & 0xFF), static_cast<double>(value >> 8 & 0xFF),
            static_cast<double>(value >> 16 & 0xFF)};
}

}  // namespace velna
