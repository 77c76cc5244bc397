#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QWheelEvent>
#include <cmath>

#include "shell/qt/DrawArea.h"
#include "support/EditorBench.h"
#include "support/ProgramInHand.h"

// The toolkit's events on their way to the editor: the widget sends, the editor draws on recorders.

namespace velna {
namespace {

class DrawAreaEvents : public test::EditorTest {
protected:
    void SetUp() override {
        widget.resize(900, 500);
        // One pixel a unit; section 2 of the default fuselage is a bar at x 250 from y 190 to 290.
        Main.setChecked(Control::LockZoom, true);
        Main.view.zoom = 1;
        Main.view.xoff = 50;
        Main.view.yoff = 300;
        Main.initSideView();
        Main.savedProject = true;
        bench.forget();
    }
    void TearDown() override { program.helper.running = false; }

    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPointF place,
               Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(type, place, place, button, held, modifiers);
        QApplication::sendEvent(&widget, &event);
    }
    void press(QPointF place, Qt::MouseButton button = Qt::LeftButton) {
        mouse(QEvent::MouseButtonPress, button, button, place);
    }
    void move(QPointF place, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {}) {
        mouse(QEvent::MouseMove, Qt::NoButton, held, place, modifiers);
    }
    void key(QEvent::Type type, int code, Qt::KeyboardModifiers modifiers = {},
             bool repeated = false) {
        QKeyEvent event(type, code, modifiers, {}, repeated);
        QApplication::sendEvent(&widget, &event);
    }

    void wheel(QPointF place, QPoint turned, Qt::MouseButtons held = Qt::NoButton) {
        QWheelEvent event(place, place, {}, turned, held, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        EXPECT_TRUE(event.isAccepted());
    }
    void pinch(QPointF place, double value) {
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                  2, place, place, place, value, {});
        QApplication::sendEvent(&widget, &event);
    }
    /// The place in the model, along the body and upward, that a pixel shows.
    static Point2D under(QPointF place) {
        const ViewState& view = Main.view;
        return {(place.x() - view.xoff) / view.zoom, (view.yoff - place.y()) / view.zoom};
    }

    DrawArea widget{Main, program.helper, nullptr};
    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(DrawAreaEvents, ADragReachesTheModelAndItsReleaseThePicture) {
    press({250, 240});
    move({250, 200}, Qt::LeftButton);
    EXPECT_EQ(fuselage.elevation(2), 50);
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {250, 200});
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(window.rebuilds, 1);
}

TEST_F(DrawAreaEvents, TheMenuKeyAndShiftF10OpenTheMenu) {
    key(QEvent::KeyPress, Qt::Key_Menu);
    EXPECT_TRUE(window.popupOpen);
    EXPECT_TRUE(Main.savedProject) << "no press has gone to the drawing";

    window.popupOpen = false;
    move({250, 240}, Qt::NoButton);
    key(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
    ASSERT_TRUE(Main.pointer.shiftkey);
    key(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(window.popupOpen);
    EXPECT_FALSE(Main.pointer.shiftkey) << "the menu takes the release of Shift";
}

TEST_F(DrawAreaEvents, F10AloneOrInADragOpensNoMenu) {
    key(QEvent::KeyPress, Qt::Key_F10);
    EXPECT_FALSE(window.popupOpen);
    press({250, 240});
    key(QEvent::KeyPress, Qt::Key_Menu);
    EXPECT_FALSE(window.popupOpen);
    EXPECT_TRUE(Main.anyBusy());
}

TEST_F(DrawAreaEvents, TheRightButtonOpensTheMenuAndItsReleaseDoesNothing) {
    press({250, 240}, Qt::RightButton);
    EXPECT_TRUE(window.popupOpen);
    EXPECT_FALSE(Main.anyBusy());
    mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, {250, 240});
    EXPECT_EQ(window.renders, 0);
}

TEST_F(DrawAreaEvents, ADoubleClickPressesAgain) {
    mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, {250, 240});
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::bar);
}

TEST_F(DrawAreaEvents, TheWheelMovesNothingOfTheAircraft) {
    const Project before = project;
    wheel({250, 240}, {120, 120});
    EXPECT_TRUE(project == before);
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(DrawAreaEvents, AReleaseThatTheMenuHasTakenEndsTheDragAtTheNextMove) {
    press({250, 240});
    mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton, {250, 240});
    ASSERT_TRUE(window.popupOpen);
    move({250, 200}, Qt::NoButton);
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(fuselage.elevation(2), 10) << "no button is held: nothing follows the pointer";
}

TEST_F(DrawAreaEvents, TheDemonstrationDragsWithoutAButton) {
    program.helper.running = true;
    press({250, 240});
    move({250, 239}, Qt::NoButton);
    EXPECT_TRUE(Main.anyBusy());
}

TEST_F(DrawAreaEvents, AHeldModifierArmsWhatThePointerComesTo) {
    move({250, 240}, Qt::NoButton, Qt::ShiftModifier);
    EXPECT_TRUE(Main.pointer.shiftkey);
    key(QEvent::KeyRelease, Qt::Key_Shift);
    EXPECT_FALSE(Main.pointer.shiftkey) << "though the key went down elsewhere";
}

TEST_F(DrawAreaEvents, AKeyOfTheMenuComesUpWithoutDisarmingWhatItHasArmed) {
    Main.menuClicked(Control::InsRem);
    key(QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_TRUE(Main.pointer.ctrlkey);
    EXPECT_EQ(window.renders, 0);
}

TEST_F(DrawAreaEvents, AKeyThatWentDownHereEndsADragWhenItComesUp) {
    press({250, 240});
    key(QEvent::KeyPress, Qt::Key_S);
    key(QEvent::KeyRelease, Qt::Key_S, {}, true);
    EXPECT_TRUE(Main.anyBusy()) << "a repeated key is still down";
    key(QEvent::KeyRelease, Qt::Key_S);
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(window.rebuilds, 1) << "by the release alone: the key itself was ignored";
}

TEST_F(DrawAreaEvents, AKeyHeldWhenTheFocusGoesIsForgotten) {
    key(QEvent::KeyPress, Qt::Key_S);
    QFocusEvent away(QEvent::FocusOut);
    QApplication::sendEvent(&widget, &away);
    bench.forget();
    Main.menuClicked(Control::InsRem);
    key(QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_TRUE(Main.pointer.ctrlkey);
}

TEST_F(DrawAreaEvents, WhatKeyAShowsStandsWhenTheKeyComesUp) {
    Main.setChecked(Control::LockZoom, false);
    Main.initSideView();
    const double whole = Main.view.zoom;
    key(QEvent::KeyPress, Qt::Key_A);
    const double section = Main.view.zoom;
    ASSERT_NE(section, whole);
    key(QEvent::KeyRelease, Qt::Key_A);
    move({250, 240}, Qt::NoButton);
    EXPECT_EQ(Main.view.zoom, section);
    Main.refreshDrawingArea();
    EXPECT_EQ(Main.view.zoom, whole) << "until the next redraw that fits";
}

TEST_F(DrawAreaEvents, AHeldShiftShowsTheWayOfTheDragAtEveryPixel) {
    move({250, 240}, Qt::NoButton, Qt::ShiftModifier);
    for (double y : {241, 242, 243}) {
        move({250, y}, Qt::NoButton, Qt::ShiftModifier);
        EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast) << y;
    }
}

TEST_F(DrawAreaEvents, AnUnknownKeyGoesOnToTheWindow) {
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(&widget, &escape);
    EXPECT_FALSE(escape.isAccepted());
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_C, {});
    QApplication::sendEvent(&widget, &letter);
    EXPECT_TRUE(letter.isAccepted());
}

TEST_F(DrawAreaEvents, TheWheelAndAPinchZoomAboutThePointer) {
    const QPointF place(250, 240);
    const Point2D before = under(place);
    wheel(place, {0, 120});
    EXPECT_NEAR(Main.view.zoom, std::pow(2, 0.25), 1e-12);
    wheel(place, {0, 3 * 120});
    EXPECT_NEAR(Main.view.zoom, 2, 1e-12);
    wheel(place, {0, -15});
    EXPECT_LT(Main.view.zoom, 2) << "a wheel without notches";
    pinch(place, 0.5);
    EXPECT_GT(Main.view.zoom, 2.9);
    pinch(place, -0.25);
    EXPECT_NEAR(under(place).x, before.x, 1e-9);
    EXPECT_NEAR(under(place).y, before.y, 1e-9);
    pinch(place, -1);
    pinch(place, -40);
    EXPECT_GT(Main.view.zoom, 2);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(DrawAreaEvents, AWheelTurnedSidewaysPans) {
    wheel({250, 240}, {120, 0});
    EXPECT_EQ(Main.view.xoff, 110);
    EXPECT_EQ(Main.view.yoff, 300);
    wheel({250, 240}, {-240, 0});
    EXPECT_EQ(Main.view.xoff, -10);
    EXPECT_EQ(Main.view.zoom, 1);
}

TEST_F(DrawAreaEvents, TheWheelWaitsForAButtonAndForTheDemonstration) {
    wheel({250, 240}, {0, 120}, Qt::LeftButton);
    EXPECT_EQ(Main.view.zoom, 1);
    program.helper.running = true;
    wheel({250, 240}, {120, 120});
    pinch({250, 240}, 0.5);
    EXPECT_EQ(Main.view.zoom, 1);
    EXPECT_EQ(Main.view.xoff, 50);
}

TEST_F(DrawAreaEvents, TheStripIsAskedForAfterEachEventAndForgetsAPointerThatLeaves) {
    int asked = 0;
    widget.afterInput = [&asked] { ++asked; };
    move({300, 100}, Qt::NoButton);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(widget.reading(), "x 250.00  z 200.00 mm");
    wheel({300, 100}, {0, 120});
    EXPECT_EQ(asked, 2);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget, &leave);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(widget.reading(), "");
}

TEST_F(DrawAreaEvents, WhatIsDraggedComesFirstInTheReading) {
    press({250, 240});
    move({250, 200}, Qt::LeftButton);
    EXPECT_EQ(widget.reading(), "Section elevation 50.00 mm, +40.00; x 200.00  z 100.00 mm");
    mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, {250, 200});
}

}  // namespace
}  // namespace velna
