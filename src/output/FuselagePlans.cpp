#include "output/FuselagePlans.h"

#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "common/NumberText.h"
#include "common/Polyline.h"

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

void printSide(PrinterSurface& printer, const MeshSections& body, const Transform& at) {
    std::vector<Point2D> tops;
    std::vector<Point2D> bottoms;
    for (int i = 1; i <= body.sectionCount(); ++i) {
        const int k = body.storageIndex(i);
        const double x = (body.pos(k) + body.pos_offset) * at.zoom + at.xoff;
        bottoms.push_back({x, -(body.elevation(k) + body.elevation_offset) * at.zoom + at.yoff});
        tops.push_back({x, -topOfBar(body, k) * at.zoom + at.yoff});
    }
    polyline(printer, tops, black);
    polyline(printer, bottoms, black);
    for (std::size_t i = 0; i < tops.size(); ++i)
        printer.Line(bottoms[i].x, bottoms[i].y, tops[i].x, tops[i].y, black);
}

void printHTop(PrinterSurface& printer, const MeshSections& body, const Transform& at) {
    std::vector<Point2D> edge;
    for (int i = 1; i <= body.sectionCount(); ++i) {
        const int k = body.storageIndex(i);
        edge.push_back({(body.pos(k) + body.pos_offset) * at.zoom + at.xoff,
                        body.width(k) / 2 * at.zoom + at.yoff});
    }
    polyline(printer, edge, black);
    for (Point2D& p : edge) p.y = 2 * at.yoff - p.y;
    polyline(printer, edge, black);
}

void printVTop(PrinterSurface& printer, const MeshSections& body, const Transform& at) {
    std::vector<Point2D> contour;
    const auto add = [&](int i, double side) {
        const int k = body.storageIndex(i);
        contour.push_back({(side * body.width(k) / 2 + body.shift) * at.zoom + at.xoff,
                           (body.pos(k) + body.pos_offset) * at.zoom + at.yoff});
    };
    for (int i = 1; i <= body.sectionCount(); ++i) add(i, 1);
    for (int i = body.sectionCount(); i >= 1; --i) add(i, -1);
    const std::span all(contour);
    const auto half = static_cast<std::size_t>(body.sectionCount());
    for (const auto& side : {all.first(half), all.last(half)}) polyline(printer, side, black);
    if (body.shift == 0) return;
    for (const auto& side : {all.first(half), all.last(half)})
        mirroredPolyline(printer, side, at.xoff, black);
}

SectionPlans::SectionPlans(const MeshSections& body, const Transform& at, Rgb colour)
    : body_(body), xoff_(at.xoff), colour_(colour), front_(body, at) {}

void SectionPlans::print(PrinterSurface& printer, int i) {
    front_.collect(i, section_);
    if (section_.empty()) return;
    section_.push_back(section_.front());
    polyline(printer, section_, colour_);
    if (body_.shift != 0) mirroredPolyline(printer, section_, xoff_, colour_);
}

}  // namespace velna
