// A step of the history on a large aircraft beside what keeping a state costs at the least: one
// copy and one comparison of the project.

#include <deque>

#include <benchmark/benchmark.h>

#include "editor/History.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/MeshSections.h"
#include "model/Plane.h"

namespace velna {
namespace {

/// 50 panels and 20 fuselages of 100 sections.
Project largeAircraft() {
    Project project;
    Plane::setDefaultPlane(project);
    while (project.nbWings < 50) {
        ++project.nbWings;
        MainWing::addWing(project);
    }
    project.nbFuselages = 20;
    Fuselage::resizeFuselages(project);
    for (int i = 1; i <= 20; ++i) {
        MeshSections& body = project.Fuselages(i);
        body.nb_sections = 100;
        body.initArrays();
        for (int k = 1; k <= 100; ++k) {
            body.sectionOrder(k) = static_cast<std::int16_t>(k);
            body.pos(k) = 10.0 * k + i;
        }
    }
    return project;
}

/// A gesture that changes one number; counters: bytes a state, milliseconds a step.
void historyStep(benchmark::State& state) {
    Project project = largeAircraft();
    History history;
    history.begin(project, true);
    const std::size_t before = history.bytes();
    for (auto _ : state) {
        history.open(project);
        project.Wings(7).span += 1;
        history.close(project);
    }
    state.counters["bytesAState"] = static_cast<double>(before);
}
BENCHMARK(historyStep);

/// A gesture that changes nothing: a hover, a click, a key.
void historyNoStep(benchmark::State& state) {
    Project project = largeAircraft();
    History history;
    history.begin(project, true);
    for (auto _ : state) {
        history.open(project);
        history.close(project);
    }
}
BENCHMARK(historyNoStep);

/// The project's own comparison, and a copy that stays, among as many as the history keeps.
void compareAndKeep(benchmark::State& state) {
    Project project = largeAircraft();
    History history;
    history.begin(project, true);
    const std::size_t most = History::usualMost / history.bytes();
    std::deque<Project> kept{project};
    for (auto _ : state) {
        project.Wings(7).span += 1;
        benchmark::DoNotOptimize(project == kept.back());
        kept.push_back(project);
        if (kept.size() > most) kept.pop_front();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(compareAndKeep);

/// The comparison alone.
void compareAlone(benchmark::State& state) {
    const Project project = largeAircraft();
    const Project last = project;
    for (auto _ : state) benchmark::DoNotOptimize(project == last);
}
BENCHMARK(compareAlone);

}  // namespace
}  // namespace velna
