#pragma once

#include "editor/History.h"

namespace velna::test {

/// Whether two projects differ in nothing but what is chosen in them.
inline bool sameAircraft(const Project& one, Project other) {
    Chosen::in(one).putInto(other);
    return one == other;
}

}  // namespace velna::test
