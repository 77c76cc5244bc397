#pragma once

#include <gtest/gtest.h>

#include "support/InHand.h"

namespace velna {

/// A test that starts from the default aircraft in millimetres, whichever test ran before.
class FreshModel : public ::testing::Test {
protected:
    void SetUp() override { resetModel(); }
};

}  // namespace velna
