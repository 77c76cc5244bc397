#include "output/FuselageDxf.h"

#include <cstddef>
#include <string>
#include <vector>

#include "common/Polyline.h"
#include "model/FrontOutline.h"

namespace velna {

namespace {

constexpr const char* planLayer = "Fuselage";
/// Between the plan and the row of sections above it, and between two sections of the row, in units
/// of the project.
constexpr double gapAbovePlan = 100;
constexpr double gapInRow = 10;

std::string layerOf(int fuselageId) {
    return "Fuselage_" + std::to_string(fuselageId);
}

void barBetween(DxfDrawing& drawing, const Point2D& from, const Point2D& to,
                const std::string& layer) {
    drawing.dxfLine({from.x, -from.y, 0}, {to.x, -to.y, 0}, layer);
}

}  // namespace

void saveDXF_side(DxfDrawing& drawing, const MeshSections& body, int id) {
    const std::string layer = layerOf(id);
    const SideEdges edges = body.computeSidePoints({});
    drawing.polyline(pointsOf(edges.top, body.sectionCount()), dxfUpright, layer);
    drawing.polyline(pointsOf(edges.bottom, body.sectionCount()), dxfUpright, layer);
    for (int i = 1; i <= body.sectionCount(); ++i)
        barBetween(drawing, edges.bottom(i), edges.top(i), layer);
}

void saveDXF_front(DxfDrawing& drawing, const MeshSections& body, int id) {
    const std::string layer = layerOf(id);
    FrontOutline front(body, {});
    std::vector<Point2D> section;
    for (const DxfSigns& signs : {dxfUpright, dxfMirrored}) {
        if (signs.x < 0 && body.shift == 0) continue;
        for (int i = 1; i <= body.sectionCount() && drawing.wanted(); ++i) {
            front.collect(i, section);
            drawing.closedPolyline(section, signs, layer);
        }
    }
}

/// Down one side from the nose, up the other, and back to the first point; the nose is up.
void saveDXF_vtop(DxfDrawing& drawing, const MeshSections& body, int id) {
    const std::string layer = layerOf(id);
    std::vector<Point2D> contour;
    contour.reserve(2 * static_cast<std::size_t>(body.sectionCount()));
    const auto add = [&](int i, double side) {
        const int k = body.storageIndex(i);
        contour.push_back({body.shift + side * (body.width(k) / 2), body.pos(k) + body.pos_offset});
    };
    for (int i = 1; i <= body.sectionCount(); ++i) add(i, -1);
    for (int i = body.sectionCount(); i >= 1; --i) add(i, 1);
    drawing.closedPolyline(contour, dxfUpright, layer);
    if (body.shift != 0) drawing.closedPolyline(contour, dxfMirrored, layer);
}

namespace {

constexpr DxfSigns asTheyStand{1, 1};

/// The plan lies on the centre line whatever the shift: it is a building plan of this one body.
void drawPlan(DxfDrawing& drawing, const MeshSections& body) {
    std::vector<Point2D> plus;
    std::vector<Point2D> minus;
    for (int i = 1; i <= body.sectionCount(); ++i) {
        const int k = body.storageIndex(i);
        plus.push_back({body.pos(k) + body.pos_offset, body.width(k) / 2});
        minus.push_back({body.pos(k) + body.pos_offset, -(body.width(k) / 2)});
    }
    drawing.polyline(plus, asTheyStand, planLayer);
    drawing.polyline(minus, asTheyStand, planLayer);
    for (std::size_t i = 0; i < plus.size(); ++i)
        drawing.dxfLine({plus[i].x, plus[i].y, 0}, {minus[i].x, minus[i].y, 0}, planLayer);
}

/// The sections stand side by side above the plan, ready to be cut out, heads down.
void drawRowOfSections(DxfDrawing& drawing, const MeshSections& body) {
    FrontOutline front(body, {1, 0, body.maxElevationPoint() + gapAbovePlan});
    double distance = 0;
    double before = 0;
    std::vector<Point2D> section;
    for (int i = 1; i <= body.sectionCount() && drawing.wanted(); ++i) {
        const double here = body.width(body.storageIndex(i));
        distance = distance + before / 2 + here / 2 + gapInRow;
        before = here;
        front.collect(i, section);
        for (Point2D& p : section) p.x += distance;
        drawing.closedPolyline(section, asTheyStand, planLayer);
    }
}

}  // namespace

void saveDXF_htop(DxfDrawing& drawing, const MeshSections& body) {
    drawPlan(drawing, body);
    if (body.nb_cross >= 2) drawRowOfSections(drawing, body);
}

}  // namespace velna
