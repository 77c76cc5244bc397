#include <cmath>

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class ApplyPreferences : public test::EditorTest {
protected:
    static void close(int unit, const std::string& scale) {
        Prefs.selectUnit(unit);
        Prefs.scaleTextKeyDown(scale);
        Main.applyPreferences();
    }
};

TEST_F(ApplyPreferences, SameUnitAndFullScaleRebuildButChangeNoValue) {
    Main.initSideView();
    Main.selectTab(PanelTab::rudder);
    bench.forget();
    close(millimetres, "100");
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
    EXPECT_EQ(window.rebuilds, 1);
    EXPECT_EQ(window.cataloguesFilled.size(), 3U);
    ASSERT_EQ(window.viewTransforms.size(), 1U);
    EXPECT_EQ(window.viewTransforms[0], (std::array<double, 5>{0, 0, 200, 900, 200}));
}

TEST_F(ApplyPreferences, InchesConvertOnceAndBack) {
    close(inches, "100");
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_EQ(Main.controls[Control::LengthBText].text, "9.06");
    EXPECT_DOUBLE_EQ(Equipment::servoTypes(project.units)[7].length, 40.4 / 25.4);
    EXPECT_FALSE(Main.savedProject);
    Main.savedProject = true;
    close(inches, "100");
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4) << "only a change of unit converts";
    EXPECT_TRUE(Main.savedProject);
    close(millimetres, "100");
    EXPECT_NEAR(Wings(1).span, 700, 1e-9);
    EXPECT_NEAR(Rudder.span, 150, 1e-9);
    EXPECT_NEAR(Fuselages(1).pos(3), 800, 1e-9);
    EXPECT_NEAR(Equipments(1).pos, 200, 1e-9);
    EXPECT_EQ(Prefs.prev_units, inches);
}

TEST_F(ApplyPreferences, ScaleActsAfterTheFitSoThatTheViewShowsItLater) {
    const double zoom = Main.view.zoom;
    close(millimetres, "50");
    EXPECT_EQ(Wings(1).span, 350);
    EXPECT_EQ(Fuselages(1).height(2), 50);
    EXPECT_EQ(Equipments(1).length, 15);
    EXPECT_EQ(Main.view.zoom, zoom);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1400");
    EXPECT_FALSE(Main.savedProject);
    Main.refreshDrawingArea();
    EXPECT_GT(Main.view.zoom, zoom);
}

TEST_F(ApplyPreferences, ScaleIsAppliedOnce) {
    close(millimetres, "50");
    EXPECT_EQ(Prefs.ScaleText, "100");
    EXPECT_EQ(Prefs.modelScaleFactor, 1.0);
    Main.applyPreferences();
    EXPECT_EQ(Wings(1).span, 350);
}

TEST_F(ApplyPreferences, ScaleTypedLastCountsWithoutAFurtherKey) {
    Prefs.scaleTextKeyDown("5");
    Prefs.ScaleText = "50";
    Main.applyPreferences();
    EXPECT_EQ(Wings(1).span, 350);
}

TEST_F(ApplyPreferences, ScaleThatIsNoFactorAboveZeroLeavesTheModelAlone) {
    for (const char* scale : {"0", "-50", "abc", "", "1e999", "-0", "nan"}) {
        close(millimetres, scale);
        EXPECT_EQ(Wings(1).span, 700) << scale;
        EXPECT_TRUE(Main.savedProject) << scale;
        EXPECT_EQ(Prefs.ScaleText, "100");
    }
}

TEST_F(ApplyPreferences, TinyAndHugeScalesLeaveADrawableModel) {
    for (const char* scale : {"1E-290", "1E300", "1E300", "1E-290"}) {
        close(millimetres, scale);
        for (const auto view : {&MainForm::initVTopView, &MainForm::initFrontView,
                                &MainForm::initSideView, &MainForm::initHTopView}) {
            (Main.*view)();
            Main.DrawArea_MouseMove(0, 0, 450, 250);
            Main.DrawArea_MouseDown(1, 0, 450, 250);
            Main.DrawArea_MouseMove(1, 0, 460, 255);
            Main.DrawArea_MouseUp(1, 0, 460, 255);
        }
        EXPECT_TRUE(std::isfinite(Wings(1).span)) << scale;
        EXPECT_TRUE(std::isfinite(Main.view.zoom)) << scale;
        EXPECT_TRUE(std::isfinite(Fuselages(1).pos(3))) << scale;
    }
}

TEST_F(ApplyPreferences, SectionEditorIsScaledInTheNewUnit) {
    close(inches, "100");
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 150 * 0.9 / (20 / 25.4));
}

}  // namespace
}  // namespace velna
