// A further window of the program stands where it was left.

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <memory>

#include <gtest/gtest.h>

#include "shell/Settings.h"
#include "shell/qt/KeptPlace.h"

namespace velna {
namespace {

class KeptPlaceTest : public testing::Test {
protected:
    /// A window of its own, in a start of the program of its own.
    struct Start {
        QWidget window;
        KeptPlace* kept;

        explicit Start(Settings& settings) : kept(new KeptPlace(window, settings, "sheet")) {
            window.setGeometry(40, 60, 200, 150);
        }
        void open() {
            window.show();
            QEvent up(QEvent::WindowActivate);
            QApplication::sendEvent(&window, &up);
        }
        QRect place() const { return window.geometry(); }
    };

    Settings settings;
};

TEST_F(KeptPlaceTest, AWindowThatWasMovedComesBackThere) {
    const QRect left(100, 90, 320, 240);
    {
        Start first(settings);
        EXPECT_FALSE(first.kept->restore());
        first.open();
        first.window.setGeometry(left);
        first.window.hide();
    }
    Start second(settings);
    ASSERT_TRUE(second.kept->restore());
    EXPECT_EQ(second.place(), left);
}

TEST_F(KeptPlaceTest, OneThatWasNotTouchedStaysTheProgramsToPlace) {
    Start start(settings);
    start.open();
    start.window.hide();
    EXPECT_FALSE(start.kept->restore());
}

TEST_F(KeptPlaceTest, WhatTheDesktopDoesBeforeTheWindowIsUpIsNoWish) {
    Start start(settings);
    start.window.show();
    start.window.move(300, 200);
    start.window.hide();
    EXPECT_FALSE(start.kept->restore());
}

TEST_F(KeptPlaceTest, TheEndOfTheProgramCountsAsAClose) {
    {
        auto start = std::make_unique<Start>(settings);
        start->open();
        start->window.setGeometry(70, 80, 200, 150);
    }
    Start next(settings);
    EXPECT_TRUE(next.kept->restore());
    EXPECT_EQ(next.place(), QRect(70, 80, 200, 150));
}

TEST_F(KeptPlaceTest, APlaceThatNoScreenShowsDoesNotCount) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int right = screen.right(), bottom = screen.bottom();
    for (const QString& told :
         {QString("%1 100 300 200").arg(right - 20), QString("100 %1 300 200").arg(bottom - 20),
          QString("100 -40 300 200"), QString("-280 100 300 200"), QString("100 100 0 0"),
          QString("100 100 -300 -200"), QString("100 100 300"), QString("9999999999 1 1 1"),
          QString("2147483647 1 2147483647 -2147483648"), QString("left")}) {
        ASSERT_TRUE(settings.store("place-sheet", {told.toStdString()}).isDone());
        Start start(settings);
        EXPECT_FALSE(start.kept->restore()) << told.toStdString();
        EXPECT_EQ(start.place(), QRect(40, 60, 200, 150));
    }
}

}  // namespace
}  // namespace velna
