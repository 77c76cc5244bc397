#include "support/EditorBench.h"

#include "model/Plane.h"
#include "support/FreshModel.h"

namespace velna::test {

EditorBench::EditorBench() {
    Main.DrawArea = &area;
    Main.DrawSectionArea = &sectionArea;
    Main.window = &window;
    Main.reset();
    resetModel();
    Main.zoomSectionSet();
    Plane::createAllSolids();
    Main.updateWingInterface();
    Main.updateStabilizerInterface();
    Main.updateFuselageInterface();
    Main.updateRudderInterface();
    Main.updateEquipmentInterface();
    Main.initVTopView();
    Main.selectTab(PanelTab::wing);
    Main.savedProject = true;
    forget();
}

EditorBench::~EditorBench() {
    Main.reset();
    Main.DrawArea = nullptr;
    Main.DrawSectionArea = nullptr;
    Main.window = nullptr;
}

void EditorBench::forget() {
    area.calls.clear();
    sectionArea.calls.clear();
    area.refreshes = 0;
    area.focuses = 0;
    window.changes.clear();
    window.cataloguesFilled.clear();
    window.prompts.clear();
    window.viewTransforms.clear();
    window.renders = 0;
    window.rebuilds = 0;
    window.listChanges = 0;
}

}  // namespace velna::test
