#include <algorithm>

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class PanelLists : public test::EditorTest {
protected:
    static const ControlState& control(Control name) { return Main.controls[name]; }
    static void press(Control button, std::int16_t shift = 0) { Main.buttonPressed(button, shift); }
};

TEST_F(PanelLists, WingPlusContinuesThePanelAndMakesItCurrent) {
    press(Control::IndexWingPlusButton);
    EXPECT_EQ(nbWings, 2);
    EXPECT_EQ(currentWing, 2);
    EXPECT_EQ(Wings(2).shift, 700);
    EXPECT_EQ(Wings(2).length1, 150);
    EXPECT_EQ(control(Control::IndexWingsScroll).maximum, 2);
    EXPECT_EQ(control(Control::IdWingLabel).text, "2");
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(PanelLists, WingMinusKeepsTheLastWing) {
    press(Control::IndexWingPlusButton);
    press(Control::IndexWingPlusButton);
    Main.scrollChanged(Control::IndexWingsScroll, 1);
    EXPECT_EQ(currentWing, 1);
    press(Control::IndexWingMinusButton);
    EXPECT_EQ(nbWings, 2);
    EXPECT_EQ(currentWing, 2);
    press(Control::IndexWingMinusButton);
    Main.savedProject = true;
    bench.forget();
    press(Control::IndexWingMinusButton);
    EXPECT_EQ(nbWings, 1);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1) << "the view is redrawn all the same";
}

TEST_F(PanelLists, ChoosingAWingRedrawsNoView) {
    press(Control::IndexWingPlusButton);
    bench.forget();
    Main.scrollChanged(Control::IndexWingsScroll, 1);
    EXPECT_TRUE(area.calls.empty());
    EXPECT_EQ(control(Control::LengthBText).text, "230");
}

TEST_F(PanelLists, AddButtonsDoNothingMoreAtTheLargestCount) {
    nbWings = nbEquipments = nbFuselages = Plane::largestCount;
    for (Control button : {Control::IndexWingPlusButton, Control::IndexServosPlusButton}) {
        press(button);
        EXPECT_EQ(control(Control::IndexWingsScroll).maximum, 1);
    }
    EXPECT_EQ(nbWings, Plane::largestCount);
    EXPECT_EQ(nbEquipments, Plane::largestCount);
    nbWings = nbEquipments = nbFuselages = 1;
    EXPECT_TRUE(Main.savedProject);
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(PanelLists, FuselagePlusDoesNothingMoreAtTheLargestCount) {
    nbFuselages = Plane::largestCount;
    Fuselage::resizeFuselages(project);
    press(Control::IndexFusPlusButton);
    EXPECT_EQ(nbFuselages, Plane::largestCount);
    EXPECT_EQ(currentFuselage, 1);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_TRUE(area.calls.empty());
    EXPECT_FALSE(Main.pointer.ctrlkey_tab);
}

TEST_F(PanelLists, FuselagePlusMakesADefaultOneCurrentAndShown) {
    Fuselages(1).width(2) = 55;
    press(Control::IndexFusPlusButton);
    EXPECT_EQ(nbFuselages, 2);
    EXPECT_EQ(currentFuselage, 2);
    EXPECT_EQ(Fuselages(2).nb_sections, 3);
    EXPECT_EQ(Fuselages(2).width(2), 100);
    EXPECT_TRUE(ObjectList.shown(2));
    EXPECT_EQ(window.listChanges, 1);
    EXPECT_EQ(control(Control::IndexFusScroll).value, 2);
    EXPECT_EQ(control(Control::IdFusLabel).text, "2");
}

TEST_F(PanelLists, FuselagePlusWithCtrlAloneCopiesTheCurrentOne) {
    Fuselages(1).width(2) = 55;
    press(Control::IndexFusPlusButton, ShiftState::ctrl);
    EXPECT_EQ(Fuselages(2).width(2), 55);
    EXPECT_FALSE(Main.pointer.ctrlkey_tab);
    EXPECT_GT(Main.views.fuselages(2).szoom, 0)
        << "a copy has no scale until the first fit, run at once";
    press(Control::IndexFusPlusButton, ShiftState::ctrl + ShiftState::shift);
    EXPECT_EQ(Fuselages(3).width(2), 100);
}

TEST_F(PanelLists, AnotherFuselagesSectionIsDrawnAtItsOwnScale) {
    press(Control::IndexFusPlusButton);
    Fuselages(1).width(1) = 400;
    Fuselages(2).width(1) = 80;
    Main.views.fuselages(1).szoom = Main.views.fuselages(2).szoom = 0.5;  // as a file leaves them
    for (int n : {1, 2}) {
        bench.forget();
        Main.scrollChanged(Control::IndexFusScroll, n);
        double left = 150;
        double right = 0;
        for (const auto& call : sectionArea.sinceClear()) {
            left = std::min({left, call.x1, call.x2});
            right = std::max({right, call.x1, call.x2});
        }
        EXPECT_NEAR(right - left, 135, 1e-4) << "nine tenths of the picture, fuselage " << n;
    }
}

TEST_F(PanelLists, FuselageMinusAsksAndTakesTheLastOne) {
    press(Control::IndexFusPlusButton);
    press(Control::IndexFusPlusButton);
    currentFuselage = 1;
    Main.updateFuselageInterface();
    Main.savedProject = true;
    window.yesNoAnswers = {false, true, true, true};
    press(Control::IndexFusMinusButton);
    EXPECT_EQ(nbFuselages, 3);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(window.lastQuestion,
              "This will destroy the last created fuselage.\nDo you want to proceed ?");
    EXPECT_EQ(window.lastIcon, BoxIcon::Question);
    press(Control::IndexFusMinusButton);
    EXPECT_EQ(nbFuselages, 2);
    EXPECT_EQ(currentFuselage, 2);
    EXPECT_EQ(ObjectList.rows.size(), 2U);
    EXPECT_FALSE(Main.savedProject);
    press(Control::IndexFusMinusButton);
    Main.savedProject = true;
    press(Control::IndexFusMinusButton);
    EXPECT_EQ(nbFuselages, 1) << "the last one stays, though the question is asked";
    EXPECT_TRUE(Main.savedProject);
    EXPECT_TRUE(window.yesNoAnswers.empty());
}

TEST_F(PanelLists, ChoosingAFuselageRefillsScalesAndRedraws) {
    press(Control::IndexFusPlusButton);
    Main.views.fuselages(1).szoom = 0;
    bench.forget();
    Main.scrollChanged(Control::IndexFusScroll, 1);
    EXPECT_EQ(currentFuselage, 1);
    EXPECT_GT(Main.views.fuselages(1).szoom, 0);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
}

TEST_F(PanelLists, ChoosingAFuselageWithoutOutlineOffersItsNumberAlone) {
    press(Control::IndexFusPlusButton);
    Main.nbCrossChanged("0");
    Main.scrollChanged(Control::IndexFusScroll, 1);
    EXPECT_TRUE(control(Control::LengthBText).enabled);
    bench.forget();
    Main.scrollChanged(Control::IndexFusScroll, 2);
    EXPECT_FALSE(control(Control::LengthBText).enabled);
    EXPECT_TRUE(control(Control::NbCrossFuselageText).enabled);
    EXPECT_EQ(control(Control::NbCrossFuselageText).text, "0");
    EXPECT_TRUE(area.calls.empty());
    EXPECT_TRUE(sectionArea.calls.empty());
}

TEST_F(PanelLists, SectionBarLeftOverFromAnotherFuselageDoesNoHarm) {
    press(Control::IndexFusPlusButton);
    Fuselages(2).nb_sections = 2;
    Fuselages(2).initArrays();
    Main.nbCrossChanged("0");
    Main.scrollChanged(Control::IndexFusScroll, 1);
    Main.scrollChanged(Control::IndexFusScroll, 2);
    ASSERT_EQ(control(Control::FuselageScroll).maximum, 3);
    Main.scrollChanged(Control::FuselageScroll, 3);
    Main.initSideView();
    test::type(Control::WidthFuselageText, "9");
    Main.sliderChanged(Control::BiasSlider, 20);
    Main.nbCrossChanged("8");
    EXPECT_EQ(control(Control::FuselageScroll).maximum, 2);
    EXPECT_EQ(Fuselages(2).sel_sec, 2);
}

TEST_F(PanelLists, ChoosingASectionShowsItAtItsScaleAndLit) {
    Main.initSideView();
    bench.forget();
    Main.scrollChanged(Control::FuselageScroll, 2);
    EXPECT_EQ(Fuselage::current(project).sel_sec, 2);
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 150 * 0.9 / 100);
    EXPECT_EQ(control(Control::FuselageSectionLabel).text, "2");
    EXPECT_EQ(area.lines(project.highlightColor), 1) << "the section's bar";
    EXPECT_TRUE(Main.savedProject) << "what is chosen is no part of the project";
}

TEST_F(PanelLists, SectionBarClipsWhenItsMaximumFalls) {
    Main.scrollChanged(Control::FuselageScroll, 3);
    Fuselage::current(project).nb_sections = 2;
    Main.setScrollMaximum(Control::FuselageScroll, 2);
    EXPECT_EQ(control(Control::FuselageScroll).value, 2);
    EXPECT_EQ(Fuselage::current(project).sel_sec, 2);
}

TEST_F(PanelLists, BarSetByTheProgramRunsItsEventOnceAfterBothValuesStand) {
    for (int i = 0; i < 3; ++i) press(Control::IndexServosPlusButton);
    bench.forget();
    Main.setScroll(Control::IndexServosScroll, 4, 2);
    EXPECT_EQ(currentEquipment, 2);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
    Main.setScroll(Control::IndexServosScroll, 4, 2);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1) << "nothing has changed";
}

TEST_F(PanelLists, BoxPlusMakesItCurrentThroughTheBarsEvent) {
    Main.initSideView();
    bench.forget();
    press(Control::IndexServosPlusButton);
    EXPECT_EQ(nbEquipments, 2);
    EXPECT_EQ(currentEquipment, 2);
    EXPECT_EQ(control(Control::IdEquipLabel).text, "2");
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(PanelLists, BoxMinusReplacesTheNewLastBoxByADefaultOne) {
    press(Control::IndexServosPlusButton);
    press(Control::IndexServosPlusButton);
    Equipments(2).length = 99;
    Equipments(2).box = BoxKind::receiver;
    press(Control::IndexServosMinusButton);
    EXPECT_EQ(nbEquipments, 2);
    EXPECT_EQ(currentEquipment, 2);
    EXPECT_EQ(Equipments(2).length, 30);
    EXPECT_EQ(Equipments(2).box, BoxKind::servo);
    press(Control::IndexServosMinusButton);
    Main.savedProject = true;
    bench.forget();
    press(Control::IndexServosMinusButton);
    EXPECT_EQ(nbEquipments, 1);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(PanelLists, BoxMinusShowsTheBoxThatItEditsWhereverTheBarStood) {
    press(Control::IndexServosPlusButton);
    Main.setScroll(Control::IndexServosScroll, 2, 1);
    Equipments(1).length = 41;
    Equipments(1).box = BoxKind::receiver;
    Main.updateEquipmentInterface();
    ASSERT_EQ(Main.controls[Control::LengthServoText].text, "41");
    press(Control::IndexServosMinusButton);
    EXPECT_EQ(Main.controls[Control::LengthServoText].text, "30");
    EXPECT_TRUE(Main.controls[Control::ServoOption].checked);
    EXPECT_EQ(Main.controls[Control::IdEquipLabel].text, "1");
}

TEST_F(PanelLists, ChoosingABoxDrawsTheFormerOnePlainly) {
    press(Control::IndexServosPlusButton);
    Main.selectTab(PanelTab::electronics);
    Main.initHTopView();
    bench.forget();
    Main.scrollChanged(Control::IndexServosScroll, 1);
    const auto& first = area.calls.front();
    EXPECT_EQ(first.colour, white);
    EXPECT_EQ(area.lines(white), 4);
    EXPECT_EQ(currentEquipment, 1);
}

TEST_F(PanelLists, ChoosingABoxDrawsNoneInTheViewsThatHaveNone) {
    press(Control::IndexServosPlusButton);
    bench.forget();
    Main.scrollChanged(Control::IndexServosScroll, 1);
    EXPECT_EQ(area.lines(white), 0);
}

TEST_F(PanelLists, SmoothingIsAChangeOnlyWhereItChanges) {
    Main.initSideView();
    press(Control::SmoothTopCommand);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_NE(Fuselage::current(project).height(2), 100);
    Fuselage::current(project).nb_sections = 2;
    Fuselage::current(project).initArrays();
    Main.savedProject = true;
    for (Control button :
         {Control::SmoothTopCommand, Control::SmoothDownCommand, Control::SmoothWidthCommand})
        press(button);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(PanelLists, SmoothTopOverTwoNeighboursOnOnePlaceKeepsTheSection) {
    MeshSections& fuselage = Fuselage::current(project);
    fuselage.pos(1) = fuselage.pos(3) = 400;
    press(Control::SmoothTopCommand);
    EXPECT_EQ(fuselage.height(2), 100);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(PanelLists, ScrollEventOutOfRangeIsClipped) {
    press(Control::IndexWingPlusButton);
    Main.scrollChanged(Control::IndexWingsScroll, 99);
    EXPECT_EQ(currentWing, 2);
    Main.scrollChanged(Control::IndexWingsScroll, -5);
    EXPECT_EQ(currentWing, 1);
}

}  // namespace
}  // namespace velna
