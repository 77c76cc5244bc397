#include <algorithm>

#include "common/NumberText.h"
#include "model/Lengths.h"
#include "model/MeshSections.h"
#include "model/SuperEllipse.h"

namespace velna {

namespace {

/// Room for `count` points, kept as they are.
void makeRoom(Array1<Point2D>& points, int count) {
    if (points.upper() < count) points.resize(count);
}

}  // namespace

SideEdges MeshSections::computeSidePoints(const Transform& at, SideEdges edges) const {
    const auto& [zoom, xoff, yoff] = at;
    const int sections = sectionCount();
    makeRoom(edges.top, sections);
    makeRoom(edges.bottom, sections);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double x = (pos(k) + pos_offset) * zoom + xoff;
        assignFinite(edges.top(i), x, -(elevation(k) + height(k) + elevation_offset) * zoom + yoff);
        assignFinite(edges.bottom(i), x, -(elevation(k) + elevation_offset) * zoom + yoff);
    }
    return edges;
}

HTopEdges MeshSections::computeHTopPoints(const Transform& at, HTopEdges edges) const {
    const auto& [zoom, xoff, yoff] = at;
    const int sections = sectionCount();
    makeRoom(edges.plus, sections);
    makeRoom(edges.minus, sections);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double x = (pos(k) + pos_offset) * zoom + xoff;
        assignFinite(edges.plus(i), x, (width(k) / 2 + shift) * zoom + yoff);
        assignFinite(edges.minus(i), x, (-width(k) / 2 + shift) * zoom + yoff);
    }
    return edges;
}

Array1<Point2D> MeshSections::computeVTopPoints(const Transform& at,
                                                Array1<Point2D> contour) const {
    const auto& [zoom, xoff, yoff] = at;
    const int sections = sectionCount();
    makeRoom(contour, 2 * sections);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double y = (pos(k) + pos_offset) * zoom + yoff;
        assignFinite(contour(i), (width(k) / 2 + shift) * zoom + xoff, y);
        assignFinite(contour(2 * sections + 1 - i), (-width(k) / 2 + shift) * zoom + xoff, y);
    }
    return contour;
}

Array2<Point2D> MeshSections::computeFrontPoints(const Transform& at, Array2<Point2D> front) const {
    if (nb_cross < 1) return front;
    const int sections = sectionCount();
    if (front.rows() != sections || front.columns() != nb_cross) front.allocate(sections, nb_cross);
    const double middle = nb_cross / 2.0;
    SuperEllipse upper(1, middle, nb_cross);
    // An odd number of front runs on half-odd indices here: their angles keep the fraction, and
    // two of them fall on one entry, the later one staying.
    SuperEllipse lower(middle + 1, nb_cross, nb_cross);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double base = (bias_curve(k) - 1) * height(k);
        Point2D* row = front.row(i);
        auto place = [&](int j, double y, double z) {
            assignFinite(row[j], y * at.zoom + at.xoff, -z * at.zoom + at.yoff);
        };
        auto placeHalf = [&](const SuperEllipse& ellipse, double rise) {
            double j = ellipse.first();
            for (const auto& spot : ellipse.places()) {
                place(roundToInt(j++), (width(k) / 2) * spot.cosine + shift,
                      (rise * spot.sine - base) + elevation(k) + elevation_offset);
            }
        };
        upper.setExponent(curvature(k));
        placeHalf(upper, height(k) * bias_curve(k));
        if (nb_cross > 1) {
            place(roundToInt(middle + 1), -width(k) / 2 + shift,
                  elevation(k) + -base + elevation_offset);
        }
        lower.setExponent(curvature2(k));
        placeHalf(lower, (1.0 - bias_curve(k)) * height(k));
    }
    return front;
}

bool MeshSections::frontPointUsed(int j) const {
    if (j < 1 || j > nb_cross) return false;
    // With an odd number the lower loop's half-odd indices are all rounded to even entries.
    return nb_cross % 2 == 0 || j <= nb_cross / 2 || j % 2 == 0;
}

void MeshSections::collectSection(const Array2<Point2D>& front, int i,
                                  std::vector<Point2D>& section) const {
    section.clear();
    if (i < 1 || i > front.rows()) return;
    for (int j = 1; j <= std::min<int>(nb_cross, front.columns()); ++j)
        if (frontPointUsed(j)) section.push_back(front(i, j));
}

}  // namespace velna
