// The steps of a hand with `Render` pressed, drawing and picture together, beside a bare replay of
// the same picture: twenty bodies, of which one is being changed. The drawing is the program's own,
// the window's widgets are left out. Without a GL that can draw off screen it says so and measures
// nothing.

#include <benchmark/benchmark.h>

#include "RasterSurface.h"
#include "preview/Rendering.h"
#include "support/EditorInHand.h"
#include "support/OffscreenContext.h"
#include "support/RecordingWindow.h"

namespace velna {
namespace {

constexpr int bodies = 20;
constexpr int sections = 100;
constexpr std::int16_t edited = 50;  ///< the section in hand

test::OffscreenContext offscreen{900, 500};
Rendering rendering(project, solids);
RasterSurface area(1400, 500);
RasterSurface sectionArea(150, 150);

/// A window whose picture is a real one.
struct LiveWindow : test::RecordingWindow {
    void renderScene(bool rebuild) override {
        changes.clear();
        rendering.renderScene(rebuild);
    }
    void holdPicture(bool on) override { rendering.hold(on); }
};

LiveWindow window;

void shapeBody(MeshSections& body, int number, std::int16_t cross) {
    body.nb_sections = sections;
    body.nb_cross = cross;
    body.initArrays();
    for (int i = 1; i <= sections; ++i) {
        body.sectionOrder(i) = static_cast<std::int16_t>(i);
        body.pos(i) = 8.0 * i;
        body.height(i) = 20 + i % 10;
        body.width(i) = 25 - i % 7;
        body.elevation(i) = 10.0 * number;
        body.curvature(i) = 1 + 0.01 * i;
        body.curvature2(i) = 0.8;
        body.bias_curve(i) = 0.5;
    }
    body.sel_sec = edited;
}

/// So many points in all; the side view with `Render` pressed.
bool open(benchmark::State& state) {
    resetEditor();
    nbFuselages = bodies;
    Fuselage::resizeFuselages(project);
    const auto cross = static_cast<std::int16_t>(state.range(0) / bodies / sections);
    for (int i = 1; i <= bodies; ++i) shapeBody(Fuselages(i), i, cross);
    ObjectList.update(Fuselages, nbFuselages);
    Main.DrawArea = &area;
    Main.DrawSectionArea = &sectionArea;
    Main.window = &window;
    rendering.context = &offscreen;
    if (!rendering.contextCreated) rendering.createRenderContext();
    if (!rendering.contextCreated) {
        state.SkipWithError("no OpenGL that draws off screen");
        return false;
    }
    rendering.setViewTransform(0, 0, 0, 900, 200);
    Main.setChecked(Control::RenderButton, true);
    Main.refreshPanels();
    Main.selectTab(PanelTab::fuselage);
    Main.initSideView();
    // A software driver compiles its own code at the first frames.
    for (int frame = 0; frame < 20; ++frame) rendering.renderScene(true);
    return true;
}

void replay(benchmark::State& state) {
    if (!open(state)) return;
    for (auto _ : state) rendering.renderScene(false);
}
BENCHMARK(replay)->Arg(100000)->Arg(60000)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

/// A drag of a section's top to and fro.
void drag(benchmark::State& state, bool withPicture) {
    if (!open(state)) return;
    Main.setChecked(Control::RenderButton, withPicture);
    const Point2D end = Main.views.fuselages(1).side.top(edited);
    const auto x = static_cast<float>(end.x);
    const auto y = static_cast<float>(end.y);
    Main.DrawArea_MouseMove(0, 0, x, y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    const double before = Fuselages(1).height(edited);
    float way = 1;
    for (auto _ : state) {
        Main.DrawArea_MouseMove(1, 0, x, y + way);
        way = 11 - way;
    }
    if (Fuselages(1).height(edited) == before) state.SkipWithError("nothing was dragged");
}

void dragStep(benchmark::State& state) {
    drag(state, true);
}
BENCHMARK(dragStep)->Arg(100000)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

/// The drawing's share in that.
void dragStepWithoutPicture(benchmark::State& state) {
    drag(state, false);
}
BENCHMARK(dragStepWithoutPicture)
    ->Arg(100000)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

void sliderStep(benchmark::State& state) {
    if (!open(state)) return;
    Main.setChecked(Control::LinkedCurvaturesCheck, true);
    int value = 120;
    for (auto _ : state) {
        value = 250 - value;
        Main.sliderChanged(Control::CurvatureSlider, value);
    }
    if (Fuselages(1).curvature2(edited) == 0.8) state.SkipWithError("the sliders are not linked");
}
BENCHMARK(sliderStep)->Arg(60000)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velna

BENCHMARK_MAIN();
