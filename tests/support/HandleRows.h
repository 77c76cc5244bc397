#pragma once

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/EditorInHand.h"

namespace velna::test {

/// A field that a drag changes, and by how much for a pointer 6 pixels to the right of the press
/// and 10 below it at 2 pixels a unit.
template <class Object>
struct FieldChange {
    double Object::*field;
    double by;
};

/// What one row of a table of handles promises.
template <class Object>
struct HandleRow {
    std::string name;
    int part;
    bool shift;
    std::vector<FieldChange<Object>> changes;
    std::vector<int> lit;  ///< highlighted segments
};

/// The transform and the press that the rows are told for.
inline void preparePress() {
    Main.view.zoom = 2;
    Main.view.xoff = 400;
    Main.view.yoff = 30;
    Main.pointer.xloc = 100;
    Main.pointer.yloc = 100;
}

/// Drags `object`, whose view `part` works, out and back: the fields of the row change by what it
/// says, every other one of `fields` keeps its bits, and back at the press all have the bits they
/// started with.
template <class Part, class Object, class Press, class Move>
void expectDrag(Part& part, Object& object, const HandleRow<Object>& row,
                const std::vector<double Object::*>& fields, Press press, Move move) {
    SCOPED_TRACE(row.name);
    preparePress();
    Main.pointer.shiftkey = row.shift;
    // Values that no drag can hit by chance, and that a sum would round.
    double value = 100.1;
    for (auto field : fields) object.*field = value = value * 1.1 + 0.3;
    const Object& now = object;
    std::vector<double> before;
    for (auto field : fields) before.push_back(now.*field);

    part.paint = row.part;
    press();
    move(106.0F, 110.0F);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        double expected = before[i];
        for (const auto& change : row.changes)
            if (change.field == fields[i]) expected += change.by;
        EXPECT_DOUBLE_EQ(now.*fields[i], expected) << "field " << i;
    }
    move(100.0F, 100.0F);
    for (std::size_t i = 0; i < fields.size(); ++i) EXPECT_EQ(now.*fields[i], before[i]) << i;
    Main.pointer.shiftkey = false;
}

}  // namespace velna::test
