#include "model/Equipment.h"
#include "model/Plane.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class EquipmentPanel : public test::EditorTest {
protected:
    ElectroBox& box = Equipments(1);
};

TEST_F(EquipmentPanel, OptionsMeanOppositeTurnsForServosAndTheOthers) {
    struct Row {
        int kind;
        Control option;
        int orientation;
    };
    const Row rows[] = {
        {BoxKind::servo, Control::HorizontalServoOption, 1},
        {BoxKind::servo, Control::VerticalServoOption, 0},
        {BoxKind::receiver, Control::HorizontalServoOption, 0},
        {BoxKind::receiver, Control::VerticalServoOption, 1},
        {BoxKind::accumulator, Control::HorizontalServoOption, 0},
        {BoxKind::accumulator, Control::VerticalServoOption, 1},
    };
    for (const Row& row : rows) {
        box.box = row.kind;
        box.orientation = 1 - row.orientation;
        Main.optionClicked(row.option);
        EXPECT_EQ(box.orientation, row.orientation);
        Main.updateEquipmentInterface();
        EXPECT_TRUE(Main.checked(row.option));
        EXPECT_FALSE(Main.checked(row.option == Control::VerticalServoOption
                                      ? Control::HorizontalServoOption
                                      : Control::VerticalServoOption));
    }
    EXPECT_FALSE(Main.savedProject);
    EXPECT_TRUE(area.calls.empty()) << "no redraw follows";
}

TEST_F(EquipmentPanel, KindShowsItsCatalogueAndLeavesTheNumbers) {
    Main.optionClicked(Control::AccuOption);
    EXPECT_EQ(box.box, BoxKind::accumulator);
    EXPECT_EQ(box.length, 30);
    EXPECT_FALSE(Main.controls[Control::ServosCombo].visible);
    EXPECT_TRUE(Main.controls[Control::AccuCombo].visible);
    EXPECT_TRUE(Main.checked(Control::AccuOption));
    EXPECT_FALSE(Main.checked(Control::ServoOption));
}

TEST_F(EquipmentPanel, CatalogueRowSetsTheNumbersAndRefills) {
    Main.comboClicked(Control::ServosCombo, 7);
    EXPECT_EQ(box.length, 40.4);
    EXPECT_EQ(box.width, 19.8);
    EXPECT_EQ(box.height, 36);
    EXPECT_EQ(box.weight, 37.2);
    EXPECT_EQ(Main.controls[Control::LengthServoText].text, "40");
    EXPECT_FALSE(Main.savedProject);
    Main.savedProject = true;
    Main.comboClicked(Control::ServosCombo, 7);
    EXPECT_TRUE(Main.savedProject) << "the same row again";
}

TEST_F(EquipmentPanel, CustomIsARowLikeTheOthers) {
    Main.comboClicked(Control::ServosCombo, 0);
    EXPECT_EQ(box.length, 25);
    EXPECT_EQ(box.weight, 15);
}

TEST_F(EquipmentPanel, ComboOfAnotherKindTakesThatRowOfTheBoxsOwnCatalogue) {
    Main.comboClicked(Control::AccuCombo, 2);
    EXPECT_EQ(box.length, 28) << "a servo's row";
}

TEST_F(EquipmentPanel, RowThatDoesNotExistChangesNothing) {
    for (int index : {-1, 19, 1000}) Main.comboClicked(Control::ServosCombo, index);
    EXPECT_EQ(box.length, 30);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(EquipmentPanel, UnknownKindShowsNoCatalogue) {
    box.box = 7;
    Main.updateEquipmentInterface();
    for (Control combo : {Control::ServosCombo, Control::ReceiverCombo, Control::AccuCombo})
        EXPECT_FALSE(Main.controls[combo].visible);
}

TEST_F(EquipmentPanel, CataloguesAreFilledInTheUnitAndTheWindowIsTold) {
    project.units = inches;
    Main.fillCatalogues();
    EXPECT_EQ(window.cataloguesFilled.size(), 3U);
    Main.comboClicked(Control::ServosCombo, 7);
    EXPECT_DOUBLE_EQ(box.length, 40.4 / 25.4);
    EXPECT_EQ(box.weight, 37.2);
    Main.fillCatalogues();
    EXPECT_EQ(Main.controls[Control::ServosCombo].value, 0)
        << "a combo filled anew is at \"Custom\"";
}

TEST_F(EquipmentPanel, FillerClipsTheBarToTheBoxesThereAre) {
    Main.buttonPressed(Control::IndexServosPlusButton, 0);
    nbEquipments = 1;
    Main.updateEquipmentInterface();
    EXPECT_EQ(Main.controls[Control::IndexServosScroll].maximum, 1);
    EXPECT_EQ(currentEquipment, 1);
}

}  // namespace
}  // namespace velna
