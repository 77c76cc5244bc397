// Solids of any size, in any parts and in either number of threads are the same bit for bit.

#include <cmath>
#include <limits>

#include "ShapingFixture.h"
#include "common/Finite.h"
#include "common/TwoThreads.h"
#include "model/Equipment.h"

namespace velna {
namespace {

void shape(MeshSections& body, std::int16_t sections, std::int16_t cross) {
    body.nb_sections = sections;
    body.nb_cross = cross;
    body.initArrays();
    for (int i = 1; i <= sections; ++i) {
        body.sectionOrder(i) = static_cast<std::int16_t>(sections + 1 - i);
        body.pos(i) = 1.7 * i;
        body.width(i) = 40 + 0.037 * i;
        body.height(i) = 50 + 0.041 * i;
        body.elevation(i) = 10 + 0.013 * i;
        body.curvature(i) = 0.5 + 0.001 * (i % 90);
        body.curvature2(i) = 0.8;
        body.bias_curve(i) = 0.45;
    }
}

void expectSamePoints(const BodySolid& one, const BodySolid& other) {
    ASSERT_EQ(one.points.rows(), other.points.rows());
    ASSERT_EQ(one.points.columns(), other.points.columns());
    for (int i = 1; i <= one.points.rows(); ++i)
        for (int j = 1; j <= one.points.columns(); ++j)
            ASSERT_EQ(one.points(i, j), other.points(i, j)) << i << " " << j;
}

using SolidBuild = ShapingFixture;

TEST_F(SolidBuild, SectionsBuiltInTwoPartsAreThoseBuiltTogether) {
    for (const std::int16_t cross : {std::int16_t{2}, std::int16_t{7}, std::int16_t{12}}) {
        shape(body(), 9, cross);
        body().width(4) = std::numeric_limits<double>::max();
        body().shift = std::numeric_limits<double>::max();
        build();
        for (int first = 0; first <= 9; ++first) {
            BodySolid parts;
            ASSERT_EQ(parts.prepare(body()), 9);
            parts.buildSections(body(), first + 1, 9);
            parts.buildSections(body(), 1, first);
            expectSamePoints(parts, solid());
        }
    }
}

TEST_F(SolidBuild, BodiesOfOverHalfAMillionPointsAreThoseBuiltOneByOne) {
    nbFuselages = 4;
    Fuselage::resizeFuselages(project);
    shape(Fuselages(1), 300, 301);
    shape(Fuselages(2), 3, 0);
    shape(Fuselages(3), 2000, 250);
    shape(Fuselages(4), 1, 64);
    ObjectList.update(Fuselages, nbFuselages);
    ASSERT_GT(300U * 301 + 2000 * 250 + 64, workForTwoThreads);
    solids.createAll(project);
    for (int i = 1; i <= nbFuselages; ++i) {
        BodySolid alone;
        alone.create(Fuselages(i));
        expectSamePoints(solids.fuselages(i), alone);
        EXPECT_TRUE(solids.fuselages(i).builtFrom.standsFor(Fuselages(i))) << i;
    }
    // One body takes all of the work, then a small one a part that is too small for two.
    Fuselages(3).width(700) += 1;
    Fuselages(4).width(1) += 1;
    solids.update(project);
    for (int i = 1; i <= nbFuselages; ++i) {
        BodySolid alone;
        alone.create(Fuselages(i));
        expectSamePoints(solids.fuselages(i), alone);
    }
}

TEST_F(SolidBuild, WingsOfOverHalfAMillionPointsAreThoseBuiltOneByOne) {
    nbWings = 10;
    MainWing::allocateWings(project);
    for (int i = 1; i <= nbWings; ++i) {
        SymWingSections& wing = Wings(i);
        wing.nb = 32767;
        wing.allocate();
        for (int k = 1; k <= wing.nb; ++k) wing.setAirfoilPoint(k, 0.001 * k, 0.1 * std::sin(k));
        wing.span = 100.0 * i;
    }
    solids.createAll(project);
    for (int i = 1; i <= nbWings; ++i) {
        PanelSolid alone;
        alone.create(Wings(i));
        for (int k = 1; k <= 32767; ++k) {
            ASSERT_EQ(solids.wings(i).Left.rootPoint(k), alone.Left.rootPoint(k)) << i << " " << k;
            ASSERT_EQ(solids.wings(i).Right.tipPoint(k), alone.Right.tipPoint(k)) << i << " " << k;
        }
    }
}

/// The texture places of a body as one loop over all its points gives them.
Array2<Point2D> placesOf(const BodySolid& solid, const MeshSections& body) {
    Array2<Point2D> places;
    places.allocate(solid.points.rows(), solid.points.columns());
    const double length = body.lengthPoint();
    for (int i = 1; i <= places.rows(); ++i) {
        for (int j = 1; j <= places.columns(); ++j) {
            assignFinite(places(i, j).x, length != 0 ? solid.points(i, 1).x / length : 0);
            places(i, j).y = length != 0 ? (j - 1) / (body.nb_cross - 1.0) : 0;
        }
    }
    return places;
}

void expectPlaces(const BodySolid& solid, const Array2<Point2D>& places) {
    for (int i = 1; i <= places.rows(); ++i)
        for (int j = 1; j <= places.columns(); ++j)
            ASSERT_EQ(solid.texCoordAt(j, i), places(i, j)) << i << " " << j;
    for (const int beyond : {-1, 0}) {
        EXPECT_EQ(solid.texCoordAt(1, beyond), Point2D{});
        EXPECT_EQ(solid.texCoordAt(beyond, 1), Point2D{});
    }
    EXPECT_EQ(solid.texCoordAt(1, places.rows() + 1), Point2D{});
    EXPECT_EQ(solid.texCoordAt(places.columns() + 1, 1), Point2D{});
}

TEST_F(SolidBuild, TexturePlacesAreThoseOfTheLastMesh) {
    constexpr double largest = std::numeric_limits<double>::max();
    for (const std::int16_t cross : {std::int16_t{2}, std::int16_t{7}, std::int16_t{30}}) {
        for (const double offset : {0.0, -1.7 * 9, 1e-320, largest, -largest}) {
            shape(body(), 9, cross);
            body().pos_offset = offset;
            build();
            expectPlaces(solid(), placesOf(solid(), body()));
        }
    }
}

// The mesh that stands keeps its places, whatever the body has become.
TEST_F(SolidBuild, TexturePlacesOutliveAChangeThatBuildsNoMesh) {
    shape(body(), 9, 12);
    build();
    const Array2<Point2D> places = placesOf(solid(), body());
    body().pos(1) = 5000;
    body().nb_cross = 1;
    expectPlaces(solid(), places);
    build();
    expectPlaces(solid(), places);
    body().nb_cross = 12;
    expectPlaces(solid(), places);
    build();
    expectPlaces(solid(), placesOf(solid(), body()));
}

TEST_F(SolidBuild, NoPlaceBeforeTheFirstMesh) {
    expectPlaces(BodySolid(), Array2<Point2D>());
    body().nb_cross = 0;
    BodySolid none;
    none.create(body());
    expectPlaces(none, Array2<Point2D>());
}

}  // namespace
}  // namespace velna
