#include <gtest/gtest.h>

#include "editor/History.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "support/SameAircraft.h"

namespace velna::test {
namespace {

class HistoryTest : public ::testing::Test {
protected:
    HistoryTest() {
        Plane::setDefaultPlane(aircraft);
        history.begin(aircraft, true);
    }
    void edit(double span, const std::string& name = "Span", unsigned visit = 0) {
        editIn(history, span, name, visit);
    }
    void editIn(History& in, double span, const std::string& name = "Span", unsigned visit = 0) {
        in.open(aircraft);
        in.name(name);
        aircraft.Wings(1).span = span;
        in.close(aircraft, visit);
    }
    double span() const { return aircraft.Wings(1).span; }

    Project aircraft;
    History history;
    std::string file = "/in/hand.vln";
};

TEST_F(HistoryTest, GoesBackAndForthThroughEveryStep) {
    const Project start = aircraft;
    edit(100, "First");
    edit(200, "Second");
    EXPECT_EQ(*history.undoName(), "Second");
    EXPECT_EQ(history.redoName(), nullptr);
    ASSERT_TRUE(history.undo(aircraft, file));
    EXPECT_EQ(span(), 100);
    EXPECT_EQ(*history.undoName(), "First");
    EXPECT_EQ(*history.redoName(), "Second");
    ASSERT_TRUE(history.undo(aircraft, file));
    EXPECT_EQ(aircraft, start);
    EXPECT_FALSE(history.undo(aircraft, file));
    EXPECT_EQ(aircraft, start);
    ASSERT_TRUE(history.redo(aircraft, file));
    ASSERT_TRUE(history.redo(aircraft, file));
    EXPECT_EQ(span(), 200);
    EXPECT_FALSE(history.redo(aircraft, file));
    EXPECT_EQ(span(), 200);
}

TEST_F(HistoryTest, AGestureThatChangesNothingMakesNoStep) {
    edit(span());
    EXPECT_EQ(history.stepCount(), 0U);
    EXPECT_EQ(history.undoName(), nullptr);
}

TEST_F(HistoryTest, WhatIsOnlyChosenMakesNoStep) {
    history.open(aircraft);
    aircraft.nbWings = aircraft.nbWings;
    aircraft.currentWing = 2;
    aircraft.Fuselages(1).sel_sec = 3;
    aircraft.currentEquipment = 1;
    history.close(aircraft);
    EXPECT_EQ(history.stepCount(), 0U);
}

TEST_F(HistoryTest, AnotherEditForgetsWhatCouldBeMadeAgain) {
    edit(100);
    edit(200);
    history.undo(aircraft, file);
    edit(300);
    EXPECT_EQ(history.redoName(), nullptr);
    EXPECT_EQ(history.stepCount(), 2U);
    history.undo(aircraft, file);
    EXPECT_EQ(span(), 100);
}

TEST_F(HistoryTest, NestedGesturesAreOneStepUnderTheFirstName) {
    history.open(aircraft);
    history.name("Outer");
    edit(100, "Outer");
    aircraft.Rudder.span = 77;
    EXPECT_TRUE(history.isOpen());
    EXPECT_FALSE(history.undo(aircraft, file)) << "in mid-gesture";
    history.close(aircraft);
    EXPECT_EQ(history.stepCount(), 1U);
    EXPECT_EQ(*history.undoName(), "Outer");
}

TEST_F(HistoryTest, StepsOfOneVisitAreOneAndVanishWhereItEndsAsItBegan) {
    const double start = span();
    const unsigned visit = history.newVisit();
    edit(100, "Span", visit);
    edit(101, "Span", visit);
    EXPECT_EQ(history.stepCount(), 1U);
    edit(start, "Span", visit);
    EXPECT_EQ(history.stepCount(), 0U);
    edit(102, "Span", visit);
    edit(103, "Span", history.newVisit());
    EXPECT_EQ(history.stepCount(), 2U);
}

TEST_F(HistoryTest, AVisitGoesOnInAStepOfItsOwnAfterASaveOrAnUndo) {
    const unsigned visit = history.newVisit();
    edit(100, "Span", visit);
    history.noteSaved();
    edit(101, "Span", visit);
    ASSERT_EQ(history.stepCount(), 2U);
    history.undo(aircraft, file);
    EXPECT_TRUE(history.atSaved());
    EXPECT_EQ(span(), 100);
}

TEST_F(HistoryTest, TheSavedStateIsFoundAgain) {
    EXPECT_TRUE(history.atSaved());
    edit(100);
    EXPECT_FALSE(history.atSaved());
    history.noteSaved();
    edit(200);
    history.undo(aircraft, file);
    EXPECT_TRUE(history.atSaved());
    history.undo(aircraft, file);
    EXPECT_FALSE(history.atSaved());
    edit(300);
    EXPECT_FALSE(history.atSaved()) << "what was saved has gone with the steps to make again";
    history.undo(aircraft, file);
    EXPECT_FALSE(history.atSaved());
}

TEST_F(HistoryTest, TheChoiceOfTheStepComesBackWhereItExists) {
    aircraft.nbWings = 1;
    history.begin(aircraft, true);
    history.open(aircraft);
    aircraft.Fuselages(1).sel_sec = 2;
    aircraft.Fuselages(1).height(1) += 5;
    history.close(aircraft);
    aircraft.Fuselages(1).sel_sec = 3;
    history.undo(aircraft, file);
    EXPECT_EQ(aircraft.Fuselages(1).sel_sec, 2) << "the section that the step was about";
    aircraft.Fuselages(1).sel_sec = 1;
    history.redo(aircraft, file);
    EXPECT_EQ(aircraft.Fuselages(1).sel_sec, 2);
}

TEST_F(HistoryTest, ARemovedSectionIsChosenAgain) {
    aircraft.Fuselages(1).sel_sec = 3;
    history.open(aircraft);
    aircraft.Fuselages(1).removeSection();
    aircraft.Fuselages(1).sel_sec = 2;
    history.close(aircraft);
    ASSERT_EQ(history.stepCount(), 1U);
    history.undo(aircraft, file);
    EXPECT_EQ(aircraft.Fuselages(1).sel_sec, 3);
    history.redo(aircraft, file);
    EXPECT_EQ(aircraft.Fuselages(1).sel_sec, 2);
}

TEST_F(HistoryTest, AnotherAircraftBringsBackOneThatWasNotSaved) {
    edit(100);
    const Project former = aircraft;
    history.open(aircraft);
    Project other;
    Plane::setDefaultPlane(other);
    aircraft = other;
    history.replace("New", aircraft, false, {false, "/former.vln"});
    file = "";
    history.close(aircraft);
    EXPECT_EQ(history.stepCount(), 1U);
    EXPECT_EQ(*history.undoName(), "New");
    history.undo(aircraft, file);
    EXPECT_EQ(aircraft, former);
    EXPECT_FALSE(history.atSaved());
    EXPECT_EQ(file, "/former.vln");
    EXPECT_FALSE(history.undo(aircraft, file)) << "the history has begun anew";
    history.redo(aircraft, file);
    EXPECT_EQ(file, "");
    EXPECT_TRUE(sameAircraft(aircraft, other));
}

TEST_F(HistoryTest, AnotherAircraftForgetsOneThatWasSaved) {
    edit(100);
    history.open(aircraft);
    aircraft.Wings(1).span = 5;
    history.replace("Open", aircraft, true, {true, "/former.vln"});
    history.close(aircraft);
    EXPECT_EQ(history.stepCount(), 0U);
    EXPECT_TRUE(history.atSaved());
    edit(6);
    history.undo(aircraft, file);
    EXPECT_EQ(span(), 5);
    EXPECT_TRUE(history.atSaved());
}

TEST_F(HistoryTest, AGestureThatIsGivenUpLeavesTheAircraftOfTheLastStep) {
    edit(100);
    edit(200);
    const Project last = aircraft;
    history.open(aircraft);
    history.open(aircraft);
    aircraft.Wings(1).span = 300;
    aircraft.nbEquipments = 7;
    history.leave();
    history.giveUp(aircraft);
    EXPECT_EQ(aircraft, last);
    EXPECT_FALSE(history.isOpen());
    EXPECT_EQ(history.stepCount(), 2U);
    ASSERT_TRUE(history.undo(aircraft, file));
    EXPECT_EQ(span(), 100);
}

TEST_F(HistoryTest, WhatIsChosenStaysWhereItIsThereAfterAGestureIsGivenUp) {
    history.open(aircraft);
    aircraft.Fuselages(1).sel_sec = 2;
    aircraft.nbWings = aircraft.currentWing = 5;
    history.giveUp(aircraft);
    EXPECT_EQ(aircraft.Fuselages(1).sel_sec, 2);
    EXPECT_EQ(aircraft.currentWing, 1);
}

TEST_F(HistoryTest, WithoutStatesThereIsNothingToGoBackToWhenAGestureIsGivenUp) {
    History none;
    none.open(aircraft);
    aircraft.Wings(1).span = 300;
    none.giveUp(aircraft);
    EXPECT_EQ(span(), 300);
    EXPECT_FALSE(none.isOpen());
}

TEST_F(HistoryTest, TheOldestStepsGoWhenTheStatesHoldTooMuch) {
    const std::size_t one = history.bytes();
    History small(3 * one + one / 2);
    small.begin(aircraft, true);
    for (int i = 1; i <= 10; ++i) editIn(small, i);
    EXPECT_EQ(small.stepCount(), 2U);
    EXPECT_LE(small.bytes(), 3 * one + one / 2);
    while (small.undo(aircraft, file)) EXPECT_FALSE(small.atSaved());
    EXPECT_EQ(span(), 8);
    while (small.redo(aircraft, file)) {
    }
    EXPECT_EQ(span(), 10);
}

TEST_F(HistoryTest, EveryPartCountsInTheRoomThatAStateTakes) {
    const auto room = [&] {
        history.begin(aircraft, true);
        return history.bytes();
    };
    constexpr std::int16_t points = 10'000;
    const std::size_t plain = room();
    for (SymWingSections* wing : {&aircraft.Wings(1), &aircraft.Stabilizer}) {
        const std::size_t before = room();
        wing->nb = points;
        wing->allocate();
        EXPECT_GE(room(), before + (points - 100) * sizeof(Point3D));
    }
    const std::size_t winged = room();
    aircraft.Fuselages(1).nb_sections = points;
    aircraft.Fuselages(1).initArrays();
    EXPECT_GE(room(), winged + (points - 100) * 7 * sizeof(double));
    Plane::setDefaultPlane(aircraft);
    EXPECT_LT(room(), plain + 1000);
}

TEST_F(HistoryTest, AnAircraftLargerThanAllRoomHasNoStepsAndLosesNothing) {
    History none(1);
    none.begin(aircraft, true);
    editIn(none, 1);
    editIn(none, 2);
    EXPECT_EQ(none.stepCount(), 0U);
    EXPECT_FALSE(none.undo(aircraft, file));
    EXPECT_EQ(span(), 2);
}

TEST_F(HistoryTest, TheSavedStateIsKnownWhereOldOnesHaveGone) {
    History small(history.bytes() * 3);
    small.begin(aircraft, false);
    editIn(small, 1);
    editIn(small, 2);
    small.noteSaved();
    editIn(small, 3);
    small.undo(aircraft, file);
    EXPECT_EQ(span(), 2);
    EXPECT_TRUE(small.atSaved());
}

TEST_F(HistoryTest, WhatNoGestureHasChangedIsAStepBeforeItIsTakenBack) {
    edit(100);
    aircraft.Rudder.span = 12;
    ASSERT_TRUE(history.undo(aircraft, file));
    EXPECT_NE(aircraft.Rudder.span, 12);
    EXPECT_EQ(span(), 100);
    ASSERT_TRUE(history.redo(aircraft, file));
    EXPECT_EQ(aircraft.Rudder.span, 12);
}

TEST_F(HistoryTest, WhatACommandAmendsIsNoStep) {
    edit(100);
    aircraft.Rudder.texture_filename = "tail-2.bmp";
    history.amend(aircraft);
    EXPECT_EQ(history.stepCount(), 1U);
    history.undo(aircraft, file);
    history.redo(aircraft, file);
    EXPECT_EQ(aircraft.Rudder.texture_filename, "tail-2.bmp");
}

TEST_F(HistoryTest, PromisedEntriesArePromisedStill) {
    aircraft.nbFuselages = 32767;
    aircraft.Fuselages.fill(32767, MeshSections(millimetres, {1, 2, 3}));
    history.begin(aircraft, true);
    EXPECT_LT(history.bytes(), 1U << 20);
    edit(100);
    history.undo(aircraft, file);
    EXPECT_TRUE(aircraft.Fuselages.promised(32767));
    EXPECT_LT(history.bytes(), 2U << 20);
}

TEST_F(HistoryTest, TwoHundredStepsOfTheDefaultAircraftHoldLessThanTenMegabytes) {
    for (int i = 1; i <= 200; ++i) edit(i);
    EXPECT_EQ(history.stepCount(), 200U);
    EXPECT_LT(history.bytes(), 10'000'000U);
}

TEST(HistoryBefore, NothingIsBegunWithTheFirstGesture) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    History history;
    std::string file;
    EXPECT_FALSE(history.undo(aircraft, file));
    history.open(aircraft);
    aircraft.Wings(1).span = 4;
    history.close(aircraft);
    EXPECT_EQ(history.stepCount(), 0U);
    EXPECT_FALSE(history.redo(aircraft, file));
}

}  // namespace
}  // namespace velna::test
