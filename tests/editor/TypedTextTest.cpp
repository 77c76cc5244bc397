#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/EditorBench.h"

// What a box that the user types in tells about the model, and when a key in it commits.

namespace velna {
namespace {

class TypedText : public test::EditorTest {
protected:
    static const ControlState& box(Control control) { return Main.controls[control]; }
    static std::string tip(Control control) { return entryTip(Main.store(), *panelField(control)); }

    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(TypedText, AKeyInABoxThatNobodyHasEditedCommitsNothing) {
    for (const PanelField& field : panelFields()) {
        SCOPED_TRACE(controlName(field.control));
        if (field.rule != TextRule::Length) continue;
        field.set(Main.store(), 12.75);
        Main.refreshPanels();
        const double before = field.get(project);
        bench.forget();
        Main.textKeyDown(field.control, box(field.control).text);
        EXPECT_EQ(field.get(project), before);
        EXPECT_TRUE(area.calls.empty());
        EXPECT_TRUE(Main.savedProject);
    }
}

TEST_F(TypedText, TheSameDigitsTypedAgainAreAChange) {
    Wings(1).length1 = 230.75;
    Main.updateWingInterface();
    Main.textEdited(Control::LengthBText, "230");
    EXPECT_EQ(tip(Control::LengthBText), "Enter takes this number");
    Main.textKeyDown(Control::LengthBText, "230");
    EXPECT_EQ(Wings(1).length1, 230);
    EXPECT_EQ(tip(Control::LengthBText), "");
}

TEST_F(TypedText, WhatWasTakenIsNotCommittedAgain) {
    Wings(1).length1 = 230.5;
    for (const char* typed : {"12.5", "12.5mm"}) {
        test::type(Control::LengthBText, typed);
        EXPECT_EQ(Wings(1).length1, 12.5);
        Wings(1).length1 = 99.75;  // without a refill
        Main.textKeyDown(Control::LengthBText, typed);
        EXPECT_EQ(Wings(1).length1, 99.75) << typed;
    }
}

TEST_F(TypedText, ANumberTypedBeforeAnotherUnitIsNotTakenAsOneOfThat) {
    test::type(Control::LengthBStabText, "130");
    Prefs.selectUnit(inches);
    Main.applyPreferences();
    Main.textKeyDown(Control::LengthBStabText, "130");
    EXPECT_NEAR(Stabilizer.length1, 130 / 25.4, 1e-9);
}

TEST_F(TypedText, AFillTakesTheTipAwayAndTheWindowIsTold) {
    Main.textEdited(Control::LengthBText, "12");
    EXPECT_EQ(window.changes, std::vector<Control>{Control::LengthBText});
    EXPECT_EQ(box(Control::LengthBText).entry, TextEntry::Typed);
    Main.updateWingInterface();
    EXPECT_EQ(box(Control::LengthBText).entry, TextEntry::Filled);
    EXPECT_EQ(tip(Control::LengthBText), "");
}

struct Tip {
    const char* text;
    const char* tip;
};

TEST_F(TypedText, WhatIsNoNumberAsAWholeTellsWhatWasTaken) {
    const Tip rows[] = {{"1234,5", "Taken: 1234"},
                        {"1.5mm", "Taken: 1.5"},
                        {"abc", "Taken: 0"},
                        {"", "Taken: 0"},
                        {"7.25", ""},
                        {" .5", ""},
                        {"1e3", ""},
                        {"1e999", "Not taken: 1000 stays"}};
    for (const auto& [typed, tip] : rows) {
        test::type(Control::PosBText, typed);
        EXPECT_EQ(TypedText::tip(Control::PosBText), tip) << typed;
        EXPECT_EQ(box(Control::PosBText).text, typed) << "the text itself stays";
    }
}

TEST_F(TypedText, ABoxThatRefillsItselfShowsNoTextOfTheUsers) {
    test::type(Control::ShiftText, "12.5mm");
    EXPECT_EQ(box(Control::ShiftText).text, "12");
    EXPECT_EQ(tip(Control::ShiftText), "");
    Main.textKeyDown(Control::ShiftText, "12");
    EXPECT_EQ(Wings(1).shift, 12.5);
}

TEST_F(TypedText, OutlinePointsTellAtEachChangeWhetherTheyWereTaken) {
    constexpr Control points = Control::NbCrossFuselageText;
    const Tip rows[] = {{"12", ""},
                        {"12x", "Taken: 12"},
                        {"101", "Not taken: 12 stays"},
                        {"", "Not taken: 12 stays"},
                        {"9.5", ""}};
    for (const auto& [typed, tip] : rows) {
        Main.textEdited(points, typed);
        EXPECT_EQ(TypedText::tip(points), tip) << typed;
    }
    EXPECT_EQ(fuselage.nb_cross, 10);
}

TEST_F(TypedText, AKeyAfterOutlinePointsShowsThemAsStoredAndARefusedTextStays) {
    constexpr Control points = Control::NbCrossFuselageText;
    Main.textEdited(points, "12x");
    Main.textKeyDown(points, "12x");
    EXPECT_EQ(box(points).text, "12");
    EXPECT_EQ(tip(points), "");
    Main.textEdited(points, "101");
    Main.textKeyDown(points, "101");
    EXPECT_EQ(box(points).text, "101");
    EXPECT_EQ(tip(points), "Not taken: 12 stays");
}

}  // namespace
}  // namespace velna
