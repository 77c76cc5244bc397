#include <algorithm>

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;

class Pointer : public test::EditorTest {
protected:
    /// Enters a view at a fixed place: one pixel a unit, model coordinate 0 at (x, y).
    void enter(void (MainForm::*view)(), double x, double y) {
        Main.setChecked(Control::LockZoom, true);
        Main.view.zoom = 1;
        Main.view.xoff = x;
        Main.view.yoff = y;
        (Main.*view)();
        Main.savedProject = true;
        bench.forget();
    }
    /// Section 2 of the default fuselage: a bar at x 250 from y 190 to 290.
    void enterSide() { enter(&MainForm::initSideView, 50, 300); }
    /// Section 2: a bar at x 300 from y 250 to 350. The box: edge y 302.5, x 300 to 330.
    void enterHTop() { enter(&MainForm::initHTopView, 100, 300); }
    /// The nose: a line at y 50 from x 440 to 460. The wing's root: x 450 from y 230 to 460.
    void enterVTop() { enter(&MainForm::initVTopView, 450, 50); }

    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(Pointer, EveryPressClearsSavedProjectARightOneToo) {
    enterSide();
    drag(Main).press(20, 20, 2);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_TRUE(window.popupOpen);
    EXPECT_EQ(Main.pointer.xloc, 0) << "a right press is no place of a drag";
    Main.savedProject = true;
    drag(Main).press(20, 20);
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(Pointer, ReleaseOfTheRightButtonDoesNothing) {
    enterSide();
    drag(Main).press(250, 240, 2);
    Main.menuClicked(Control::InsRem);
    drag(Main).press(20, 20, 2).release();
    EXPECT_TRUE(Main.pointer.ctrlkey) << "what the menu has armed waits for the next press";
    EXPECT_EQ(window.renders, 0);
}

TEST_F(Pointer, AnyButtonButTheRightOnePresses) {
    enterSide();
    drag(Main).press(250, 240, 4);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::bar);
    EXPECT_EQ(Main.pointer.xloc, 250);
}

TEST_F(Pointer, PressPixelIsRoundedHalfToEven) {
    drag(Main).press(20.5F, 21.5F);
    EXPECT_EQ(Main.pointer.xloc, 20);
    EXPECT_EQ(Main.pointer.yloc, 22);
}

TEST_F(Pointer, MoveWithoutAChangeOfPlaceReturnsAtOnce) {
    drag(Main).hover(300, 20);
    bench.forget();
    drag(Main).hover(300, 20);
    EXPECT_TRUE(area.calls.empty());
    EXPECT_EQ(area.focuses, 0);
    EXPECT_EQ(area.refreshes, 0);
}

TEST_F(Pointer, MoveTakesTheFocusSoThatKeysWork) {
    drag(Main).hover(300, 20);
    EXPECT_EQ(area.focuses, 1);
}

TEST_F(Pointer, HoverChangesNothingInTheModel) {
    enterSide();
    drag(Main).hover(250, 240).hover(250, 191).hover(500, 20);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(fuselage.elevation(2), 10);
    EXPECT_EQ(window.renders, 0);
}

TEST_F(Pointer, DragOutAndBackGivesTheStartValueBitForBit) {
    fuselage.elevation(2) = 0.1 + 0.2;
    enter(&MainForm::initSideView, 50, 300);
    Main.view.zoom = 0.7;
    Main.initSideView();
    const double start = fuselage.elevation(2);
    const auto x = static_cast<float>(Main.views.fuselage().side.top(2).x);
    const auto y = static_cast<float>(Main.views.fuselage().side.top(2).y + 20);
    auto gesture = drag(Main).press(x, y).move(x, y - 37);
    EXPECT_NE(fuselage.elevation(2), start);
    gesture.move(x + 11, y + 3)
        .move(static_cast<float>(Main.pointer.xloc), static_cast<float>(Main.pointer.yloc));
    EXPECT_EQ(fuselage.elevation(2), start);
}

TEST_F(Pointer, PanelShowsLiveValuesWhileDragging) {
    enterSide();
    drag(Main).press(250, 240).move(250, 230);
    EXPECT_EQ(Main.controls[Control::ElevationFuselageText].text, "20");
    EXPECT_EQ(window.renders, 0) << "Render is up";
}

TEST_F(Pointer, DragRendersEachMoveWithRenderPressed) {
    enterSide();
    Main.setChecked(Control::RenderButton, true);
    auto gesture = drag(Main).press(250, 240).move(250, 230).move(250, 220);
    EXPECT_EQ(window.rebuilds, 2);
    gesture.release();
    EXPECT_EQ(window.rebuilds, 3);
}

TEST_F(Pointer, EachReleaseRebuildsThePictureWithRenderUpToo) {
    drag(Main).press(20, 20).release();
    EXPECT_EQ(window.rebuilds, 1);
}

TEST_F(Pointer, WingAndFuselageUnderOnePointerMoveTogether) {
    Wings(1).pos1 = -100;
    enterVTop();
    drag(Main).press(451, 50).move(461, 57);
    EXPECT_EQ(fuselage.shift, 10);
    EXPECT_EQ(Wings(1).pos1, -93);
    EXPECT_EQ(Main.views.wings(1).grip.paint, WingPart::rootEdge);
    EXPECT_EQ(Main.tab(), PanelTab::fuselage) << "the fuselage is asked after the wing";
    EXPECT_TRUE(Main.controls[Control::FuselageVTopFrame].visible);
}

TEST_F(Pointer, RootEdgeTakesAllOuterPanelsAlong) {
    for (int i = 0; i < 2; ++i) {
        ++nbWings;
        MainWing::addWing(project);
    }
    enterVTop();
    drag(Main).press(450, 300);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(Main.views.wings(i).grip.paint, WingPart::rootEdge) << i;
}

TEST_F(Pointer, OnlyWingOneIsAskedForTheTab) {
    ++nbWings;
    MainWing::addWing(project);
    Wings(2).pos1 = 600;
    Wings(1).span = 200;
    Wings(2).shift = 200;
    Main.selectTab(PanelTab::rudder);
    enterVTop();
    drag(Main).press(650, 700);
    ASSERT_NE(Main.views.wings(2).grip.paint, WingPart::none);
    ASSERT_EQ(Main.views.wings(1).grip.paint, WingPart::none);
    EXPECT_EQ(Main.tab(), PanelTab::rudder);
}

TEST_F(Pointer, ElectronicsTabShieldsFuselagesAndFinInSideAndHTop) {
    Main.selectTab(PanelTab::electronics);
    enterSide();
    drag(Main).press(250, 240).move(250, 200).release();
    EXPECT_EQ(fuselage.elevation(2), 10);
    drag(Main).press(750, 270).move(740, 260).release();
    EXPECT_EQ(Rudder.pos1, 650);
    enterHTop();
    drag(Main).press(300, 349).move(300, 360).release();
    EXPECT_EQ(fuselage.width(2), 100);
}

TEST_F(Pointer, BoxesAnswerUnderTheElectronicsTabOnly) {
    enterSide();
    drag(Main).press(265, 250).move(275, 260).release();
    EXPECT_EQ(Equipments(1).pos, 200);
    Main.selectTab(PanelTab::electronics);
    enterSide();
    drag(Main).press(265, 250).move(275, 250).release();
    EXPECT_EQ(Equipments(1).pos, 210);
    EXPECT_EQ(Main.views.boxes(1).grip.paint, 1);
}

TEST_F(Pointer, TabPlaysNoPartInVTop) {
    Main.selectTab(PanelTab::electronics);
    enterVTop();
    drag(Main).press(451, 50);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::bar);
    EXPECT_EQ(Main.views.boxes(1).grip.paint, 1);
}

TEST_F(Pointer, HiddenFuselageCannotBeHit) {
    ObjectList.setShown(1, false);
    enterSide();
    drag(Main).hover(250, 240).press(250, 240);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::none);
    EXPECT_FALSE(Main.views.fuselage().grip.selected);
    enterHTop();
    drag(Main).press(300, 349);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::none);
    enterVTop();
    drag(Main).press(451, 50);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::none);
}

// ---- what is kept as it is

TEST_F(Pointer, PressOnTheFinOpensItsTabAndTheScaleFollowsAtTheNextRedraw) {
    Main.setChecked(Control::LockZoom, false);
    Main.selectTab(PanelTab::fuselage);
    Main.initSideView();
    const double before = Main.view.zoom;
    const Point2D tip = Main.views.rudder.sidePoints[3];
    drag(Main).press(static_cast<float>(tip.x) - 20, static_cast<float>(tip.y));
    ASSERT_EQ(Main.tab(), PanelTab::rudder);
    EXPECT_EQ(Main.view.zoom, before);
    Main.refreshDrawingArea();
    EXPECT_LT(Main.view.zoom, before);
}

TEST_F(Pointer, ReleaseSetsTheCursorBeforeItClearsTheFlags) {
    enterSide();
    drag(Main).press(500, 20);
    Main.pointer.ctrlkey = true;
    drag(Main).release();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Cross);
    EXPECT_FALSE(Main.pointer.ctrlkey);
}

TEST_F(Pointer, ViewEntryClearsShiftAndCtrlButNotAlt) {
    Main.pointer.shiftkey = Main.pointer.ctrlkey = Main.pointer.altkey = true;
    Main.refreshDrawingArea();
    EXPECT_FALSE(Main.pointer.shiftkey);
    EXPECT_FALSE(Main.pointer.ctrlkey);
    EXPECT_TRUE(Main.pointer.altkey);
}

TEST_F(Pointer, HoverChangesTheSelectedSectionInAGapWithCtrlToo) {
    enterSide();
    drag(Main).hover(250, 240);
    EXPECT_EQ(fuselage.sel_sec, 2);
    EXPECT_EQ(Main.controls[Control::FuselageScroll].value, 2);
    drag(Main).key(17, 2).hover(600, 260);
    EXPECT_EQ(fuselage.sel_sec, 3);
    EXPECT_EQ(Main.views.fuselage().grip.selected_part, FuselagePart::gap);
}

TEST_F(Pointer, HTopBarCatchesFarAboveAndDoesNothingWithoutShift) {
    enterHTop();
    drag(Main).press(300, 20);
    ASSERT_EQ(Main.views.fuselage().grip.paint, FuselagePart::bar);
    ASSERT_EQ(fuselage.sel_sec, 2);
    drag(Main).move(320, 40);
    EXPECT_EQ(fuselage.pos(2), 200);
    EXPECT_EQ(fuselage.width(2), 100);
}

TEST_F(Pointer, HTopBarMovesAlongWithShift) {
    enterHTop();
    drag(Main).hover(300, 330);
    Main.DrawArea_keydown(16, 1);
    drag(Main).press(300, 330);
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::bar);
    Main.pointer.shiftkey = true;
    drag(Main).press(300, 330).move(320, 330);
    EXPECT_EQ(fuselage.pos(2), 220);
}

TEST_F(Pointer, BoxesAreDrawnInHTopWhateverTheTab) {
    enterHTop();
    const Rectangle& box = Main.views.boxes(1).htopOutline;
    drag(Main).hover(20, 20);
    EXPECT_EQ(box[1], (Point2D{300, 287.5}));
    const auto drawn = std::ranges::count_if(area.calls, [&](const test::SurfaceCall& call) {
        return call.x1 == 300 && call.y1 == 287.5 && call.colour == black;
    });
    EXPECT_EQ(drawn, 1);
}

TEST_F(Pointer, BoxesAreDrawnInSideUnderTheElectronicsTabOnly) {
    const auto boxLines = [&] {
        return std::ranges::count_if(area.calls, [](const test::SurfaceCall& call) {
            return call.x1 == 250 && call.y1 == 250 && call.colour == black;
        });
    };
    enterSide();
    drag(Main).hover(20, 20);
    EXPECT_EQ(boxLines(), 0);
    Main.selectTab(PanelTab::electronics);
    enterSide();
    drag(Main).hover(20, 21);
    EXPECT_EQ(boxLines(), 1);
}

TEST_F(Pointer, UnselectedCurrentFuselageIsDrawnTwiceInVTop) {
    enterVTop();
    Main.initVTopView();
    const auto noseLines = std::ranges::count_if(area.calls, [](const test::SurfaceCall& call) {
        return call.x1 == 460 && call.y1 == 50 && call.colour != white && call.x2 == 500;
    });
    EXPECT_EQ(noseLines, 2);
}

TEST_F(Pointer, HTopReleaseDrawsTheFuselagesPlainlyUnderTheElectronicsTabToo) {
    Main.selectTab(PanelTab::electronics);
    enterHTop();
    EXPECT_EQ(area.lines(black), 0);
    drag(Main).press(20, 20).release();
    EXPECT_GT(area.lines(black), 0);
}

}  // namespace
}  // namespace velna
