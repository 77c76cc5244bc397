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
        Main.zoom = 1;
        Main.xoff = 50;
        Main.yoff = 300;
        Main.initSideView();
        bench.forget();
    }

    MeshSections& fuselage = Fuselage::current();
};

TEST_F(BrokenGestures, CancelEndsADragInHover) {
    enterSide();
    drag(Main).press(250, 240).move(250, 230);
    Main.shiftkey = true;
    Main.cancelGesture();
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_FALSE(Main.shiftkey);
    EXPECT_EQ(window.rebuilds, 1);
    drag(Main).move(250, 200);
    EXPECT_EQ(fuselage.elevation(2), 20) << "what was dragged so far stands, and no more moves";
}

TEST_F(BrokenGestures, CancelEndsADragWhoseViewWasLeft) {
    enterSide();
    drag(Main).press(250, 240);
    Main.mode = ViewMode::Front;
    Main.cancelGesture();
    EXPECT_FALSE(Main.anyBusy());
}

TEST_F(BrokenGestures, CancelDisarmsAndElseDoesNothing) {
    enterSide();
    Main.cancelGesture();
    EXPECT_EQ(window.renders, 0);
    EXPECT_TRUE(area.calls.empty());
    Main.DrawArea_keydown(17, 2);
    Main.cancelGesture();
    EXPECT_FALSE(Main.ctrlkey);
}

TEST_F(BrokenGestures, CancelOverAPictureEndsTheInvertingLines) {
    area.pictures["plan.bmp"] = {100, 60};
    window.pictureFiles = {"plan.bmp"};
    Main.loadBitmapAction();
    drag(Main).press(20, 20).move(30, 30);
    ASSERT_EQ(area.mode, DrawMode::Invert);
    Main.cancelGesture();
    EXPECT_EQ(area.mode, DrawMode::Copy);
    EXPECT_FALSE(Main.firstPictureRefresh);
}

TEST_F(BrokenGestures, ReleaseOutsideTheSurfaceEndsTheDrag) {
    enterSide();
    drag(Main).press(250, 240).move(-500, 4000).release();
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(fuselage.elevation(2), -3750);
}

}  // namespace
}  // namespace velna
