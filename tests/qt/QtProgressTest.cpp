#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>

#include <gtest/gtest.h>

#include "shell/qt/QtProgress.h"

namespace velna {
namespace {

QProgressDialog* shownBar() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* bar = qobject_cast<QProgressDialog*>(window); bar && bar->isVisible()) return bar;
    return nullptr;
}

class Progressing : public testing::Test {
protected:
    ~Progressing() override { watcher.finish(); }

    QtProgress watcher;
};

TEST_F(Progressing, ABarComesAfterASecondAndItsCancelEndsTheWork) {
    EXPECT_TRUE(watcher.step(1, 100));
    EXPECT_EQ(shownBar(), nullptr);
    QThread::msleep(1050);
    EXPECT_TRUE(watcher.step(50, 100));
    QProgressDialog* bar = shownBar();
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->isModal());
    EXPECT_NEAR(bar->value(), bar->maximum() / 2, 1);

    auto* cancel = bar->findChild<QPushButton*>();
    ASSERT_NE(cancel, nullptr);
    cancel->click();
    QThread::msleep(60);  // events are looked at now and then
    EXPECT_FALSE(watcher.step(51, 100));
    // The jobs behind the cancelled one end too.
    EXPECT_FALSE(watcher.step(1, 100));

    watcher.finish();
    EXPECT_EQ(shownBar(), nullptr);
    // The next command starts anew.
    EXPECT_TRUE(watcher.step(1, 100));
    EXPECT_EQ(shownBar(), nullptr);
}

TEST_F(Progressing, WorkWithoutPartsShowsTheBarAndTakesItsCancelToo) {
    EXPECT_TRUE(watcher.stillAtWork());
    EXPECT_EQ(shownBar(), nullptr);
    QThread::msleep(1050);
    EXPECT_TRUE(watcher.stillAtWork());
    QProgressDialog* bar = shownBar();
    ASSERT_NE(bar, nullptr);
    const int value = bar->value();
    QThread::msleep(60);
    EXPECT_TRUE(watcher.stillAtWork());
    EXPECT_EQ(bar->value(), value);
    bar->cancel();
    QThread::msleep(60);
    EXPECT_FALSE(watcher.stillAtWork());
    EXPECT_FALSE(watcher.step(1, 2));
}

TEST_F(Progressing, AnEstimateThatWasTooLowOrNoneDoesNotCloseTheBar) {
    EXPECT_TRUE(watcher.step(1, 0));
    QThread::msleep(1050);
    for (const long long total : {0, 10}) {
        EXPECT_TRUE(watcher.step(20, total));
        EXPECT_NE(shownBar(), nullptr);
        QThread::msleep(60);
    }
}

}  // namespace
}  // namespace velna
