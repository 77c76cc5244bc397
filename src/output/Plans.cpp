#include "output/Plans.h"

#include <cmath>

#include "model/Fits.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "output/AircraftPlans.h"
#include "output/PlanLines.h"
#include "output/Progress.h"
#include "output/SheetMarks.h"

namespace velna {

PrintSelectRecord PrintSelect;

namespace Plans {

namespace {

constexpr int scaleMillimetres = 6;
constexpr int scaleInches = 5;
constexpr double trueScale = 1;

/// A watcher counts sheets, or sections where one sheet holds all of them.
constexpr long long everySheet = 1;
constexpr long long sectionsBetweenQuestions = 50;

/// A job that cannot be printed at all.
std::string refuse(PrinterSurface& printer, const std::string& reason) {
    printer.KillDoc();
    return reason;
}

/// Ends a job that ran to its end, was cancelled, or has lost its printer.
std::string endJob(PrinterSurface& printer, const Work& work) {
    if (work.cancelled()) {
        printer.KillDoc();
        return cancelledReason;
    }
    return printer.EndDoc() ? std::string() : printer.error();
}

/// Prints `count` sheets, each begun by `draw(number)`. A plan without any is refused with the
/// reason `whyNone`: who asked for it would look for its paper.
template <class Draw>
std::string printSheets(PrinterSurface& printer, double count, const char* whyNone, Draw draw) {
    if (!(count <= static_cast<double>(mostSheets))) {
        return refuse(printer,
                      "The plan needs more than " + std::to_string(mostSheets) + " sheets.");
    }
    if (!(count >= 1)) return refuse(printer, whyNone);
    const auto sheets = static_cast<long long>(count);
    Work work(sheets, everySheet);
    for (long long sheet = 1; sheet <= sheets; ++sheet) {
        if (!printer.error().empty()) break;
        draw(sheet);
        printer.NewPage();
        if (!work.did(1)) break;
    }
    return endJob(printer, work);
}

bool printable(const PrinterSurface& printer) {
    return printer.ScaleWidth() > 0 && printer.ScaleHeight() > 0;
}

constexpr const char* nothingOnPaper =
    "The plan has no sheets: the fuselage lies wholly before position 0.";
constexpr const char* noSections = "The plan has no sheets: the fuselage has no sections.";

/// A true-scale plan in sheets side by side: plain tiles as far as the current fuselage reaches,
/// or, for taping, sheets that overlap and hold the whole plan.
std::string printTiles(PrinterSurface& printer, double yoff, const PlanDrawing& draw) {
    const double width = printer.ScaleWidth();
    if (!PrintSelect.overlap) {
        const double sheets = std::floor(Fuselage::current().lengthPoint() / width) + 1;
        return printSheets(printer, sheets, nothingOnPaper, [&](long long sheet) {
            draw(printer, -static_cast<double>(sheet - 1) * width, yoff);
        });
    }
    const SheetGrid grid = SheetMarks::cut(draw, yoff, width, printer.ScaleHeight());
    if (grid.columns == 0) return refuse(printer, "The sheet is too small to overlap.");
    const double sheets = static_cast<double>(grid.rows) * static_cast<double>(grid.columns);
    return printSheets(printer, sheets, nothingOnPaper, [&](long long sheet) {
        const long long row = (sheet - 1) / grid.columns;
        const long long column = (sheet - 1) % grid.columns;
        draw(printer, -(grid.left + static_cast<double>(column) * grid.stepX),
             yoff - (grid.top + static_cast<double>(row) * grid.stepY));
        SheetMarks::drawMarks(printer, row + 1, column + 1);
    });
}

/// Only the first wing appears, as in the side view.
std::string printSideJob(PrinterSurface& printer, SurfaceSize) {
    const double yoff = printer.ScaleHeight() + Fuselage::current().minElevationPoint();
    return printTiles(printer, yoff, [](PrinterSurface& sheet, double x, double y) {
        const Transform at{trueScale, x, y};
        printSide(sheet, Fuselage::current(), at);
        printSide(sheet, Wings(1), at);
        printSide(sheet, Stabilizer, at);
        printSide(sheet, Rudder, at);
    });
}

std::string printHTopJob(PrinterSurface& printer, SurfaceSize) {
    return printTiles(printer, printer.ScaleHeight() / 2,
                      [](PrinterSurface& sheet, double x, double y) {
                          printHTop(sheet, Fuselage::current(), {trueScale, x, y});
                      });
}

/// Each section lies at its true place to the middle of the fuselage's height, so that all sheets
/// can be stacked on the cross hair.
std::string printSectionsJob(PrinterSurface& printer, SurfaceSize) {
    const MeshSections& fuselage = Fuselage::current();
    const double width = printer.ScaleWidth();
    const double height = printer.ScaleHeight();
    const double middle = (fuselage.maxElevationPoint() + fuselage.minElevationPoint()) / 2;
    const double xoff = width / 2 + fuselage.shift;
    SectionPlans sections(fuselage, {trueScale, xoff, height / 2 + middle});
    return printSheets(printer, fuselage.nb_sections, noSections, [&](long long section) {
        printer.Line(width / 2, 0, width / 2, height, black);
        printer.Line(0, height / 2, width, height / 2, black);
        sections.print(printer, static_cast<int>(section));
        if (PrintSelect.overlap) SheetMarks::drawRuler(printer);
    });
}

/// A view as it is fitted to a drawing surface of `area`, blown up to the sheet. A plan shows the
/// whole aircraft, whatever scale the screen has.
Transform onSheet(const Transform& fitted, SurfaceSize area, const PrinterSurface& printer) {
    const double r = printer.ScaleWidth() / area.width;
    return {fitted.zoom * r, fitted.xoff * r, fitted.yoff * r};
}

std::string printVTopJob(PrinterSurface& printer, SurfaceSize area) {
    const Transform fit = onSheet(Plane::fitVTop(area, Plane::unfitted(area)), area, printer);
    // The nose lies at the paper's upper edge, whatever room the screen leaves above it.
    const Transform at{fit.zoom, fit.xoff, 0};
    for (int i = 1; i <= nbFuselages; ++i) printVTop(printer, Fuselages(i), at);
    for (int i = 1; i <= nbWings; ++i) printVTop(printer, Wings(i), at);
    printVTop(printer, Stabilizer, at);
    printer.NewPage();
    return endJob(printer, Work(1));
}

long long allSections() {
    long long total = 0;
    for (int n = 1; n <= nbFuselages; ++n) total += Fuselages(n).nb_sections;
    return total;
}

/// All sections of all fuselages; the last fuselage is current afterwards.
void printAllSections(PrinterSurface& printer, const Transform& fit, Work& work) {
    for (int n = 1; n <= nbFuselages; ++n) {
        currentFuselage = static_cast<std::int16_t>(n);
        const MeshSections& fuselage = Fuselages(n);
        if (fuselage.nb_cross == 0) continue;
        SectionPlans sections(fuselage, fit);
        for (int i = 1; i <= fuselage.nb_sections && work.did(1); ++i) sections.print(printer, i);
    }
}

std::string printFrontJob(PrinterSurface& printer, SurfaceSize area) {
    const Transform fit = onSheet(Plane::fitFront(area, Plane::unfitted(area)), area, printer);
    Work work(allSections(), sectionsBetweenQuestions);
    printAllSections(printer, fit, work);
    for (int i = 1; i <= nbWings; ++i) printFront(printer, Wings(i), fit);
    printFront(printer, Stabilizer, fit);
    printFront(printer, Rudder, fit);
    printer.NewPage();
    return endJob(printer, work);
}

/// What belongs to each job, in the order of the jobs.
struct JobRow {
    PlanJob job;
    std::string_view name;
    bool PrintSelectRecord::*tick;
    std::string (*print)(PrinterSurface&, SurfaceSize);
};

constexpr std::array<JobRow, 5> jobTable{{
    {PlanJob::Side, "side", &PrintSelectRecord::Side, printSideJob},
    {PlanJob::frontSections, "sections", &PrintSelectRecord::frontSections, printSectionsJob},
    {PlanJob::vtop, "vtop", &PrintSelectRecord::vtop, printVTopJob},
    {PlanJob::front, "front", &PrintSelectRecord::front, printFrontJob},
    {PlanJob::htop, "htop", &PrintSelectRecord::htop, printHTopJob},
}};

const JobRow& rowOf(PlanJob job) {
    return jobTable[static_cast<std::size_t>(job)];
}

void setUnit(PrinterSurface& printer) {
    printer.setScaleMode(Prefs.units == millimetres ? scaleMillimetres : scaleInches);
}

}  // namespace

std::string_view jobName(PlanJob job) {
    return rowOf(job).name;
}

bool ticked(PlanJob job) {
    return PrintSelect.*rowOf(job).tick;
}

std::vector<std::string> tickedNames() {
    std::vector<std::string> names;
    for (const JobRow& row : jobTable)
        if (PrintSelect.*row.tick) names.emplace_back(row.name);
    return names;
}

std::string printJob(PlanJob job, PrinterSurface& printer, SurfaceSize area) {
    if (!printable(printer)) return "The sheet has no printable area.";
    printer.StartDoc(std::string(jobName(job)));
    return rowOf(job).print(printer, area);
}

std::string printPlans(PrinterSurface& printer, SurfaceSize area) {
    setUnit(printer);
    std::string reason;
    for (const PlanJob job : allJobs)
        if (reason.empty() && ticked(job)) reason = printJob(job, printer, area);
    return reason;
}

std::string previewJob(PlanJob job, PrinterSurface& printer, SurfaceSize area) {
    const std::int16_t fuselageBefore = currentFuselage;
    setUnit(printer);
    std::string reason = printJob(job, printer, area);
    currentFuselage = fuselageBefore;
    return reason;
}

}  // namespace Plans
}  // namespace velna
