#include "output/PartPlans.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "common/Polyline.h"
#include "model/Fuselage.h"
#include "model/Panels.h"

namespace velna {

namespace {

// millimetres
constexpr double inset = 1;   ///< from the edge of the printable area
constexpr double gap = 4;     ///< between two parts
constexpr double ruler = 25;  ///< the strip of the ruler at the upper edge

bool holds(const SheetSize& room, const PackedSize& size) {
    return size.width <= room.width && size.height <= room.height;
}

PackedSize sizeOf(const CutPart& part) {
    const PartBox box = part.box();
    return {box.width(), box.height()};
}

/// How a part may lie on the sheet; not at all where it is larger.
std::optional<PackedPart> waysOnto(const SheetSize& room, const CutPart& part) {
    const PackedSize size = sizeOf(part);
    PackedPart ways{size};
    if (part.turns) ways.turned = sizeOf(turned(part));
    if (ways.turned && !holds(room, *ways.turned)) ways.turned.reset();
    return holds(room, size) || ways.turned ? std::optional(ways) : std::nullopt;
}

/// Plain tiles, edge to edge.
SheetGrid plainGrid(const PartBox& box, const SheetSize& sheet) {
    const auto tiles = [](double length, double size) {
        return static_cast<long long>(std::clamp(std::ceil(length / size), 1.0, 1e9));
    };
    SheetGrid grid;
    grid.stepX = sheet.width;
    grid.stepY = sheet.height;
    grid.columns = tiles(box.width() + 2 * inset, sheet.width);
    grid.rows = tiles(box.height() + 2 * inset, sheet.height);
    return grid;
}

/// Tiles to be taped together, of a part that begins `head` below their upper edge.
SheetGrid overlappingGrid(const PartBox& box, double head, const SheetSize& sheet) {
    const auto frame = [&](PrinterSurface& printer, double xoff, double yoff) {
        printer.Line(xoff + inset, yoff + head, xoff + inset + box.width(),
                     yoff + head + box.height(), black);
    };
    return SheetMarks::cut(frame, 0, sheet, millimetres);
}

}  // namespace

PartSheets::PartSheets(std::vector<CutPart> parts, const Project& project, const SheetSize& sheet,
                       bool overlap)
    : parts_(std::move(parts)),
      project_(project),
      overlap_(overlap),
      unit_(millimetresOf(project.units)) {
    sheet_ = {sheet.width * unit_, sheet.height * unit_};
    const double head = overlap_ ? ruler : inset;
    const SheetSize room{sheet_.width - 2 * inset, sheet_.height - head - inset};
    std::vector<std::size_t> fitting;
    std::vector<std::size_t> large;
    std::vector<PackedPart> sizes;
    for (std::size_t n = 0; n < parts_.size(); ++n) {
        const auto ways = waysOnto(room, parts_[n]);
        (ways ? fitting : large).push_back(n);
        if (ways) sizes.push_back(*ways);
    }
    pack(fitting, sizes, room);
    for (const std::size_t n : large) tile(n);
}

void PartSheets::pack(const std::vector<std::size_t>& fitting, std::span<const PackedPart> sizes,
                      const SheetSize& room) {
    const auto places = packParts(sizes, {room.width, room.height}, gap);
    const double head = overlap_ ? ruler : inset;
    for (std::size_t i = 0; i < places.size(); ++i) {
        CutPart& part = parts_[fitting[i]];
        if (places[i].turned) part = turned(part);
        const PartBox box = part.box();
        packed_.resize(std::max(packed_.size(), places[i].sheet + 1));
        packed_[places[i].sheet].push_back(
            {fitting[i], {inset + places[i].x - box.left, head + places[i].y + box.top}});
    }
    count_ = static_cast<double>(packed_.size());
}

void PartSheets::tile(std::size_t part) {
    const PartBox box = parts_[part].box();
    double head = inset;
    SheetGrid grid = overlap_ ? overlappingGrid(box, head, sheet_) : plainGrid(box, sheet_);
    if (overlap_) {
        // Below the ruler, where that needs no more sheets.
        const SheetGrid lower = overlappingGrid(box, ruler, sheet_);
        if (lower.rows == grid.rows) {
            head = ruler;
            grid = lower;
        }
    }
    const Tiled tiled{{part, {inset - box.left, head + box.top}}, grid, count_ + 1};
    tooSmall_ = tooSmall_ || tiled.grid.columns == 0;
    count_ += static_cast<double>(tiled.grid.columns) * static_cast<double>(tiled.grid.rows);
    tiled_.push_back(tiled);
}

void PartSheets::print(PrinterSurface& printer, long long number) const {
    const auto sheet = static_cast<std::size_t>(number) - 1;
    if (sheet < packed_.size()) {
        for (const Placed& placed : packed_[sheet]) printPart(printer, placed, {0, 0});
        if (overlap_) SheetMarks::drawRuler(project_, printer);
        return;
    }
    const auto behind = std::find_if(tiled_.begin(), tiled_.end(), [number](const Tiled& tiled) {
        return tiled.first > static_cast<double>(number);
    });
    const Tiled& tiled = *std::prev(behind);
    printTile(printer, tiled, number - static_cast<long long>(tiled.first));
}

void PartSheets::printTile(PrinterSurface& printer, const Tiled& tiled, long long number) const {
    const SheetGrid& grid = tiled.grid;
    const long long row = number / grid.columns;
    const long long column = number % grid.columns;
    printPart(printer, tiled.placed,
              {grid.left + static_cast<double>(column) * grid.stepX,
               grid.top + static_cast<double>(row) * grid.stepY});
    if (overlap_) SheetMarks::drawMarks(project_, printer, row + 1, column + 1);
}

void PartSheets::printPart(PrinterSurface& printer, const Placed& placed,
                           const Point2D& moved) const {
    const auto onPaper = [&](const Point2D& point) {
        return Point2D{(placed.origin.x - moved.x + point.x) / unit_,
                       (placed.origin.y - moved.y - point.y) / unit_};
    };
    const CutPart& part = parts_[placed.part];
    for (Loop loop : part.cut) {
        std::transform(loop.begin(), loop.end(), loop.begin(), onPaper);
        closedPolyline(printer, loop, black);
    }
    for (const auto& drawn : part.engrave)
        line(printer, onPaper(drawn[0]), onPaper(drawn[1]), project_.dimColor);
    for (const PartText& text : part.texts) {
        const Point2D at = onPaper(text.at);
        printer.Text(at.x, at.y, text.text);
    }
}

CutSectionPlans::CutSectionPlans(const Project& project, const Transform& at,
                                 const RibWishes& wishes, std::vector<std::string>* words)
    : project_(project),
      body_(Fuselage::current(project)),
      at_(at),
      skin_(wishes.skin),
      unit_(millimetresOf(project.units)),
      words_(words),
      front_(body_, {unit_, 0, 0}) {}

void CutSectionPlans::print(PrinterSurface& printer, int i) {
    Loop outline;
    front_.collect(i, outline);
    for (Point2D& point : outline) point.y = -point.y;
    const double position = (body_.pos(body_.storageIndex(i)) + body_.pos_offset) * unit_;
    const std::string name = "section " + std::to_string(i);
    const std::string place = "at " + lengthWithUnit(position, project_.units);
    CutPart part;
    const std::string why = sectionBorders(outline, skin_, part.cut);
    if (!why.empty()) {
        if (words_) words_->push_back(name + ' ' + place + ": not cut, " + why + '.');
        return;
    }
    // Clear of the cross through the origin, where there is room for it.
    labelBeside(part, {name, place}, {project_.units, true}, 0, 0);
    printHalf(printer, part, false);
    if (body_.shift != 0) printHalf(printer, part, true);
}

void CutSectionPlans::printHalf(PrinterSurface& printer, const CutPart& part, bool mirror) const {
    const auto onPaper = [&](const Point2D& point) {
        return Point2D{(mirror ? -point.x : point.x) / unit_ + at_.xoff,
                       -point.y / unit_ + at_.yoff};
    };
    for (Loop loop : part.cut) {
        std::transform(loop.begin(), loop.end(), loop.begin(), onPaper);
        closedPolyline(printer, loop, project_.dimColor);
    }
    for (const PartText& text : part.texts) {
        const double width = textWidth(text.text, text.height);
        const Point2D at = onPaper({mirror ? text.at.x + width : text.at.x, text.at.y});
        printer.Text(at.x, at.y, text.text);
    }
}

}  // namespace velna
