#include <algorithm>
#include <string>

#include "editor/FieldNames.h"
#include "editor/HistoryStep.h"
#include "editor/ModelChange.h"
#include "editor/Views.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"

namespace velna {
namespace {

// ---- scroll bars

void wingChosen(MainForm& form, std::int16_t value) {
    form.project.currentWing = value;
    form.setText(Control::IdWingLabel, std::to_string(value));
    form.updateWingInterface();
}

void sectionChosen(MainForm& form, std::int16_t value) {
    MeshSections& fuselage = Fuselage::current(form.project);
    const bool another = value != fuselage.sel_sec;
    // The section first, then the scale, so that the section shown fills its picture.
    fuselage.sel_sec = value;
    form.zoomSectionSet();
    if (!another) return;
    form.updateFuselageInterface();
    form.refreshDrawingArea();
    if (const SectionView* sections = viewOf(form.view.mode).sections)
        (form.views.*sections->draw)(form.canvas(), fuselage.sel_sec, FuselageLook::bar);
}

void fuselageChosen(MainForm& form, std::int16_t value) {
    Project& project = form.project;
    project.currentFuselage = value;
    form.setText(Control::IdFusLabel, std::to_string(value));
    if (Fuselage::current(project).nb_cross == 0) {
        // Nothing of it can be shown yet: its number of outline points is the way to start it.
        form.enableTexts();
        form.setText(Control::NbCrossFuselageText, "0");
        return;
    }
    // The scale first: the filler draws the section.
    form.zoomSectionSet();
    form.updateFuselageInterface();
    form.refreshDrawingArea();
}

void boxChosen(MainForm& form, std::int16_t value) {
    Project& project = form.project;
    EquipmentView& former = form.views.boxes(project.currentEquipment);
    if (const SectionView* sections = viewOf(form.view.mode).sections)
        (former.*sections->drawBox)(form.canvas(), Equipment::current(project), false);
    project.currentEquipment = value;
    form.setText(Control::IdEquipLabel, std::to_string(value));
    form.refreshDrawingArea();
    form.updateEquipmentInterface();
}

/// A scroll bar of the panel and what its change event does.
struct ScrollRow {
    Control bar;
    void (*chosen)(MainForm& form, std::int16_t value);
};

constexpr ScrollRow scrollRows[] = {
    {Control::IndexWingsScroll, wingChosen},
    {Control::FuselageScroll, sectionChosen},
    {Control::IndexFusScroll, fuselageChosen},
    {Control::IndexServosScroll, boxChosen},
};

// ---- buttons

void addWing(MainForm& form, std::int16_t /*shift*/) {
    Project& project = form.project;
    if (!Plane::increment(project.nbWings)) return;
    MainWing::addWing(project);
    form.views.wings.renew(project.nbWings);
    form.savedProject = false;
    form.setScroll(Control::IndexWingsScroll, project.nbWings, project.nbWings);
    form.refreshDrawingArea();
}

void removeWing(MainForm& form, std::int16_t /*shift*/) {
    Project& project = form.project;
    if (project.nbWings > 1) {
        --project.nbWings;
        form.savedProject = false;
        form.setScroll(Control::IndexWingsScroll, project.nbWings, project.nbWings);
    }
    form.refreshDrawingArea();
}

void addFuselage(MainForm& form, std::int16_t shift) {
    Project& project = form.project;
    if (shift == ShiftState::ctrl) form.pointer.ctrlkey_tab = true;
    const MeshSections fresh(project.units, project.defaultColor);
    const MeshSections& pattern = form.pointer.ctrlkey_tab ? Fuselage::current(project) : fresh;
    const bool room = Fuselage::meshFits(project, nullptr, pattern.nb_sections, pattern.nb_cross);
    if (!room || !Plane::increment(project.nbFuselages)) {
        form.pointer.ctrlkey_tab = false;
        return;
    }
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project, form.pointer.ctrlkey_tab);
    form.views.fuselages.renew(project.nbFuselages);
    // A copy has no scale of its own before it is shown.
    if (form.pointer.ctrlkey_tab) form.views.fuselages(project.nbFuselages).szoom = 0;
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
    form.window->fuselageListChanged();
    form.savedProject = false;
    project.currentFuselage = project.nbFuselages;
    form.zoomSectionSet();
    form.refreshDrawingArea();
    form.setScroll(Control::IndexFusScroll, project.nbFuselages, project.nbFuselages);
    form.pointer.ctrlkey_tab = false;
}

void removeFuselage(MainForm& form, std::int16_t /*shift*/) {
    Project& project = form.project;
    const bool yes = form.window->askYesNo(
        "This will destroy the last created fuselage.\nDo you want to proceed ?", BoxIcon::Question,
        true);
    if (!yes || project.nbFuselages <= 1) return;
    --project.nbFuselages;
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
    form.window->fuselageListChanged();
    form.savedProject = false;
    Fuselage::resizeFuselages(project);
    project.currentFuselage = project.nbFuselages;
    form.refreshDrawingArea();
    form.setScroll(Control::IndexFusScroll, project.nbFuselages, project.nbFuselages);
}

void addBox(MainForm& form, std::int16_t /*shift*/) {
    Project& project = form.project;
    if (!Plane::increment(project.nbEquipments)) return;
    Equipment::resizeEquipments(project, project.nbEquipments);
    form.views.boxes.renew(project.nbEquipments);
    form.savedProject = false;
    form.setScroll(Control::IndexServosScroll, project.nbEquipments, project.nbEquipments);
}

void removeBox(MainForm& form, std::int16_t /*shift*/) {
    Project& project = form.project;
    if (project.nbEquipments <= 1) return;
    --project.nbEquipments;
    project.currentEquipment = project.nbEquipments;
    // The list's resizing puts a new box into its last slot: the box before the removed one becomes
    // a default one.
    Equipment::resizeEquipments(project, project.nbEquipments);
    form.views.boxes.renew(project.nbEquipments);
    form.savedProject = false;
    form.setScroll(Control::IndexServosScroll, project.nbEquipments, project.nbEquipments);
    // A bar that stood there already runs no event: the panel would show another box than it edits.
    form.updateEquipmentInterface();
    form.refreshDrawingArea();
}

/// Runs a smoothing of the current fuselage.
template <auto smooth>
void smoothFuselage(MainForm& form, std::int16_t /*shift*/) {
    MeshSections& fuselage = Fuselage::current(form.project);
    const auto shape = [&] {
        return std::tuple{fuselage.height, fuselage.width, fuselage.elevation};
    };
    changeModel(form, shape, [&] { (fuselage.*smooth)(); });
    form.refreshDrawingArea();
}

/// A push button of the panel and what a press does.
struct ButtonRow {
    Control button;
    void (*press)(MainForm& form, std::int16_t shift);
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
        if (row.bar == bar) row.chosen(*this, static_cast<std::int16_t>(state.value));
}

void MainForm::buttonPressed(Control button, std::int16_t shift) {
    const HistoryStep step(*this, fieldName(button));
    for (const ButtonRow& row : buttonRows)
        if (row.button == button) row.press(*this, shift);
}

}  // namespace velna
