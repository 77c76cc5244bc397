// How the steps that work on a model grow with it: three decades of size, time and memory a point.
// A row's time a point beside that of the row a thousand times smaller is the figure that counts.

#include <charconv>
#include <cmath>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "persistence/AirfoilFiles.h"
#include "persistence/OutlineFiles.h"
#include "support/InHand.h"

namespace velna {
namespace {

/// Bytes in use by the program.
double bytesInUse() {
    const auto memory = ::mallinfo2();
    return static_cast<double>(memory.uordblks + memory.hblkhd);
}

/// A profile of so many points as drawing programs write it.
std::string airfoilFile(int points) {
    std::string file = "PROFILE\r\n";
    for (int i = 0; i < points; ++i) {
        const double angle = 2 * std::acos(-1.0) * i / (points - 1);
        const double x = (1 + std::cos(angle)) / 2;
        const double z = -0.06 * std::sin(angle) * (1 + 0.3 * x);
        file += " " + std::to_string(x) + "  " + std::to_string(z) + "\r\n";
    }
    return file;
}

void importAirfoil(benchmark::State& state) {
    resetModel();
    const auto points = static_cast<int>(state.range(0));
    const std::string file = airfoilFile(points);
    const double before = bytesInUse();
    for (auto _ : state) loadAirfoilBytes(project, file);
    state.counters["bytes_a_point"] = (bytesInUse() - before) / points;
    state.SetItemsProcessed(state.iterations() * points);
    if (Wings(1).nb != points) state.SkipWithError("not imported");
}
BENCHMARK(importAirfoil)->Arg(32)->Arg(327)->Arg(3276)->Arg(32767);

/// The same file as one whose order has to be found out.
void importInAnyOrder(benchmark::State& state) {
    resetModel();
    const auto points = static_cast<int>(state.range(0));
    const std::string file = airfoilFile(points);
    for (auto _ : state) AirfoilOutline::putOnWing(project, readOutlineBytes(file), false);
    state.SetItemsProcessed(state.iterations() * points);
}
BENCHMARK(importInAnyOrder)->Arg(32)->Arg(32767);

/// The numbers of the same file read one by one.
void readNumbersAlone(benchmark::State& state) {
    const auto points = static_cast<int>(state.range(0));
    const std::string file = airfoilFile(points);
    for (auto _ : state) {
        double sum = 0;
        const char* at = file.data() + file.find('\n');
        const char* end = file.data() + file.size();
        while (at != end) {
            while (at != end && (*at <= ' ')) ++at;
            double number = 0;
            at = std::from_chars(at, end, number).ptr;
            sum += number;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * points);
}
BENCHMARK(readNumbersAlone)->Arg(32)->Arg(327)->Arg(3276)->Arg(32767);

constexpr std::int16_t cross = 122;
constexpr int largest = 32767 * cross;  // four million points are allowed

/// One hull of about so many points.
void shapeHull(int points) {
    resetModel();
    MeshSections& body = Fuselages(1);
    body.nb_sections = static_cast<std::int16_t>(points / cross);
    body.nb_cross = cross;
    body.initArrays();
    for (int i = 1; i <= body.nb_sections; ++i) {
        body.sectionOrder(i) = static_cast<std::int16_t>(i);
        body.pos(i) = 0.3 * i;
        body.width(i) = 80 + i % 5;
        body.height(i) = 100 + i % 7;
        body.elevation(i) = i % 3;
        body.curvature(i) = body.curvature2(i) = 0.8;
        body.bias_curve(i) = 0.4;
    }
    ObjectList.update(Fuselages, nbFuselages);
}

void hullArgs(benchmark::internal::Benchmark* row) {
    for (const int points : {4'000, 40'000, 400'000, largest}) row->Arg(points);
}

void rebuildHull(benchmark::State& state) {
    const auto points = static_cast<int>(state.range(0));
    shapeHull(points);
    solids = {};
    const double before = bytesInUse();
    solids.createAll(project);
    state.counters["bytes_a_point"] = (bytesInUse() - before) / points;
    for (auto _ : state) solids.createAll(project);
    state.SetItemsProcessed(state.iterations() * points);
    solids = {};
}
BENCHMARK(rebuildHull)->Apply(hullArgs)->MeasureProcessCPUTime();

/// The same by the clock, with the second thread that the largest has; and in one thread.
void rebuildHullByTheClock(benchmark::State& state) {
    shapeHull(largest);
    for (auto _ : state) solids.createAll(project);
    solids = {};
}
BENCHMARK(rebuildHullByTheClock)->UseRealTime()->Unit(benchmark::kMillisecond);

void rebuildHullInOneThread(benchmark::State& state) {
    shapeHull(largest);
    BodySolid solid;
    for (auto _ : state) solid.create(Fuselages(1));
}
BENCHMARK(rebuildHullInOneThread)->UseRealTime()->Unit(benchmark::kMillisecond);

/// What a mesh keeps, beside its bare points.
void hullMemory(benchmark::State& state) {
    shapeHull(largest);
    solids = {};
    for (auto _ : state) {
        const double before = bytesInUse();
        solids.createAll(project);
        const double bare = sizeof(Point3D) * static_cast<double>(Fuselages(1).nb_sections) * cross;
        state.counters["ratio"] = (bytesInUse() - before) / bare;
    }
    solids = {};
}
BENCHMARK(hullMemory)->Iterations(1);

/// What the Front view computes of a fuselage, beside all of its sections.
void frontOfSelected(benchmark::State& state) {
    shapeHull(48'800);
    Array1<Point2D> section;
    for (auto _ : state)
        section = Fuselages(1).computeFrontSection({2, 400, 300}, 200, std::move(section));
}
BENCHMARK(frontOfSelected)->Unit(benchmark::kMicrosecond);

void frontOfAll(benchmark::State& state) {
    shapeHull(48'800);
    Array2<Point2D> front;
    for (auto _ : state) front = Fuselages(1).computeFrontPoints({2, 400, 300}, std::move(front));
}
BENCHMARK(frontOfAll)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velna

BENCHMARK_MAIN();
