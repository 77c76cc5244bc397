#pragma once

#include <functional>
#include <string>

#include "output/PrinterSurface.h"

namespace velna {

struct Project;

/// Draws a plan at true scale with model coordinate 0 at (`xoff`, `yoff`) of the paper.
using PlanDrawing = std::function<void(PrinterSurface& printer, double xoff, double yoff)>;

/// The printable area of a sheet, in the project's unit.
struct SheetSize {
    double width = 0;
    double height = 0;
};

/// A plan cut into sheets that overlap and are taped together. Sheet (1, 1) is the upper left one;
/// its printable area begins at (`left`, `top`) of the plan as it lies on the single sheet at the
/// nose.
struct SheetGrid {
    double left = 0;
    double top = 0;
    double stepX = 0;  ///< from sheet to sheet
    double stepY = 0;
    long long columns = 1;
    long long rows = 1;
};

namespace SheetMarks {

/// One millimetre of paper in the given unit.
double perMillimetre(int unit);

/// The grid that holds everything `draw` prints: sheets as far as the longest part reaches, the
/// fin's or the wing's end beyond the fuselage included, and further rows where the plan is higher
/// than the paper. Columns 0 when the paper is too small to overlap.
SheetGrid cut(const PlanDrawing& draw, double yoff, const SheetSize& sheet, int unit);

/// Crosses at a quarter and three quarters of each edge, in the middle of the overlap, so that
/// those of two neighbours lie on each other; the sheet's row and column; the ruler.
void drawMarks(const Project& project, PrinterSurface& printer, long long row, long long column);

/// A length of 100 mm (4 inches) with its end marks and its text, to check the printer by.
void drawRuler(const Project& project, PrinterSurface& printer);

}  // namespace SheetMarks
}  // namespace velna
