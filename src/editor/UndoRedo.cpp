#include <string>

#include "editor/FieldNames.h"
#include "editor/Main.h"
#include "model/Fuselage.h"
#include "model/Project.h"

namespace velna {
namespace {

/// What shows one direction of the history.
struct HistoryControls {
    Control button;
    Control entry;
    const std::string* (History::*name)() const;
};

constexpr HistoryControls historyControls[] = {
    {Control::UndoButton, Control::UndoStep, &History::undoName},
    {Control::RedoButton, Control::RedoStep, &History::redoName},
};

void showStep(MainForm& form, Control control, const std::string* name) {
    ControlState& state = form.controls[control];
    const std::string text = name ? *name : std::string();
    if (state.enabled == (name != nullptr) && state.text == text) return;
    state.enabled = name != nullptr;
    state.text = text;
    form.window->changed(control);
}

/// How many sections each fuselage has.
int sectionsOf(const Project& project) {
    return Fuselage::current(project).nb_sections;
}

}  // namespace

void MainForm::beginHistory() {
    history.begin(project, savedProject);
    showHistory();
}

void MainForm::showHistory() {
    for (const HistoryControls& row : historyControls) {
        const std::string* name = (history.*row.name)();
        showStep(*this, row.button, name);
        showStep(*this, row.entry, name);
    }
}

unsigned MainForm::visitOf(Control control) {
    if (visit_ == 0 || control != visited_) visit_ = history.newVisit();
    visited_ = control;
    return visit_;
}

void MainForm::beginGesture() {
    if (gestureOpen_) return;
    gestureOpen_ = true;
    sectionsAtPress_ = sectionsOf(project);
    history.open(project);
}

void MainForm::holdSlider(Control slider) {
    endVisit();
    beginGesture();
    history.name(std::string(fieldName(slider)));
}

void MainForm::nameGesture() {
    const int sections = sectionsOf(project);
    if (sections > sectionsAtPress_) return history.name("Insert section");
    if (sections < sectionsAtPress_) return history.name("Remove section");
    if (const auto held = heldField(*this)) history.name(std::string(fieldName(held->box)));
}

void MainForm::endGesture() {
    if (!gestureOpen_) return;
    gestureOpen_ = false;
    history.close(project);
    showHistory();
}

bool MainForm::undo() {
    return stepHistory(&History::undo);
}

bool MainForm::redo() {
    return stepHistory(&History::redo);
}

bool MainForm::stepHistory(bool (History::*step)(Project& project, std::string& file)) {
    if (anyBusy()) return false;
    const int unit = project.units;
    if (!(history.*step)(project, projectName)) return false;
    savedProject = history.atSaved();
    endVisit();
    views.startOver();
    if (project.units != unit) {
        Prefs.selectUnit(project.units);
        fillCatalogues();
    }
    window->fuselageListChanged();
    showRestored(project.units != unit);
    showHistory();
    return true;
}

void MainForm::giveUpGesture() {
    history.giveUp(project);
    gestureOpen_ = false;
    endVisit();
    views.startOver();
    pointer.releaseKeys();
    pointer.ctrlkey_tab = false;
    savedProject = savedProject && history.atSaved();
    Prefs.selectUnit(project.units);
}

void MainForm::showGivenUp() {
    setDrawMode(DrawMode::Copy);
    fillCatalogues();
    window->fuselageListChanged();
    showRestored(false);
    showHistory();
}

/// The panels follow, but the drawing stays where it is: another scale would take the change out of
/// the user's sight. Between two units nothing would be left in sight.
void MainForm::showRestored(bool otherUnit) {
    const ViewState before = view;
    // The filler sets the range alone.
    setScroll(Control::IndexServosScroll, project.nbEquipments, project.currentEquipment);
    refreshPanels();
    if (otherUnit) {
        refreshDrawingArea();
    } else {
        view.zoom = before.zoom;
        view.xoff = before.xoff;
        view.yoff = before.yoff;
        view.byHand = before.byHand;
        redrawAtSameScale();
    }
    updateCursor();
}

}  // namespace velna
