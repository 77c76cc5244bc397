#include "output/DxfDrawing.h"

#include <cmath>

#include "common/NumberText.h"

namespace velna {

namespace {

void format(std::string& line, double value) {
    line.clear();
    // A number that no reader could take (the product of two huge lengths) becomes 0.
    if (!std::isfinite(value)) value = 0;
    if (value >= 0) line += ' ';
    appendNumber(line, value);
    line += " \r\n";
}

void format(std::array<std::string, 3>& lines, const Point3D& point) {
    format(lines[0], point.x);
    format(lines[1], point.y);
    format(lines[2], point.z);
}

}  // namespace

DxfDrawing::DxfDrawing(const std::string& fileName, long long expectedLines, Progress* watcher)
    : file_(fileName), work_(watcher, expectedLines) {
    // Where a line begins that no move came before.
    format(penLines_, pen_);
}

/// Group codes and numbers have a place for the sign in front and a blank behind; texts stand bare.
void DxfDrawing::text(std::string_view code, std::string_view value) {
    file_.line(code);
    file_.line(value);
}

void DxfDrawing::coordinates(const NumberLines& lines,
                             const std::array<std::string_view, 3>& codes) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        file_.line(codes[i]);
        file_.buffer() += lines[i];
    }
}

void DxfDrawing::dxfBegin() {
    text(" 0 ", "SECTION");
    text(" 2 ", "ENTITIES");
}

Outcome DxfDrawing::dxfEnd() {
    text(" 0 ", "ENDSEC");
    text(" 0 ", "EOF");
    if (work_.cancelled()) return Outcome::cancelled();
    return file_.commit() ? Outcome() : Outcome::failed(file_.error());
}

void DxfDrawing::entity(const NumberLines& from, const NumberLines& to, std::string_view layer) {
    if (!work_.did(1)) return;
    text(" 0 ", "LINE");
    text(" 8 ", layer);
    coordinates(from, {" 10 ", " 20 ", " 30 "});
    coordinates(to, {" 11 ", " 21 ", " 31 "});
    file_.flushIfFull();
}

void DxfDrawing::dxfLine(const Point3D& from, const Point3D& to, std::string_view layer) {
    NumberLines fromLines;
    format(fromLines, from);
    format(endLines_, to);
    entity(fromLines, endLines_, layer);
}

void DxfDrawing::dxfLineTo(const Point3D& to, bool draw, std::string_view layer) {
    format(endLines_, to);
    if (draw) entity(penLines_, endLines_, layer);
    penLines_.swap(endLines_);
    pen_ = to;
}

void DxfDrawing::polyline(std::span<const Point2D> points, DxfSigns signs, std::string_view layer) {
    bool draw = false;
    for (const Point2D& p : points) {
        dxfLineTo({signs.x * p.x, signs.y * p.y, 0}, draw, draw ? layer : "NoName");
        draw = true;
    }
}

void DxfDrawing::closedPolyline(std::span<const Point2D> points, DxfSigns signs,
                                std::string_view layer) {
    if (points.empty()) return;
    polyline(points, signs, layer);
    dxfLineTo({signs.x * points[0].x, signs.y * points[0].y, 0}, true, layer);
}

}  // namespace velna
