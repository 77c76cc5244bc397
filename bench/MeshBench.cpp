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

/// The points `first` to `last` of a section: the sizes of their sines and cosines, each once, for
/// most stand in a section several times, and where those of each point are.
struct Half {
    struct Place {
        std::size_t across, up;
        double signAcross, signUp;
    };

    Half(int first, int last) {
        for (int j = first; j <= last; ++j) {
            const double across = std::cos(outlineAngle(j, cross));
            const double up = std::sin(outlineAngle(j, cross));
            places.push_back(
                {take(across), take(up), across < 0 ? -1.0 : 1.0, up < 0 ? -1.0 : 1.0});
        }
        powers.resize(sizes.size());
    }

    std::size_t take(double value) {
        const double size = std::abs(value);
        const auto at = std::find(sizes.begin(), sizes.end(), size) - sizes.begin();
        if (static_cast<std::size_t>(at) == sizes.size()) sizes.push_back(size);
        return static_cast<std::size_t>(at);
    }

    Point3D* write(Point3D* point, const MeshSections& body, int i, double exponent) {
        for (std::size_t k = 0; k < sizes.size(); ++k) powers[k] = std::pow(sizes[k], exponent);
        for (const Place& place : places) {
            *point++ = {body.pos(i),
                        body.width(i) * (place.signAcross * powers[place.across]) + body.shift,
                        body.height(i) * (place.signUp * powers[place.up]) + body.elevation(i)};
        }
        return point;
    }

    std::vector<double> sizes;
    std::vector<double> powers;
    std::vector<Place> places;
};

/// As many points from as many powers, each computed once.
void writePointsFromPowers(benchmark::State& state) {
    Half upper(1, cross / 2);
    Half lower(cross / 2 + 2, cross);
    MeshSections body(millimetres, Point3D{});
    makeLarge(body, true);
    std::vector<Point3D> points(static_cast<std::size_t>(sections) * cross);
    for (auto _ : state) {
        Point3D* point = points.data();
        for (int i = 1; i <= sections; ++i) {
            point = upper.write(point, body, i, body.curvature(i));
            *point++ = {body.pos(i), -body.width(i) / 2, body.elevation(i)};
            point = lower.write(point, body, i, body.curvature2(i));
        }
        benchmark::DoNotOptimize(points.data());
        benchmark::ClobberMemory();
    }
    state.counters["powers"] = static_cast<double>(upper.sizes.size() + lower.sizes.size());
    state.SetItemsProcessed(state.iterations() * sections * cross);
}
BENCHMARK(writePointsFromPowers);

}  // namespace
}  // namespace velna
