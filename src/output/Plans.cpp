#include "output/Plans.h"

#include <cmath>
#include <utility>

#include "common/MemoryEnds.h"
#include "common/Progress.h"
#include "common/ReplacedFile.h"
#include "model/FigureMarks.h"
#include "model/Fuselage.h"
#include "output/CutParts.h"
#include "output/FuselagePlans.h"
#include "output/PartPlans.h"
#include "output/SheetMarks.h"
#include "output/TailPlans.h"
#include "output/WingPlans.h"

namespace velna::Plans {

namespace {

constexpr int scaleMillimetres = 6;
constexpr int scaleInches = 5;
constexpr double trueScale = 1;

/// A watcher counts sheets, or sections where one sheet holds all of them.
constexpr long long everySheet = 1;
constexpr long long sectionsBetweenQuestions = 50;

/// What every job works on.
struct Sheets {
    const Project& project;
    PrinterSurface& printer;
    const PrintSelectRecord& select;
    const Paper& paper;

    bool overlap() const { return select.overlap; }
    Progress* watcher() const { return paper.watcher; }
    SurfaceSize area() const { return paper.area; }
};

/// A job that cannot be printed at all.
Outcome refuse(PrinterSurface& printer, const std::string& reason) {
    printer.KillDoc();
    return Outcome::failed(reason);
}

/// Ends a job that ran to its end, was cancelled, or has lost its printer.
Outcome endJob(PrinterSurface& printer, const Work& work) {
    if (work.cancelled()) {
        printer.KillDoc();
        return Outcome::cancelled();
    }
    return printer.EndDoc();
}

/// Prints `count` sheets, each begun by `draw(number)`. A plan without any is refused with the
/// reason `whyNone`: who asked for it would look for its paper.
template <class Draw>
Outcome printSheets(const Sheets& on, double count, const char* whyNone, Draw draw) {
    PrinterSurface& printer = on.printer;
    if (!(count <= static_cast<double>(mostSheets))) {
        return refuse(printer,
                      "The plan needs more than " + std::to_string(mostSheets) + " sheets.");
    }
    if (!(count >= 1)) return refuse(printer, whyNone);
    const auto sheets = static_cast<long long>(count);
    Work work(on.watcher(), sheets, everySheet);
    for (long long sheet = 1; sheet <= sheets; ++sheet) {
        if (!printer.error().empty()) break;
        draw(sheet);
        printer.NewPage();
        if (!work.did(1)) break;
    }
    return endJob(printer, work);
}

/// The marks of the figures on a plan, where they are asked for.
class FigurePlan {
public:
    FigurePlan(const Sheets& on, MarkView view) : on_(on), view_(view) {
        if (on.paper.figureMarks) figures_ = figuresOf(on.project);
    }

    void print(PrinterSurface& sheet, const Transform& at) const {
        if (!on_.paper.figureMarks) return;
        constexpr double millimetres = 3;
        const bool inInches = on_.project.units == inches;
        const double size = inInches ? Plane::mmToInches(millimetres) : millimetres;
        for (const MarkLine& mark : figureMarks(on_.project, figures_, view_, at, size))
            line(sheet, mark.from, mark.to, black);
    }

private:
    const Sheets& on_;
    MarkView view_;
    Figures figures_;
};

bool printable(const PrinterSurface& printer) {
    return printer.ScaleWidth() > 0 && printer.ScaleHeight() > 0;
}

constexpr const char* nothingOnPaper =
    "The plan has no sheets: the fuselage lies wholly before position 0.";
constexpr const char* tooSmallToOverlap = "The sheet is too small to overlap.";
constexpr const char* noSections = "The plan has no sheets: the fuselage has no sections.";

/// A true-scale plan in sheets side by side: plain tiles as far as the current fuselage reaches,
/// or, for taping, sheets that overlap and hold the whole plan.
Outcome printTiles(const Sheets& on, double yoff, const PlanDrawing& draw) {
    PrinterSurface& printer = on.printer;
    const double width = printer.ScaleWidth();
    if (!on.overlap()) {
        const double sheets = std::floor(Fuselage::current(on.project).lengthPoint() / width) + 1;
        return printSheets(on, sheets, nothingOnPaper, [&](long long sheet) {
            draw(printer, -static_cast<double>(sheet - 1) * width, yoff);
        });
    }
    const SheetGrid grid =
        SheetMarks::cut(draw, yoff, {width, printer.ScaleHeight()}, on.project.units);
    if (grid.columns == 0) return refuse(printer, tooSmallToOverlap);
    const double sheets = static_cast<double>(grid.rows) * static_cast<double>(grid.columns);
    return printSheets(on, sheets, nothingOnPaper, [&](long long sheet) {
        const long long row = (sheet - 1) / grid.columns;
        const long long column = (sheet - 1) % grid.columns;
        draw(printer, -(grid.left + static_cast<double>(column) * grid.stepX),
             yoff - (grid.top + static_cast<double>(row) * grid.stepY));
        SheetMarks::drawMarks(on.project, printer, row + 1, column + 1);
    });
}

/// Only the first wing appears, as in the side view.
Outcome printSideJob(const Sheets& on) {
    const Project& project = on.project;
    const MeshSections& fuselage = Fuselage::current(project);
    const double yoff = on.printer.ScaleHeight() + fuselage.minElevationPoint();
    const FigurePlan marks(on, MarkView::Side);
    return printTiles(on, yoff, [&](PrinterSurface& sheet, double x, double y) {
        const Transform at{trueScale, x, y};
        printSide(sheet, fuselage, at);
        printSide(sheet, project.Wings(1), at);
        printSide(sheet, project.Stabilizer, at);
        printSide(sheet, project.Rudder, at);
        marks.print(sheet, at);
    });
}

Outcome printHTopJob(const Sheets& on) {
    const FigurePlan marks(on, MarkView::NoseLeft);
    return printTiles(on, on.printer.ScaleHeight() / 2,
                      [&](PrinterSurface& sheet, double x, double y) {
                          const Transform at{trueScale, x, y};
                          printHTop(sheet, Fuselage::current(on.project), at);
                          marks.print(sheet, at);
                      });
}

/// Each section lies at its true place to the middle of the fuselage's height, so that all sheets
/// can be stacked on the cross hair.
Outcome printSectionsJob(const Sheets& on) {
    PrinterSurface& printer = on.printer;
    const MeshSections& fuselage = Fuselage::current(on.project);
    const double width = printer.ScaleWidth();
    const double height = printer.ScaleHeight();
    const double middle = (fuselage.maxElevationPoint() + fuselage.minElevationPoint()) / 2;
    const Transform at{trueScale, width / 2 + fuselage.shift, height / 2 + middle};
    SectionPlans sections(fuselage, at, on.project.dimColor);
    CutSectionPlans cutSections(on.project, at, on.select.wishes, on.paper.words);
    return printSheets(on, fuselage.nb_sections, noSections, [&](long long section) {
        printer.Line(width / 2, 0, width / 2, height, black);
        printer.Line(0, height / 2, width, height / 2, black);
        if (on.select.ribs) {
            cutSections.print(printer, static_cast<int>(section));
        } else {
            sections.print(printer, static_cast<int>(section));
        }
        if (on.overlap()) SheetMarks::drawRuler(on.project, printer);
    });
}

/// A view as it is fitted to the drawing surface, blown up to the sheet. A plan shows the whole
/// aircraft, whatever scale the screen has.
Transform onSheet(const Transform& fitted, const Sheets& on) {
    const double r = on.printer.ScaleWidth() / on.area().width;
    return {fitted.zoom * r, fitted.xoff * r, fitted.yoff * r};
}

long long allSections(const Project& project) {
    long long total = 0;
    for (int n = 1; n <= project.nbFuselages; ++n) total += project.Fuselages(n).nb_sections;
    return total;
}

Outcome printVTopJob(const Sheets& on) {
    const Project& project = on.project;
    const Transform fit =
        onSheet(Plane::fitVTop(project, on.area(), Plane::unfitted(on.area())), on);
    // The nose lies at the paper's upper edge, whatever room the screen leaves above it.
    const Transform at{fit.zoom, fit.xoff, 0};
    Work work(on.watcher(), allSections(project), sectionsBetweenQuestions);
    for (int i = 1; i <= project.nbFuselages && !work.cancelled(); ++i) {
        printVTop(on.printer, project.Fuselages(i), at);
        work.did(project.Fuselages(i).nb_sections);
    }
    for (int i = 1; i <= project.nbWings; ++i) printVTop(on.printer, project.Wings(i), at);
    printVTop(on.printer, project.Stabilizer, at);
    FigurePlan(on, MarkView::NoseUp).print(on.printer, at);
    on.printer.NewPage();
    return endJob(on.printer, work);
}

void printAllSections(const Sheets& on, const Transform& fit, Work& work) {
    for (int n = 1; n <= on.project.nbFuselages; ++n) {
        const MeshSections& fuselage = on.project.Fuselages(n);
        if (fuselage.nb_cross == 0) continue;
        SectionPlans sections(fuselage, fit, on.project.dimColor);
        for (int i = 1; i <= fuselage.nb_sections && work.did(1); ++i)
            sections.print(on.printer, i);
    }
}

Outcome printFrontJob(const Sheets& on) {
    const Project& project = on.project;
    const Transform fit =
        onSheet(Plane::fitFront(project, on.area(), Plane::unfitted(on.area())), on);
    Work work(on.watcher(), allSections(project), sectionsBetweenQuestions);
    printAllSections(on, fit, work);
    for (int i = 1; i <= project.nbWings; ++i)
        printFront(on.printer, project.Wings(i), fit, project.dimColor);
    printFront(on.printer, project.Stabilizer, fit, project.dimColor);
    printFront(on.printer, project.Rudder, fit);
    on.printer.NewPage();
    return endJob(on.printer, work);
}

/// Sheets of parts to be cut.
Outcome printParts(const Sheets& on, CutPlan plan, const char* whyNone) {
    CutParts made;
    const Outcome outcome =
        cutParts(on.project, plan, on.select.wishes, {on.project.units, true}, on.watcher(), made);
    if (on.paper.words)
        on.paper.words->insert(on.paper.words->end(), made.words.begin(), made.words.end());
    if (!outcome.isDone()) {
        on.printer.KillDoc();
        return outcome;
    }
    const PartSheets sheets(std::move(made.parts), on.project,
                            {on.printer.ScaleWidth(), on.printer.ScaleHeight()}, on.overlap());
    if (sheets.tooSmall()) return refuse(on.printer, tooSmallToOverlap);
    return printSheets(on, sheets.count(), whyNone,
                       [&](long long sheet) { sheets.print(on.printer, sheet); });
}

Outcome printWingJob(const Sheets& on) {
    return printParts(on, CutPlan::wing, "The plan has no sheets: no panel has an area.");
}

Outcome printRibsJob(const Sheets& on) {
    return printParts(on, CutPlan::ribs, "The plan has no sheets: there is no rib to cut.");
}

/// What belongs to each job, in the order of the jobs.
struct JobRow {
    PlanJob job;
    const char* name;
    bool PrintSelectRecord::*tick;
    Outcome (*print)(const Sheets&);
};

constexpr std::array<JobRow, Plans::allJobs.size()> jobTable{{
    {PlanJob::Side, "side", &PrintSelectRecord::Side, printSideJob},
    {PlanJob::frontSections, "sections", &PrintSelectRecord::frontSections, printSectionsJob},
    {PlanJob::vtop, "vtop", &PrintSelectRecord::vtop, printVTopJob},
    {PlanJob::front, "front", &PrintSelectRecord::front, printFrontJob},
    {PlanJob::htop, "htop", &PrintSelectRecord::htop, printHTopJob},
    {PlanJob::wing, "wing", &PrintSelectRecord::wing, printWingJob},
    {PlanJob::ribs, "ribs", &PrintSelectRecord::ribs, printRibsJob},
}};

const JobRow& rowOf(PlanJob job) {
    return jobTable[static_cast<std::size_t>(job)];
}

Outcome printJob(PlanJob job, const Sheets& on) {
    if (!printable(on.printer)) return Outcome::failed("The sheet has no printable area.");
    bool ended = false;
    const Outcome outcome = failedIfMemoryEnds([&] {
        on.printer.StartDoc(rowOf(job).name, on.watcher());
        Outcome printed = rowOf(job).print(on);
        ended = true;
        return printed;
    });
    if (!ended) on.printer.KillDoc();
    return outcome;
}

void setUnit(PrinterSurface& printer, int unit) {
    printer.setScaleMode(unit == millimetres ? scaleMillimetres : scaleInches);
}

}  // namespace

bool ticked(const PrintSelectRecord& select, PlanJob job) {
    return select.*rowOf(job).tick;
}

std::vector<std::string> tickedNames(const PrintSelectRecord& select) {
    std::vector<std::string> names;
    for (const JobRow& row : jobTable)
        if (select.*row.tick) names.emplace_back(row.name);
    return names;
}

std::string jobFile(const std::string& target, const std::string& job) {
    const std::string title = titleOf(target);
    const auto point = title.rfind('.');
    const std::string ending = point == std::string::npos ? "" : title.substr(point + 1);
    return folderOf(target) + title.substr(0, point) + "-" + job + "." +
           (ending.empty() ? "pdf" : ending);
}

Outcome printPlans(Project& project, const PrintSelectRecord& select, const Paper& paper) {
    setUnit(paper.printer, project.units);
    for (const PlanJob job : allJobs) {
        if (!ticked(select, job)) continue;
        const Outcome outcome = printJob(job, {project, paper.printer, select, paper});
        if (job == PlanJob::front && printable(paper.printer))
            project.currentFuselage = project.nbFuselages;
        if (!outcome.isDone()) return outcome;
    }
    return {};
}

Outcome previewJob(const Project& project, const PrintSelectRecord& select, PlanJob job,
                   const Paper& paper) {
    setUnit(paper.printer, project.units);
    return printJob(job, {project, paper.printer, select, paper});
}

}  // namespace velna::Plans
