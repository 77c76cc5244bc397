#include "output/SheetMarks.h"

#include <algorithm>
#include <cmath>

#include "model/Project.h"

namespace velna::SheetMarks {

namespace {

// millimetres of paper
constexpr double overlap = 10;
constexpr double crossArm = 3;
constexpr double textMargin = 2;
constexpr double textHeight = 4;
constexpr double rulerTick = 2;

/// A surface that prints nothing and remembers how far the lines reach.
class Extent : public PrinterSurface {
public:
    void setScaleMode(int) override {}
    double ScaleWidth() const override { return 0; }
    double ScaleHeight() const override { return 0; }
    void Line(double x1, double y1, double x2, double y2, Rgb) override {
        reach(x1, y1);
        reach(x2, y2);
    }
    void Text(double, double, const std::string&) override {}
    void StartDoc(const std::string&, Progress*) override {}
    void NewPage() override {}
    Outcome EndDoc() override { return {}; }
    void KillDoc() override {}
    std::string error() const override { return {}; }

    // The paper's own corner belongs to the extent: the plan begins there, as it does on single
    // sheets.
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

private:
    void reach(double x, double y) {
        if (!std::isfinite(x) || !std::isfinite(y)) return;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
};

/// Sheets of `size` that overlap by `common` and reach over `length`; clipped where nobody could
/// count them, which the job then refuses.
long long sheetsFor(double length, double size, double common) {
    const double sheets = std::ceil((length - common) / (size - common));
    return static_cast<long long>(std::clamp(sheets, 1.0, 1e9));
}

void drawCross(PrinterSurface& printer, const Point2D& at, double arm, Rgb colour) {
    printer.Line(at.x - arm, at.y, at.x + arm, at.y, colour);
    printer.Line(at.x, at.y - arm, at.x, at.y + arm, colour);
}

}  // namespace

double perMillimetre(int unit) {
    return unit == inches ? 1 / Plane::millimetresPerInch : 1;
}

SheetGrid cut(const PlanDrawing& draw, double yoff, const SheetSize& sheet, int unit) {
    const double common = overlap * perMillimetre(unit);
    SheetGrid grid;
    grid.stepX = sheet.width - common;
    grid.stepY = sheet.height - common;
    if (!(grid.stepX > 0) || !(grid.stepY > 0)) {
        grid.columns = 0;
        return grid;
    }
    Extent extent;
    draw(extent, 0, yoff);
    grid.left = extent.left;
    grid.columns = sheetsFor(extent.right - extent.left, sheet.width, common);
    // One row stands as on single sheets; more rows are stacked upward from the lowest line.
    const double bottom = std::max(extent.bottom, sheet.height);
    grid.rows = sheetsFor(bottom - extent.top, sheet.height, common);
    grid.top = bottom - (static_cast<double>(grid.rows) * grid.stepY + common);
    return grid;
}

void drawMarks(const Project& project, PrinterSurface& printer, long long row, long long column) {
    const double unit = perMillimetre(project.units);
    const double width = printer.ScaleWidth();
    const double height = printer.ScaleHeight();
    const double inset = overlap * unit / 2;
    for (const double share : {0.25, 0.75}) {
        for (const double x : {inset, width - inset})
            drawCross(printer, {x, share * height}, crossArm * unit, project.dimColor);
        for (const double y : {inset, height - inset})
            drawCross(printer, {share * width, y}, crossArm * unit, project.dimColor);
    }
    printer.Text((overlap + textMargin) * unit, (overlap + textHeight) * unit,
                 "Row " + std::to_string(row) + ", column " + std::to_string(column));
    drawRuler(project, printer);
}

void drawRuler(const Project& project, PrinterSurface& printer) {
    const double unit = perMillimetre(project.units);
    const bool inInches = project.units == inches;
    const double length = inInches ? 4 : 100;
    const double x = (overlap + textMargin) * unit;
    const double y = (overlap + textMargin + 2 * textHeight) * unit;
    printer.Line(x, y, x + length, y, project.dimColor);
    for (const double end : {x, x + length})
        printer.Line(end, y - rulerTick * unit, end, y + rulerTick * unit, project.dimColor);
    printer.Text(x + textMargin * unit, y - unit, inInches ? "4 inches" : "100 mm");
}

}  // namespace velna::SheetMarks
