#include <gtest/gtest.h>

#include "common/List.h"

namespace velna {
namespace {

/// Makes whole numbers and counts them.
struct Maker {
    int value;
    int* made;

    std::unique_ptr<int> operator()() const {
        ++*made;
        return std::make_unique<int>(value);
    }
};

TEST(OwnedList, MakesAPromisedEntryWhenItIsFirstAskedFor) {
    int made = 0;
    OwnedList<int> list;
    list.fill(32767, Maker{7, &made});
    EXPECT_EQ(list.size(), 32767);
    EXPECT_EQ(made, 0);
    EXPECT_EQ(list(32767), 7);
    EXPECT_EQ(list(32767), 7);
    EXPECT_EQ(made, 1);
}

TEST(OwnedList, KeepsEntriesAndFillsUpWhenItGrows) {
    int made = 0;
    OwnedList<int> list;
    list.fill(2, Maker{1, &made});
    list(1) = 5;
    list.resize(4, Maker{9, &made});
    EXPECT_EQ(list(1), 5);
    EXPECT_EQ(list(4), 9);
}

TEST(OwnedList, APromisedEntryBelongsToTheMakerThatPromisedIt) {
    for (const int size : {2, 3, 5}) {
        int made = 0;
        OwnedList<int> list;
        list.fill(3, Maker{1, &made});
        list.resize(size, Maker{9, &made});
        EXPECT_EQ(list(2), 1) << size;
    }
}

TEST(OwnedList, AnEntryPutInASlotReplacesWhatWasThere) {
    int made = 0;
    OwnedList<int> list;
    list.fill(2, Maker{1, &made});
    list.put(2, std::make_unique<int>(3));
    EXPECT_EQ(list(2), 3);
    EXPECT_EQ(made, 0);
}

TEST(OwnedList, OneObjectStandsForAllThatIsOnlyPromised) {
    int made = 0;
    OwnedList<int> list;
    list.fill(32767, Maker{7, &made});
    list(2) = 5;
    EXPECT_EQ(list.alike(1), 7);
    EXPECT_EQ(&list.alike(1), &list.alike(32767));
    EXPECT_EQ(list.alike(2), 5);
    EXPECT_EQ(made, 2);
    std::vector<int> seen;
    list.forEachDistinct(32767, [&](int entry) { seen.push_back(entry); });
    EXPECT_EQ(seen, (std::vector<int>{7, 5}));
    EXPECT_EQ(made, 2);
    // What is done to it reaches no entry.
    list.alike(3) = 1;
    EXPECT_EQ(list(3), 7);
}

TEST(OwnedList, DistinctEntriesAreThoseThatAreWanted) {
    int made = 0;
    OwnedList<int> list;
    list.fill(6, Maker{7, &made});
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

TEST(OwnedList, ANewPromiseHasAnotherObjectToStandForIt) {
    int made = 0;
    OwnedList<int> list;
    list.fill(3, Maker{7, &made});
    EXPECT_EQ(list.alike(2), 7);
    list.fill(3, Maker{8, &made});
    EXPECT_EQ(list.alike(2), 8);
    list.resize(5, Maker{9, &made});
    EXPECT_EQ(list.alike(2), 8);
    EXPECT_EQ(list.alike(5), 9);
}

}  // namespace
}  // namespace velna
