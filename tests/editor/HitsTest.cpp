#include <gtest/gtest.h>

#include "model/Equipment.h"
#include "model/MainWing.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"

namespace velna {
namespace {

class Hits : public test::EditorTest {
protected:
    Hits() {
        for (int i = 2; i <= 3; ++i) {
            Plane::increment(nbWings);
            MainWing::addWing(project);
            Plane::increment(nbEquipments);
            Equipment::resizeEquipments(project, nbEquipments);
        }
    }
    AircraftViews& views = Main.views;
};

TEST_F(Hits, AreFoundOnAnyPanel) {
    EXPECT_FALSE(views.wingHit());
    EXPECT_FALSE(views.wingSelected());
    EXPECT_EQ(views.selectedWingPart(), WingPart::none);
    views.wings(3).grip.paint = WingPart::tipEdge;
    for (int i : {2, 3}) views.wings(i).grip.selected = true;
    views.wings(2).grip.selected_part = WingPart::tipLeading;
    views.wings(3).grip.selected_part = WingPart::rootEdge;
    EXPECT_TRUE(views.wingHit());
    EXPECT_TRUE(views.anyHit());
    EXPECT_TRUE(views.wingSelected());
    EXPECT_EQ(views.selectedWingPart(), WingPart::tipLeading) << "of the first that is selected";
    views.letGoOfWings();
    EXPECT_FALSE(views.anyHit());
    EXPECT_TRUE(views.anySelected());
    views.clearHover();
    EXPECT_FALSE(views.anySelected());
}

TEST_F(Hits, BeyondTheCounterAreNotLookedAt) {
    views.wings(3).grip.paint = WingPart::tipEdge;
    views.wings(3).grip.selected = true;
    --nbWings;
    EXPECT_FALSE(views.wingHit());
    EXPECT_FALSE(views.wingSelected());
}

TEST_F(Hits, AreFoundOnAnyBox) {
    EXPECT_FALSE(views.boxHit());
    EXPECT_FALSE(views.boxSelected());
    views.boxes(2).grip.paint = BoxPart::hit;
    views.boxes(2).grip.selected = true;
    EXPECT_TRUE(views.boxHit());
    EXPECT_TRUE(views.boxSelected());
    views.letGoOfBoxes();
    EXPECT_FALSE(views.anyHit());
    views.clearHover();
    EXPECT_FALSE(views.anySelected());
}

TEST_F(Hits, AnotherAircraftIsNotGrabbed) {
    views.wings(1).grip.paint = WingPart::tipEdge;
    views.stabilizer.grip.paint = WingPart::tipEdge;
    views.rudder.grip.paint = FinPart::rootEdge;
    views.fuselage().grip.paint = FuselagePart::bar;
    views.boxes(1).grip.paint = BoxPart::hit;
    views.wings(1).vtopPoints[1] = {5, 5};
    views.startOver();
    EXPECT_FALSE(views.anyHit());
    EXPECT_EQ(views.wings(1).vtopPoints[1], Point2D{}) << "nor stands its outline anywhere";
}

}  // namespace
}  // namespace velna
