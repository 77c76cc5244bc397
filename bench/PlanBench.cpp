// A plan of a large model as a PDF beside the toolkit alone, which is given the same outlines.

#include <QApplication>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QPrinter>
#include <QString>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "Measured.h"
#include "common/Progress.h"
#include "model/Fits.h"
#include "model/FrontOutline.h"
#include "output/Plans.h"
#include "shell/qt/QtPrinterSurface.h"
#include "support/InHand.h"

namespace velna {
namespace {

constexpr std::int16_t cross = 100;
constexpr SurfaceSize area{1200, 800};

/// `points` in bodies of up to 1,000 sections.
void makeModel(std::int64_t points) {
    constexpr std::int64_t mostSections = 1000;
    const std::int64_t all = points / cross;
    resetModel();
    nbFuselages = static_cast<std::int16_t>((all + mostSections - 1) / mostSections);
    Fuselage::resizeFuselages(project);
    for (int n = 1; n <= nbFuselages; ++n)
        shapeBody(Fuselages(n), static_cast<std::int16_t>(all / nbFuselages), cross, n);
}

std::unique_ptr<QPrinter> printerTo(const std::string& file) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(file));
    return printer;
}

/// The front view on the sheet, in micrometres.
Transform fitted() {
    constexpr double sheetWidth = 210'000;
    const Transform fit = Plane::fitFront(project, area, Plane::unfitted(area));
    const double scale = sheetWidth / area.width;
    return {fit.zoom * scale, fit.xoff * scale, fit.yoff * scale};
}

/// A watcher that lets the work run.
class Patient : public Progress {
public:
    bool step(long long, long long) override { return true; }
};

/// The front plan, and its file's size and memory.
void printFront(benchmark::State& state, Progress* watcher) {
    makeModel(state.range(0));
    const std::string target = scratchFile("plan.pdf");
    const std::string file = scratchFile("plan-front.pdf");
    const PrintSelectRecord select;
    const auto work = [&] {
        QtPrinterSurface paper(printerTo(target));
        const Plans::Paper on{paper, area, watcher};
        if (!Plans::previewJob(project, select, PlanJob::front, on).isDone())
            state.SkipWithError("not printed");
    };
    const double above = megabytesAbove(work);
    for (auto _ : state) work();
    state.counters["MB_above"] = above;
    state.counters["MB_file"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    state.counters["points"] = static_cast<double>(state.range(0));
    std::filesystem::remove(file);
}

void planFront(benchmark::State& state) {
    printFront(state, nullptr);
}
BENCHMARK(planFront)
    ->Arg(4000)
    ->Arg(40000)
    ->Arg(400000)
    ->Arg(4000000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

void planWatched(benchmark::State& state) {
    Patient watcher;
    printFront(state, &watcher);
}
BENCHMARK(planWatched)->Arg(400000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// As many outlines of the same sizes, each handed to the toolkit's painter in whole micrometres.
void planBare(benchmark::State& state) {
    makeModel(state.range(0));
    const std::string file = scratchFile("bare.pdf");
    for (auto _ : state) {
        const auto printer = printerTo(file);
        printer->setFullPage(true);
        QPainter painter(printer.get());
        const double micrometre = printer->resolution() / 25400.0;
        painter.scale(micrometre, micrometre);
        painter.setPen(QPen(Qt::black, 250, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPolygonF outline;
        for (int n = 1; n <= nbFuselages; ++n) {
            FrontOutline front(Fuselages(n), fitted());
            std::vector<Point2D> section;
            for (int i = 1; i <= Fuselages(n).nb_sections; ++i) {
                front.collect(i, section);
                outline.clear();
                for (const Point2D& p : section) outline.append({std::round(p.x), std::round(p.y)});
                outline.append(outline.front());
                painter.drawPolyline(outline);
            }
        }
    }
    state.counters["MB_file"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    std::filesystem::remove(file);
}
BENCHMARK(planBare)->Arg(400000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

}  // namespace
}  // namespace velna

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
