#include <limits>
#include <stdexcept>
#include <utility>

#include <gtest/gtest.h>

#include "common/List.h"
#include "common/Point.h"

namespace velna {
namespace {

/// A number that counts its copies.
struct Counted {
    int value;
    int* made;

    Counted(int number, int* copies) : value(number), made(copies) {}
    Counted(const Counted& other) : value(other.value), made(other.made) { ++*made; }
    Counted& operator=(const Counted&) = default;
    friend bool operator==(const Counted& one, const Counted& other) {
        return one.value == other.value;
    }
};

TEST(OwnedList, MakesAPromisedEntryWhenItIsFirstAskedForToBeChanged) {
    int made = 0;
    OwnedList<Counted> list;
    list.fill(32767, Counted(7, &made));
    const int forThePattern = made;
    EXPECT_EQ(list.size(), 32767);
    EXPECT_EQ(list(32767).value, 7);
    EXPECT_EQ(list(32767).value, 7);
    EXPECT_EQ(made, forThePattern + 1);
}

TEST(OwnedList, WhoOnlyLooksMakesNoEntry) {
    int made = 0;
    OwnedList<Counted> list;
    list.fill(32767, Counted(7, &made));
    const int forThePattern = made;
    const auto& looked = list;
    for (int i = 1; i <= looked.size(); ++i) EXPECT_EQ(looked(i).value, 7);
    int visited = 0;
    looked.forEachDistinct(32767, [&](const Counted&) { ++visited; });
    EXPECT_EQ(visited, 1);
    EXPECT_EQ(made, forThePattern);
    EXPECT_TRUE(looked.promised(32767));
}

TEST(OwnedList, KeepsEntriesAndFillsUpWhenItGrows) {
    OwnedList<int> list;
    list.fill(2, 1);
    list(1) = 5;
    list.resize(4, 9);
    EXPECT_EQ(list(1), 5);
    EXPECT_EQ(list(2), 1);
    EXPECT_EQ(list(4), 9);
}

TEST(OwnedList, APromisedEntryBelongsToThePatternThatPromisedIt) {
    for (const int size : {2, 3, 5}) {
        OwnedList<int> list;
        list.fill(3, 1);
        list.resize(size, 9);
        EXPECT_EQ(list(2), 1) << size;
    }
}

TEST(OwnedList, AnEntryPutInASlotReplacesWhatWasThere) {
    OwnedList<int> list;
    list.fill(2, 1);
    list.put(2, 3);
    EXPECT_EQ(list(2), 3);
    EXPECT_TRUE(list.promised(1));
}

TEST(OwnedList, OneObjectStandsForAllThatIsOnlyPromised) {
    OwnedList<int> list;
    list.fill(32767, 7);
    list(2) = 5;
    EXPECT_EQ(list.alike(1), 7);
    EXPECT_EQ(&list.alike(1), &list.alike(32767));
    EXPECT_EQ(list.alike(2), 5);
    std::vector<int> seen;
    list.forEachDistinct(32767, [&](int entry) { seen.push_back(entry); });
    EXPECT_EQ(seen, (std::vector<int>{7, 5}));
    // What is done to it reaches no entry.
    list.alike(3) = 1;
    EXPECT_EQ(list(3), 7);
}

TEST(OwnedList, DistinctEntriesAreThoseThatAreWanted) {
    OwnedList<int> list;
    list.fill(6, 7);
    list(1) = 1;
    list(5) = 5;
    std::vector<int> places;
    const auto note = [&](int i, int) { places.push_back(i); };
    list.forEachDistinct(
        6, [](int) { return true; }, note);
    EXPECT_EQ(places, (std::vector<int>{1, 2, 5}));
    places.clear();
    list.forEachDistinct(
        6, [](int i) { return i > 2 && i != 5; }, note);
    EXPECT_EQ(places, (std::vector<int>{3}));
    places.clear();
    // No further than there are entries.
    list.forEachDistinct(
        100, [](int i) { return i == 5; }, note);
    EXPECT_EQ(places, (std::vector<int>{5}));
}

TEST(OwnedList, ACopyHasItsOwnObjectToStandForWhatItPromises) {
    OwnedList<int> list;
    list.fill(3, 7);
    EXPECT_EQ(list.alike(1), 7);
    OwnedList<int> other;
    other.fill(3, 9);
    list = other;
    EXPECT_EQ(list.alike(1), 9);
}

TEST(OwnedList, ANewPromiseHasAnotherObjectToStandForIt) {
    OwnedList<int> list;
    list.fill(3, 7);
    EXPECT_EQ(list.alike(2), 7);
    list.fill(3, 8);
    EXPECT_EQ(list.alike(2), 8);
    list.resize(5, 9);
    EXPECT_EQ(list.alike(2), 8);
    EXPECT_EQ(list.alike(5), 9);
}

TEST(OwnedList, ACopyIsWholeAndStandsByItself) {
    OwnedList<int> list;
    list.fill(4, 7);
    list(2) = 5;
    OwnedList<int> copy = list;
    EXPECT_EQ(copy, list);
    EXPECT_TRUE(copy.promised(4)) << "what is promised stays promised";
    copy(4) = 1;
    EXPECT_NE(copy, list);
    EXPECT_EQ(list(4), 7);
    list(2) = 6;
    EXPECT_EQ(copy(2), 5);
    copy = list;
    EXPECT_EQ(copy, list);
}

TEST(OwnedList, ListsAreEqualByTheirEntriesHoweverTheyCameToThem) {
    OwnedList<int> promised;
    promised.fill(3, 7);
    OwnedList<int> made;
    made.fill(3, 1);
    for (int i = 1; i <= 3; ++i) made(i) = 7;
    EXPECT_EQ(promised, made);
    made(3) = 8;
    EXPECT_NE(promised, made);
    OwnedList<int> shorter;
    shorter.fill(2, 7);
    EXPECT_NE(promised, shorter);
}

TEST(NumberedList, AnObjectStaysWhereItIsWhenMoreAreAskedFor) {
    NumberedList<int> list;
    int& first = list(1);
    first = 5;
    list(1000) = 1;
    EXPECT_EQ(&first, &list(1));
    EXPECT_EQ(list.size(), 1000);
    list.renew(1);
    EXPECT_EQ(first, 0);
    list.clear();
    EXPECT_EQ(list.size(), 0);
}

TEST(Array2, HasNoBoundsWhereItsEntriesHaveBeenMovedAway) {
    Array2<int> grid;
    grid.allocate(2, 3);
    grid(2, 3) = 5;
    const Array2<int> copy = grid;
    Array2<int> taken = std::move(grid);
    EXPECT_EQ(copy.rows(), 2);
    EXPECT_EQ(taken.rows(), 2);
    EXPECT_EQ(taken.columns(), 3);
    EXPECT_EQ(taken(2, 3), 5);
    EXPECT_EQ(grid.rows(), -1);
    EXPECT_EQ(grid.columns(), -1);
    grid = std::move(taken);
    EXPECT_EQ(grid.rows(), 2);
    EXPECT_EQ(taken.rows(), -1);
}

TEST(Array2, KeepsItsBoundsWhereThereIsNoRoomForLargerOnes) {
    Array2<Point3D> grid;
    grid.allocate(2, 3);
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_THROW(grid.allocate(most, most), std::length_error);
    EXPECT_EQ(grid.rows(), 2);
    EXPECT_EQ(grid.columns(), 3);
}

}  // namespace
}  // namespace velna
