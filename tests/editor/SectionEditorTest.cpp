#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class SectionEditor : public test::EditorTest {
protected:
    static int slider(Control control) { return Main.controls[control].value; }
    static double biasHeight() { return Main.controls[Control::BiasSlider].height; }
    /// The selected section with these sizes, fitted to the surface.
    void fit(double width, double height) {
        fuselage.width(1) = width;
        fuselage.height(1) = height;
        Main.zoomSectionSet();
    }

    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(SectionEditor, WiderSectionScalesByItsWidth) {
    fit(60, 30);
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 150 * 0.9 / 60);
    EXPECT_DOUBLE_EQ(biasHeight(), 75);
}

TEST_F(SectionEditor, SectionAsWideAsTallScalesByItsHeight) {
    sectionArea.resize(150, 120);
    fit(40, 40);
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 120 * 0.9 / 40);
    EXPECT_DOUBLE_EQ(biasHeight(), 120);
}

TEST_F(SectionEditor, SectionWithoutWidthScalesByItsHeightAndIsAVerticalLine) {
    fit(0, 30);
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 150 * 0.9 / 30);
    Main.drawSection();
    const auto drawn = sectionArea.sinceClear();
    ASSERT_FALSE(drawn.empty());
    for (const auto& line : drawn) {
        EXPECT_EQ(line.x1, 75);
        EXPECT_EQ(line.x2, 75);
    }
}

TEST_F(SectionEditor, SectionWithoutSizeKeepsTheScale) {
    const double before = Main.views.fuselage().szoom;
    fit(0, 0);
    EXPECT_EQ(Main.views.fuselage().szoom, before);
}

TEST_F(SectionEditor, ScaleTakesTheSizeOfTheSurfaceInWholePixels) {
    sectionArea.resize(150.4, 150.6);
    fit(20, 40);
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 151 * 0.9 / 40);
}

TEST_F(SectionEditor, TypedSizeRescalesAtTheNextRelease) {
    Main.initSideView();
    const double before = Main.views.fuselage().szoom;
    test::type(Control::WidthFuselageText, "60");
    EXPECT_EQ(Main.views.fuselage().szoom, before);
    test::drag(Main).press(20, 20).release();
    EXPECT_DOUBLE_EQ(Main.views.fuselage().szoom, 150 * 0.9 / 60);
}

TEST_F(SectionEditor, SliderStoresAHundredthDrawsTheSectionAndTheView) {
    Main.checkClicked(Control::LinkedCurvaturesCheck, false);
    Main.savedProject = true;
    bench.forget();
    Main.sliderChanged(Control::CurvatureSlider, 250);
    for (int k = 1; k <= 3; ++k) EXPECT_EQ(fuselage.curvature(k), 2.5) << "one shape for all";
    EXPECT_EQ(fuselage.curvature2(1), 1);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(sectionArea.count(test::SurfaceCall::Kind::Clear), 1);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
    EXPECT_EQ(window.renders, 0);
}

TEST_F(SectionEditor, SliderActsOnOneSectionWithoutUniqueCurvature) {
    fuselage.uniqueCurvature = false;
    fuselage.sel_sec = 2;
    Main.refreshPanels();
    Main.sliderChanged(Control::BiasSlider, 80);
    EXPECT_EQ(fuselage.bias_curve(2), 0.8);
    EXPECT_EQ(fuselage.bias_curve(1), 0.5);
}

TEST_F(SectionEditor, LinkedSlidersStayLevelWhicheverIsMoved) {
    for (const auto& [moved, value] :
         {std::pair{Control::CurvatureSlider, 180}, std::pair{Control::Curvature2Slider, 40}}) {
        Main.sliderChanged(moved, value);
        EXPECT_EQ(slider(Control::CurvatureSlider), value);
        EXPECT_EQ(slider(Control::Curvature2Slider), value);
        EXPECT_EQ(fuselage.curvature(1), value / 100.0);
        EXPECT_EQ(fuselage.curvature2(1), value / 100.0);
    }
}

TEST_F(SectionEditor, LinkedSlidersOwnEventRunsToo) {
    Main.setChecked(Control::RenderButton, true);
    Main.sliderChanged(Control::CurvatureSlider, 180);
    EXPECT_EQ(window.rebuilds, 2);
}

TEST_F(SectionEditor, LinkedSlidersAreShownInOnePicture) {
    Main.setChecked(Control::RenderButton, true);
    Main.sliderChanged(Control::CurvatureSlider, 180);
    EXPECT_EQ(window.unheldRenders, 0);
    EXPECT_EQ(window.picturesShown, 1);
    EXPECT_EQ(window.holds, 0);
}

TEST_F(SectionEditor, SlidersReachTheEndsOfTheirRanges) {
    Main.sliderChanged(Control::CurvatureSlider, 350);
    EXPECT_EQ(fuselage.curvature(1), 3.5);
    Main.sliderChanged(Control::CurvatureSlider, 1);
    EXPECT_EQ(fuselage.curvature(1), 0.01);
    Main.sliderChanged(Control::CurvatureSlider, 1000);
    EXPECT_EQ(fuselage.curvature(1), 3.5);
    Main.sliderChanged(Control::BiasSlider, 0);
    EXPECT_EQ(fuselage.bias_curve(1), 0.01);
    Main.sliderChanged(Control::BiasSlider, 100);
    EXPECT_EQ(fuselage.bias_curve(1), 0.99);
}

TEST_F(SectionEditor, EverySliderRowStandsInItsRange) {
    ASSERT_EQ(panelSliders().size(), 3U);
    for (const PanelSlider& row : panelSliders()) {
        EXPECT_EQ(slider(row.control), row.control == Control::BiasSlider ? 50 : 100);
        EXPECT_EQ(row.lowest, 1);
        EXPECT_EQ(row.linked.has_value(), row.control != Control::BiasSlider);
    }
}

TEST_F(SectionEditor, TwoOutlinePointsAreTheWidestLine) {
    Main.nbCrossChanged("2");
    const auto drawn = sectionArea.sinceClear();
    ASSERT_EQ(drawn.size(), 2U);
    EXPECT_EQ(drawn[0].y1, drawn[0].y2);
    EXPECT_NE(drawn[0].x1, drawn[0].x2);
}

TEST_F(SectionEditor, FillerEndsInADrawnSection) {
    Main.updateFuselageInterface();
    EXPECT_EQ(sectionArea.count(test::SurfaceCall::Kind::Clear), 1);
    EXPECT_EQ(sectionArea.sinceClear().size(), 8U);
}

}  // namespace
}  // namespace velna
