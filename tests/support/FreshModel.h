#pragma once

#include <gtest/gtest.h>

#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"

namespace velna {

/// Puts the whole state of the model back to that of a program just started.
inline void resetModel() {
    Prefs = {};
    Stabilizer = {};
    Rudder = {};
    ObjectList.clear();
    Plane::setDefaultPlane();
    ObjectList.update();
    vrmlUnitScale = {1, 1, 1};
}

/// A test that starts from the default aircraft in millimetres, whichever test ran before.
class FreshModel : public ::testing::Test {
protected:
    void SetUp() override { resetModel(); }
};

}  // namespace velna
