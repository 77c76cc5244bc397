#include <string>
#include <tuple>

#include "editor/Main.h"
#include "editor/ModelChange.h"
#include "editor/PanelTable.h"
#include "model/Equipment.h"
#include "model/Plane.h"

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
std::int32_t horizontalOrientation() {
    return Equipment::current().box == BoxKind::servo ? 1 : 0;
}

void showOrientation() {
    const bool turned = Equipment::current().orientation != 0;
    const bool horizontal = turned == (horizontalOrientation() == 1);
    Main.setChecked(Control::HorizontalServoOption, horizontal);
    Main.setChecked(Control::VerticalServoOption, !horizontal);
}

void storeOrientation(bool horizontal) {
    const std::int32_t flat = horizontalOrientation();
    storeInModel(Equipment::current().orientation, horizontal ? flat : 1 - flat);
    Main.setChecked(Control::HorizontalServoOption, horizontal);
    Main.setChecked(Control::VerticalServoOption, !horizontal);
}

}  // namespace

void MainForm::updateEquipmentInterface() {
    for (const PanelField& field : panelFields())
        if (field.tab == PanelTab::electronics) setText(field.control, panelText(field));
    showOrientation();
    for (const KindRow& row : kindRows) {
        const bool same = row.kind == Equipment::current().box;
        setChecked(row.option, same);
        setVisible(row.combo, same);
    }
    setText(Control::IdEquipLabel, std::to_string(currentEquipment));
    setScrollMaximum(Control::IndexServosScroll, nbEquipments);
}

void MainForm::optionClicked(Control option) {
    if (option == Control::HorizontalServoOption) storeOrientation(true);
    if (option == Control::VerticalServoOption) storeOrientation(false);
    for (const KindRow& row : kindRows) {
        if (row.option != option) continue;
        storeInModel(Equipment::current().box, row.kind);
        updateEquipmentInterface();
    }
}

void MainForm::comboClicked(Control combo, int index) {
    controls[combo].value = index;
    const auto numbers = [] {
        const ElectroBox& box = Equipment::current();
        return std::tuple{box.width, box.height, box.length, box.weight};
    };
    changeModel(numbers, [&] { Equipment::applyCatalogueRow(index); });
    updateEquipmentInterface();
}

void MainForm::fillCatalogues() {
    Equipment::fillCatalogues();
    for (const KindRow& row : kindRows) {
        controls[row.combo].value = 0;
        window->catalogueFilled(row.combo);
    }
}

}  // namespace velna
