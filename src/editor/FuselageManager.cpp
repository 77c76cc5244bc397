#include <numeric>
#include <span>
#include <vector>

#include "editor/HistoryStep.h"
#include "editor/Main.h"
#include "model/Project.h"

namespace velna {
namespace {

/// Which fuselages are shown is part of the project. The picture follows at once, the views when
/// the manager closes.
void setRows(MainForm& form, std::span<const int> rows, bool shown) {
    const HistoryStep step(form, shown ? "Show fuselages" : "Hide fuselages");
    ObjectListRecord& list = form.project.ObjectList;
    for (const int i : rows) {
        if (list.shown(i) != shown) form.savedProject = false;
        list.setShown(i, shown);
    }
    form.window->fuselageListChanged();
    form.window->renderScene(true);
}

}  // namespace

void MainForm::showCommand(std::span<const int> rows) {
    setRows(*this, rows, true);
}

void MainForm::hideCommand(std::span<const int> rows) {
    setRows(*this, rows, false);
}

void MainForm::showAll() {
    std::vector<int> rows(project.ObjectList.rows.size());
    std::iota(rows.begin(), rows.end(), 1);
    setRows(*this, rows, true);
}

void MainForm::rowChecked(int i, bool on) {
    if (1 <= i && i <= static_cast<int>(project.ObjectList.rows.size()))
        setRows(*this, {&i, 1}, on);
}

void MainForm::closeManager(int focusedRow) {
    if (1 <= focusedRow && focusedRow <= project.nbFuselages)
        project.currentFuselage = static_cast<std::int16_t>(focusedRow);
    refreshDrawingArea();
    updateFuselageInterface();
}

}  // namespace velna
