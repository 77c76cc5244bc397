#include <cstddef>

#include "editor/Main.h"
#include "model/ObjectList.h"
#include "model/Plane.h"

namespace velna {
namespace {

/// Which fuselages are shown is part of the project.
void setShown(int i, bool shown) {
    if (ObjectList.shown(i) != shown) Main.savedProject = false;
    ObjectList.setShown(i, shown);
}

int rowCount() {
    return static_cast<int>(ObjectList.rows.size());
}

/// Sets the rows that are chosen; the picture follows at once, the views when the manager closes.
void setRows(bool shown, bool selectedOnly) {
    for (int i = 1; i <= rowCount(); ++i) {
        if (!selectedOnly || ObjectList.rows[static_cast<std::size_t>(i) - 1].selected)
            setShown(i, shown);
    }
    Main.window->fuselageListChanged();
    Main.window->renderScene(true);
}

}  // namespace

void MainForm::showCommand() {
    setRows(true, true);
}

void MainForm::hideCommand() {
    setRows(false, true);
}

void MainForm::showAll() {
    setRows(true, false);
}

void MainForm::rowChecked(int i, bool on) {
    if (i < 1 || i > rowCount()) return;
    setShown(i, on);
    window->fuselageListChanged();
    window->renderScene(true);
}

void MainForm::closeManager(int focusedRow) {
    if (1 <= focusedRow && focusedRow <= nbFuselages)
        currentFuselage = static_cast<std::int16_t>(focusedRow);
    refreshDrawingArea();
    updateFuselageInterface();
}

}  // namespace velna
