// The pointer over the picture, as the toolkit tells of it.

#include <QApplication>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "shell/qt/RenderWindow.h"
#include "support/ProgramInHand.h"

namespace velna {
namespace {

class Picture : public testing::Test {
protected:
    void SetUp() override {
        renewProgram();
        program.rendering.setViewTransform(0, 0, 0, 900, 450);
    }

    void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, at, at, button, held, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }
    void pinch(double value) {
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                  2, {}, {}, {}, value, {});
        QApplication::sendEvent(&window, &event);
    }
    void wheel(QPoint angle) {
        QWheelEvent event({}, {}, {}, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&window, &event);
    }

    RenderWindow window{program.rendering, program.renderPointer};
};

TEST_F(Picture, AReleaseThatADialogTookIsMadeUpForAtTheNextMove) {
    mouse(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, {40, 30}, Qt::NoButton, Qt::LeftButton);
    ASSERT_TRUE(program.rendering.rotating);
    mouse(QEvent::MouseMove, {200, 200}, Qt::NoButton, Qt::NoButton);
    EXPECT_FALSE(program.rendering.rotating);
    EXPECT_EQ(program.rendering.renderSpin, 930) << "where the drag was last";
    EXPECT_EQ(program.rendering.renderTilt, 470);
}

TEST_F(Picture, MovesWithoutAButtonTurnNothing) {
    mouse(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, {20, 10}, Qt::LeftButton, Qt::NoButton);
    mouse(QEvent::MouseMove, {90, 90}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(program.rendering.renderSpin, 910);
    EXPECT_EQ(program.rendering.renderTilt, 450);
}

TEST_F(Picture, APinchOutwardsAndAWheelTurnedAwayComeNearer) {
    pinch(0.5);
    EXPECT_EQ(program.rendering.renderDistance, -100);
    pinch(-0.5);
    EXPECT_EQ(program.rendering.renderDistance, 0);
    wheel({0, 120});
    EXPECT_EQ(program.rendering.renderDistance, -20);
    wheel({120, 0});
    EXPECT_EQ(program.rendering.renderDistance, -20);
}

}  // namespace
}  // namespace velna
