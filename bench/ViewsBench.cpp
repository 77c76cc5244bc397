// Moves and redraws of the editor, each beside a bare loop that draws the same lines on the same
// surface: what the editor adds to its lines. A move that drags may take 1.5 times as long as its
// lines, a full redraw 1.3 times.
#include <cmath>
#include <cstdint>
#include <functional>
#include <vector>

#include <benchmark/benchmark.h>

#include "shell/qt/LineRaster.h"
#include "support/EditorInHand.h"
#include "support/RecordingWindow.h"

namespace velna {
namespace {

/// One call that draws, as the bare loop repeats it.
struct Call {
    bool clears = false;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Rgb colour;
};

/// The drawing surface on a picture in memory, by the program's own lines.
class RasterSurface : public Surface {
public:
    RasterSurface(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * height) {}

    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear() override {
        if (tape) tape->push_back({true, 0, 0, 0, 0, {}});
        std::fill(pixels_.begin(), pixels_.end(), 0xffffffffU);
    }
    void line(double x1, double y1, double x2, double y2, Rgb colour) override {
        if (tape) tape->push_back({false, x1, y1, x2, y2, colour});
        const std::uint32_t pixel = 0xff000000U | std::uint32_t{colour.red} << 16 |
                                    std::uint32_t{colour.green} << 8 | colour.blue;
        rasterLine({pixels_.data(), width_, height_, width_}, {x1, y1}, {x2, y2}, {pixel},
                   changed_);
    }
    void setDrawMode(DrawMode) override {}
    std::optional<Point2D> pictureSize(const std::string&) override { return std::nullopt; }
    void paintPicture(const std::string&, Point2D, Point2D) override {}
    void refresh() override { changed_ = {}; }
    void setFocus() override {}

    /// Draws a recorded list.
    void play(const std::vector<Call>& calls) {
        for (const Call& call : calls) {
            if (call.clears)
                clear();
            else
                line(call.x1, call.y1, call.x2, call.y2, call.colour);
        }
    }

    std::vector<Call>* tape = nullptr;

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
    PixelRegion changed_;
};

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
