#include "model/Fits.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

class FitsToASurface : public FreshModel {};

TEST_F(FitsToASurface, WhatItsWidthBoundsStandsInTheMiddleOfItsHeight) {
    const Transform low = Plane::fitVTop(project, {100, 600}, {});
    const Transform high = Plane::fitVTop(project, {100, 800}, {});
    EXPECT_EQ(low.zoom, high.zoom);
    EXPECT_NEAR(high.yoff - low.yoff, 100, 1e-9);
}

}  // namespace
}  // namespace velna
