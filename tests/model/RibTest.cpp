#include <cmath>
#include <limits>

#include "model/Panels.h"
#include "model/Rib.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

class Ribs : public FreshModel {
protected:
    static SymWingSections& wing() { return Wings(1); }
    static Rib at(double share) { return ribAt(wing(), project.units, {share, 0}); }

    static std::vector<double> positions(const StationWish& wish, double span) {
        std::vector<Station> stations;
        EXPECT_EQ(stationsOf(wish, span, stations), Outcome());
        std::vector<double> places;
        for (const Station& station : stations) places.push_back(station.position);
        return places;
    }
    static bool refused(const StationWish& wish, double span) {
        std::vector<Station> stations(3);
        const Outcome outcome = stationsOf(wish, span, stations);
        EXPECT_TRUE(stations.empty() || outcome.isDone());
        return outcome.hasFailed() && !outcome.reason().empty();
    }
};

constexpr double huge = std::numeric_limits<double>::max();

TEST_F(Ribs, AtTheEndsAreTheSolidsSections) {
    wing().elevation2 = 60;
    wing().shift = 20;
    solids.wings(1).create(wing());
    const WingSection& half = solids.wings(1).Left;
    for (const double share : {0.0, 1.0}) {
        const Rib rib = at(share);
        ASSERT_EQ(rib.outline.size(), 16U);
        for (int i = 1; i <= 16; ++i) {
            const Point3D point = share == 0 ? half.rootPoint(i) : half.tipPoint(i);
            const double x = wing().pos1 + share * wing().pos2;
            const double z = wing().elevation1 + share * wing().elevation2;
            EXPECT_NEAR(rib.outline[static_cast<std::size_t>(i) - 1].x, point.x - x, 1e-9);
            EXPECT_NEAR(rib.outline[static_cast<std::size_t>(i) - 1].y, point.z - z, 1e-9);
        }
    }
}

TEST_F(Ribs, HeightsRunStraightAndNotTheRatio) {
    wing().length1 = 200;
    wing().length2 = 100;
    wing().thickness1 = 0.2;
    wing().thickness2 = 0.1;
    const double root = at(0).outline[12].y;
    const double tip = at(1).outline[12].y;
    EXPECT_NEAR(at(0.5).outline[12].y, (root + tip) / 2, 1e-12);
    EXPECT_EQ(at(0.5).chord, 150);
}

TEST_F(Ribs, SweepDihedralAndShiftDoNotChangeThem) {
    const Rib before = at(0.25);
    wing().pos2 = 300;
    wing().elevation2 = -80;
    wing().shift = 33;
    EXPECT_EQ(at(0.25).outline, before.outline);
}

TEST_F(Ribs, OfAnInchProjectAreInMillimetres) {
    const Rib before = at(0.5);
    project.units = inches;
    Plane::switchAllToInches(project);
    const Rib rib = at(0.5);
    EXPECT_NEAR(rib.chord, before.chord, 1e-9);
    EXPECT_NEAR(rib.outline[3].y, before.outline[3].y, 1e-9);
}

TEST_F(Ribs, UseThePointsThereAre) {
    wing().nb = 5000;
    EXPECT_EQ(at(0).outline.size(), 16U);
}

TEST_F(Ribs, WithoutChordGiveAWord) {
    wing().length2 = -230;
    EXPECT_EQ(at(1).why, "no chord");
    EXPECT_EQ(at(0.5).why, "no chord");
    EXPECT_TRUE(at(0.5).outline.empty());
    EXPECT_TRUE(at(0.49).why.empty());
}

TEST_F(Ribs, WithFewerThanThreePointsGiveAWord) {
    wing().nb = 2;
    EXPECT_EQ(at(0).why, "fewer than 3 points");
    wing().nb = -4;
    EXPECT_EQ(at(0).why, "fewer than 3 points");
}

TEST_F(Ribs, WithoutAreaGiveAWord) {
    wing().thickness1 = 0;
    EXPECT_EQ(at(0).why, "no area");
    EXPECT_TRUE(at(0.5).why.empty());
}

TEST_F(Ribs, BeyondAKilometreGiveAWord) {
    wing().length1 = 1e6 + 1;
    EXPECT_EQ(at(0).why, "larger than 1000000 mm");
    wing().length1 = huge;
    wing().thickness1 = huge;
    EXPECT_EQ(at(0).why, "larger than 1000000 mm");
    EXPECT_EQ(at(0.5).why, "larger than 1000000 mm");
}

TEST_F(Ribs, OfNegativeHeightAreUpsideDown) {
    const double above = at(0).outline[12].y;
    wing().thickness1 = -wing().thickness1;
    EXPECT_EQ(at(0).outline[12].y, -above);
    EXPECT_TRUE(at(0).why.empty());
}

TEST_F(Ribs, StationsByCountAreEvenlySpread) {
    EXPECT_EQ(positions({4, 0}, 300), (std::vector<double>{0, 100, 200, 300}));
    EXPECT_EQ(positions({2, 0}, 0), (std::vector<double>{0, 0}));
    EXPECT_EQ(positions({1000, 0}, 999).size(), 1000U);
}

TEST_F(Ribs, StationsBySpacingEndWithTheTip) {
    EXPECT_EQ(positions({0, 100}, 250), (std::vector<double>{0, 100, 200, 250}));
    EXPECT_EQ(positions({0, 100}, 300), (std::vector<double>{0, 100, 200, 300}));
    // One that all but reaches the tip is the tip's.
    EXPECT_EQ(positions({0, 100}, 200 + 1e-7), (std::vector<double>{0, 100, 200 + 1e-7}));
    EXPECT_EQ(positions({0, 500}, 300), (std::vector<double>{0, 300}));
    EXPECT_EQ(positions({0, 5}, 0), (std::vector<double>{0, 0}));
}

TEST_F(Ribs, StationsThatAreNoWishAreRefused) {
    for (const int count : {-3, 0, 1, 1001, 10000}) EXPECT_TRUE(refused({count, 0}, 300)) << count;
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double spacing : {-1.0, none, HUGE_VAL}) EXPECT_TRUE(refused({8, spacing}, 300));
    EXPECT_TRUE(refused({8, 1}, 999.5));
    EXPECT_FALSE(refused({8, 1}, 999));
    EXPECT_TRUE(refused({8, 1e-300}, 300));
    EXPECT_TRUE(refused({8, 1}, huge));
}

TEST_F(Ribs, PlanformIsDeveloped) {
    wing().span = 300;
    wing().elevation2 = -400;
    const Planform plan = developed(wing(), millimetres);
    EXPECT_EQ(plan.span, 500);
    EXPECT_EQ(plan.corners[2], (Point2D{500, wing().pos2 + wing().length2}));
    wing().span = -300;
    EXPECT_EQ(developed(wing(), millimetres).span, 500);
    EXPECT_EQ(developed(wing(), inches).corners[1].y, wing().length1 * 25.4);
}

TEST_F(Ribs, PanelsHaveTheirNames) {
    ++nbWings;
    MainWing::addWing(project);
    const auto panels = namedPanels(project);
    ASSERT_EQ(panels.size(), 3U);
    EXPECT_EQ(panels[1].name, "wing 2");
    EXPECT_EQ(panels[2].name, "stabilizer");
    EXPECT_EQ(&panels[2].panel, &project.Stabilizer);
}

}  // namespace
}  // namespace velna
