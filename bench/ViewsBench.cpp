// Moves and redraws of the editor, each beside a bare loop that draws the same lines on the same
// surface: what the editor adds to its lines. A move that drags may take 1.5 times as long as its
// lines, a full redraw 1.3 times.
#include <cmath>
#include <cstdint>
#include <functional>
#include <vector>

#include <benchmark/benchmark.h>

#include "RasterSurface.h"
#include "support/EditorInHand.h"
#include "support/RecordingWindow.h"

namespace velna {
namespace {

RasterSurface area(1400, 500);
RasterSurface sectionArea(150, 150);
test::RecordingWindow window;

void startUp() {
    resetEditor();
    Main.DrawArea = &area;
    Main.DrawSectionArea = &sectionArea;
    Main.window = &window;
    // The lines are measured, not the picture beside them.
    Main.setChecked(Control::RenderButton, false);
    Main.refreshPanels();
    Main.initVTopView();
}

/// Wings end to end, all within the surface.
void chainOfWings(int count) {
    for (int i = 2; i <= count; ++i) {
        Plane::increment(nbWings);
        MainWing::addWing(project);
    }
    for (int i = 1; i <= count; ++i) {
        Wings(i).span = 700.0 / count;
        Wings(i).shift = 700.0 / count * (i - 1);
        Wings(i).length1 = Wings(i).length2 = 150;
        Wings(i).pos2 = 0;
    }
}

/// A body of `count` sections of its own width and height each.
void shapeBody(MeshSections& body, int count) {
    body.nb_sections = static_cast<std::int16_t>(count);
    body.initArrays();
    for (int i = 1; i <= count; ++i) {
        const double t = static_cast<double>(i) / count;
        body.sectionOrder(i) = static_cast<std::int16_t>(i);
        body.height(i) = 20 + 80 * std::sin(3 * t);
        body.width(i) = 15 + 70 * std::sin(3 * t);
        body.pos(i) = 800 * t;
        body.elevation(i) = 10 + 10 * t;
        body.curvature(i) = body.curvature2(i) = 1;
        body.bias_curve(i) = 0.5;
    }
}

void bodyOf500Sections() {
    shapeBody(Fuselages(1), 500);
    Fuselages(1).sel_sec = 250;
    Main.selectTab(PanelTab::fuselage);
}

void largeProject() {
    chainOfWings(50);
    for (int i = 2; i <= 20; ++i) {
        Plane::increment(nbFuselages);
        Fuselage::resizeFuselages(project);
        Fuselage::addFuselage(project);
    }
    for (int i = 1; i <= 20; ++i) {
        shapeBody(Fuselages(i), 100);
        Fuselages(i).shift = i;
    }
    for (int i = 2; i <= 50; ++i) {
        Plane::increment(nbEquipments);
        Equipment::resizeEquipments(project, nbEquipments);
        Equipments(i).pos = 10 * i;
    }
    ObjectList.update(Fuselages, nbFuselages);
}

/// Two steps to and fro, so that no step finds the pointer where the last one left it.
struct Steps {
    std::function<void()> there;
    std::function<void()> back;
};

/// A press on a handle; the steps drag it.
Steps dragOf(float x, float y) {
    Main.DrawArea_MouseMove(0, 0, x, y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    return {[=] { Main.DrawArea_MouseMove(1, 0, x, y + 10); },
            [=] { Main.DrawArea_MouseMove(1, 0, x, y - 10); }};
}

Steps dragChain() {
    startUp();
    chainOfWings(100);
    Main.initVTopView();
    const Outline& first = Main.views.wings(1).vtopPoints;
    return dragOf(static_cast<float>(first[1].x),
                  static_cast<float>((first[1].y + first[4].y) / 2));
}

Steps dragSectionInSide() {
    startUp();
    bodyOf500Sections();
    Main.initSideView();
    const Point2D end = Main.views.fuselages(1).side.top(250);
    return dragOf(static_cast<float>(end.x), static_cast<float>(end.y));
}

Steps dragSectionInHTop() {
    startUp();
    bodyOf500Sections();
    Main.initHTopView();
    const Point2D end = Main.views.fuselages(1).htop.plus(250);
    return dragOf(static_cast<float>(end.x), static_cast<float>(end.y));
}

Steps slideSection() {
    startUp();
    bodyOf500Sections();
    Main.initSideView();
    return {[] { Main.sliderChanged(Control::CurvatureSlider, 120); },
            [] { Main.sliderChanged(Control::CurvatureSlider, 130); }};
}

template <int mode, int tab>
Steps redraw() {
    startUp();
    largeProject();
    Main.view.mode = mode;
    Main.selectTab(tab);
    return {[] { Main.refreshDrawingArea(); }, [] { Main.refreshDrawingArea(); }};
}

void runEditor(benchmark::State& state, Steps (*prepare)()) {
    const Steps steps = prepare();
    for (auto _ : state) {
        steps.there();
        steps.back();
        window.changes.clear();
    }
}

void runBareLines(benchmark::State& state, Steps (*prepare)()) {
    const Steps steps = prepare();
    steps.there();
    steps.back();
    std::vector<Call> calls;
    std::vector<Call> sectionCalls;
    area.tape = &calls;
    sectionArea.tape = &sectionCalls;
    steps.there();
    steps.back();
    area.tape = nullptr;
    sectionArea.tape = nullptr;
    for (auto _ : state) {
        area.play(calls);
        sectionArea.play(sectionCalls);
    }
    state.counters["lines"] = static_cast<double>(calls.size() + sectionCalls.size()) / 2;
}

/// Registers a scene twice: the editor, and the bare loop beside it.
void compare(const std::string& name, Steps (*prepare)()) {
    benchmark::RegisterBenchmark((name + "/editor").c_str(), runEditor, prepare)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark((name + "/lines").c_str(), runBareLines, prepare)
        ->Unit(benchmark::kMicrosecond);
}

}  // namespace
}  // namespace velna

int main(int argc, char** argv) {
    using namespace velna;
    compare("drag 100 wings in VTop", dragChain);
    compare("drag 1 of 500 sections in Side", dragSectionInSide);
    compare("drag 1 of 500 sections in HTop", dragSectionInHTop);
    compare("slider step on 500 sections", slideSection);
    compare("redraw VTop", redraw<ViewMode::VTop, PanelTab::wing>);
    compare("redraw Front", redraw<ViewMode::Front, PanelTab::wing>);
    compare("redraw Side", redraw<ViewMode::Side, PanelTab::fuselage>);
    compare("redraw Side, boxes", redraw<ViewMode::Side, PanelTab::electronics>);
    compare("redraw HTop", redraw<ViewMode::HTop, PanelTab::fuselage>);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
