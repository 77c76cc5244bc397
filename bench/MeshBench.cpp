// The rebuild of a large fuselage beside the least work that any rebuild must do. A row's time
// divided by its reference's is the figure that counts; milliseconds say more of the machine.

#include <algorithm>
#include <cmath>
#include <vector>

#include <benchmark/benchmark.h>

#include "model/BodySolid.h"
#include "model/MeshSections.h"
#include "model/SuperEllipse.h"
#include "model/Units.h"

namespace velna {
namespace {

constexpr std::int16_t sections = 500;
constexpr std::int16_t cross = 100;

/// Exponents that no fast path of a power routine knows.
double exponentOf(int section) {
    return 0.61 + 0.003 * section;
}

void makeLarge(MeshSections& body, bool ownExponents) {
    body.nb_sections = sections;
    body.nb_cross = cross;
    body.initArrays();
    for (std::int16_t i = 1; i <= sections; ++i) {
        body.sectionOrder(i) = i;
        body.height(i) = 100 + i % 7;
        body.width(i) = 80 + i % 5;
        body.pos(i) = 2.0 * i;
        body.elevation(i) = i % 3;
        body.curvature(i) = ownExponents ? exponentOf(i) : 0.8;
        body.curvature2(i) = ownExponents ? exponentOf(i) + 0.001 : 0.8;
        body.bias_curve(i) = 0.4;
    }
}

void create(benchmark::State& state, bool ownExponents) {
    MeshSections body(millimetres, Point3D{});
    makeLarge(body, ownExponents);
    BodySolid solid;
    for (auto _ : state) {
        solid.create(body);
        benchmark::DoNotOptimize(solid.points.row(0));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * sections * cross);
}

void createOneExponent(benchmark::State& state) {
    create(state, false);
}
BENCHMARK(createOneExponent);

/// As many points from tables: one multiplication and one addition a coordinate.
void writePointsFromTables(benchmark::State& state) {
    std::vector<double> across(cross);
    std::vector<double> up(cross);
    for (std::size_t j = 0; j < cross; ++j) {
        across[j] = std::cos(outlineAngle(static_cast<double>(j) + 1, cross));
        up[j] = std::sin(outlineAngle(static_cast<double>(j) + 1, cross));
    }
    MeshSections body(millimetres, Point3D{});
    makeLarge(body, false);
    std::vector<Point3D> points(static_cast<std::size_t>(sections) * cross);
    for (auto _ : state) {
        Point3D* point = points.data();
        for (int i = 1; i <= sections; ++i)
            for (std::size_t j = 0; j < cross; ++j)
                *point++ = {body.pos(i), body.width(i) * across[j] + body.shift,
                            body.height(i) * up[j] + body.elevation(i)};
        benchmark::DoNotOptimize(points.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * sections * cross);
}
BENCHMARK(writePointsFromTables);

void createOwnExponents(benchmark::State& state) {
    create(state, true);
}
BENCHMARK(createOwnExponents);

/// The sizes of the sines and cosines of the points `first` to `last`, each once.
std::vector<double> distinctSizes(int first, int last) {
    std::vector<double> sizes;
    for (int j = first; j <= last; ++j) {
        sizes.push_back(std::abs(std::cos(outlineAngle(j, cross))));
        sizes.push_back(std::abs(std::sin(outlineAngle(j, cross))));
    }
    std::ranges::sort(sizes);
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    return sizes;
}

/// The powers of the same sines and cosines alone, each computed once: both halves, without the
/// point between them.
void powersAlone(benchmark::State& state) {
    const std::vector<double> upper = distinctSizes(1, cross / 2);
    const std::vector<double> lower = distinctSizes(cross / 2 + 2, cross);
    MeshSections body(millimetres, Point3D{});
    makeLarge(body, true);
    const auto half = [](const std::vector<double>& sizes, double exponent) {
        double sum = 0;
        for (const double size : sizes) sum += std::pow(size, exponent);
        return sum;
    };
    for (auto _ : state) {
        double sum = 0;
        for (int i = 1; i <= sections; ++i)
            sum += half(upper, body.curvature(i)) + half(lower, body.curvature2(i));
        benchmark::DoNotOptimize(sum);
    }
    state.counters["powers"] = static_cast<double>(upper.size() + lower.size());
    state.SetItemsProcessed(state.iterations() * sections * cross);
}
BENCHMARK(powersAlone);

}  // namespace
}  // namespace velna
