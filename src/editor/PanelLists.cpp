#include <algorithm>
#include <string>

#include "editor/Main.h"
#include "editor/MeshLimit.h"
#include "editor/ModelChange.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/ObjectList.h"
#include "model/Plane.h"

namespace velna {
namespace {

// ---- scroll bars

void wingChosen(std::int16_t value) {
    currentWing = value;
    Main.setText(Control::IdWingLabel, std::to_string(value));
    Main.updateWingInterface();
}

void sectionChosen(std::int16_t value) {
    MeshSections& fuselage = Fuselage::current();
    const bool another = value != fuselage.sel_sec;
    // The section first, then the scale, so that the section shown fills its picture.
    fuselage.sel_sec = value;
    Main.zoomSectionSet();
    if (!another) return;
    Main.updateFuselageInterface();
    Main.refreshDrawingArea();
    if (Main.mode == ViewMode::Side)
        Main.views.drawFuselagesSide(Main.canvas(), fuselage.sel_sec, FuselageLook::bar);
    if (Main.mode == ViewMode::HTop)
        Main.views.drawFuselagesHTop(Main.canvas(), fuselage.sel_sec, FuselageLook::bar);
}

void fuselageChosen(std::int16_t value) {
    currentFuselage = value;
    Main.setText(Control::IdFusLabel, std::to_string(value));
    if (Fuselage::current().nb_cross == 0) {
        // Nothing of it can be shown yet: its number of outline points is the way to start it.
        Main.enableTexts();
        Main.setText(Control::NbCrossFuselageText, "0");
        return;
    }
    // The scale first: the filler draws the section.
    Main.zoomSectionSet();
    Main.updateFuselageInterface();
    Main.refreshDrawingArea();
}

void boxChosen(std::int16_t value) {
    EquipmentView& former = Main.views.boxes(currentEquipment);
    if (Main.mode == ViewMode::Side) former.drawSide(Main.canvas(), Equipment::current());
    if (Main.mode == ViewMode::HTop) former.drawHTop(Main.canvas(), Equipment::current());
    currentEquipment = value;
    Main.setText(Control::IdEquipLabel, std::to_string(value));
    Main.refreshDrawingArea();
    Main.updateEquipmentInterface();
}

/// A scroll bar of the panel and what its change event does.
struct ScrollRow {
    Control bar;
    void (*chosen)(std::int16_t value);
};

constexpr ScrollRow scrollRows[] = {
    {Control::IndexWingsScroll, wingChosen},
    {Control::FuselageScroll, sectionChosen},
    {Control::IndexFusScroll, fuselageChosen},
    {Control::IndexServosScroll, boxChosen},
};

// ---- buttons

void addWing(std::int16_t /*shift*/) {
    if (!Plane::increment(nbWings)) return;
    MainWing::addWing();
    Main.views.wings.renew(nbWings);
    Main.savedProject = false;
    Main.setScroll(Control::IndexWingsScroll, nbWings, nbWings);
    Main.refreshDrawingArea();
}

void removeWing(std::int16_t /*shift*/) {
    if (nbWings > 1) {
        --nbWings;
        Main.savedProject = false;
        Main.setScroll(Control::IndexWingsScroll, nbWings, nbWings);
    }
    Main.refreshDrawingArea();
}

void addFuselage(std::int16_t shift) {
    if (shift == ShiftState::ctrl) Main.ctrlkey_tab = true;
    const MeshSections fresh;
    const MeshSections& pattern = Main.ctrlkey_tab ? Fuselage::current() : fresh;
    const bool room = meshFits(nullptr, pattern.nb_sections, pattern.nb_cross);
    if (!room || !Plane::increment(nbFuselages)) {
        Main.ctrlkey_tab = false;
        return;
    }
    Fuselage::resizeFuselages();
    Fuselage::addFuselage(Main.ctrlkey_tab);
    Main.views.fuselages.renew(nbFuselages);
    // A copy has no scale of its own before it is shown.
    if (Main.ctrlkey_tab) Main.views.fuselages(nbFuselages).szoom = 0;
    ObjectList.update();
    Main.window->fuselageListChanged();
    Main.savedProject = false;
    currentFuselage = nbFuselages;
    Main.zoomSectionSet();
    Main.refreshDrawingArea();
    Main.setScroll(Control::IndexFusScroll, nbFuselages, nbFuselages);
    Main.ctrlkey_tab = false;
}

void removeFuselage(std::int16_t /*shift*/) {
    const bool yes = Main.window->askYesNo(
        "This will destroy the last created fuselage.\nDo you want to proceed ?", BoxIcon::Question,
        true);
    if (!yes || nbFuselages <= 1) return;
    --nbFuselages;
    ObjectList.update();
    Main.window->fuselageListChanged();
    Main.savedProject = false;
    Fuselage::resizeFuselages();
    currentFuselage = nbFuselages;
    Main.refreshDrawingArea();
    Main.setScroll(Control::IndexFusScroll, nbFuselages, nbFuselages);
}

void addBox(std::int16_t /*shift*/) {
    if (!Plane::increment(nbEquipments)) return;
    Equipment::resizeEquipments(nbEquipments);
    Main.views.boxes.renew(nbEquipments);
    Main.savedProject = false;
    Main.setScroll(Control::IndexServosScroll, nbEquipments, nbEquipments);
}

void removeBox(std::int16_t /*shift*/) {
    if (nbEquipments <= 1) return;
    --nbEquipments;
    currentEquipment = nbEquipments;
    // The list's resizing puts a new box into its last slot: the box before the removed one becomes
    // a default one.
    Equipment::resizeEquipments(nbEquipments);
    Main.views.boxes.renew(nbEquipments);
    Main.savedProject = false;
    Main.setScroll(Control::IndexServosScroll, nbEquipments, nbEquipments);
    // A bar that stood there already runs no event: the panel would show another box than it edits.
    Main.updateEquipmentInterface();
    Main.refreshDrawingArea();
}

/// Runs a smoothing of the current fuselage.
template <auto smooth>
void smoothFuselage(std::int16_t /*shift*/) {
    MeshSections& fuselage = Fuselage::current();
    changeModel(
        [&] {
            return std::tuple{fuselage.height, fuselage.width, fuselage.elevation};
        },
        [&] { (fuselage.*smooth)(); });
    Main.refreshDrawingArea();
}

/// A push button of the panel and what a press does.
struct ButtonRow {
    Control button;
    void (*press)(std::int16_t shift);
};

constexpr ButtonRow buttonRows[] = {
    {Control::IndexWingPlusButton, addWing},
    {Control::IndexWingMinusButton, removeWing},
    {Control::IndexFusPlusButton, addFuselage},
    {Control::IndexFusMinusButton, removeFuselage},
    {Control::IndexServosPlusButton, addBox},
    {Control::IndexServosMinusButton, removeBox},
    {Control::SmoothTopCommand, smoothFuselage<&MeshSections::smoothTop>},
    {Control::SmoothDownCommand, smoothFuselage<&MeshSections::smoothDown>},
    {Control::SmoothWidthCommand, smoothFuselage<&MeshSections::SmoothWidth>},
};

}  // namespace

void MainForm::scrollChanged(Control bar, int value) {
    ControlState& state = controls[bar];
    state.value = std::clamp(value, 1, std::max(state.maximum, 1));
    for (const ScrollRow& row : scrollRows)
        if (row.bar == bar) row.chosen(static_cast<std::int16_t>(state.value));
}

void MainForm::buttonPressed(Control button, std::int16_t shift) {
    for (const ButtonRow& row : buttonRows)
        if (row.button == button) row.press(shift);
}

}  // namespace velna
