#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class ParameterPanel : public test::EditorTest {
protected:
    static std::string text(Control control) { return Main.controls[control].text; }

    MeshSections& fuselage = Fuselage::current(project);
};

// ---- the table

TEST_F(ParameterPanel, EveryTextBoxHasOneRow) {
    std::set<Control> rows;
    for (const PanelField& field : panelFields()) {
        EXPECT_TRUE(rows.insert(field.control).second) << controlName(field.control);
        EXPECT_NE(field.get, nullptr);
        EXPECT_NE(field.set, nullptr);
        EXPECT_GT(std::string(field.quantity).size(), 5U);
        EXPECT_GE(field.tab, PanelTab::fuselage);
        EXPECT_LE(field.tab, PanelTab::electronics);
    }
    for (std::size_t i = 0; i < controlCount; ++i) {
        const auto control = static_cast<Control>(i);
        const std::string name = controlName(control);
        if (name.ends_with("Text")) {
            EXPECT_TRUE(rows.contains(control)) << name;
        }
    }
    EXPECT_EQ(rows.size(), 44U);
}

TEST_F(ParameterPanel, EveryRowStoresWhatItReads) {
    for (const PanelField& field : panelFields()) {
        SCOPED_TRACE(controlName(field.control));
        const double before = field.get(project);
        field.set(Main.store(), before + 2);
        EXPECT_NEAR(field.get(project), before + 2, 1e-12);
        field.set(Main.store(), std::numeric_limits<double>::infinity());
        EXPECT_NEAR(field.get(project), before + 2, 1e-12);
        field.set(Main.store(), before);
    }
}

TEST_F(ParameterPanel, NoTwoRowsShareAField) {
    for (const PanelField& field : panelFields()) {
        const double before = field.get(project);
        field.set(Main.store(), before + 1);
        for (const PanelField& other : panelFields()) {
            if (&other == &field) continue;
            // The shown span takes in the shift that lies beside it.
            const bool together =
                (field.control == Control::ShiftText && other.control == Control::SpanText) ||
                (field.control == Control::ShiftStabText && other.control == Control::SpanStabText);
            const double value = other.get(project);
            EXPECT_TRUE(together || panelText(project, other) == text(other.control) || value == 0)
                << controlName(field.control) << " changes " << controlName(other.control);
        }
        field.set(Main.store(), before);
    }
}

TEST_F(ParameterPanel, ToolTipNamesTheQuantityAndTheUnitInUse) {
    EXPECT_EQ(panelTip(project, *panelField(Control::LengthBText)), "Root chord (mm)");
    project.units = inches;
    EXPECT_EQ(panelTip(project, *panelField(Control::LengthBText)), "Root chord (in)");
    EXPECT_EQ(panelTip(project, *panelField(Control::ThicknessBText)),
              "Root thickness (fraction of the chord)");
    EXPECT_EQ(panelTip(project, *panelField(Control::NbCrossFuselageText)),
              "Outline points of a section (0 to 100)");
}

// ---- commit

TEST_F(ParameterPanel, EveryBoxCommitsItsTextOnAKey) {
    for (const PanelField& field : panelFields()) {
        if (field.after == AfterCommit::BuildOutline) continue;
        SCOPED_TRACE(controlName(field.control));
        const double before = field.get(project);
        Main.savedProject = true;
        area.calls.clear();
        test::type(field.control, "7.25 and more");
        EXPECT_NEAR(field.get(project), 7.25, 1e-12);
        EXPECT_FALSE(Main.savedProject);
        EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
        field.set(Main.store(), before);
        Main.refreshPanels();
    }
    EXPECT_EQ(window.renders, 0);
}

TEST_F(ParameterPanel, CommitRendersWithRenderPressed) {
    Main.setChecked(Control::RenderButton, true);
    test::type(Control::LengthBText, "200");
    EXPECT_EQ(window.rebuilds, 1);
}

TEST_F(ParameterPanel, TypingAloneStoresNothing) {
    Main.textEdited(Control::LengthBText, "12");
    EXPECT_EQ(Wings(1).length1, 230);
    EXPECT_TRUE(Main.savedProject);
    Main.textKeyDown(Control::LengthBText, "12");
    EXPECT_EQ(Wings(1).length1, 12);
}

TEST_F(ParameterPanel, KeyCommitsTheTextAsItStandsBeforeTheKey) {
    test::type(Control::LengthBText, "12");
    Main.textEdited(Control::LengthBText, "1");
    EXPECT_EQ(Wings(1).length1, 12);
    EXPECT_EQ(text(Control::LengthBText), "1");
}

struct TypedText {
    const char* name;
    std::string text;
    double stored;  ///< NaN: the old value stands
};

class TypedTexts : public test::EditorTest, public ::testing::WithParamInterface<TypedText> {};

TEST_P(TypedTexts, StoreTheNumberAtTheirStart) {
    test::type(Control::PosBText, GetParam().text);
    const double expected = std::isnan(GetParam().stored) ? 180 : GetParam().stored;
    EXPECT_EQ(Wings(1).pos1, expected);
    EXPECT_EQ(Main.controls[Control::PosBText].text, GetParam().text);
    EXPECT_TRUE(std::isfinite(Main.view.zoom));
}

INSTANTIATE_TEST_SUITE_P(
    BadAndGood, TypedTexts,
    ::testing::Values(TypedText{"Empty", "", 0}, TypedText{"Letters", "abc", 0},
                      TypedText{"Unit", "1.5mm", 1.5}, TypedText{"TooLarge", "1e999", NAN},
                      TypedText{"NegativeTooLarge", "-1e999", NAN}, TypedText{"Zero", "-0", 0},
                      TypedText{"Comma", "1,5", 1}, TypedText{"Exponent", "1e3", 1000},
                      TypedText{"HalfAnExponent", "1e", 1}, TypedText{"Huge", "1E308", 1e308},
                      TypedText{"Long", std::string(10000, '9'), NAN},
                      TypedText{"LongTail", "3" + std::string(10000, 'x'), 3},
                      TypedText{"LineBreaks", "4\n5\r\n6", 4}, TypedText{"LeadingBreak", "\n45", 0},
                      TypedText{"OtherDigits", "\xd9\xa1\xd9\xa2", 0},
                      TypedText{"FullWidthDigits", "\xef\xbc\x91\xef\xbc\x92", 0},
                      TypedText{"NotANumber", "nan", 0}, TypedText{"Infinity", "inf", 0},
                      TypedText{"Hexadecimal", "0x10", 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(ParameterPanel, NoTextInAnyBoxEndsTheProgramOrLeavesANumberThatIsNotFinite) {
    const std::string texts[] = {
        "",     "abc",      "1e999", "-0",     "1,5",   std::string(10000, '7'),
        "4\n5", "\xd9\xa1", "1E308", "-1E308", "1E-308"};
    for (const PanelField& field : panelFields()) {
        for (const std::string& typed : texts) {
            SCOPED_TRACE(std::string(controlName(field.control)) + " " + typed.substr(0, 20));
            if (field.after == AfterCommit::BuildOutline)
                Main.nbCrossChanged(typed);
            else
                test::type(field.control, typed);
            EXPECT_TRUE(std::isfinite(field.get(project)) || std::abs(field.get(project)) > 1e308);
            for (const auto view : {&MainForm::initVTopView, &MainForm::initFrontView,
                                    &MainForm::initSideView, &MainForm::initHTopView})
                (Main.*view)();
            EXPECT_FALSE(std::isnan(Main.view.zoom));
        }
        Main.nbCrossChanged("8");
    }
    Main.refreshPanels();
}

TEST_F(ParameterPanel, CommittingTheSameNumberIsNoChange) {
    test::type(Control::LengthBText, "230");
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1) << "but the view is fitted anew";
}

TEST_F(ParameterPanel, SpanLeavesOutTheShiftThatIsShown) {
    Wings(1).shift = 10.9;
    Main.updateWingInterface();
    ASSERT_EQ(text(Control::ShiftText), "10");
    test::type(Control::SpanText, "1000");
    EXPECT_EQ(Wings(1).span, 490);
    Main.textEdited(Control::ShiftText, "50 typed");
    test::type(Control::SpanText, "1000");
    EXPECT_EQ(Wings(1).span, 450);
}

TEST_F(ParameterPanel, ShiftOfTheWingRefillsAndThatOfTheStabilizerDoesNot) {
    test::type(Control::ShiftText, "100");
    EXPECT_EQ(text(Control::SpanText), "1600");
    test::type(Control::ShiftStabText, "100");
    EXPECT_EQ(text(Control::SpanStabText), "500");
    Main.updateStabilizerInterface();
    EXPECT_EQ(text(Control::SpanStabText), "700");
}

TEST_F(ParameterPanel, PanelEditsTheCurrentWing) {
    ++nbWings;
    MainWing::addWing(project);
    currentWing = 2;
    Main.updateWingInterface();
    test::type(Control::LengthEText, "33");
    EXPECT_EQ(Wings(2).length2, 33);
    EXPECT_EQ(Wings(1).length2, 150);
}

TEST_F(ParameterPanel, SectionFieldsApplyToTheSelectedSection) {
    fuselage.sel_sec = 2;
    test::type(Control::WidthFuselageText, "77");
    EXPECT_EQ(fuselage.width(2), 77);
    EXPECT_EQ(fuselage.width(1), 20);
}

TEST_F(ParameterPanel, OffsetsTakeTheOldPlanOffTheSurface) {
    test::type(Control::ShiftOffsetText, "40");
    EXPECT_EQ(fuselage.shift, 40);
    EXPECT_GT(area.lines(white), 0);
    area.calls.clear();
    fuselage.sel_sec = 3;
    test::type(Control::PosOffsetText, "15");
    EXPECT_EQ(fuselage.pos_offset, 15);
    EXPECT_EQ(fuselage.sel_sec, 3);
    EXPECT_GT(area.lines(white), 0);
}

TEST_F(ParameterPanel, MillimetresAreShownWholeThoughTheModelHoldsFractions) {
    Wings(1).length1 = 12.9;
    Wings(1).pos2 = -0.5;
    Main.updateWingInterface();
    EXPECT_EQ(text(Control::LengthBText), "12");
    EXPECT_EQ(text(Control::PosEText), "-1");
    EXPECT_EQ(Wings(1).length1, 12.9);
}

TEST_F(ParameterPanel, ThicknessIsShownPlain) {
    Wings(1).thickness1 = 0.123456789;
    project.units = inches;
    Main.updateWingInterface();
    EXPECT_EQ(text(Control::ThicknessBText), "0.123456789");
}

// ---- outline points

TEST_F(ParameterPanel, CrossPointsCommitOnEachChangeOfTheText) {
    Main.nbCrossChanged("1");
    EXPECT_EQ(fuselage.nb_cross, 1);
    Main.nbCrossChanged("12");
    EXPECT_EQ(fuselage.nb_cross, 12);
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(ParameterPanel, KeyInTheCrossPointsBoxCommitsNothing) {
    Main.textKeyDown(Control::NbCrossFuselageText, "20");
    EXPECT_EQ(fuselage.nb_cross, 8);
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(ParameterPanel, CrossPointsOutOfRangeOrWithoutANumberAreIgnored) {
    for (const char* typed : {"101", "100.4", "-0.4", "-1", "", "abc", "1e999", "  "}) {
        area.calls.clear();
        Main.nbCrossChanged(typed);
        EXPECT_EQ(fuselage.nb_cross, 8) << typed;
        EXPECT_TRUE(area.calls.empty()) << typed;
    }
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(ParameterPanel, CrossPointsAreRoundedHalfToEven) {
    const std::pair<const char*, int> rows[] = {
        {"100", 100}, {"9.5", 10}, {"8.5", 8}, {"7.4 points", 7}, {"0.5", 0}};
    for (const auto& [typed, points] : rows) {
        Main.nbCrossChanged(typed);
        EXPECT_EQ(fuselage.nb_cross, points) << typed;
    }
}

TEST_F(ParameterPanel, FuselageWithoutOutlineLeavesOneBoxEnabledAlsoAfterARefill) {
    Main.nbCrossChanged("0");
    for (int refill = 0; refill < 2; ++refill) {
        for (const PanelField& field : panelFields())
            EXPECT_EQ(Main.controls[field.control].enabled,
                      field.control == Control::NbCrossFuselageText)
                << controlName(field.control);
        Main.updateFuselageInterface();
    }
    test::type(Control::LengthBText, "5");
    EXPECT_EQ(Wings(1).length1, 230) << "a disabled box takes no key";
    Main.nbCrossChanged("6");
    EXPECT_TRUE(Main.controls[Control::LengthBText].enabled);
}

TEST_F(ParameterPanel, CrossPointsStopWhereAProjectFileWouldNotTakeTheMesh) {
    ++nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(2, false);
    // Hidden and only counted: 30 points are left beside it.
    Fuselages(2).nb_sections = 2551;
    Fuselages(2).nb_cross = 1568;
    Main.nbCrossChanged("11");
    EXPECT_EQ(fuselage.nb_cross, 8);
    Main.nbCrossChanged("10");
    EXPECT_EQ(fuselage.nb_cross, 10);
}

// ---- fillers, check boxes, tabs

TEST_F(ParameterPanel, FillersTouchNothingInTheModel) {
    fuselage.curvature(1) = 0.123;
    fuselage.curvature2(1) = 9.5;
    fuselage.bias_curve(1) = 0.555;
    fuselage.linkedCurvatures = true;
    fuselage.uniqueCurvature = false;
    Main.refreshPanels();
    EXPECT_EQ(fuselage.curvature(1), 0.123);
    EXPECT_EQ(fuselage.curvature2(1), 9.5);
    EXPECT_EQ(fuselage.bias_curve(1), 0.555);
    EXPECT_EQ(Main.controls[Control::CurvatureSlider].value, 12);
    EXPECT_EQ(Main.controls[Control::Curvature2Slider].value, 350) << "the slider ends there";
    EXPECT_EQ(Main.controls[Control::BiasSlider].value, 56) << "halves to even";
    EXPECT_FALSE(Main.checked(Control::UniqueCurvatureCheck));
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(ParameterPanel, FillerOverwritesUncommittedText) {
    Main.textEdited(Control::LengthBText, "12");
    Main.updateWingInterface();
    EXPECT_EQ(text(Control::LengthBText), "230");
    EXPECT_TRUE(std::ranges::find(window.changes, Control::LengthBText) != window.changes.end())
        << "the window is told even of a text that it may have kept itself";
}

TEST_F(ParameterPanel, CheckBoxesStoreAndOnlyTransparencyRenders) {
    Main.checkClicked(Control::UniqueCurvatureCheck, false);
    EXPECT_FALSE(fuselage.uniqueCurvature);
    EXPECT_FALSE(Main.savedProject);
    Main.checkClicked(Control::LinkedCurvaturesCheck, false);
    EXPECT_FALSE(fuselage.linkedCurvatures);
    EXPECT_EQ(window.renders, 0);
    Main.checkClicked(Control::TransparentCheck, true);
    EXPECT_TRUE(fuselage.transparent);
    EXPECT_EQ(window.rebuilds, 1);
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(ParameterPanel, TabClickOnAWingTabDropsTheFuselagesHover) {
    const std::pair<int, bool> rows[] = {{PanelTab::wing, false},
                                         {PanelTab::stabilizer, false},
                                         {PanelTab::fuselage, true},
                                         {PanelTab::rudder, true},
                                         {PanelTab::electronics, true}};
    for (const auto& [tab, kept] : rows) {
        Main.views.fuselage().grip.selected = true;
        Main.tabClicked(tab);
        EXPECT_EQ(Main.views.fuselage().grip.selected, kept) << tab;
        EXPECT_EQ(Main.tab(), tab);
    }
    EXPECT_TRUE(area.calls.empty()) << "the difference shows at the next redraw";
}

TEST_F(ParameterPanel, TabSetByTheProgramIsNoClick) {
    Main.views.fuselage().grip.selected = true;
    Main.selectTab(PanelTab::stabilizer);
    EXPECT_TRUE(Main.views.fuselage().grip.selected);
}

}  // namespace
}  // namespace velna
