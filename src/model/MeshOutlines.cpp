#include "common/NumberText.h"
#include "model/Lengths.h"
#include "model/MeshSections.h"
#include "model/SuperEllipse.h"

namespace velna {

namespace {

/// Room for `count` points, kept as they are.
void makeRoom(LateArray1<Point2D>& points, int count) {
    if (points.upper() < count) points.resize(count);
}

}  // namespace

void MeshSections::computeSidePoints(double zoom, double xoff, double yoff) {
    const int sections = sectionCount();
    makeRoom(topPoints, sections);
    makeRoom(bottomPoints, sections);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double x = (pos(k) + pos_offset) * zoom + xoff;
        assignFinite(topPoints(i), x, -(elevation(k) + height(k) + elevation_offset) * zoom + yoff);
        assignFinite(bottomPoints(i), x, -(elevation(k) + elevation_offset) * zoom + yoff);
    }
}

void MeshSections::computeHTopPoints(double zoom, double xoff, double yoff) {
    const int sections = sectionCount();
    makeRoom(htopPlus, sections);
    makeRoom(htopMinus, sections);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double x = (pos(k) + pos_offset) * zoom + xoff;
        assignFinite(htopPlus(i), x, (width(k) / 2 + shift) * zoom + yoff);
        assignFinite(htopMinus(i), x, (-width(k) / 2 + shift) * zoom + yoff);
    }
}

void MeshSections::computeVTopPoints(double zoom, double xoff, double yoff) {
    const int sections = sectionCount();
    makeRoom(vtopPoints, 2 * sections);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double y = (pos(k) + pos_offset) * zoom + yoff;
        assignFinite(vtopPoints(i), (width(k) / 2 + shift) * zoom + xoff, y);
        assignFinite(vtopPoints(2 * sections + 1 - i), (-width(k) / 2 + shift) * zoom + xoff, y);
    }
}

void MeshSections::computeFrontPoints(double zoom, double xoff, double yoff) {
    if (nb_cross < 1) return;
    const int sections = sectionCount();
    if (frontPoints.rows() != sections || frontPoints.columns() != nb_cross)
        frontPoints.allocate(sections, nb_cross);
    const double middle = nb_cross / 2.0;
    SuperEllipse upper(1, middle, nb_cross);
    // An odd number of points runs on half-odd indices here: their angles keep the fraction, and
    // two of them fall on one entry, the later one staying.
    SuperEllipse lower(middle + 1, nb_cross, nb_cross);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        const double base = (bias_curve(k) - 1) * height(k);
        Point2D* row = frontPoints.row(i);
        auto place = [&](int j, double y, double z) {
            assignFinite(row[j], y * zoom + xoff, -z * zoom + yoff);
        };
        auto placeHalf = [&](const SuperEllipse& ellipse, double rise) {
            double j = ellipse.first();
            for (const auto& at : ellipse.places()) {
                place(roundToInt(j++), (width(k) / 2) * at.cosine + shift,
                      (rise * at.sine - base) + elevation(k) + elevation_offset);
            }
        };
        upper.setExponent(curvature(k));
        placeHalf(upper, height(k) * bias_curve(k));
        if (nb_cross > 1) {
            place(roundToInt(middle + 1), -width(k) / 2 + shift,
                  elevation(k) + -base + elevation_offset);
        }
        lower.setExponent(curv = curvature2(k));
        placeHalf(lower, (1.0 - bias_curve(k)) * height(k));
    }
}

bool MeshSections::frontPointUsed(int j) const {
    if (j < 1 || j > nb_cross) return false;
    // With an odd number the lower loop's half-odd indices are all rounded to even entries.
    return nb_cross % 2 == 0 || j <= nb_cross / 2 || j % 2 == 0;
}

Point2D MeshSections::frontPoint(int i, int j) const {
    if (i < 0 || i > frontPoints.rows() || j < 0 || j > frontPoints.columns()) return {};
    return frontPoints(i, j);
}

}  // namespace velna
