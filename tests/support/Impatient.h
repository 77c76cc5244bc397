#pragma once

#include "common/Progress.h"

namespace velna::test {

/// A user who cancels at the first question.
class Impatient : public Progress {
public:
    bool step(long long, long long) override { return false; }
};

}  // namespace velna::test
