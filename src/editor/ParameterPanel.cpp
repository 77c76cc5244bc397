#include <algorithm>
#include <string>
#include <utility>

#include "common/NumberText.h"
#include "editor/FieldNames.h"
#include "editor/HistoryStep.h"
#include "editor/Main.h"
#include "editor/ModelChange.h"
#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "model/Plane.h"

namespace velna {
namespace {

void fillTexts(MainForm& form, int tab) {
    for (const PanelField& field : panelFields())
        if (field.tab == tab) form.setText(field.control, panelText(form.project, field));
}

/// Takes the current fuselage's old plan off the surface.
void movePlan(const Canvas& canvas, FuselageView& view, const MeshSections& body) {
    view.drawVTop(canvas, body, FuselageLook::erased);
    view.vtopPoints = body.computeVTopPoints(canvas.at, std::move(view.vtopPoints));
}

/// The one commit: takes the number at the start of the text, stores it, and redraws. Gives what
/// became of the text, for a refill may have overwritten that.
TextEntry commit(MainForm& form, const PanelField& field, const std::string& text) {
    const HistoryStep step(form, fieldName(field.control), form.visitOf(field.control));
    Project& project = form.project;
    bool stored = false;
    const auto value = [&] { return field.get(project); };
    changeModel(form, value, [&] { stored = field.set(form.store(), leadingNumber(text)); });
    const TextEntry taken = wholeNumber(text) ? TextEntry::Taken : TextEntry::TakenInPart;
    const TextEntry entry = stored ? taken : TextEntry::Refused;
    form.setEntry(field.control, entry);
    if (field.after == AfterCommit::BuildOutline) form.updateFuselageInterface();
    if (field.after == AfterCommit::MovePlan)
        movePlan(form.canvas(), form.views.fuselage(), Fuselage::current(project));
    form.refreshDrawingArea();
    if (field.after == AfterCommit::RefillWing) form.updateWingInterface();
    return entry;
}

}  // namespace

void MainForm::updateWingInterface() {
    fillTexts(*this, PanelTab::wing);
    setText(Control::IdWingLabel, std::to_string(project.currentWing));
    setScroll(Control::IndexWingsScroll, project.nbWings, project.currentWing);
}

void MainForm::updateStabilizerInterface() {
    fillTexts(*this, PanelTab::stabilizer);
}

void MainForm::updateRudderInterface() {
    fillTexts(*this, PanelTab::rudder);
}

void MainForm::enableTexts() {
    const bool shaped = Fuselage::current(project).nb_cross != 0;
    for (const PanelField& field : panelFields())
        setEnabled(field.control, shaped || field.control == Control::NbCrossFuselageText);
}

void MainForm::updateFuselageInterface() {
    enableTexts();
    fillTexts(*this, PanelTab::fuselage);
    for (const PanelSlider& slider : panelSliders()) {
        setSlider(slider.control, std::clamp(roundToInt(slider.get(project) * 100.0), slider.lowest,
                                             slider.highest));
    }
    for (const PanelCheck& check : panelChecks()) setChecked(check.control, check.get(project));
    const MeshSections& fuselage = Fuselage::current(project);
    setText(Control::FuselageSectionLabel, std::to_string(fuselage.sel_sec));
    setScroll(Control::FuselageScroll, fuselage.nb_sections, fuselage.sel_sec);
    setText(Control::IdFusLabel, std::to_string(project.currentFuselage));
    setScroll(Control::IndexFusScroll, project.nbFuselages, project.currentFuselage);
    drawSection();
}

void MainForm::refreshPanels() {
    updateWingInterface();
    updateStabilizerInterface();
    zoomSectionSet();
    updateFuselageInterface();
    updateRudderInterface();
    updateEquipmentInterface();
}

void MainForm::textEdited(Control box, const std::string& text) {
    if (box == Control::NbCrossFuselageText) return nbCrossChanged(text);
    controls[box].text = text;
    setEntry(box, TextEntry::Typed);
}

void MainForm::textKeyDown(Control box, const std::string& text) {
    const PanelField* field = panelField(box);
    ControlState& state = controls[box];
    if (!field || !state.enabled) return;
    if (field->after == AfterCommit::BuildOutline) {
        // Filled at the last change of its text, it comes to show that now.
        if (state.text == panelText(project, *field)) setEntry(box, TextEntry::Filled);
        return;
    }
    if (state.entry != TextEntry::Typed) return;
    state.text = text;
    commit(*this, *field, text);
}

void MainForm::nbCrossChanged(const std::string& text) {
    constexpr Control box = Control::NbCrossFuselageText;
    controls[box].text = text;
    // An empty box is on its way to the next number: the fuselage must not vanish meanwhile.
    const auto number = numericPrefix(text);
    if (!number || !(0 <= *number && *number <= 100)) return setEntry(box, TextEntry::Refused);
    // Its refill comes between two digits: the box goes on showing what is typed.
    setEntry(box, commit(*this, *panelField(box), text));
}

void MainForm::checkClicked(Control control, bool on) {
    const PanelCheck* check = panelCheck(control);
    if (!check) return;
    const HistoryStep step(*this, fieldName(control));
    controls[control].checked = on;
    const auto value = [&] { return check->get(project); };
    changeModel(*this, value, [&] { check->set(project, on); });
    if (check->renders) window->renderScene(true);
}

void MainForm::tabClicked(int newTab) {
    selectTab(newTab);
    if (newTab == PanelTab::wing || newTab == PanelTab::stabilizer)
        views.fuselage().grip.selected = false;
}

}  // namespace velna
