#include "output/DxfDrawing.h"

#include <cmath>

#include "common/NumberText.h"

namespace velna {

DxfDrawing::DxfDrawing(const std::string& fileName, long long expectedLines)
    : file_(fileName), work_(expectedLines) {}

/// Group codes and numbers have a place for the sign in front and a blank behind; texts stand bare.
void DxfDrawing::text(std::string_view code, std::string_view value) {
    file_.line(code);
    file_.line(value);
}

void DxfDrawing::coordinate(std::string_view code, double value) {
    file_.line(code);
    std::string& buffer = file_.buffer();
    // A number that no reader could take (the product of two huge lengths) becomes 0.
    if (!std::isfinite(value)) value = 0;
    if (value >= 0) buffer += ' ';
    appendNumber(buffer, value);
    file_.line(" ");
}

void DxfDrawing::dxfBegin() {
    text(" 0 ", "SECTION");
    text(" 2 ", "ENTITIES");
}

std::string DxfDrawing::dxfEnd() {
    text(" 0 ", "ENDSEC");
    text(" 0 ", "EOF");
    if (work_.cancelled()) return cancelledReason;
    return file_.commit() ? std::string() : file_.error();
}

void DxfDrawing::dxfLine(const Point3D& from, const Point3D& to, std::string_view layer) {
    if (!work_.did(1)) return;
    text(" 0 ", "LINE");
    text(" 8 ", layer);
    coordinate(" 10 ", from.x);
    coordinate(" 20 ", from.y);
    coordinate(" 30 ", from.z);
    coordinate(" 11 ", to.x);
    coordinate(" 21 ", to.y);
    coordinate(" 31 ", to.z);
    file_.flushIfFull();
}

void DxfDrawing::dxfLineTo(const Point3D& to, bool draw, std::string_view layer) {
    if (draw) dxfLine(dxfPen, to, layer);
    dxfPen = to;
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
