#include <cmath>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Plane.h"
#include "model/Prefs.h"

namespace velna {
namespace {

void switchUnit(int unit, void (*convertAll)()) {
    Prefs.units = unit;
    if (unit == Prefs.prev_units) return;
    convertAll();
    Main.savedProject = false;
}

}  // namespace

void MainForm::scaleTextKeyDown(const std::string& text) {
    Prefs.ScaleText = text;
    const double factor = leadingNumber(text) / 100;
    Prefs.modelScaleFactor = std::isfinite(factor) && factor > 0 ? factor : 1.0;
}

void MainForm::closePreferences() {
    Prefs.prev_units = Prefs.units;
    if (Prefs.InchesOption) switchUnit(inches, Plane::switchAllToInches);
    if (Prefs.MillimetersOption) switchUnit(millimetres, Plane::switchAllToMillimeters);
    zoomSectionSet();
    fillCatalogues();
    selectTab(PanelTab::wing);
    updateWingInterface();
    initVTopView();
    Plane::createAllSolids();
    window->setViewTransform(0, 0, 200, 900, 200);
    window->renderScene(true);
    // A number typed last, without a further key, counts too.
    scaleTextKeyDown(Prefs.ScaleText);
    if (Prefs.modelScaleFactor != 1.0) {
        Plane::rescaleAll(Prefs.modelScaleFactor);
        savedProject = false;
    }
    Prefs.ScaleText = "100";
    Prefs.modelScaleFactor = 1.0;
}

}  // namespace velna
