// A drag of a wing tip in a large aircraft while unsaved work is being written by its own thread,
// beside the same drag with nothing kept; and what handing work over costs beside a bare copy.
#include <filesystem>

#include <benchmark/benchmark.h>

#include "support/FakeDesktop.h"
#include "support/ProgramInHand.h"
#include "support/RecordingSurface.h"
#include "support/RecordingWindow.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

constexpr int steps = 200;  // of a gesture

/// A program on recorders, with 50 wings and 20 fuselages of 100 sections.
class Bench {
public:
    Bench() {
        renewProgram();
        desktop_.state = folder_.path();
        program.shell.desktop = &desktop_;
        Main.DrawArea = &area_;
        Main.DrawSectionArea = &sectionArea_;
        Main.window = &window_;
        resetModel();
        while (nbWings < 50) {
            Plane::increment(nbWings);
            MainWing::addWing(project);
        }
        for (int i = 1; i <= 50; ++i) Wings(i).span = 700 - 10 * i;
        while (nbFuselages < 20) {
            Plane::increment(nbFuselages);
            Fuselage::resizeFuselages(project);
            Fuselage::addFuselage(project);
        }
        for (int i = 1; i <= 20; ++i) growTo(Fuselages(i), 100);
        ObjectList.update(Fuselages, nbFuselages);
        Main.setChecked(Control::RenderButton, false);
        Main.refreshPanels();
        Main.initVTopView();
    }

    /// A change, of the same size each time.
    void edit() {
        Wings(2).shift = 1 - Wings(2).shift;
        Main.savedProject = false;
    }
    void press() {
        const Outline& tip = Main.views.wings(1).vtopPoints;
        x_ = static_cast<float>(tip[1].x);
        y_ = static_cast<float>((tip[1].y + tip[4].y) / 2);
        Main.DrawArea_MouseMove(0, 0, x_, y_);
        Main.DrawArea_MouseDown(1, 0, x_, y_);
    }
    void step(int i) {
        Main.DrawArea_MouseMove(1, 0, x_, y_ + static_cast<float>(i % 2 ? 10 : -10));
    }
    void release() {
        Main.DrawArea_MouseUp(1, 0, x_, y_);
        area_.calls.clear();
        window_.changes.clear();
    }

private:
    static void growTo(MeshSections& body, int sections) {
        body.sel_sec = 2;
        while (body.nb_sections < sections) body.insertSection(250 + body.nb_sections);
    }

    test::TemporaryFolder folder_;
    test::FakeDesktop desktop_;
    test::RecordingSurface area_{1400, 500};
    test::RecordingSurface sectionArea_{150, 150};
    test::RecordingWindow window_;
    float x_ = 0;
    float y_ = 0;
};

void gestures(benchmark::State& state, bool kept) {
    Bench bench;
    if (kept) program.recovery.begin();
    for (auto _ : state) {
        state.PauseTiming();
        bench.edit();
        if (kept) program.recovery.lookNow("/bench.vln");
        bench.press();
        state.ResumeTiming();
        for (int i = 0; i < steps; ++i) {
            bench.step(i);
            if (kept) program.recovery.look("/bench.vln");
        }
        state.PauseTiming();
        bench.release();
        state.ResumeTiming();
    }
    program.recovery.end();
}

void dragKept(benchmark::State& state) {
    gestures(state, true);
}

void dragAlone(benchmark::State& state) {
    gestures(state, false);
}

void handOver(benchmark::State& state) {
    Bench bench;
    program.recovery.begin();
    for (auto _ : state) {
        bench.edit();
        program.recovery.lookNow("/bench.vln");
    }
    program.recovery.end();
}

/// What handing over cannot do without: the copy that is compared, and the one that is written.
void twoCopies(benchmark::State& state) {
    const Bench bench;
    for (auto _ : state) {
        const Project one = project;
        const Project other = one;
        benchmark::DoNotOptimize(other.nbWings);
    }
}

BENCHMARK(dragKept)->Unit(benchmark::kMicrosecond);
BENCHMARK(dragAlone)->Unit(benchmark::kMicrosecond);
BENCHMARK(handOver)->Unit(benchmark::kMicrosecond);
BENCHMARK(twoCopies)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velna

BENCHMARK_MAIN();
