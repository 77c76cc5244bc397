// The pointer over the picture, as the toolkit tells of it.

#include <QApplication>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "preview/Rendering.h"
#include "shell/qt/RenderWindow.h"

namespace velna {
namespace {

class Picture : public testing::Test {
protected:
    void SetUp() override {
        Rendering::reset();
        Rendering::setViewTransform(0, 0, 0, 900, 450);
    }
    void TearDown() override { Rendering::reset(); }

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

    RenderWindow window;
};

TEST_F(Picture, AReleaseThatADialogTookIsMadeUpForAtTheNextMove) {
    mouse(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, {40, 30}, Qt::NoButton, Qt::LeftButton);
    ASSERT_TRUE(Rendering::rotating);
    mouse(QEvent::MouseMove, {200, 200}, Qt::NoButton, Qt::NoButton);
    EXPECT_FALSE(Rendering::rotating);
    EXPECT_EQ(Rendering::renderSpin, 930) << "where the drag was last";
    EXPECT_EQ(Rendering::renderTilt, 470);
}

TEST_F(Picture, MovesWithoutAButtonTurnNothing) {
    mouse(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, {20, 10}, Qt::LeftButton, Qt::NoButton);
    mouse(QEvent::MouseMove, {90, 90}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(Rendering::renderSpin, 910);
    EXPECT_EQ(Rendering::renderTilt, 450);
}

TEST_F(Picture, APinchOutwardsAndAWheelTurnedAwayComeNearer) {
    pinch(0.5);
    EXPECT_EQ(Rendering::renderDistance, -100);
    pinch(-0.5);
    EXPECT_EQ(Rendering::renderDistance, 0);
    wheel({0, 120});
    EXPECT_EQ(Rendering::renderDistance, -20);
    wheel({120, 0});
    EXPECT_EQ(Rendering::renderDistance, -20);
}

}  // namespace
}  // namespace velna
