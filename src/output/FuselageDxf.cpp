#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "model/MeshSections.h"
#include "output/DxfDrawing.h"

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

/// Section `i` of the front outline, as far as its loops write it: with an odd number of outline
/// points some entries hold nothing, and a line to the origin is no part of a section.
void collectSection(const MeshSections& fuselage, int i, std::vector<Point2D>& points) {
    points.clear();
    for (int j = 1; j <= fuselage.nb_cross; ++j)
        if (fuselage.frontPointUsed(j)) points.push_back(fuselage.frontPoint(i, j));
}

void barBetween(DxfDrawing& drawing, const Point2D& from, const Point2D& to,
                const std::string& layer) {
    drawing.dxfLine({from.x, -from.y, 0}, {to.x, -to.y, 0}, layer);
}

}  // namespace

void MeshSections::saveDXF_side(DxfDrawing& drawing, int fuselageId) {
    const std::string layer = layerOf(fuselageId);
    computeSidePoints(1, 0, 0);
    const auto count = static_cast<std::size_t>(sectionCount());
    drawing.polyline({topPoints.data() + 1, count}, dxfUpright, layer);
    drawing.polyline({bottomPoints.data() + 1, count}, dxfUpright, layer);
    for (int i = 1; i <= sectionCount(); ++i)
        barBetween(drawing, bottomPoints(i), topPoints(i), layer);
}

/// All sections first, then all mirrored ones. Without a shift the outline is complete by itself.
void MeshSections::saveDXF_front(DxfDrawing& drawing, int fuselageId) {
    const std::string layer = layerOf(fuselageId);
    computeFrontPoints(1, 0, 0);
    std::vector<Point2D> section;
    for (const DxfSigns& signs : {dxfUpright, dxfMirrored}) {
        if (signs.x < 0 && shift == 0) continue;
        for (int i = 1; i <= sectionCount() && drawing.wanted(); ++i) {
            collectSection(*this, i, section);
            drawing.closedPolyline(section, signs, layer);
        }
    }
}

/// Down one side from the nose, up the other, and back to the first point; the nose is up.
void MeshSections::saveDXF_vtop(DxfDrawing& drawing, int fuselageId) {
    const std::string layer = layerOf(fuselageId);
    std::vector<Point2D> contour;
    contour.reserve(2 * static_cast<std::size_t>(sectionCount()));
    const auto add = [&](int i, double side) {
        const int k = storageIndex(i);
        contour.push_back({shift + side * (width(k) / 2), pos(k) + pos_offset});
    };
    for (int i = 1; i <= sectionCount(); ++i) add(i, -1);
    for (int i = sectionCount(); i >= 1; --i) add(i, 1);
    drawing.closedPolyline(contour, dxfUpright, layer);
    if (shift != 0) drawing.closedPolyline(contour, dxfMirrored, layer);
}

void MeshSections::saveDXF_htop(DxfDrawing& drawing) {
    // The plan lies on the centre line whatever the shift: it is a building plan of this one body.
    std::vector<Point2D> plus;
    std::vector<Point2D> minus;
    for (int i = 1; i <= sectionCount(); ++i) {
        const int k = storageIndex(i);
        plus.push_back({pos(k) + pos_offset, width(k) / 2});
        minus.push_back({pos(k) + pos_offset, -(width(k) / 2)});
    }
    constexpr DxfSigns asTheyStand{1, 1};
    drawing.polyline(plus, asTheyStand, planLayer);
    drawing.polyline(minus, asTheyStand, planLayer);
    for (std::size_t i = 0; i < plus.size(); ++i)
        drawing.dxfLine({plus[i].x, plus[i].y, 0}, {minus[i].x, minus[i].y, 0}, planLayer);
    if (nb_cross < 2) return;

    // The sections stand side by side above the plan, ready to be cut out, heads down.
    computeFrontPoints(1, 0, maxElevationPoint() + gapAbovePlan);
    double distance = 0;
    double before = 0;
    std::vector<Point2D> section;
    for (int i = 1; i <= sectionCount() && drawing.wanted(); ++i) {
        const double here = width(storageIndex(i));
        distance = distance + before / 2 + here / 2 + gapInRow;
        before = here;
        collectSection(*this, i, section);
        for (Point2D& p : section) p.x += distance;
        drawing.closedPolyline(section, asTheyStand, planLayer);
    }
}

}  // namespace velna
