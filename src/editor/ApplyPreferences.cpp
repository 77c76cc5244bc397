#include <cmath>

#include "common/NumberText.h"
#include "editor/HistoryStep.h"
#include "editor/Main.h"
#include "model/Plane.h"

namespace velna {
namespace {

void switchUnit(MainForm& form, int unit, void (*convertAll)(Project& project)) {
    form.project.units = unit;
    if (unit == form.Prefs.prev_units) return;
    convertAll(form.project);
    form.savedProject = false;
}

}  // namespace

void PrefsRecord::scaleTextKeyDown(const std::string& text) {
    ScaleText = text;
    const double factor = leadingNumber(text) / 100;
    modelScaleFactor = std::isfinite(factor) && factor > 0 ? factor : 1.0;
}

void MainForm::applyPreferences() {
    Prefs.prev_units = project.units;
    const bool converts = Prefs.InchesOption != (project.units == inches);
    const HistoryStep step(*this, converts ? "Change units" : "Scale");
    if (Prefs.InchesOption) switchUnit(*this, inches, Plane::switchAllToInches);
    if (Prefs.MillimetersOption) switchUnit(*this, millimetres, Plane::switchAllToMillimeters);
    zoomSectionSet();
    fillCatalogues();
    selectTab(PanelTab::wing);
    updateWingInterface();
    initVTopView();
    window->setViewTransform(0, 0, 200, 900, 200);
    window->renderScene(true);
    // A number typed last, without a further key, counts too.
    Prefs.scaleTextKeyDown(Prefs.ScaleText);
    if (Prefs.modelScaleFactor != 1.0) {
        Plane::rescaleAll(project, Prefs.modelScaleFactor);
        savedProject = false;
    }
    Prefs.ScaleText = "100";
    Prefs.modelScaleFactor = 1.0;
}

}  // namespace velna
