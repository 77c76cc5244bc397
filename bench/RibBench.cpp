// 200 ribs with 200 points each: cut beside the library's offset alone, and packed within a second.

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

std::vector<PackedPart> ribs(std::int64_t count) {
    std::vector<PackedPart> parts;
    for (std::int64_t n = 0; n < count; ++n) {
        const PackedSize size{60 + static_cast<double>(n * 37 % 120),
                              8 + static_cast<double>(n * 17 % 30)};
        parts.push_back({size, PackedSize{size.height, size.width}});
    }
    return parts;
}

/// How many sheets they need where each lies behind the last one or in the next row, as they come
/// by their height.
std::size_t sheetsInRows(std::vector<PackedPart> parts) {
    std::ranges::stable_sort(parts, std::ranges::greater{},
                             [](const PackedPart& part) { return part.size.height; });
    PackedPlace next;
    double row = 0;
    for (const PackedPart& part : parts) {
        if (next.x + part.size.width > sheet.width) next = {next.sheet, 0, next.y + row + gap};
        if (next.y + part.size.height > sheet.height) next = {next.sheet + 1, 0, 0};
        if (next.x == 0) row = part.size.height;
        next.x += part.size.width + gap;
    }
    return next.sheet + 1;
}

/// Its ratio is the one to a second.
void packRibs(benchmark::State& state) {
    const std::vector<PackedPart> parts = ribs(state.range(0));
    std::size_t sheets = 0;
    for (auto _ : state) {
        sheets = 0;
        for (const PackedPlace& place : packParts(parts, sheet, gap))
            sheets = std::max(sheets, place.sheet + 1);
    }
    double area = 0;
    for (const PackedPart& part : parts) area += part.size.width * part.size.height;
    state.counters["ratio"] = {static_cast<double>(state.iterations()),
                               benchmark::Counter::kIsRate | benchmark::Counter::kInvert};
    state.counters["sheets"] = static_cast<double>(sheets);
    state.counters["sheets_in_rows"] = static_cast<double>(sheetsInRows(parts));
    state.counters["sheets_of_area"] = area / (sheet.width * sheet.height);
}
BENCHMARK(packRibs)->Arg(200)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velna
