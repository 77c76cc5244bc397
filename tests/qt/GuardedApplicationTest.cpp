#include <QEvent>
#include <QObject>
#include <new>

#include <gtest/gtest.h>

#include "shell/qt/GuardedApplication.h"

namespace velna::test {
namespace {

/// What needs more memory for each event than there is.
class Greedy : public QObject {
public:
    bool event(QEvent* /*event*/) override { throw std::bad_alloc(); }
};

/// What has another object do its event within its own.
class Outer : public QObject {
public:
    explicit Outer(QObject& inner, const int& told) : inner_(inner), told_(told) {}
    bool event(QEvent* /*event*/) override {
        QEvent another(QEvent::User);
        QCoreApplication::sendEvent(&inner_, &another);
        toldMeanwhile = told_;
        return true;
    }
    int toldMeanwhile = -1;

private:
    QObject& inner_;
    const int& told_;
};

class GuardedApplicationTest : public ::testing::Test {
protected:
    void SetUp() override {
        application.whenMemoryEnds = [this] { ++told; };
    }
    void TearDown() override {
        application.whenMemoryEnds = [] {};
    }
    static bool happens(QObject& object) {
        QEvent event(QEvent::User);
        return QCoreApplication::sendEvent(&object, &event);
    }
    GuardedApplication& application = dynamic_cast<GuardedApplication&>(*qApp);
    Greedy greedy;
    int told = 0;
};

TEST_F(GuardedApplicationTest, OutlivesAnEventForWhichThereIsNoMemory) {
    EXPECT_TRUE(happens(greedy));
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(happens(greedy));
    EXPECT_EQ(told, 2);
}

TEST_F(GuardedApplicationTest, WaitsForTheEndOfTheEventThatAnotherIsIn) {
    Outer outer(greedy, told);
    EXPECT_TRUE(happens(outer));
    EXPECT_EQ(outer.toldMeanwhile, 0);
    EXPECT_EQ(told, 1);
}

TEST_F(GuardedApplicationTest, GuardsWhatIsNoEvent) {
    application.guard([&] {
        happens(greedy);
        EXPECT_EQ(told, 0);
        throw std::bad_alloc();
    });
    EXPECT_EQ(told, 1);
    application.guard([] {});
    EXPECT_EQ(told, 1);
}

TEST_F(GuardedApplicationTest, WhatEndsMemoryWhileThatIsToldIsToldInItsTurn) {
    application.whenMemoryEnds = [&] {
        if (++told == 1) happens(greedy);
    };
    happens(greedy);
    EXPECT_EQ(told, 1);
    application.guard([] {});
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace velna::test
