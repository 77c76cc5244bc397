#include <cmath>

#include <gtest/gtest.h>

#include "common/Turn.h"

namespace velna::test {
namespace {

TEST(Turn, TellsLeftFromRight) {
    EXPECT_EQ(turn({0, 0}, {1, 0}, {2, 1}), 1);
    EXPECT_EQ(turn({0, 0}, {1, 0}, {2, -1}), -1);
    EXPECT_EQ(turn({0, 0}, {1, 0}, {2, 0}), 0);
    EXPECT_EQ(turn({3, 4}, {3, 4}, {7, 1}), 0);
}

/// Points round a line whose products lose more digits than they differ by.
TEST(Turn, IsExactBesideALine) {
    const double step = std::ldexp(1.0, -53);
    for (int i = 0; i < 64; ++i) {
        for (int j = 0; j < 64; ++j) {
            const Point2D near{0.5 + i * step, 0.5 + j * step};
            const int expected = j > i ? 1 : j < i ? -1 : 0;
            ASSERT_EQ(turn({12, 12}, {24, 24}, near), expected) << i << ' ' << j;
            ASSERT_EQ(turn({24, 24}, {12, 12}, near), -expected) << i << ' ' << j;
        }
    }
}

TEST(Turn, IsExactFarFromTheOrigin) {
    const double far = 1e6;
    const double next = std::nextafter(far, 2 * far);
    EXPECT_EQ(turn({-far, -far}, {far, far}, {far, next}), 1);
    EXPECT_EQ(turn({-far, -far}, {far, far}, {next, far}), -1);
    EXPECT_EQ(turn({-far, -far}, {far, far}, {next, next}), 0);
}

}  // namespace
}  // namespace velna::test
