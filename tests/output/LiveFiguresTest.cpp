// The figures of an aircraft that changes, held against those computed at once.

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/Fuselage.h"
#include "model/LiveFigures.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "output/FiguresJson.h"

namespace velna::test {
namespace {

class LiveFiguresTest : public ::testing::Test {
protected:
    LiveFiguresTest() {
        Plane::setDefaultPlane(project);
        project.nbFuselages = 3;
        Fuselage::resizeFuselages(project);
        project.Fuselages(2).shift = 120;
    }

    std::string now() const { return figuresJson(live.figures()); }
    std::string atOnce() const { return figuresJson(figuresOf(project, flight)); }

    Project project;
    Flight flight;
    LiveFigures live;
};

TEST_F(LiveFiguresTest, ComputeOnlyWhatHasChanged) {
    EXPECT_TRUE(live.update(project, flight));
    EXPECT_EQ(now(), atOnce());
    EXPECT_FALSE(live.update(project, flight));
    flight.mass = 1200;
    EXPECT_TRUE(live.update(project, flight));
    EXPECT_EQ(now(), atOnce());
    EXPECT_FALSE(live.update(project, flight));
}

TEST_F(LiveFiguresTest, FollowEveryKindOfChange) {
    const std::vector<std::function<void()>> changes = {
        [&] { project.Wings(1).length2 = 90; },
        [&] { project.Fuselages(2).width(2) = 77; },
        [&] { project.Fuselages(3).nb_cross = 5; },
        [&] { project.Stabilizer.span = 0; },
        [&] { project.Rudder.offset1 = 40; },
        [&] {
            ++project.nbWings;
            MainWing::addWing(project);
        },
        [&] { project.nbFuselages = 2; },
        [&] {
            project.nbFuselages = 4;
            Fuselage::resizeFuselages(project);
        },
        [&] { project.units = inches; },
        [&] { Plane::switchAllToInches(project); },
        [&] { project.Fuselages(1).pos(1) = 1e300; },
        [&] { Plane::setDefaultPlane(project); },
    };
    for (std::size_t n = 0; n < changes.size(); ++n) {
        changes[n]();
        EXPECT_TRUE(live.update(project, flight)) << n;
        EXPECT_EQ(now(), atOnce()) << n;
    }
}

}  // namespace
}  // namespace velna::test
