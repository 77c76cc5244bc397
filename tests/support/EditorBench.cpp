#include "support/EditorBench.h"

namespace velna::test {

EditorBench::EditorBench() {
    resetEditor();
    Main.DrawArea = &area;
    Main.DrawSectionArea = &sectionArea;
    Main.window = &window;
    Main.zoomSectionSet();
    solids.createAll(project);
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
    resetEditor();
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
