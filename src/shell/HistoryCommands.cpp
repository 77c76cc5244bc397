#include "shell/HistoryCommands.h"

namespace velna {

void HistoryCommands::step(bool (MainForm::*direction)()) const {
    if (helper.running || flying.running()) return;
    const int unit = main.project.units;
    if (!(main.*direction)()) return;
    // An aircraft in inches would be a dot at the distance for millimetres.
    if (main.project.units != unit) rendering.reapplyViewTransform();
    rendering.renderScene(true);
}

}  // namespace velna
