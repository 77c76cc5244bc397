#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "editor/FieldNames.h"
#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;

class FieldNames : public test::EditorTest {
protected:
    static std::string held(bool shiftkey = false) {
        const auto field = heldField(Main, shiftkey);
        return field ? std::string(fieldName(field->box)) : "nothing";
    }
};

bool changesTheAircraft(const std::string& name) {
    return name.ends_with("Text") || name.ends_with("Slider") || name.ends_with("Check") ||
           name.ends_with("Option") || name.ends_with("Combo") || name.ends_with("PlusButton") ||
           name.ends_with("MinusButton") || name.ends_with("Command");
}

TEST_F(FieldNames, EveryControlThatChangesTheAircraftHasOneAndNoOtherHas) {
    for (std::size_t i = 0; i < controlCount; ++i) {
        const auto control = static_cast<Control>(i);
        const std::string name = controlName(control);
        EXPECT_EQ(!fieldName(control).empty(), changesTheAircraft(name)) << name;
    }
}

TEST_F(FieldNames, NoTwoTextBoxesShareOne) {
    std::set<std::string_view> names;
    for (const PanelField& field : panelFields())
        EXPECT_TRUE(names.insert(fieldName(field.control)).second) << fieldName(field.control);
}

TEST_F(FieldNames, NothingIsHeldWithoutADrag) {
    for (const auto enter : {&MainForm::initVTopView, &MainForm::initFrontView,
                             &MainForm::initSideView, &MainForm::initHTopView}) {
        (Main.*enter)();
        EXPECT_EQ(held(), "nothing");
        EXPECT_EQ(held(true), "nothing");
    }
}

TEST_F(FieldNames, ADragOfATipNamesItsSweepAndWithShiftTheFullSpan) {
    auto gesture = drag(Main).press(866, 170);
    ASSERT_EQ(Main.views.wings(1).grip.paint, WingPart::tipEdge);
    EXPECT_EQ(held(), "Tip sweep");
    EXPECT_EQ(heldField(Main, false)->value, Wings(1).pos2);
    EXPECT_EQ(held(true), "Full span");
    EXPECT_EQ(heldField(Main, true)->value, 2 * (Wings(1).span + Wings(1).shift));
    Main.pointer.shiftkey = true;
    gesture.move(876, 170);
    EXPECT_EQ(heldField(Main)->box, Control::SpanText);
    EXPECT_EQ(heldField(Main)->value, panelField(Control::SpanText)->get(project));
    gesture.release();
    EXPECT_EQ(held(true), "nothing");
}

/// A part of an object that can be held, and what it must be called without and with Shift.
struct PartRow {
    int part;
    std::string plain;
    std::string shifted;
};

TEST_F(FieldNames, EveryPartOfAWingHasOneInBothViews) {
    const std::vector<PartRow> top{{WingPart::tipEdge, "Tip sweep", "Full span"},
                                   {WingPart::rootEdge, "Root position", "Root shift"},
                                   {WingPart::tipTrailing, "Tip chord", "Tip chord"},
                                   {WingPart::rootTrailing, "Root chord", "Root chord"},
                                   {WingPart::tipLeading, "Tip chord", "Tip chord"},
                                   {WingPart::rootLeading, "Root chord", "Root chord"}};
    const std::vector<PartRow> front{{WingPart::rootEdge, "Root elevation", "Root shift"},
                                     {WingPart::tipEdge, "Tip rise", "Full span"}};
    const auto expectRows = [](const std::vector<PartRow>& rows) {
        for (const auto& [part, plain, shifted] : rows) {
            Main.views.wings(1).grip.paint = part;
            EXPECT_EQ(held(false), plain) << part;
            EXPECT_EQ(held(true), shifted) << part;
            Main.views.wings(1).grip.letGo();
            Main.views.stabilizer.grip.paint = part;
            const auto ofStabilizer = [](std::string name) {
                name[0] = static_cast<char>(std::tolower(name[0]));
                return "Stabilizer " + name;
            };
            EXPECT_EQ(held(false), ofStabilizer(plain)) << part;
            EXPECT_EQ(held(true), ofStabilizer(shifted)) << part;
            Main.views.stabilizer.grip.letGo();
        }
    };
    expectRows(top);
    Main.initFrontView();
    expectRows(front);
}

TEST_F(FieldNames, EveryPartOfTheFinHasOneInBothViews) {
    const auto expectRows = [](const std::vector<PartRow>& rows) {
        for (const auto& [part, plain, shifted] : rows) {
            Main.views.rudder.grip.paint = part;
            EXPECT_EQ(held(false), plain) << part;
            EXPECT_EQ(held(true), shifted) << part;
            Main.views.rudder.grip.letGo();
        }
    };
    Main.initSideView();
    expectRows({{FinPart::tipEdge, "Fin tip sweep", "Fin height"},
                {FinPart::rootEdge, "Fin root position", "Fin elevation"},
                {FinPart::tipTrailing, "Fin tip chord", "Fin tip chord"},
                {FinPart::rootTrailing, "Fin root chord", "Fin root chord"},
                {FinPart::tipLeading, "Fin tip chord", "Fin tip chord"},
                {FinPart::rootLeading, "Fin root chord", "Fin root chord"}});
    Main.initFrontView();
    expectRows({{FinPart::rootEdge, "Fin root offset", "Fin elevation"},
                {FinPart::tipEdge, "Fin tip lean", "Fin height"}});
}

TEST_F(FieldNames, EveryPartOfAFuselageThatMovesHasOne) {
    const auto expectRows = [](const std::vector<PartRow>& rows) {
        for (const auto& [part, plain, shifted] : rows) {
            Main.views.fuselage().grip.paint = part;
            EXPECT_EQ(held(false), plain) << part;
            EXPECT_EQ(held(true), shifted) << part;
            Main.views.fuselage().grip.letGo();
        }
    };
    expectRows({{FuselagePart::bar, "Body shift", "Body position"}});
    Main.initSideView();
    expectRows({{FuselagePart::bar, "Section elevation", "Section position"},
                {FuselagePart::top, "Section height", "Section height"},
                {FuselagePart::bottom, "Section elevation", "Section elevation"},
                {FuselagePart::gap, "nothing", "nothing"}});
    Main.initHTopView();
    expectRows({{FuselagePart::plusEnd, "Section width", "Section width"},
                {FuselagePart::minusEnd, "Section width", "Section width"},
                {FuselagePart::bar, "nothing", "Section position"}});
}

TEST_F(FieldNames, ABoxHasOneInBothViewsWithTheValueOfTheOneThatIsHeld) {
    Main.buttonPressed(Control::IndexServosPlusButton, 0);
    ASSERT_EQ(currentEquipment, 2);
    Equipments(1).pos = 12.25;
    Main.selectTab(PanelTab::electronics);
    for (const bool side : {true, false}) {
        side ? Main.initSideView() : Main.initHTopView();
        Main.views.boxes(1).grip.paint = BoxPart::hit;
        EXPECT_EQ(held(), "Box position");
        EXPECT_EQ(heldField(Main, false)->value, 12.25);
        EXPECT_EQ(held(true), side ? "Box elevation" : "Box shift");
        Main.views.boxes(1).grip.letGo();
    }
}

TEST_F(FieldNames, OfTheTipOfOnePanelAndTheRootOfTheNextTheFirstIsNamed) {
    Main.buttonPressed(Control::IndexWingPlusButton, 0);
    Main.views.wings(1).grip.paint = WingPart::tipEdge;
    Main.views.wings(2).grip.paint = WingPart::rootEdge;
    EXPECT_EQ(held(), "Tip sweep");
    EXPECT_EQ(heldField(Main, false)->value, Wings(1).pos2);
    Main.views.wings(1).grip.letGo();
    EXPECT_EQ(held(), "Root position");
    EXPECT_EQ(heldField(Main, false)->value, Wings(2).pos1);
}

TEST_F(FieldNames, TheValueIsWhatTheBoxOfTheCurrentPartShows) {
    const auto expectShown = [](bool shiftkey) {
        const auto field = heldField(Main, shiftkey);
        ASSERT_TRUE(field.has_value());
        EXPECT_EQ(field->value, panelField(field->box)->get(project)) << fieldName(field->box);
    };
    Main.views.rudder.grip.paint = FinPart::tipEdge;
    Main.initSideView();
    expectShown(false);
    expectShown(true);
    Main.views.rudder.grip.letGo();
    Fuselage::current(project).sel_sec = 2;
    Main.views.fuselage().grip.paint = FuselagePart::top;
    expectShown(false);
    Main.views.fuselage().grip.paint = FuselagePart::bar;
    expectShown(false);
    expectShown(true);
}

}  // namespace
}  // namespace velna
