#pragma once

#include <functional>
#include <string>
#include <vector>

namespace velna::test {

/// A change of the project in hand that the picture must show.
struct Edit {
    std::string name;
    std::function<void()> make;
};

/// Every field of every kind of object, adding and removing, hiding and showing, and the pictures
/// "p" and "q"; to be made in this order, with a box at hand.
std::vector<Edit> objectEdits();

}  // namespace velna::test
