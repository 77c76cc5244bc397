#include <tuple>

#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"
#include "support/FreshModel.h"

// Sections taken in and out by a press with Ctrl.

namespace velna {
namespace {

using test::drag;

class SectionPresses : public test::EditorTest {
protected:
    /// Enters a view at a fixed place: one pixel a unit, model coordinate 0 at (x, 300).
    void enter(void (MainForm::*view)(), double x) {
        Main.setChecked(Control::LockZoom, true);
        Main.view.zoom = 1;
        Main.view.xoff = x;
        Main.view.yoff = 300;
        (Main.*view)();
        bench.forget();
    }
    /// Section 2 of the default fuselage: a bar at x 250 from y 190 to 290.
    void enterSide() { enter(&MainForm::initSideView, 50); }
    /// Section 2: a bar at x 300 from y 250 to 350.
    void enterHTop() { enter(&MainForm::initHTopView, 100); }

    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(SectionPresses, CtrlPressInAGapInsertsASectionThatMovesDoNotTouch) {
    enterSide();
    drag(Main).key(17, 2).press(450, 250).move(460, 230).release();
    EXPECT_EQ(fuselage.nb_sections, 4);
    EXPECT_EQ(Main.controls[Control::FuselageScroll].maximum, 4);
    EXPECT_EQ(fuselage.sectionOrder(3), 4);
    EXPECT_EQ(fuselage.pos(4), 400);
    EXPECT_NEAR(fuselage.height(4), 70, 1e-9);
    EXPECT_FALSE(Main.pointer.ctrlkey);
}

TEST_F(SectionPresses, InsertionRendersOnlyUnderTheLeftButtonWithRenderPressed) {
    Main.setChecked(Control::RenderButton, true);
    enterSide();
    drag(Main).key(17, 2).press(450, 250);
    EXPECT_EQ(window.rebuilds, 1);
    Main.cancelGesture();
    bench.forget();
    drag(Main).key(17, 2).press(350, 250, 4);
    EXPECT_EQ(fuselage.nb_sections, 5);
    EXPECT_EQ(window.rebuilds, 0);
}

TEST_F(SectionPresses, InsertionTakesTheOldLinesOffOnceAndLeavesNoWhiteOne) {
    Main.buttonPressed(Control::IndexFusPlusButton, 0);
    currentFuselage = 1;
    const MeshSections& body = Fuselage::current(project);
    for (const bool side : {true, false}) {
        side ? enterSide() : enterHTop();
        const auto sections = static_cast<std::size_t>(body.nb_sections);
        drag(Main).key(17, 2);
        bench.forget();
        drag(Main).press(side ? 450 : 600, side ? 250 : 300);
        ASSERT_EQ(static_cast<std::size_t>(body.nb_sections), sections + 1);
        const std::size_t former = 3 * sections - 2;
        ASSERT_EQ(area.lines(white), static_cast<int>(former));
        for (std::size_t i = 0; i < area.calls.size(); ++i) {
            EXPECT_EQ(area.calls[i].colour == white, i < former) << i;
            EXPECT_FALSE(area.calls[i].x2 == 0 && area.calls[i].y2 == 0) << "to the origin";
        }
        Main.cancelGesture();
    }
}

TEST_F(SectionPresses, RemovalLetsTheNeighbourBeWhileTheHandMovesOn) {
    for (const bool side : {true, false}) {
        resetModel();
        const MeshSections& body = Fuselage::current(project);
        side ? enterSide() : enterHTop();
        const std::tuple before{body.pos(3), body.elevation(3), body.width(3)};
        Main.selectTab(PanelTab::wing);
        Main.pointer.shiftkey = !side;  // from above a bar moves with Shift
        Main.pointer.ctrlkey = true;
        drag(Main).press(side ? 250 : 300, side ? 240 : 300);
        ASSERT_EQ(body.nb_sections, 2);
        EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::none);
        EXPECT_EQ(Main.tab(), PanelTab::fuselage) << "it was a hit all the same";
        Main.DrawArea_MouseMove(1, 0, side ? 251 : 301, side ? 239 : 301);
        // The last section now stands in the place of the removed one.
        EXPECT_EQ((std::tuple{body.pos(2), body.elevation(2), body.width(2)}), before);
        Main.cancelGesture();
    }
}

TEST_F(SectionPresses, RemovalOfTheLastSectionWithoutAHoverShowsTheNewLastOne) {
    enterSide();
    fuselage.width(2) = 77;
    Main.updateFuselageInterface();
    ASSERT_EQ(Main.controls[Control::FuselageScroll].value, 1);
    Main.pointer.ctrlkey = true;
    drag(Main).press(850, 265);
    ASSERT_EQ(fuselage.nb_sections, 2);
    EXPECT_EQ(fuselage.sel_sec, 2);
    EXPECT_EQ(Main.controls[Control::FuselageScroll].value, 2);
    EXPECT_EQ(Main.controls[Control::FuselageSectionLabel].text, "2");
    EXPECT_EQ(Main.controls[Control::WidthFuselageText].text, "77");
}

TEST_F(SectionPresses, CtrlPressOnABarOfTwoSectionsRemovesNothingAndClearsTheSurface) {
    fuselage.nb_sections = 2;
    fuselage.initArrays();
    enterSide();
    drag(Main).key(17, 2).press(250, 240);
    EXPECT_EQ(fuselage.nb_sections, 2);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::none);
    ASSERT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
    // White over the old place, then two edges and two bars: wing and fin wait for the next move.
    EXPECT_EQ(area.lines(black) + area.lines(project.highlightColor), 4);
    EXPECT_EQ(area.lines(project.dimColor), 0);
}

TEST_F(SectionPresses, InsertionStopsWhereAProjectFileWouldNotTakeTheMesh) {
    ++nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(2, false);
    // Room for 32 points: the 24 of the default fuselage and one section more. It is hidden, so
    // nobody asks for the points that it only counts.
    Fuselages(2).nb_sections = 2551;
    Fuselages(2).nb_cross = 1568;
    enterSide();
    drag(Main).key(17, 2).press(450, 250);
    EXPECT_EQ(fuselage.nb_sections, 4);
    Main.cancelGesture();
    drag(Main).key(17, 2).press(350, 250);
    EXPECT_EQ(fuselage.nb_sections, 4);
}

}  // namespace
}  // namespace velna
