#include <algorithm>

#include "model/FrontOutline.h"
#include "model/Lengths.h"
#include "model/MeshSections.h"

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
    FrontOutline outline(*this, at);
    for (int i = 1; i <= sections; ++i) outline.write(front.row(i), i);
    return front;
}

Array1<Point2D> MeshSections::computeFrontSection(const Transform& at, int i,
                                                  Array1<Point2D> section) const {
    if (nb_cross < 1 || i < 1 || i > sectionCount()) return section;
    if (section.upper() != nb_cross) section.allocate(nb_cross);
    FrontOutline(*this, at).write(section.data(), i);
    return section;
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

void MeshSections::collectSection(const Array1<Point2D>& front,
                                  std::vector<Point2D>& section) const {
    section.clear();
    for (int j = 1; j <= std::min<int>(nb_cross, front.upper()); ++j)
        if (frontPointUsed(j)) section.push_back(front(j));
}

}  // namespace velna
