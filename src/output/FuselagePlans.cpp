#include "output/FuselagePlans.h"

#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "common/NumberText.h"
#include "model/Fuselage.h"
#include "output/PlanLines.h"

namespace velna {

namespace {

/// The z of the upper end of section `k`'s bar in the side plan. The offset goes into the number of
/// the section whose elevation counts, and not into the height: plans of existing models must come
/// out as they always have. Where no section has that number it is added after all, like everywhere
/// else.
double topOfBar(const MeshSections& fuselage, int k) {
    const double number = roundHalfEven(k + fuselage.elevation_offset);
    if (number >= 0 && number <= fuselage.elevation.upper())
        return fuselage.elevation(static_cast<int>(number)) + fuselage.height(k);
    return fuselage.elevation(k) + fuselage.height(k) + fuselage.elevation_offset;
}

}  // namespace

void MeshSections::printSide(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    std::vector<Point2D> tops;
    std::vector<Point2D> bottoms;
    for (int i = 1; i <= sectionCount(); ++i) {
        const int k = storageIndex(i);
        const double x = (pos(k) + pos_offset) * zoom + xoff;
        bottoms.push_back({x, -(elevation(k) + elevation_offset) * zoom + yoff});
        tops.push_back({x, -topOfBar(*this, k) * zoom + yoff});
    }
    printPolyline(printer, tops, black);
    printPolyline(printer, bottoms, black);
    for (std::size_t i = 0; i < tops.size(); ++i)
        printer.Line(bottoms[i].x, bottoms[i].y, tops[i].x, tops[i].y, black);
}

/// The edge on the +width / 2 side, and its image about the centre line.
void MeshSections::printHTop(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    std::vector<Point2D> edge;
    for (int i = 1; i <= sectionCount(); ++i) {
        const int k = storageIndex(i);
        edge.push_back({(pos(k) + pos_offset) * zoom + xoff, width(k) / 2 * zoom + yoff});
    }
    printPolyline(printer, edge, black);
    for (Point2D& p : edge) p.y = 2 * yoff - p.y;
    printPolyline(printer, edge, black);
}

void MeshSections::printFront(PrinterSurface& printer, int i_sections, double zoom, double xoff,
                              double yoff) {
    if (nb_cross == 0) return;
    computeFrontPoints(zoom, xoff, yoff);
    printComputedSection(printer, *this, i_sections, xoff);
}

/// Both side contours, open at nose and tail.
void MeshSections::printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    std::vector<Point2D> contour;
    const auto add = [&](int i, double side) {
        const int k = storageIndex(i);
        contour.push_back(
            {(side * width(k) / 2 + shift) * zoom + xoff, (pos(k) + pos_offset) * zoom + yoff});
    };
    for (int i = 1; i <= sectionCount(); ++i) add(i, 1);
    for (int i = sectionCount(); i >= 1; --i) add(i, -1);
    const std::span all(contour);
    const auto half = static_cast<std::size_t>(sectionCount());
    for (const auto& side : {all.first(half), all.last(half)}) printPolyline(printer, side, black);
    if (shift == 0) return;
    for (const auto& side : {all.first(half), all.last(half)})
        printMirrored(printer, side, xoff, black);
}

void printComputedSection(PrinterSurface& printer, const MeshSections& fuselage, int i,
                          double xoff) {
    // With an odd number of outline points some entries hold nothing; they are no part of the
    // section.
    std::vector<Point2D> section;
    for (int j = 1; j <= fuselage.nb_cross; ++j)
        if (fuselage.frontPointUsed(j)) section.push_back(fuselage.frontPoint(i, j));
    if (section.empty()) return;
    section.push_back(section.front());
    printPolyline(printer, section, dimColor);
    if (fuselage.shift != 0) printMirrored(printer, section, xoff, dimColor);
}

void Fuselage::printVTop(PrinterSurface& printer, double zoom, double xoff, double yoff) {
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).printVTop(printer, zoom, xoff, yoff);
}

}  // namespace velna
