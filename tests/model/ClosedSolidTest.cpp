#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "model/ClosedSolid.h"

namespace velna::test {
namespace {

using Section = std::vector<Point2D>;

/// Sections across x, each at its place.
Loft along(const std::vector<std::pair<double, Section>>& sections) {
    Loft loft{sections.front().second.size(), {}, &Point3D::x};
    for (const auto& [x, section] : sections)
        for (const Point2D& p : section) loft.points.push_back({x, p.x, p.y});
    return loft;
}

Section square(double size) {
    return {{0, 0}, {size, 0}, {size, size}, {0, size}};
}

Section moved(Section section, double y, double z) {
    for (Point2D& p : section) p = {p.x + y, p.y + z};
    return section;
}

struct Built {
    Outcome outcome;
    ClosedSolid solid;
};

Built built(const Loft& loft, CoordinateForm form = CoordinateForm::Decimal) {
    Built result{{}, {}};
    result.outcome = buildSolid(loft, {form, true}, result.solid);
    if (!result.outcome.isDone()) return result;
    EXPECT_TRUE(isClosed(result.solid));
    EXPECT_GT(volumeOf(result.solid), 0);
    EXPECT_EQ(result.solid.sources.size(), result.solid.triangles.size());
    for (const Triangle& t : result.solid.triangles) {
        const Point3D& a = result.solid.points[t[0]];
        const Point3D& b = result.solid.points[t[1]];
        const Point3D& c = result.solid.points[t[2]];
        const Point3D u{b.x - a.x, b.y - a.y, b.z - a.z};
        const Point3D v{c.x - a.x, c.y - a.y, c.z - a.z};
        EXPECT_GT(std::hypot(u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x),
                  0);
    }
    return result;
}

void expectVolume(const Loft& loft, double volume, std::size_t triangles) {
    const Built result = built(loft);
    ASSERT_EQ(result.outcome, Outcome());
    EXPECT_NEAR(volumeOf(result.solid), volume, volume * 1e-12);
    EXPECT_EQ(result.solid.triangles.size(), triangles);
}

void expectRefused(const Loft& loft, const char* why) {
    EXPECT_EQ(built(loft).outcome.reason(), why);
}

TEST(ClosedSolid, APrismHasItsVolume) {
    expectVolume(along({{0, square(2)}, {5, square(2)}}), 20, 12);
    // The same looked at from the other side.
    expectVolume(along({{5, square(2)}, {0, square(2)}}), 20, 12);
    Section round;
    constexpr int corners = 1000;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * std::numbers::pi * i / corners;
        round.push_back({std::cos(angle), std::sin(angle)});
    }
    const double area = corners / 2.0 * std::sin(2 * std::numbers::pi / corners);
    const Built cylinder = built(along({{0, round}, {3, round}}));
    EXPECT_NEAR(volumeOf(cylinder.solid), 3 * area, 1e-8);
}

TEST(ClosedSolid, AFrustumHasItsVolume) {
    // Flat sides whatever way the quads are cut: (A1 + sqrt(A1 A2) + A2) h / 3
    expectVolume(along({{0, moved(square(4), -2, -2)}, {3, moved(square(2), -1, -1)}}), 28, 12);
}

TEST(ClosedSolid, AHollowEndIsFilled) {
    const Section hollow{{0, 0}, {4, 0}, {4, 4}, {2, 1}, {0, 4}};
    expectVolume(along({{0, hollow}, {2, hollow}}), 20, 16);
}

TEST(ClosedSolid, AChordOfNothingIsAPoint) {
    const Section point(4, {1, 1});
    expectVolume(along({{0, square(3)}, {4, point}}), 12, 6);
    expectVolume(along({{0, point}, {4, square(3)}, {8, point}}), 24, 8);
}

TEST(ClosedSolid, AnEndThatIsALineClosesItself) {
    const Section line{{0, 1}, {2, 1}, {2, 1}, {0, 1}};
    expectVolume(along({{0, square(2)}, {3, line}}), 6, 8);
}

TEST(ClosedSolid, ASharpEdgeIsOneEdge) {
    const Section sharp{{4, 0}, {2, 1}, {0, 0}, {2, -1}, {4, 5e-7}};
    const Built result = built(along({{0, sharp}, {1, sharp}}));
    ASSERT_EQ(result.outcome, Outcome());
    EXPECT_EQ(result.solid.points.size(), 8u);
    EXPECT_NEAR(volumeOf(result.solid), 4, 1e-6);
    Section open = sharp;
    open.back().y = -2e-6;
    EXPECT_EQ(built(along({{0, open}, {1, open}})).solid.points.size(), 10u);
}

TEST(ClosedSolid, AStepBetweenSectionsOfOnePlaneIsClosed) {
    expectVolume(along({{0, moved(square(2), 1, 1)},
                        {2, moved(square(2), 1, 1)},
                        {2, square(4)},
                        {3, square(4)}}),
                 8 + 16, 28);
    // Twice the same section adds nothing.
    expectVolume(along({{0, square(2)}, {1, square(2)}, {1, square(2)}, {2, square(2)}}), 8, 20);
    // One whose faces would have no area does.
    expectRefused(along({{0, square(2)}, {1, square(2)}, {1, square(4)}, {2, square(4)}}),
                  NoSolid::touching);
}

TEST(ClosedSolid, WhatIsNoSolidIsRefusedWithAWord) {
    const Section point(4, {1, 1});
    const Section line{{0, 1}, {2, 1}, {2, 1}, {0, 1}};
    expectRefused(along({{0, {{0, 0}, {1, 1}}}, {1, {{0, 0}, {1, 1}}}}), NoSolid::fewPoints);
    expectRefused(along({{0, square(1)}}), NoSolid::noLength);
    expectRefused(along({{7, square(1)}, {7, square(2)}}), NoSolid::noLength);
    expectRefused(along({{0, point}, {1, point}}), NoSolid::noThickness);
    expectRefused(along({{0, line}, {1, line}}), NoSolid::noThickness);
    expectRefused(along({{0, line}, {1, point}, {2, square(2)}}), NoSolid::touching);
    expectRefused(along({{0, square(2)}, {1, line}, {2, square(2)}}), NoSolid::touching);
    expectRefused(along({{0, square(1)}, {1000001, square(1)}}), NoSolid::tooLarge);
    expectRefused(along({{0, {{0, 0}, {2, 2}, {2, 0}, {0, 2}}}, {1, square(2)}}),
                  NoSolid::touching);
    const Section whisker{{0, 0}, {2, 0}, {4, 0}, {2, 0}, {0, 2}};
    expectRefused(along({{0, whisker}, {1, whisker}}), NoSolid::touching);
}

TEST(ClosedSolid, CoordinatesAreWhatTheFileHolds) {
    EXPECT_EQ(heldCoordinate(0.1, CoordinateForm::Single), static_cast<double>(0.1F));
    EXPECT_EQ(heldCoordinate(0.12345678949, CoordinateForm::Decimal), 0.123456789);
    EXPECT_FALSE(std::signbit(heldCoordinate(-1e-12, CoordinateForm::Decimal)));
    EXPECT_FALSE(std::signbit(heldCoordinate(-0.0, CoordinateForm::Single)));
    const Built result =
        built(along({{0.1, square(0.3)}, {7.7, square(0.7)}}), CoordinateForm::Single);
    for (const Point3D& p : result.solid.points) {
        for (const double value : {p.x, p.y, p.z})
            EXPECT_EQ(value, static_cast<double>(static_cast<float>(value)));
    }
}

TEST(ClosedSolid, AMirroredSolidIsOrientedOutward) {
    Built result = built(along({{0, moved(square(2), 5, 0)}, {3, moved(square(3), 5, 0)}}));
    const double volume = volumeOf(result.solid);
    result.solid.mirror();
    EXPECT_TRUE(isClosed(result.solid));
    EXPECT_DOUBLE_EQ(volumeOf(result.solid), volume);
    for (const Point3D& p : result.solid.points) EXPECT_LE(p.y, -5);
}

TEST(ClosedSolid, BaysTellWhereEachBandBegins) {
    const Built result = built(along({{0, square(2)}, {1, square(3)}, {2, square(2)}}));
    EXPECT_EQ(result.solid.bays, (std::vector<std::size_t>{0, 10, 20}));
}

TEST(ClosedSolid, AQuestionCanEndTheWork) {
    ClosedSolid solid;
    int questions = 0;
    const SolidOrder order{CoordinateForm::Single, false, [&](long long points) {
                               EXPECT_GT(points, 0);
                               return ++questions < 2;
                           }};
    Loft loft{4, {}, &Point3D::x};
    for (int i = 0; i < 10000; ++i)
        for (const Point2D& p : square(2)) loft.points.push_back({0.1 * i, p.x, p.y});
    EXPECT_TRUE(buildSolid(loft, order, solid).isCancelled());
    EXPECT_EQ(questions, 2);
}

}  // namespace
}  // namespace velna::test
