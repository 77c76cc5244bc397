#include <string>
#include <tuple>

#include "editor/FieldNames.h"
#include "editor/HistoryStep.h"
#include "editor/Main.h"
#include "editor/ModelChange.h"
#include "editor/PanelTable.h"
#include "model/Equipment.h"

namespace velna {
namespace {

/// A kind of box, its option button and the combo box of its catalogue.
struct KindRow {
    std::int32_t kind;
    Control option;
    Control combo;
};

constexpr KindRow kindRows[] = {
    {BoxKind::servo, Control::ServoOption, Control::ServosCombo},
    {BoxKind::receiver, Control::ReceiverOption, Control::ReceiverCombo},
    {BoxKind::accumulator, Control::AccuOption, Control::AccuCombo},
};

/// Servos are listed upright, receivers and accumulators flat: the same quarter turn means the
/// opposite word.
std::int32_t horizontalOrientation(const ElectroBox& box) {
    return box.box == BoxKind::servo ? 1 : 0;
}

void checkOrientation(MainForm& form, bool horizontal) {
    form.setChecked(Control::HorizontalServoOption, horizontal);
    form.setChecked(Control::VerticalServoOption, !horizontal);
}

void showOrientation(MainForm& form, const ElectroBox& box) {
    const bool turned = box.orientation != 0;
    checkOrientation(form, turned == (horizontalOrientation(box) == 1));
}

void storeOrientation(MainForm& form, ElectroBox& box, bool horizontal) {
    const std::int32_t flat = horizontalOrientation(box);
    storeInModel(form, box.orientation, horizontal ? flat : 1 - flat);
    checkOrientation(form, horizontal);
}

}  // namespace

void MainForm::updateEquipmentInterface() {
    const ElectroBox& box = Equipment::current(project);
    for (const PanelField& field : panelFields())
        if (field.tab == PanelTab::electronics) setText(field.control, panelText(project, field));
    showOrientation(*this, box);
    for (const KindRow& row : kindRows) {
        const bool same = row.kind == box.box;
        setChecked(row.option, same);
        setVisible(row.combo, same);
    }
    setText(Control::IdEquipLabel, std::to_string(project.currentEquipment));
    setScrollMaximum(Control::IndexServosScroll, project.nbEquipments);
}

void MainForm::optionClicked(Control option) {
    const HistoryStep step(*this, fieldName(option));
    ElectroBox& box = Equipment::current(project);
    if (option == Control::HorizontalServoOption) storeOrientation(*this, box, true);
    if (option == Control::VerticalServoOption) storeOrientation(*this, box, false);
    for (const KindRow& row : kindRows) {
        if (row.option != option) continue;
        storeInModel(*this, box.box, row.kind);
        updateEquipmentInterface();
    }
}

void MainForm::comboClicked(Control combo, int index) {
    const HistoryStep step(*this, fieldName(combo));
    controls[combo].value = index;
    const auto numbers = [&] {
        const ElectroBox& box = Equipment::current(project);
        return std::tuple{box.width, box.height, box.length, box.weight};
    };
    changeModel(*this, numbers, [&] { Equipment::applyCatalogueRow(project, index); });
    updateEquipmentInterface();
}

void MainForm::fillCatalogues() {
    for (const KindRow& row : kindRows) {
        controls[row.combo].value = 0;
        window->catalogueFilled(row.combo);
    }
}

}  // namespace velna
