#include "support/WorkThrough.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "editor/Main.h"
#include "editor/ViewZoom.h"
#include "model/Fuselage.h"
#include "model/MeshSections.h"
#include "shell/SvgSurface.h"
#include "shell/ViewDrawing.h"
#include "shell/qt/LineRaster.h"
#include "support/Bystanders.h"
#include "support/FakeRenderContext.h"
#include "support/FileWorks.h"
#include "support/Holds.h"

namespace velna::fuzz {
namespace {

constexpr SurfaceSize drawArea{900, 500};
constexpr SurfaceSize sectionArea{150, 150};

/// A name of a picture may hold any word; these are gone from what is looked at.
Project withoutNames(const Project& aircraft) {
    Project bare = aircraft;
    for (int i = 1; i <= bare.nbWings; ++i) bare.Wings(i).set_texture_filename("");
    bare.Stabilizer.set_texture_filename("");
    bare.Rudder.texture_filename.clear();
    for (int i = 1; i <= bare.nbFuselages; ++i) bare.Fuselages(i).texture_filename.clear();
    return bare;
}

/// The picture on the tape, and the form that asks for it.
class Bench {
public:
    explicit Bench(const Project& aircraft) : looked_(aircraft), rendering_(looked_, built_) {
        test::GlTape::clear();
        test::GlTape::foldsVertices = true;
        rendering_.context = &context_;
        rendering_.createRenderContext();
    }
    ~Bench() { rendering_.destroyRenderContext(); }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    void render() {
        rendering_.renderScene(true);
        if (!test::GlTape::faults().empty())
            broken("the picture: " + test::GlTape::faults().front());
    }

    /// Enters a view and lets the pointer rest on it, at the drawing's own places too.
    void hoverOver(void (MainForm::*enter)()) {
        MainForm form(looked_);
        AnsweringWindow window(rendering_);
        form.DrawArea = &area_;
        form.DrawSectionArea = &section_;
        form.window = &window;
        form.refreshPanels();
        (form.*enter)();
        const std::deque<Point2D> places = area_.places;
        for (std::size_t i = 0; i < places.size(); i += places.size() / 8 + 1) {
            form.DrawArea_MouseMove(0, 0, static_cast<float>(places[i].x),
                                    static_cast<float>(places[i].y));
            expectStrip(form);
        }
        form.DrawArea_MouseMove(0, 0, 450, 250);
        zoomAt(form, 300, 200, 1.5);
        form.drawSection();
    }

private:
    Project looked_;
    Solids built_;
    test::FakeRenderContext context_;
    Rendering rendering_;
    PlacesSurface area_{drawArea.width, drawArea.height};
    PlacesSurface section_{sectionArea.width, sectionArea.height};
};

void showPicture(const Project& aircraft, const Choice&, std::size_t) {
    Bench(aircraft).render();
}

template <void (MainForm::*enter)()>
void hoverOver(const Project& aircraft, const Choice&, std::size_t) {
    Bench(aircraft).hoverOver(enter);
}

template <int mode>
void drawAsLines(const Project& aircraft, const Choice&, std::size_t) {
    Project drawn = aircraft;
    SvgSurface surface(drawArea);
    drawView(drawn, mode, surface);
    expectFinite("view.svg", surface.text());
}

/// A surface of pixels, as the window and a picture file have them.
class PixelSurface : public PlacesSurface {
public:
    PixelSurface() : PlacesSurface(columns, rows) {}

    void line(double x1, double y1, double x2, double y2, Rgb) override {
        constexpr Ink black{0xff000000};
        PixelRegion changed;
        rasterLine({pixels_.data(), columns, rows, columns}, {x1, y1}, {x2, y2}, black, changed);
        if (!changed.empty() && (changed.left < 0 || changed.top < 0 || changed.right > columns ||
                                 changed.bottom > rows))
            broken("a line has changed pixels outside the picture");
    }

private:
    static constexpr int columns = 90;
    static constexpr int rows = 50;

    std::vector<std::uint32_t> pixels_ = std::vector<std::uint32_t>(columns * rows);
};

template <int mode>
void drawAsPixels(const Project& aircraft, const Choice&, std::size_t) {
    Project drawn = aircraft;
    PixelSurface surface;
    drawView(drawn, mode, surface);
}

constexpr Work works[] = {
    showPicture,
    showPicture,  // the picture is the most of what a user sees
    hoverOver<&MainForm::initVTopView>,
    hoverOver<&MainForm::initFrontView>,
    hoverOver<&MainForm::initSideView>,
    hoverOver<&MainForm::initHTopView>,
    drawAsLines<ViewMode::VTop>,
    drawAsLines<ViewMode::Front>,
    drawAsLines<ViewMode::Side>,
    drawAsLines<ViewMode::HTop>,
    drawAsPixels<ViewMode::VTop>,
    drawAsPixels<ViewMode::Front>,
    drawAsPixels<ViewMode::Side>,
    drawAsPixels<ViewMode::HTop>,
};

}  // namespace

std::size_t workCount() {
    return std::size(works) + fileWorks().size();
}

std::size_t workThrough(const Project& aircraft, const Choice& choice) {
    const Project bare = withoutNames(aircraft);
    std::size_t number = 0;
    std::size_t done = 0;
    for (const std::span<const Work> some : {std::span<const Work>(works), fileWorks()}) {
        for (const Work work : some) {
            if (choice.takes(number)) {
                work(bare, choice, number);
                ++done;
            }
            ++number;
        }
    }
    return done;
}

}  // namespace velna::fuzz
