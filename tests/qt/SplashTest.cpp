#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include "shell/qt/Splash.h"

namespace velna {
namespace {

/// The box around the pixels of `picture` above `limit` that are as dark as the logo.
QRect inked(const QImage& picture, int limit) {
    QRect box;
    for (int y = 2; y < limit; ++y)
        for (int x = 2; x < picture.width() - 2; ++x)
            if (picture.pixelColor(x, y).lightness() < 120) box |= QRect(x, y, 1, 1);
    return box;
}

TEST(Splash, SmallFontsEnlargeTheFormAndItsWordsButNotTheLogo) {
    Splash usual("Version 1", false);
    Splash larger("Version 1", true);
    EXPECT_EQ(usual.size(), QSize(420, 220));
    EXPECT_EQ(larger.size(), QSize(517, 271));
    const QRect logo = inked(usual.grab().toImage(), 140);
    EXPECT_GT(logo.width(), 100);
    EXPECT_EQ(inked(larger.grab().toImage(), 140), logo);
}

TEST(Splash, AKeyClosesIt) {
    Splash splash("Version 1", false);
    splash.show();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(&splash, &key);
    EXPECT_FALSE(splash.isVisible());
}

TEST(Splash, AClickClosesIt) {
    Splash splash("Version 1", false);
    splash.show();
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(9, 9), QPointF(9, 9), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&splash, &press);
    EXPECT_FALSE(splash.isVisible());
}

}  // namespace
}  // namespace velna
