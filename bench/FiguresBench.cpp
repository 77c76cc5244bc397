// The figures of a large aircraft at each change of a drag, beside a bare loop over its triangles.

#include <cmath>
#include <cstdint>

#include <benchmark/benchmark.h>

#include "Measured.h"
#include "model/BodySolid.h"
#include "model/Fuselage.h"
#include "model/LiveFigures.h"
#include "model/MainWing.h"
#include "model/Plane.h"

namespace velna {
namespace {

constexpr std::int16_t wings = 50;
constexpr std::int16_t hulls = 20;
constexpr std::int16_t sections = 100;
constexpr std::int16_t cross = 8;

/// The exponents are all the same, or each section has its own.
Project largeAircraft(bool ownExponents) {
    Project project;
    Plane::setDefaultPlane(project);
    while (project.nbWings < wings) {
        ++project.nbWings;
        MainWing::addWing(project);
    }
    project.nbFuselages = hulls;
    Fuselage::resizeFuselages(project);
    for (int n = 1; n <= hulls; ++n) {
        MeshSections& body = project.Fuselages(n);
        shapeBody(body, sections, cross, n);
        for (int i = 1; ownExponents && i <= sections; ++i) {
            body.curvature(i) += 0.001 * i;
            body.curvature2(i) += 0.001 * i;
        }
    }
    return project;
}

/// One change after the other, of a wing's chord or of a section's width.
void figuresOfAChange(benchmark::State& state) {
    Project project = largeAircraft(state.range(0) != 0);
    double& dragged =
        state.range(1) != 0 ? project.Fuselages(hulls).width(50) : project.Wings(25).length1;
    LiveFigures live;
    for (auto _ : state) {
        dragged += 0.01;
        live.update(project, {});
        benchmark::DoNotOptimize(live.figures().wing.areaProjected);
    }
}
BENCHMARK(figuresOfAChange)
    ->ArgNames({"ownExponents", "hull"})
    ->ArgsProduct({{0, 1}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);

/// All of them at once, as for a file.
void allFigures(benchmark::State& state) {
    const Project project = largeAircraft(state.range(0) != 0);
    for (auto _ : state) benchmark::DoNotOptimize(figuresOf(project));
}
BENCHMARK(allFigures)->ArgName("ownExponents")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

struct Sums {
    double area = 0;
    double volume = 0;

    void add(const Point3D& a, const Point3D& b, const Point3D& c) {
        const Point3D u{b.x - a.x, b.y - a.y, b.z - a.z};
        const Point3D v{c.x - a.x, c.y - a.y, c.z - a.z};
        const Point3D n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
        area += std::sqrt(n.x * n.x + n.y * n.y + n.z * n.z);
        volume += a.x * n.x + a.y * n.y + a.z * n.z;
    }
};

/// Nothing but the points of all hulls, and area and volume of their triangles.
void trianglesAlone(benchmark::State& state) {
    const Project project = largeAircraft(state.range(0) != 0);
    BodySolid solid;
    for (auto _ : state) {
        Sums sums;
        for (int n = 1; n <= hulls; ++n) {
            solid.create(project.Fuselages(n));
            for (int i = 1; i < sections; ++i) {
                const Point3D* front = solid.points.row(i);
                const Point3D* rear = solid.points.row(i + 1);
                for (int j = 1; j <= cross; ++j) {
                    const int next = j % cross + 1;
                    sums.add(front[j], front[next], rear[next]);
                    sums.add(front[j], rear[next], rear[j]);
                }
            }
        }
        benchmark::DoNotOptimize(sums);
    }
}
BENCHMARK(trianglesAlone)->ArgName("ownExponents")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velna
