#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

// Gestures that the desktop breaks off: a grab lost, a window in front, a release outside.

namespace velna {
namespace {

using test::drag;

class BrokenGestures : public test::EditorTest {
protected:
    /// One pixel a unit; section 2 of the default fuselage is a bar at x 250 from y 190 to 290.
    void enterSide() {
        Main.setChecked(Control::LockZoom, true);
        Main.view.zoom = 1;
        Main.view.xoff = 50;
        Main.view.yoff = 300;
        Main.initSideView();
        bench.forget();
    }

    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(BrokenGestures, CancelEndsADragInHover) {
    enterSide();
    drag(Main).press(250, 240).move(250, 230);
    Main.pointer.shiftkey = true;
    Main.cancelGesture();
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_FALSE(Main.pointer.shiftkey);
    EXPECT_EQ(window.rebuilds, 1);
    drag(Main).move(250, 200);
    EXPECT_EQ(fuselage.elevation(2), 20) << "what was dragged so far stands, and no more moves";
}

Point2D middle(Point2D a, Point2D b) {
    return {(a.x + b.x) / 2, a.y};
}

/// A handle of each kind on the surface as drawn, and another view, whose release asks no such
/// kind.
struct Grab {
    const char* kind;
    int tab;
    void (MainForm::*enter)();
    Point2D (*handle)();
    bool (*busy)();
    void (MainForm::*leaveTo)();
};

const Grab grabs[] = {
    {"fuselage", PanelTab::fuselage, &MainForm::initSideView,
     [] {
         return Point2D{250, 240};
     },
     [] { return Main.views.fuselage().grip.paint != FuselagePart::none; },
     &MainForm::initFrontView},
    {"fin", PanelTab::rudder, &MainForm::initSideView,
     [] { return middle(Main.views.rudder.sidePoints[3], Main.views.rudder.sidePoints[4]); },
     [] { return Main.views.rudder.grip.paint != FinPart::none; }, &MainForm::initVTopView},
    {"wing", PanelTab::wing, &MainForm::initVTopView,
     [] { return Main.views.wings(1).vtopPoints[2]; },
     [] { return Main.views.wings(1).grip.paint != WingPart::none; }, &MainForm::initSideView},
    {"stabiliser", PanelTab::stabilizer, &MainForm::initVTopView,
     [] { return Main.views.stabilizer.vtopPoints[2]; },
     [] { return Main.views.stabilizer.grip.paint != WingPart::none; }, &MainForm::initHTopView},
    {"box", PanelTab::electronics, &MainForm::initSideView,
     [] { return middle(Main.views.boxes(1).sideOutline[1], Main.views.boxes(1).sideOutline[2]); },
     [] { return Main.views.boxes(1).grip.paint == 0; }, &MainForm::initFrontView},
};

TEST_F(BrokenGestures, CancelEndsADragOfEachKindWhoseViewWasLeft) {
    for (const Grab& grab : grabs) {
        SCOPED_TRACE(grab.kind);
        enterSide();
        Main.selectTab(grab.tab);
        (Main.*grab.enter)();
        const Point2D place = grab.handle();
        drag(Main).press(static_cast<float>(place.x), static_cast<float>(place.y));
        ASSERT_TRUE(grab.busy());
        (Main.*grab.leaveTo)();
        ASSERT_TRUE(grab.busy()) << "a view's entry lets nothing go";
        Main.selectTab(PanelTab::wing);
        Main.cancelGesture();
        EXPECT_FALSE(grab.busy());
        EXPECT_FALSE(Main.anyBusy());
    }
}

TEST_F(BrokenGestures, CancelDisarmsAndElseDoesNothing) {
    enterSide();
    Main.cancelGesture();
    EXPECT_EQ(window.renders, 0);
    EXPECT_TRUE(area.calls.empty());
    Main.DrawArea_keydown(17, 2);
    Main.cancelGesture();
    EXPECT_FALSE(Main.pointer.ctrlkey);
}

TEST_F(BrokenGestures, CancelOverAPictureEndsTheInvertingLines) {
    area.pictures["plan.bmp"] = {100, 60};
    window.pictureFiles = {"plan.bmp"};
    Main.loadBitmapAction();
    drag(Main).press(20, 20).move(30, 30);
    ASSERT_EQ(area.mode, DrawMode::Invert);
    Main.cancelGesture();
    EXPECT_EQ(area.mode, DrawMode::Copy);
    EXPECT_FALSE(Main.view.firstPictureRefresh);
}

TEST_F(BrokenGestures, ReleaseOutsideTheSurfaceEndsTheDrag) {
    enterSide();
    drag(Main).press(250, 240).move(-500, 4000).release();
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(fuselage.elevation(2), -3750);
}

}  // namespace
}  // namespace velna
