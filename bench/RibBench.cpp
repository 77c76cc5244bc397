// 200 ribs with 200 points each: cut beside the library's offset alone, packed beside rows that are
// filled as the parts come.

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include <benchmark/benchmark.h>
#include <polyclipping/clipper.hpp>

#include "model/Plane.h"
#include "output/CutParts.h"
#include "output/PartPacking.h"

namespace velna {
namespace {

constexpr int points = 200;
constexpr double skin = 1.5;
constexpr double steps = 1e6;  // of a millimetre, in the library
constexpr PackedSize sheet{190, 277};
constexpr double gap = 4;

/// A wing of one panel, as many stations as there are ribs wanted, and a stabiliser that has none.
Project wingOf(std::int64_t ribs, RibWishes& wishes) {
    Project project;
    Plane::setDefaultPlane(project);
    SymWingSections& wing = project.Wings(1);
    wing.nb = points;
    wing.allocate();
    for (int i = 1; i <= points; ++i) {
        const double angle = 2 * std::numbers::pi * (i - 1) / points;
        wing.setAirfoilPoint(i, (1 + std::cos(angle)) / 2, -std::sin(angle) / 2);
    }
    project.Stabilizer.length1 = project.Stabilizer.length2 = 0;
    wishes.stations.count = static_cast<int>(ribs);
    wishes.skin = skin;
    return project;
}

void cutRibs(benchmark::State& state) {
    RibWishes wishes;
    const Project project = wingOf(state.range(0), wishes);
    for (auto _ : state) {
        std::vector<CutRib> ribs;
        std::vector<std::string> words;
        if (!collectRibs(project, wishes, nullptr, ribs, words).isDone() ||
            ribs.size() != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("not cut");
        benchmark::DoNotOptimize(ribs);
    }
}
BENCHMARK(cutRibs)->Arg(200)->Unit(benchmark::kMillisecond);

/// The offset of the same outlines in the library's own numbers.
void offsetBare(benchmark::State& state) {
    RibWishes wishes;
    const Project project = wingOf(state.range(0), wishes);
    ClipperLib::Paths outlines;
    for (std::int64_t n = 0; n < state.range(0); ++n) {
        const double share = static_cast<double>(n) / static_cast<double>(state.range(0) - 1);
        ClipperLib::Path path;
        for (const Point2D& point : ribAt(project.Wings(1), project.units, {share, 0}).outline)
            path.emplace_back(std::llround(point.x * steps), std::llround(point.y * steps));
        if (!ClipperLib::Orientation(path)) ClipperLib::ReversePath(path);
        outlines.push_back(std::move(path));
    }
    for (auto _ : state) {
        for (const ClipperLib::Path& outline : outlines) {
            ClipperLib::Paths simple;
            ClipperLib::SimplifyPolygon(outline, simple, ClipperLib::pftPositive);
            ClipperLib::ClipperOffset offset(2, 0.002 * steps);
            offset.AddPaths(simple, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
            ClipperLib::Paths left;
            offset.Execute(left, -skin * steps);
            benchmark::DoNotOptimize(left);
        }
    }
}
BENCHMARK(offsetBare)->Arg(200)->Unit(benchmark::kMillisecond);

std::vector<PackedSize> sizes(std::int64_t count) {
    std::vector<PackedSize> parts;
    for (std::int64_t n = 0; n < count; ++n)
        parts.push_back(
            {60 + static_cast<double>(n * 37 % 120), 8 + static_cast<double>(n * 17 % 30)});
    return parts;
}

void packRibs(benchmark::State& state) {
    const std::vector<PackedSize> parts = sizes(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(packParts(parts, sheet, gap));
}
BENCHMARK(packRibs)->Arg(200)->Unit(benchmark::kMicrosecond);

/// Sorted, and each part behind the last one or in the next row.
void packBare(benchmark::State& state) {
    const std::vector<PackedSize> parts = sizes(state.range(0));
    for (auto _ : state) {
        std::vector<PackedSize> sorted = parts;
        std::stable_sort(
            sorted.begin(), sorted.end(),
            [](const PackedSize& a, const PackedSize& b) { return a.height > b.height; });
        std::vector<PackedPlace> places;
        PackedPlace next;
        double row = 0;
        for (const PackedSize& part : sorted) {
            if (next.x + part.width > sheet.width) next = {next.sheet, 0, next.y + row + gap};
            if (next.y + part.height > sheet.height) next = {next.sheet + 1, 0, 0};
            if (next.x == 0) row = part.height;
            places.push_back(next);
            next.x += part.width + gap;
        }
        benchmark::DoNotOptimize(places);
    }
}
BENCHMARK(packBare)->Arg(200)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velna
