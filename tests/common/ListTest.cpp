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

}  // namespace
}  // namespace velna
