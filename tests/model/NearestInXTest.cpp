#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "common/Finite.h"
#include "common/NumberText.h"
#include "model/Airfoil.h"
#include "model/NearestInX.h"

namespace velna {
namespace {

constexpr double farAway = 1000000;

/// The opposite surface found by asking every point: what the search must give bit for bit.
struct PlainSearch {
    double y1 = 0;
    double y2 = 0;
    double height = 0;

    void lookFrom(const Array1<Point3D>& points, int i, int nb) {
        const double x = points(i).x;
        double d1 = farAway;
        double d2 = farAway;
        for (int j = i + 2; j <= nb; ++j) {
            const double distance = std::abs(points(j).x - x);
            if (distance < d1) {
                y1 = points(j).z;
                d1 = distance;
            }
        }
        for (int j = i + 2; j <= nb; ++j) {
            const double distance = std::abs(points(j).x - x);
            if (distance < d2 && points(j).z != y1) {
                y2 = points(j).z;
                d2 = distance;
            }
        }
        assignFinite(height, (d2 * y1 + d1 * y2) / (d1 + d2));
    }
};

struct Outline {
    Array1<Point3D> points;
    double thickness1 = 0.5;
    double thickness2 = 0.25;

    void normalizePlainly() {
        const int last = points.upper();
        double xMin = 1000;
        double xMax = -1000;
        double thick = -1;
        PlainSearch opposite;
        for (int i = 1; i <= last; ++i) {
            opposite.lookFrom(points, i, last);
            const double thickness = std::abs(opposite.height - points(i).z);
            if (thickness > thick) assignFinite(thick, thickness);
            if (points(i).x > xMax) xMax = points(i).x;
            if (points(i).x < xMin) xMin = points(i).x;
        }
        double ratio = thickness1;
        if (assignFinite(ratio, roundHalfEven(thick / (xMax - xMin) * 100) / 100))
            thickness1 = thickness2 = ratio;
        for (int i = 1; i <= last; ++i) assignFinite(points(i).z, points(i).z / thickness1);
    }
    void normalize() { Airfoil::normalize(points, points.upper(), thickness1, thickness2); }

    std::vector<std::uint64_t> bits() const {
        std::vector<std::uint64_t> all{std::bit_cast<std::uint64_t>(thickness1),
                                       std::bit_cast<std::uint64_t>(thickness2)};
        for (int i = 1; i <= points.upper(); ++i) {
            all.push_back(std::bit_cast<std::uint64_t>(points(i).x));
            all.push_back(std::bit_cast<std::uint64_t>(points(i).z));
        }
        return all;
    }
};

/// Every point's nearest one and the nearest of another height, by asking all and by the search;
/// the points up to the one behind it are left out.
void expectSameNeighbours(const Array1<Point3D>& points) {
    NearestInX search(points, std::max(points.upper(), 0));
    if (points.upper() > 0) search.remove(1);
    const auto plain = [&](int i, std::optional<double> height) {
        int found = NearestInX::none;
        double least = farAway;
        for (int j = i + 2; j <= points.upper(); ++j) {
            if (!(search.distance(i, j) < least) || (height && points(j).z == *height)) continue;
            least = search.distance(i, j);
            found = j;
        }
        return found;
    };
    for (int i = 1; i <= points.upper(); ++i) {
        if (i < points.upper()) search.remove(i + 1);
        const int nearest = search.nearest(i, farAway);
        ASSERT_EQ(nearest, plain(i, {})) << i << " of " << points.upper();
        const double height = nearest == NearestInX::none ? 0 : points(nearest).z;
        ASSERT_EQ(search.nearest(i, farAway, height), plain(i, height)) << i;
    }
}

void expectSameAsPlain(const Array1<Point3D>& points) {
    expectSameNeighbours(points);
    Outline own{points};
    Outline plain{points};
    own.normalize();
    plain.normalizePlainly();
    ASSERT_EQ(own.bits(), plain.bits()) << points.upper() << " points";
}

using Random = std::mt19937;

Array1<Point3D> outlineOf(int count, auto x, auto z) {
    Array1<Point3D> points;
    points.allocate(count);
    for (int i = 1; i <= count; ++i) points(i) = {x(i), 0, z(i)};
    return points;
}

int countFrom(Random& random) {
    return static_cast<int>(random() % 41);
}

/// As long as it asks nothing else: a few values, so that ties are everywhere.
double oneOfFew(Random& random, const std::vector<double>& values) {
    return values[random() % values.size()];
}

TEST(NearestInX, RandomOutlinesAreAsByAskingEveryPoint) {
    Random random(11);
    std::uniform_real_distribution<double> number(-2, 2);
    for (int round = 0; round < 1000; ++round) {
        const auto any = [&](int) { return number(random); };
        expectSameAsPlain(outlineOf(countFrom(random), any, any));
    }
}

TEST(NearestInX, TiedOutlinesTakeTheFirstOfAllAtTheSameDistance) {
    Random random(12);
    for (int round = 0; round < 1500; ++round) {
        const auto x = [&](int) { return oneOfFew(random, {0, 1, 2, 3, -1, 0.5, -0.0}); };
        const auto z = [&](int) { return oneOfFew(random, {0, -0.0, 1, 2, 1}); };
        expectSameAsPlain(outlineOf(countFrom(random), x, z));
    }
}

// Seen from afar the small ones are all equally distant, though their x are not the same.
TEST(NearestInX, DistancesThatRoundToTheSameAreTies) {
    Random random(13);
    std::uniform_real_distribution<double> tiny(0, 1e-15);
    for (int round = 0; round < 1000; ++round) {
        const auto x = [&](int) {
            return oneOfFew(random, {1000, -1000, 3, 0}) + (random() % 2 ? tiny(random) : 0);
        };
        const auto z = [&](int) { return oneOfFew(random, {0, 1, tiny(random)}); };
        expectSameAsPlain(outlineOf(countFrom(random), x, z));
    }
}

TEST(NearestInX, NumbersOfAnySizeAreAsByAskingEveryPoint) {
    Random random(14);
    std::uniform_real_distribution<double> digits(-1, 1);
    std::uniform_int_distribution<int> power(-320, 308);
    std::uniform_int_distribution<int> nearLimit(5, 7);
    for (int round = 0; round < 1000; ++round) {
        const auto any = [&](int) { return digits(random) * std::pow(10.0, power(random)); };
        const auto far = [&](int) { return digits(random) * std::pow(10.0, nearLimit(random)); };
        expectSameAsPlain(outlineOf(countFrom(random), any, any));
        expectSameAsPlain(outlineOf(countFrom(random), far, any));
    }
}

TEST(NearestInX, RealOutlinesSortedAndTurnedRoundAreAsByAskingEveryPoint) {
    Random random(15);
    for (int round = 0; round < 60; ++round) {
        const int count = 2 + static_cast<int>(random() % 300);
        const auto angle = [count](int i) { return 6.28318530717959 * (i - 1) / (count - 1); };
        const auto x = [&](int i) { return (1 + std::cos(angle(i))) / 2; };
        const auto z = [&](int i) { return -0.06 * std::sin(angle(i)) * (1 + 0.3 * x(i)); };
        Array1<Point3D> points = outlineOf(count, x, z);
        expectSameAsPlain(points);
        std::sort(points.data() + 1, points.data() + count + 1,
                  [](const Point3D& a, const Point3D& b) { return a.x < b.x; });
        expectSameAsPlain(points);
        std::shuffle(points.data() + 1, points.data() + count + 1, random);
        expectSameAsPlain(points);
    }
}

TEST(NearestInX, OutlinesOfOneValueAreAsByAskingEveryPoint) {
    const auto one = [](int) { return 1.0; };
    const auto counted = [](int i) { return 0.001 * i; };
    for (const int count : {0, 1, 2, 3, 4, 5, 700}) {
        expectSameAsPlain(outlineOf(count, one, one));
        expectSameAsPlain(outlineOf(count, one, counted));
        expectSameAsPlain(outlineOf(count, counted, one));
    }
}

}  // namespace
}  // namespace velna
