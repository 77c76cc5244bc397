// A plan of a large model as a PDF beside the toolkit alone, which is given the same outlines.

#include <QApplication>
#include <QPainter>
#include <QPen>
#include <QPrinter>
#include <QString>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "Measured.h"
#include "common/Polyline.h"
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

/// The front plan, and its file's size and memory.
void planFront(benchmark::State& state) {
    makeModel(state.range(0));
    const std::string target = scratchFile("plan.pdf");
    const std::string file = scratchFile("plan-front.pdf");
    PrintSelectRecord select;
    MemoryAbove memory;
    for (auto _ : state) {
        memory.during([&] {
            QtPrinterSurface paper(printerTo(target));
            if (!Plans::previewJob(project, select, PlanJob::front, {paper, area}).isDone())
                state.SkipWithError("not printed");
        });
    }
    state.counters["MB_above"] = memory.megabytes();
    state.counters["MB_file"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    state.counters["ns_a_point"] = benchmark::Counter(
        static_cast<double>(state.range(0)) * 1e-9,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    std::filesystem::remove(file);
}
BENCHMARK(planFront)
    ->Arg(4000)
    ->Arg(40000)
    ->Arg(400000)
    ->Arg(4000000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

/// The same outlines at the same places, each handed to the toolkit's painter as it is computed.
void planBare(benchmark::State& state) {
    makeModel(state.range(0));
    const std::string file = scratchFile("bare.pdf");
    for (auto _ : state) {
        const auto printer = printerTo(file);
        printer->setFullPage(true);
        QPainter painter(printer.get());
        const double dots = printer->resolution() / 25.4;
        painter.setPen(QPen(Qt::black, 0.25 * dots, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const Transform at{2 * dots, 100 * dots, 150 * dots};
        std::vector<QPointF> outline;
        std::vector<Point2D> section;
        for (int n = 1; n <= nbFuselages; ++n) {
            const MeshSections& body = Fuselages(n);
            const auto front = body.computeFrontPoints(at);
            for (int i = 1; i <= body.nb_sections; ++i) {
                body.collectSection(front, i, section);
                outline.clear();
                for (const Point2D& p : section) outline.emplace_back(p.x, p.y);
                outline.push_back(outline.front());
                painter.drawPolyline(outline.data(), static_cast<int>(outline.size()));
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
