#include <algorithm>
#include <string>
#include <utility>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "editor/ModelChange.h"
#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "model/Plane.h"

namespace velna {
namespace {

void fillTexts(int tab) {
    for (const PanelField& field : panelFields())
        if (field.tab == tab) Main.setText(field.control, panelText(field));
}

/// Takes the current fuselage's old plan off the surface.
void movePlan(FuselageView& view) {
    view.drawVTop(Main.canvas(), Fuselage::current(), FuselageLook::erased);
    view.vtopPoints =
        Fuselage::current().computeVTopPoints(Main.transform(), std::move(view.vtopPoints));
}

/// The one commit: takes the number at the start of the text, stores it, and redraws. Gives what
/// became of the text, for a refill may have overwritten that.
TextEntry commit(const PanelField& field, const std::string& text) {
    bool stored = false;
    changeModel(field.get, [&] { stored = field.set(leadingNumber(text)); });
    const TextEntry taken = wholeNumber(text) ? TextEntry::Taken : TextEntry::TakenInPart;
    const TextEntry entry = stored ? taken : TextEntry::Refused;
    Main.setEntry(field.control, entry);
    switch (field.after) {
        case AfterCommit::Redraw:
            Main.refreshDrawingArea();
            break;
        case AfterCommit::RefillWing:
            Main.refreshDrawingArea();
            Main.updateWingInterface();
            break;
        case AfterCommit::MovePlan:
            movePlan(Main.views.fuselage());
            Main.refreshDrawingArea();
            break;
        case AfterCommit::BuildOutline:
            Main.updateFuselageInterface();
            Main.refreshDrawingArea();
            break;
    }
    return entry;
}

}  // namespace

void MainForm::updateWingInterface() {
    fillTexts(PanelTab::wing);
    setText(Control::IdWingLabel, std::to_string(currentWing));
    setScroll(Control::IndexWingsScroll, nbWings, currentWing);
}

void MainForm::updateStabilizerInterface() {
    fillTexts(PanelTab::stabilizer);
}

void MainForm::updateRudderInterface() {
    fillTexts(PanelTab::rudder);
}

void MainForm::enableTexts() {
    const bool shaped = Fuselage::current().nb_cross != 0;
    for (const PanelField& field : panelFields())
        setEnabled(field.control, shaped || field.control == Control::NbCrossFuselageText);
}

void MainForm::updateFuselageInterface() {
    enableTexts();
    fillTexts(PanelTab::fuselage);
    for (const PanelSlider& slider : panelSliders()) {
        setSlider(slider.control,
                  std::clamp(roundToInt(slider.get() * 100.0), slider.lowest, slider.highest));
    }
    for (const PanelCheck& check : panelChecks()) setChecked(check.control, check.get());
    const MeshSections& fuselage = Fuselage::current();
    setText(Control::FuselageSectionLabel, std::to_string(fuselage.sel_sec));
    setScroll(Control::FuselageScroll, fuselage.nb_sections, fuselage.sel_sec);
    setText(Control::IdFusLabel, std::to_string(currentFuselage));
    setScroll(Control::IndexFusScroll, nbFuselages, currentFuselage);
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
        if (state.text == panelText(*field)) setEntry(box, TextEntry::Filled);
        return;
    }
    if (state.entry != TextEntry::Typed) return;
    state.text = text;
    commit(*field, text);
}

void MainForm::nbCrossChanged(const std::string& text) {
    constexpr Control box = Control::NbCrossFuselageText;
    controls[box].text = text;
    // An empty box is on its way to the next number: the fuselage must not vanish meanwhile.
    const auto number = numericPrefix(text);
    if (!number || !(0 <= *number && *number <= 100)) return setEntry(box, TextEntry::Refused);
    // Its refill comes between two digits: the box goes on showing what is typed.
    setEntry(box, commit(*panelField(box), text));
}

void MainForm::checkClicked(Control control, bool on) {
    const PanelCheck* check = panelCheck(control);
    if (!check) return;
    controls[control].checked = on;
    changeModel(check->get, [&] { check->set(on); });
    if (check->renders) window->renderScene(true);
}

void MainForm::tabClicked(int newTab) {
    selectTab(newTab);
    if (newTab == PanelTab::wing || newTab == PanelTab::stabilizer)
        views.fuselage().grip.selected = false;
}

}  // namespace velna
