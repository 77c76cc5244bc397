#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "model/SectionPoints.h"

namespace velna::test {
namespace {

constexpr double alike = 1e-6;

/// By looking at every pair.
std::vector<std::uint32_t> firstOfEach(const std::vector<Point2D>& points) {
    std::vector<std::uint32_t> first;
    for (std::uint32_t j = 0; j < points.size(); ++j) {
        first.push_back(j);
        for (std::uint32_t i = 0; i < j && first[j] == j; ++i) {
            if (first[i] == i && std::abs(points[i].x - points[j].x) < alike &&
                std::abs(points[i].y - points[j].y) < alike)
                first[j] = i;
        }
    }
    return first;
}

void expectFound(const std::vector<Point2D>& points) {
    SectionPoints found;
    const std::vector<std::uint32_t> first = firstOfEach(points);
    EXPECT_EQ(found.take(points), first);
    EXPECT_EQ(found.first(), first);
    bool differ = true;
    for (std::uint32_t j = 0; j < first.size(); ++j) differ = differ && first[j] == j;
    EXPECT_EQ(found.allDiffer(), differ);
}

std::vector<Point2D> ellipse(int count, double width, double height, double start) {
    std::vector<Point2D> points;
    for (int j = 0; j < count; ++j) {
        const double angle = start + 2 * std::numbers::pi * j / count;
        points.push_back({width / 2 * std::cos(angle), height / 2 * std::sin(angle)});
    }
    return points;
}

TEST(SectionPoints, OfACrowdEachIsOneWithTheFirstNearIt) {
    std::mt19937 random(7);
    for (const double spread : {2e-6, 1e-5, 1e-4, 1e-2}) {
        for (const double middle : {0.0, 1.0, -999'999.0}) {
            std::uniform_real_distribution<double> at(middle - spread, middle + spread);
            std::vector<Point2D> points(400);
            for (Point2D& point : points) point = {at(random), at(random)};
            expectFound(points);
        }
    }
}

TEST(SectionPoints, OnAGridOfTheSizeOfTheDistanceNothingIsMissed) {
    std::vector<Point2D> points;
    for (int i = -12; i <= 12; ++i)
        for (int j = -12; j <= 12; ++j)
            points.push_back({i * 0.5e-6 + 3.0 / 65536, j * 0.5e-6 - 1.0 / 65536});
    expectFound(points);
}

TEST(SectionPoints, OfAnOutlineThatGoesRightAndBackTheTwoWaysAreLookedAt) {
    for (const int count : {3, 4, 5, 24, 100})
        for (const double width : {0.0, 1e-6, 5e-6, 1e-4, 50.0})
            for (const double height : {0.0, 0.5e-6, 1e-6, 3e-6, 1e-4, 50.0})
                for (const double start : {0.0, 0.3, 2.0}) {
                    std::vector<Point2D> points = ellipse(count, width, height, start);
                    expectFound(points);
                    std::ranges::reverse(points);
                    expectFound(points);
                }
}

TEST(SectionPoints, RunsThatReturnOrStandStillAreLookedAtToo) {
    expectFound({{0, 0}, {2, 1}, {1, 2}, {3, 3}, {1, 2}, {0, 4}});
    expectFound({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    expectFound({{1, 1}, {1, 1}, {1, 1}});
    expectFound({{0, 0}, {1, 0}});
    expectFound({{0, 0}});
    expectFound({});
    // Steps of just the distance, in decimals.
    std::vector<Point2D> steps;
    for (int j = 0; j < 50; ++j) steps.push_back({700 + j * 1e-6, 0});
    for (int j = 50; j > 0; --j) steps.push_back({700 + j * 1e-6 - 0.5e-6, 0.9e-6});
    expectFound(steps);
}

}  // namespace
}  // namespace velna::test
