#include <algorithm>
#include <utility>

#include "model/MeshSections.h"
#include "model/PartLofts.h"
#include "model/SolidParts.h"
#include "model/WingSection.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

class PartLofts : public FreshModel {};

/// The loft of a part that has one, at one millimetre a unit.
template <class Part>
Loft madeOf(const Part& part) {
    Loft loft;
    EXPECT_TRUE(loftOf(part, 1, loft).isDone());
    return loft;
}

TEST_F(PartLofts, APanelGoesFromItsRootToItsTip) {
    const SymWingSections& panel = Wings(1);
    const Loft loft = madeOf(panel);
    const auto points = static_cast<std::size_t>(panel.pointCount());
    EXPECT_EQ(loft.sectionPoints, points);
    ASSERT_EQ(loft.points.size(), 2 * points);
    for (std::size_t i = 0; i < points; ++i) {
        EXPECT_EQ(loft.points[i].y, panel.shift);
        EXPECT_EQ(loft.points[points + i].y, panel.shift + panel.span);
    }
}

TEST_F(PartLofts, EveryCoordinateIsInTheUnitAskedFor) {
    Loft loft;
    EXPECT_TRUE(loftOf(Rudder, 25.4, loft).isDone());
    const Loft plain = madeOf(Rudder);
    ASSERT_EQ(loft.points.size(), plain.points.size());
    for (std::size_t i = 0; i < plain.points.size(); ++i) {
        const Point3D& point = plain.points[i];
        EXPECT_EQ(loft.points[i], (Point3D{point.x * 25.4, point.y * 25.4, point.z * 25.4}));
    }
}

TEST_F(PartLofts, APictureHasOnePlaceForEachPointOfItsPart) {
    const std::vector<Point2D> wing = placesOf(Wings(1), 64, 16);
    const std::vector<Point2D> fin = placesOf(Rudder, 64, 16);
    ASSERT_EQ(wing.size(), madeOf(Wings(1)).points.size());
    ASSERT_EQ(fin.size(), madeOf(Rudder).points.size());
    EXPECT_EQ(placesOf(Fuselages(1), 64, 16).size(), madeOf(Fuselages(1)).points.size());
    // The quarter turn of a picture is another one on the fin.
    EXPECT_EQ(wing.front().y, 1);
    EXPECT_EQ(wing.back().y, 0);
    EXPECT_EQ(fin.front().y, 0);
    EXPECT_EQ(fin.back().y, 1);
}

TEST_F(PartLofts, APlaceIsMeasuredFromTheLeadingEdgeOfTheRootInSpans) {
    const SymWingSections& panel = Wings(1);
    const Loft loft = madeOf(panel);
    const std::vector<Point2D> places = placesOf(panel, 64, 16);
    for (std::size_t i = 0; i < loft.sectionPoints / 2; ++i) {
        EXPECT_NEAR(places[i].x, (loft.points[i].x - panel.pos1) / panel.span / 4, 1e-15) << i;
        const std::size_t tip = loft.sectionPoints + i;
        EXPECT_NEAR(places[tip].x, (loft.points[tip].x - panel.pos1) / panel.span / 4, 1e-15) << i;
    }
}

TEST_F(PartLofts, SolidsAreInMillimetresWhateverTheUnit) {
    for (const auto& [unit, factor] : {std::pair{millimetres, 1.0}, std::pair{inches, 25.4}}) {
        project.units = unit;
        std::vector<RefusedPart> refused;
        double reach = 0;
        const auto note = [&](const SolidPart& part) {
            if (part.name.starts_with("fin"))
                for (const Point3D& point : part.solid.points) reach = std::max(reach, point.z);
            return true;
        };
        EXPECT_TRUE(forEachSolidPart(project, {}, note, refused).isDone());
        const double wanted = (Rudder.shift + Rudder.span) * factor;
        EXPECT_NEAR(reach, wanted, 1e-6 * wanted);
    }
}

}  // namespace
}  // namespace velna
